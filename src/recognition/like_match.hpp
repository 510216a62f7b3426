// The pattern test that engine strings, patterns of a language file and file names go through.
#pragma once

#include <string_view>

namespace quillspeech {

// Whether the whole text fits the pattern. Bytes are compared exactly, as Windows-1252 unsigned.
//   *        any run of characters, also an empty one
//   ?        one character
//   #        one digit
//   [list]   one character of the list; [!list] one that is not in it. In a list a-z is a range,
//            `-` is itself at either end and behind a range, `!` is itself but in front, and the
//            other signs are themselves. [] is the empty text, [!] one "!".
//   other    itself, a `]` outside a list too
// A list without its `]` and a descending range are failure 93, whatever the text is.
// The time is at most in proportion to the two lengths multiplied.
bool Like_Match(std::string_view text, std::string_view pattern);

}  // namespace quillspeech
