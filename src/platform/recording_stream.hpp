// The port of a device that records all the time once it is open, whoever takes what comes.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/wave_header.hpp"
#include "platform/wave_output.hpp"

namespace quillspeech {

class RecordingStream {
 public:
  virtual ~RecordingStream() = default;

  // As WaveInput has it.
  virtual WaveResult Get_Device_Capabilities(int device) = 0;

  // Opens the device and lets it run. Closes what was open before.
  virtual WaveResult Open(const WaveFormat& format) = 0;
  virtual void Close() = 0;
  // Whether it is open for that format. False also when the device went away.
  virtual bool Is_Running(const WaveFormat& format) const = 0;

  // Takes up to `most` bytes that came in, the oldest first; gives their number. When nobody takes
  // for some ten seconds the newest sound is lost.
  virtual std::size_t Take(std::uint8_t* bytes, std::size_t most) = 0;
  // Forgets what came in so far.
  virtual void Drop() = 0;
};

}  // namespace quillspeech
