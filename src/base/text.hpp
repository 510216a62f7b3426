// Texts are byte strings in Windows-1252, one byte a character.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quillspeech {

// Without the blanks (0x20, nothing else) at both ends.
std::string_view Trim(std::string_view text) noexcept;
inline std::string Trimmed(std::string_view text) { return std::string(Trim(text)); }

// Exactly `width` characters: cut on the right, or padded there with blanks.
std::string Fixed(std::string_view text, std::size_t width);

// Lower case of the letters A to Z; other bytes stay.
std::string Lower_Case(std::string_view text);

// The number that a text spells (blanks around it, a sign, digits, a fraction, an exponent), or
// nothing when it is no number. One too small for a double is 0, one too large is none.
std::optional<double> Text_To_Number(std::string_view text);

// Between Windows-1252 and UTF-8. The five bytes that Windows-1252 leaves open stand for U+0081,
// U+008D, U+008F, U+0090 and U+009D, so every byte string survives the way there and back.
std::string To_Utf8(std::string_view windows_1252);

// Nothing when the text is no UTF-8 or has a character that Windows-1252 lacks.
std::optional<std::string> From_Utf8(std::string_view utf8);

}  // namespace quillspeech
