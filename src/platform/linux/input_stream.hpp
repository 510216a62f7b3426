// 8-bit mono sound as it comes from a device.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "platform/linux/port_audio.hpp"
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
  std::size_t Take(std::uint8_t* bytes, std::size_t most);
  // Forgets what came in so far.
  void Drop();

 private:
  friend struct InputStreamCallback;
  void Put(const std::uint8_t* bytes, std::size_t count);

  void* stream_ = nullptr;
  std::uint32_t rate_ = 0;
  std::vector<std::uint8_t> ring_;
  std::atomic<std::size_t> put_{0};  // bytes ever put, and ever taken
  std::atomic<std::size_t> taken_{0};
};

}  // namespace quillspeech::linux
