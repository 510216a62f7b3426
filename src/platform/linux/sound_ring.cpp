#include "platform/linux/sound_ring.hpp"

#include <algorithm>

namespace quillspeech::linux {

void SoundRing::Make(std::size_t size) {
  bytes_.assign(size, 0);
  put_ = taken_ = 0;
}

void SoundRing::Put(const std::uint8_t* bytes, std::size_t count) {
  if (bytes_.empty()) return;
  const std::size_t put = put_.load(std::memory_order_relaxed);
  const std::size_t room = bytes_.size() - (put - taken_.load(std::memory_order_acquire));
  count = std::min(count, room);
  const std::size_t from = put % bytes_.size();
  const std::size_t straight = std::min(count, bytes_.size() - from);
  std::copy_n(bytes, straight, bytes_.data() + from);
  std::copy_n(bytes + straight, count - straight, bytes_.data());
  put_.store(put + count, std::memory_order_release);
}

std::size_t SoundRing::Take(std::uint8_t* bytes, std::size_t most) {
  if (bytes_.empty()) return 0;
  const std::size_t taken = taken_.load(std::memory_order_relaxed);
  const std::size_t count = std::min(most, put_.load(std::memory_order_acquire) - taken);
  const std::size_t from = taken % bytes_.size();
  const std::size_t straight = std::min(count, bytes_.size() - from);
  std::copy_n(bytes_.data() + from, straight, bytes);
  std::copy_n(bytes_.data(), count - straight, bytes + straight);
  taken_.store(taken + count, std::memory_order_release);
  return count;
}

void SoundRing::Drop() { taken_.store(put_.load(std::memory_order_acquire)); }

}  // namespace quillspeech::linux
