// A stretch of sound as a device asks for it, piece by piece.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/wave_output.hpp"

namespace quillspeech::linux {

class SoundFeed {
 public:
  // Begins the sound, once or for ever. No loop comes of an empty one.
  void Begin(const WaveFormat& format, std::vector<std::uint8_t> bytes, bool looped);

  // Fills that many blocks of the buffer, with silence behind the end; false when nothing is left.
  bool Fill(std::uint8_t* buffer, std::size_t blocks);

 private:
  std::vector<std::uint8_t> bytes_;
  std::size_t position_ = 0;
  std::size_t block_bytes_ = 1;
  std::uint8_t silence_ = 128;
  bool looped_ = false;
};

}  // namespace quillspeech::linux
