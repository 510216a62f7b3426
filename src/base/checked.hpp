// Fields of a fixed width that refuse a value that does not fit (failure 6).
#pragma once

#include <concepts>
#include <cstdint>
#include <limits>

#include "base/run_time_failure.hpp"

namespace quillspeech {

// The value as a T, or failure 6. T is one of the widths that fields have: 8 to 32 bits.
template <std::integral T>
constexpr T Narrow(std::int64_t value) {
  if (value < std::numeric_limits<T>::min() || value > std::numeric_limits<T>::max()) {
    Fail(Failure::Overflow);
  }
  return static_cast<T>(value);
}

// A field of width T, 0 at first. Reading gives 64 bits, so that sums and products are exact, and
// storing checks: `field = a * b + c` fails when the result does not fit, and only then.
template <std::integral T>
class Checked {
 public:
  constexpr Checked() = default;
  template <std::integral U>
  requires(!std::same_as<U, std::uint64_t>) constexpr Checked(U value)
      : value_(Narrow<T>(static_cast<std::int64_t>(value))) {}
  Checked(double) = delete;  // say Round_To_16 or Round_To_32

  constexpr operator std::int64_t() const { return value_; }
  constexpr T Raw() const { return value_; }

  constexpr Checked& operator+=(std::int64_t by) { return *this = value_ + by; }
  constexpr Checked& operator-=(std::int64_t by) { return *this = value_ - by; }
  constexpr Checked& operator++() { return *this += 1; }
  constexpr Checked& operator--() { return *this -= 1; }

 private:
  T value_ = 0;
};

using CheckedByte = Checked<std::uint8_t>;
using Checked16 = Checked<std::int16_t>;
using Checked32 = Checked<std::int32_t>;

// The 16-bit flags that hosts read: 0 or all bits set.
inline constexpr std::int16_t False = 0;
inline constexpr std::int16_t True = -1;

}  // namespace quillspeech
