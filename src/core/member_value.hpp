// A value on its way between a host and a member.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

namespace quillspeech {

// Texts are in Windows-1252. The first alternative is no value at all.
using MemberValue = std::variant<std::monostate, std::string, std::int16_t, std::int32_t, bool>;

// In the order of the alternatives.
enum class MemberType { None, Text, Number16, Number32, Boolean };

inline MemberType Type_Of(const MemberValue& value) {
  return static_cast<MemberType>(value.index());
}

// The type whose values are of the C++ type given; None for any other.
template <class Value>
constexpr MemberType Type_For() {
  if (std::is_same_v<Value, std::string>) return MemberType::Text;
  if (std::is_same_v<Value, std::int16_t>) return MemberType::Number16;
  if (std::is_same_v<Value, std::int32_t>) return MemberType::Number32;
  if (std::is_same_v<Value, bool>) return MemberType::Boolean;
  return MemberType::None;
}

}  // namespace quillspeech
