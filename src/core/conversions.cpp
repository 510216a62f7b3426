#include "core/conversions.hpp"

#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <type_traits>
#include <variant>

#include "base/rounding.hpp"
#include "base/run_time_failure.hpp"
#include "base/text.hpp"

namespace quillspeech {
namespace {

using Bits = std::uint64_t;
// A number as a text spells it: decimal, or the bits of a &H or &O form.
using Spelled = std::variant<double, Bits>;

// Reads the parts of a number off the front of a text.
class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  bool At_End() const { return text_.empty(); }
  bool Take(std::string_view any_of) {
    if (text_.empty() || any_of.find(text_.front()) == std::string_view::npos) return false;
    text_.remove_prefix(1);
    return true;
  }
  // All that follows of these characters.
  std::string_view Take_All(std::string_view of) {
    const auto taken = text_.substr(0, text_.find_first_not_of(of));
    text_.remove_prefix(taken.size());
    return taken;
  }
  void Skip_Blanks() { Take_All(" \t\n\v\f\r"); }

 private:
  std::string_view text_;
};

constexpr std::string_view Digits = "0123456789";

std::optional<Spelled> Read_Bits(Reader& reader) {
  const bool is_hexadecimal = reader.Take("Hh");
  if (!is_hexadecimal && !reader.Take("Oo")) return std::nullopt;
  const auto digits = reader.Take_All(is_hexadecimal ? "0123456789ABCDEFabcdef" : "01234567");
  reader.Skip_Blanks();
  if (digits.empty() || !reader.At_End()) return std::nullopt;
  Bits bits = 0;
  const char* const end = digits.data() + digits.size();
  const auto error = std::from_chars(digits.data(), end, bits, is_hexadecimal ? 16 : 8).ec;
  if (error != std::errc()) Fail(Failure::Overflow);
  return bits;
}

// The sign of a number, which may stand before it, behind it, or be a pair of brackets.
struct Sign {
  bool is_given = false;
  bool is_negative = false;
  bool in_brackets = false;

  void Read(Reader& reader) {
    reader.Skip_Blanks();
    if (!is_given && !in_brackets) {
      is_negative = reader.Take("-");
      is_given = is_negative || reader.Take("+");
    }
    reader.Skip_Blanks();
  }
  void Open_Bracket(Reader& reader) {
    if (is_given || !reader.Take("(")) return;
    in_brackets = is_negative = true;
    reader.Skip_Blanks();
  }
  bool Close_Bracket(Reader& reader) {
    if (!in_brackets) return true;
    const bool is_closed = reader.Take(")");
    reader.Skip_Blanks();
    return is_closed;
  }
};

// Digits, point and exponent in the one form that the number parser takes.
std::optional<std::string> Read_Magnitude(Reader& reader) {
  std::string magnitude;
  for (const char digit : reader.Take_All("0123456789,")) {
    if (digit != ',') magnitude += digit;
  }
  std::string_view fraction;
  if (reader.Take(".")) fraction = reader.Take_All(Digits);
  if (magnitude.empty() && fraction.empty()) return std::nullopt;
  if (magnitude.empty()) magnitude = "0";
  if (!fraction.empty()) magnitude.append(".").append(fraction);
  if (!reader.Take("eEdD")) return magnitude;
  magnitude += 'e';
  if (reader.Take("-")) {
    magnitude += '-';
  } else {
    reader.Take("+");
  }
  const auto exponent = reader.Take_All(Digits);
  if (exponent.empty()) return std::nullopt;
  return magnitude.append(exponent);
}

// Nothing when the text spells no number.
std::optional<Spelled> Read_Number(std::string_view text) {
  Reader reader(text);
  reader.Skip_Blanks();
  if (reader.Take("&")) return Read_Bits(reader);
  Sign sign;
  sign.Read(reader);
  sign.Open_Bracket(reader);
  const auto magnitude = Read_Magnitude(reader);
  if (!magnitude) return std::nullopt;
  sign.Read(reader);
  if (!sign.Close_Bracket(reader) || !reader.At_End()) return std::nullopt;
  const auto number = Text_To_Number(*magnitude);
  if (!number) Fail(Failure::Overflow);
  return sign.is_negative ? -*number : *number;
}

Spelled Number_In(std::string_view text) {
  const auto number = Read_Number(text);
  if (!number) Fail(Failure::Type_Mismatch);
  return *number;
}

template <class Number>
Number Fitted(double value) {
  return Narrow<Number>(Round_To_32(value));
}
template <class Number>
Number Fitted(Bits bits) {
  using Unsigned = std::make_unsigned_t<Number>;
  if (bits > std::numeric_limits<Unsigned>::max()) Fail(Failure::Overflow);
  return static_cast<Number>(static_cast<Unsigned>(bits));
}

template <class Number>
struct ToNumber {
  Number operator()(std::monostate) const { return 0; }
  Number operator()(const std::string& text) const {
    return std::visit([](auto number) { return Fitted<Number>(number); }, Number_In(text));
  }
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
  return std::visit([](auto number) { return number != 0; }, Number_In(text));
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
  if (!text) return true;
  try {
    return Read_Number(*text).has_value();
  } catch (const RunTimeFailure&) {
    return false;  // larger than any double
  }
}

}  // namespace quillspeech
