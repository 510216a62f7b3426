// From a value of any type to the type that a member takes. These are all conversions that exist:
//
//   from       to Text              to a number                      to Boolean
//   nothing    ""                   0                                False
//   Text       as it is             what it spells, rounded          True, False in any case of
//                                                                    letters; else whether the
//                                                                    number it spells is not 0
//   a number   its decimal digits   as it is                         whether it is not 0
//   Boolean    "True", "False"      -1, 0                            as it is
//
// A text spells a number so (signs of the English language, whatever the system's is):
//   - blanks, tabs and line ends around it and beside its sign mean nothing;
//   - + or - before or behind it, or round brackets around it for -;
//   - digits, in front of the point with commas anywhere: "1,234.5"; one digit at least;
//   - an exponent behind e, E, d or D: "12e3", "1.5D+2";
//   - or &H and hexadecimal, &O and octal digits, without a sign: these are bits, and all bits of
//     the width asked for may be set: "&HFFFF" is -1 in 16 bits and 65535 in 32.
// Fractions are rounded to the nearest, a half to the even neighbour.
//
// Failure 13: the text is no number. Failure 6: the number does not fit the type, or no double.
#pragma once

#include <cstdint>
#include <string>

#include "core/member_value.hpp"

namespace quillspeech {

std::string To_Text(const MemberValue& value);
std::uint8_t To_Byte(const MemberValue& value);
std::int16_t To_Number16(const MemberValue& value);
std::int32_t To_Number32(const MemberValue& value);
bool To_Boolean(const MemberValue& value);

// The same by the C++ type.
template <class Value>
Value Converted(const MemberValue& value);

// Whether the value is a number or spells one, of whatever size a double has.
bool Is_Numeric(const MemberValue& value);

template <>
inline std::string Converted(const MemberValue& value) {
  return To_Text(value);
}
template <>
inline std::uint8_t Converted(const MemberValue& value) {
  return To_Byte(value);
}
template <>
inline std::int16_t Converted(const MemberValue& value) {
  return To_Number16(value);
}
template <>
inline std::int32_t Converted(const MemberValue& value) {
  return To_Number32(value);
}
template <>
inline bool Converted(const MemberValue& value) {
  return To_Boolean(value);
}

}  // namespace quillspeech
