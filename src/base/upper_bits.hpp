// The upper half of a double's digits.
#pragma once

#include <bit>
#include <cstdint>

namespace quillspeech {

// The number cut to its upper 26 bits. The product of two such numbers is exact, and so is what the
// number has beyond them. Stands here for loops to take in.
[[gnu::always_inline]] inline double Upper_26_Bits(double number) noexcept {
  return std::bit_cast<double>(std::bit_cast<std::uint64_t>(number) & 0xfffffffff8000000);
}

}  // namespace quillspeech
