// The natural logarithm, alike bit for bit in every build.
#pragma once

#include <bit>
#include <cstdint>

#include "base/upper_bits.hpp"

namespace quillspeech {

// Of x > 0, finite; within 0.54 units of its last place, and never falling where x rises. It has
// no branch and no table, so that a loop over many numbers works on several of them at a time, and
// stands here for that loop to take in.
[[gnu::always_inline]] inline double Natural_Logarithm(double x) noexcept;

// The nearest double to the natural logarithm of 10, which Natural_Logarithm(10) is.
inline constexpr double Natural_Logarithm_Of_10 = 0x1.26bb1bbb55516p+1;

namespace logarithm_parts {

// ln 2 is the sum of the two; an exponent times the first is exact.
inline constexpr double Ln_2_High = 0x1.62e42ffp-1;
inline constexpr double Ln_2_Low = -0x1.718432a1b0e26p-35;

inline constexpr std::uint64_t Exponent_One = 0x3ff0000000000000;  // the bits of 1.0
inline constexpr std::uint64_t Root_Of_Half = 0x3fe6a09e00000000;  // and of the root of 1/2, nearly

// What 2 s + 2/3 s^3 + 2/5 s^5 + ... has beyond its first term, over s^3; z is s squared.
[[gnu::always_inline]] inline double Series(double z) noexcept {
  const double w = z * z;
  const double even =
      2.0 / 3 + w * (2.0 / 7 + w * (2.0 / 11 + w * (2.0 / 15 + w * (2.0 / 19 + w * (2.0 / 23)))));
  const double odd = 2.0 / 5 + w * (2.0 / 9 + w * (2.0 / 13 + w * (2.0 / 17 + w * (2.0 / 21))));
  return even + z * odd;
}

}  // namespace logarithm_parts

inline double Natural_Logarithm(double x) noexcept {
  using namespace logarithm_parts;
  // x = 2^exponent * m, with m between the roots of 1/2 and of 2. Tiny numbers lack the leading
  // bit that this looks for, and are taken times 2^54.
  const bool tiny = x < 0x1p-1022;
  const std::uint64_t bits =
      std::bit_cast<std::uint64_t>(tiny ? x * 0x1p54 : x) + (Exponent_One - Root_Of_Half);
  const double exponent = std::bit_cast<double>(bits >> 52 | 0x4330000000000000) -
                          (tiny ? 0x1p52 + 1077 : 0x1p52 + 1023);
  const double m = std::bit_cast<double>((bits & 0x000fffffffffffff) + Root_Of_Half);

  // s = (m - 1) / (m + 1), in two parts: 26 bits, and what is left after multiplying back.
  const double above = m - 1;
  const double below = m + 1;
  const double below_lost = m - (below - 1);
  const double inverse = 1 / below;
  const double s_head = Upper_26_Bits(above * inverse);
  const double below_head = Upper_26_Bits(below);
  const double left = (above - s_head * below_head) - s_head * (below - below_head);
  const double s_tail = (left - s_head * below_lost) * inverse;

  const double s = s_head + s_tail;
  const double z = s * s;
  const double great = exponent * Ln_2_High;
  const double high = great + 2 * s_head;
  const double lost = 2 * s_head - (high - great);
  return high + (lost + (2 * s_tail + (s * z * Series(z) + exponent * Ln_2_Low)));
}

}  // namespace quillspeech
