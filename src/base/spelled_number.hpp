// The numbers that a person's texts spell.
//
// A text spells a number so (signs of the English language, whatever the system's is):
//   - blanks, tabs and line ends around it and beside its sign mean nothing;
//   - + or - before or behind it, or round brackets around it for -;
//   - digits, in front of the point with commas anywhere: "1,234.5"; one digit at least;
//   - an exponent behind e, E, d or D: "12e3", "1.5D+2";
//   - or &H and hexadecimal, &O and octal digits, without a sign: these are bits, and all bits of
//     the width asked for may be set: "&HFFFF" is -1 in 16 bits and 65535 in 32.
#pragma once

#include <concepts>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>
#include <type_traits>
#include <variant>

#include "base/checked.hpp"
#include "base/rounding.hpp"
#include "base/run_time_failure.hpp"

namespace quillspeech {

// A number as a text spells it: decimal, or the bits of a &H or &O form.
using SpelledNumber = std::variant<double, std::uint64_t>;

// Nothing when the text spells no number. Failure 6: it is larger than any double.
std::optional<SpelledNumber> Read_Number(std::string_view text);

// Whether the text spells a number that a double can hold.
bool Is_Numeric(std::string_view text);

// The number that a text begins with, blanks in front of it left out: "12 monkeys" is 12, "monkeys"
// and "" are 0. One that is too large for a double is the largest of them.
double Numeric_Value(std::string_view text);

template <std::integral Number>
Number Fitted(double value) {
  return Narrow<Number>(Round_To_32(value));
}
template <std::integral Number>
Number Fitted(std::uint64_t bits) {
  using Unsigned = std::make_unsigned_t<Number>;
  if (bits > std::numeric_limits<Unsigned>::max()) Fail(Failure::Overflow);
  return static_cast<Number>(static_cast<Unsigned>(bits));
}

// The number that the whole text spells, rounded half to even. Failure 13: it spells none; 6: it
// does not fit.
template <std::integral Number>
Number Number_In(std::string_view text) {
  const auto number = Read_Number(text);
  if (!number) Fail(Failure::Type_Mismatch);
  return std::visit([](auto value) { return Fitted<Number>(value); }, *number);
}

}  // namespace quillspeech
