// 8-bit mono sound as it comes from a device.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/linux/port_audio.hpp"
#include "platform/linux/sound_ring.hpp"
#include "platform/wave_header.hpp"

namespace quillspeech::linux {

// The device writes from a thread of its own into a ring; whoever takes from it does so on one
// other thread. When nobody takes for some seconds the newest sound is lost.
class InputStream {
 public:
  InputStream() = default;
  ~InputStream() { Close(); }
  InputStream(const InputStream&) = delete;
  InputStream& operator=(const InputStream&) = delete;

  // Opens the device and lets it run.
  WaveResult Open(const SoundDevice& device, std::uint32_t rate);
  void Close();
  // False also when the device went away.
  bool Is_Running() const;
  std::uint32_t Rate() const { return rate_; }

  // Takes up to `most` bytes that came in; gives their number.
  std::size_t Take(std::uint8_t* bytes, std::size_t most) { return ring_.Take(bytes, most); }
  // Forgets what came in so far.
  void Drop() { ring_.Drop(); }

 private:
  void* stream_ = nullptr;
  std::uint32_t rate_ = 0;
  SoundRing ring_;
};

}  // namespace quillspeech::linux
