#include "base/spelled_number.hpp"

#include <algorithm>
#include <charconv>
#include <string>
#include <system_error>

#include "base/text.hpp"

namespace quillspeech {
namespace {

using Bits = std::uint64_t;

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

std::optional<SpelledNumber> Read_Bits(Reader& reader) {
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

}  // namespace

std::optional<SpelledNumber> Read_Number(std::string_view text) {
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

bool Is_Numeric(std::string_view text) {
  try {
    return Read_Number(text).has_value();
  } catch (const RunTimeFailure&) {
    return false;  // larger than any double
  }
}

double Numeric_Value(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\n"), text.size()));
  const bool is_negative = text.starts_with('-');
  if (is_negative || text.starts_with('+')) text.remove_prefix(1);
  if (text.empty() || (Digits.find(text.front()) == Digits.npos && text.front() != '.')) return 0;
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error == std::errc::result_out_of_range) {
    const auto spelled = text.substr(0, static_cast<std::size_t>(end - text.data()));
    number = Text_To_Number(spelled).value_or(std::numeric_limits<double>::max());
  }
  return is_negative ? -number : number;
}

}  // namespace quillspeech
