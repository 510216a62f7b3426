// Listens to a wave input block by block, with no session's recorder in between.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "platform/wave_input.hpp"

namespace quillspeech::cli {

class InputTap {
 public:
  // The input outlives it. `rate` bytes a second of 8-bit mono, `block` of them at a time.
  InputTap(WaveInput& input, std::uint32_t rate, std::uint32_t block);
  ~InputTap();
  InputTap(const InputTap&) = delete;
  InputTap& operator=(const InputTap&) = delete;

  // Wave_Ok, or why the device cannot be heard.
  WaveResult Open();
  // After a yield: hands over what is full, oldest first.
  void Take(const std::function<void(std::span<const std::uint8_t>)>& hear);

 private:
  struct Block {
    WaveHeader header;
    std::vector<std::uint8_t> bytes;
  };
  WaveResult Queue(Block& block);

  WaveInput& input_;
  WaveFormat format_;
  WaveHandle handle_ = 0;
  std::array<Block, 4> blocks_;  // so many that the device always has one to fill
  std::size_t next_ = 0;         // the one that will be full first
};

}  // namespace quillspeech::cli
