// Whole numbers as they lie in files: lowest byte first, signed ones in two's complement.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace quillspeech {

// The number that the sizeof(T) bytes spell.
template <std::integral T>
constexpr T From_Little_Endian(const std::uint8_t* bytes) {
  using Bits = std::make_unsigned_t<T>;
  Bits bits = 0;
  for (std::size_t i = 0; i < sizeof(T); ++i) {
    bits = static_cast<Bits>(bits | Bits{bytes[i]} << (8 * i));
  }
  return static_cast<T>(bits);
}

// Writes the number's sizeof(T) bytes.
template <std::integral T>
constexpr void To_Little_Endian(T value, std::uint8_t* bytes) {
  const auto bits = static_cast<std::make_unsigned_t<T>>(value);
  for (std::size_t i = 0; i < sizeof(T); ++i) {
    bytes[i] = static_cast<std::uint8_t>(bits >> (8 * i));
  }
}

}  // namespace quillspeech
