// Plays a stretch of sound on a device.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/linux/port_audio.hpp"
#include "platform/linux/sound_feed.hpp"
#include "platform/wave_output.hpp"

namespace quillspeech::linux {

class OutputStream {
 public:
  OutputStream() = default;
  ~OutputStream() { Close(); }
  OutputStream(const OutputStream&) = delete;
  OutputStream& operator=(const OutputStream&) = delete;

  // 8 bits unsigned or 16 bits signed, 1 or 2 channels.
  WaveResult Open(const SoundDevice& device, const WaveFormat& format);
  // Starts the sound and returns; what sounded before is cut.
  WaveResult Play(std::vector<std::uint8_t> bytes, bool looped);
  // Whether the last sound has been heard to its end.
  bool Is_Finished() const;
  // Cuts the sound.
  void Close();

 private:
  void* stream_ = nullptr;
  WaveFormat format_;
  SoundFeed feed_;  // the device's thread asks it while the stream runs
};

}  // namespace quillspeech::linux
