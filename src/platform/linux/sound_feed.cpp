#include "platform/linux/sound_feed.hpp"

#include <algorithm>
#include <utility>

namespace quillspeech::linux {

void SoundFeed::Begin(const WaveFormat& format, std::vector<std::uint8_t> bytes, bool looped) {
  bytes_ = std::move(bytes);
  position_ = 0;
  block_bytes_ = format.block_alignment;
  silence_ = format.bits_per_sample == 8 ? 128 : 0;
  looped_ = looped && !bytes_.empty();
}

bool SoundFeed::Fill(std::uint8_t* buffer, std::size_t blocks) {
  std::size_t count = blocks * block_bytes_;
  while (count > 0) {
    if (position_ == bytes_.size() && looped_) position_ = 0;
    const std::size_t part = std::min(count, bytes_.size() - position_);
    if (part == 0) break;
    std::copy_n(bytes_.data() + position_, part, buffer);
    position_ += part;
    buffer += part;
    count -= part;
  }
  std::fill_n(buffer, count, silence_);
  return looped_ || position_ < bytes_.size();
}

}  // namespace quillspeech::linux
