#include "base/text.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <system_error>

namespace quillspeech {

namespace {

// Of a number that is too small or too large for a double: whether it is too small. Then its first
// digit stands behind the point, after the exponent has moved that.
bool Is_Too_Small(std::string_view number) {
  const auto mark = number.find_first_of("eE");
  const std::string_view digits = number.substr(0, mark);
  const auto point = static_cast<std::int64_t>(std::min(digits.find('.'), digits.size()));
  const auto first = static_cast<std::int64_t>(digits.find_first_of("123456789"));
  if (mark == std::string_view::npos) return point < first;
  std::string_view exponent = number.substr(mark + 1);
  if (exponent.starts_with('+')) exponent.remove_prefix(1);
  std::int32_t shift = 0;
  const auto error = std::from_chars(exponent.data(), exponent.data() + exponent.size(), shift).ec;
  return error == std::errc() ? point + shift < first : exponent.starts_with('-');
}

// What the bytes 0x80 to 0x9F stand for.
constexpr std::array<char16_t, 32> High_Controls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char16_t Character_Of_Byte(unsigned char byte) {
  return byte >= 0x80 && byte < 0xA0 ? High_Controls[byte - 0x80U] : byte;
}

std::optional<char> Byte_Of_Character(std::uint32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
    return static_cast<char>(static_cast<unsigned char>(character));
  }
  for (std::size_t i = 0; i < High_Controls.size(); ++i) {
    if (High_Controls[i] == character) {
      return static_cast<char>(static_cast<unsigned char>(0x80 + i));
    }
  }
  return std::nullopt;
}

// Takes one character of two or three bytes (all that Windows-1252 needs) off the front.
std::optional<std::uint32_t> Take_Character(std::string_view& utf8) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(utf8[i]); };
  const auto follows = [&](std::size_t i) { return i < utf8.size() && (byte(i) & 0xC0) == 0x80; };
  const auto low = [&](std::size_t i) { return static_cast<std::uint32_t>(byte(i) & 0x3F); };
  const std::uint32_t lead = byte(0);
  std::uint32_t character = lead;
  std::size_t length = 1;
  if (lead >= 0xC2 && lead < 0xE0 && follows(1)) {
    character = (lead & 0x1F) << 6 | low(1);
    length = 2;
  } else if (lead >= 0xE0 && lead < 0xF0 && follows(1) && follows(2)) {
    character = (lead & 0x0F) << 12 | low(1) << 6 | low(2);
    length = 3;
    if (character < 0x800) return std::nullopt;
  } else if (lead >= 0x80) {
    return std::nullopt;
  }
  utf8.remove_prefix(length);
  return character;
}

}  // namespace

std::string_view Trim(std::string_view text) noexcept {
  // Fields are mostly padding: its blanks go eight at a time.
  constexpr std::string_view Blanks = "        ";
  while (text.ends_with(Blanks)) text.remove_suffix(Blanks.size());
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string Fixed(std::string_view text, std::size_t width) {
  std::string fixed(text.substr(0, width));
  fixed.resize(width, ' ');
  return fixed;
}

std::string Lower_Case(std::string_view text) {
  std::string lower(text);
  for (char& letter : lower) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  }
  return lower;
}

std::optional<double> Text_To_Number(std::string_view text) {
  text = Trim(text);
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-') || text.starts_with('+')) return std::nullopt;
  }
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (end != text.data() + text.size()) return std::nullopt;
  if (error == std::errc::result_out_of_range && Is_Too_Small(text)) return 0;
  if (error != std::errc() || !std::isfinite(number)) return std::nullopt;
  return number;
}

std::string To_Utf8(std::string_view windows_1252) {
  std::string utf8;
  utf8.reserve(windows_1252.size());
  for (const char byte : windows_1252) {
    const std::uint32_t character = Character_Of_Byte(static_cast<unsigned char>(byte));
    if (character < 0x80) {
      utf8 += static_cast<char>(character);
    } else if (character < 0x800) {
      utf8 += static_cast<char>(0xC0 | character >> 6);
      utf8 += static_cast<char>(0x80 | (character & 0x3F));
    } else {
      utf8 += static_cast<char>(0xE0 | character >> 12);
      utf8 += static_cast<char>(0x80 | (character >> 6 & 0x3F));
      utf8 += static_cast<char>(0x80 | (character & 0x3F));
    }
  }
  return utf8;
}

std::optional<std::string> From_Utf8(std::string_view utf8) {
  std::string bytes;
  bytes.reserve(utf8.size());
  while (!utf8.empty()) {
    const auto character = Take_Character(utf8);
    if (!character) return std::nullopt;
    const auto byte = Byte_Of_Character(*character);
    if (!byte) return std::nullopt;
    bytes += *byte;
  }
  return bytes;
}

}  // namespace quillspeech
