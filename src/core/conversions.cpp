#include "core/conversions.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "base/run_time_failure.hpp"
#include "base/spelled_number.hpp"
#include "base/text.hpp"

namespace quillspeech {
namespace {

template <class Number>
struct ToNumber {
  Number operator()(std::monostate) const { return 0; }
  Number operator()(const std::string& text) const { return Number_In<Number>(text); }
  Number operator()(std::int16_t number) const { return Narrow<Number>(number); }
  Number operator()(std::int32_t number) const { return Narrow<Number>(number); }
  Number operator()(bool truth) const {
    // All bits set: that is 255 in a byte.
    return truth ? static_cast<Number>(-1) : Number{0};
  }
};

struct ToText {
  std::string operator()(std::monostate) const { return {}; }
  std::string operator()(const std::string& text) const { return text; }
  std::string operator()(bool truth) const { return truth ? "True" : "False"; }
  std::string operator()(std::int16_t number) const { return std::to_string(number); }
  std::string operator()(std::int32_t number) const { return std::to_string(number); }
};

bool Truth_In(std::string_view text) {
  const std::string lower = Lower_Case(text);
  if (lower == "true") return true;
  if (lower == "false") return false;
  const auto number = Read_Number(text);
  if (!number) Fail(Failure::Type_Mismatch);
  return std::visit([](auto value) { return value != 0; }, *number);
}

struct ToBoolean {
  bool operator()(std::monostate) const { return false; }
  bool operator()(const std::string& text) const { return Truth_In(text); }
  bool operator()(bool truth) const { return truth; }
  bool operator()(std::int16_t number) const { return number != 0; }
  bool operator()(std::int32_t number) const { return number != 0; }
};

}  // namespace

std::string To_Text(const MemberValue& value) { return std::visit(ToText(), value); }

std::uint8_t To_Byte(const MemberValue& value) {
  return std::visit(ToNumber<std::uint8_t>(), value);
}

std::int16_t To_Number16(const MemberValue& value) {
  return std::visit(ToNumber<std::int16_t>(), value);
}

std::int32_t To_Number32(const MemberValue& value) {
  return std::visit(ToNumber<std::int32_t>(), value);
}

bool To_Boolean(const MemberValue& value) { return std::visit(ToBoolean(), value); }

bool Is_Numeric(const MemberValue& value) {
  const auto* text = std::get_if<std::string>(&value);
  return !text || Is_Numeric(std::string_view(*text));
}

}  // namespace quillspeech
