// Sound on its way from a device's thread to another.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace quillspeech::linux {

// One thread puts, one other takes, and neither waits.
class SoundRing {
 public:
  // Empties it and gives it room for so many bytes. Nobody puts or takes meanwhile.
  void Make(std::size_t size);

  // What there is no room for is lost.
  void Put(const std::uint8_t* bytes, std::size_t count);

  // Takes up to `most` bytes, the oldest first; gives their number.
  std::size_t Take(std::uint8_t* bytes, std::size_t most);
  // Forgets what is in it. For the thread that takes.
  void Drop();

 private:
  std::vector<std::uint8_t> bytes_;
  std::atomic<std::size_t> put_{0};  // bytes ever put, and ever taken
  std::atomic<std::size_t> taken_{0};
};

}  // namespace quillspeech::linux
