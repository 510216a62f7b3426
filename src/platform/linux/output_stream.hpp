// Plays a stretch of sound on a device.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/linux/port_audio.hpp"
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
  friend struct OutputStreamCallback;
  // Fills the buffer, with silence behind the end; false when nothing is left.
  bool Fill(std::uint8_t* buffer, std::size_t count);

  void* stream_ = nullptr;
  std::size_t block_bytes_ = 1;
  std::uint8_t silence_ = 128;
  std::vector<std::uint8_t> bytes_;  // the device's thread reads it while the stream runs
  std::size_t position_ = 0;
  bool looped_ = false;
};

}  // namespace quillspeech::linux
