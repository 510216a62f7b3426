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
// How a text spells a number stands in base/spelled_number.hpp.
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
