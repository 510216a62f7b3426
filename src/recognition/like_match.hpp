// The pattern test that engine strings, patterns of a language file and file names go through.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace quillspeech {

// Whether the whole text fits the pattern. Bytes are compared exactly, as Windows-1252 unsigned.
//   *        any run of characters, also an empty one
//   ?        one character
//   #        one digit
//   [list]   one character of the list; [!list] one that is not in it. In a list a-z is a range.
//            A `-` at either end, behind the `!`, another such `-` or a range is itself and begins
//            no range; `!` is itself but in front, and the other signs are themselves. [] is the
//            empty text, [!] one "!".
//   other    itself, a `]` outside a list too
// A list without its `]` and a descending range are failure 93, whatever the text is.
bool Like_Match(std::string_view text, std::string_view pattern);

// A text that is tested against many patterns. For each of its bytes it holds the places where that
// byte stands, one bit a place; a test moves the set of places that the pattern can have come to,
// all of them at once. So nothing is tried twice: the time is at most the number of characters that
// the pattern names, a range naming all of its own, times a 64th of the text's length.
class LikeText {
 public:
  explicit LikeText(std::string_view text);

  // Like_Match of the text and the pattern; failure 93 likewise.
  bool Fits(std::string_view pattern);

 private:
  using Block = std::uint64_t;  // 64 places, the first in the lowest bit

  Block* Row(std::size_t number) { return rows_.data() + number * blocks_; }
  const Block* Row(std::size_t number) const { return rows_.data() + number * blocks_; }
  std::size_t Row_Of_Sign(char sign) const;
  const Block* Places_Of_List(std::string_view content);
  bool Ends_Alike(std::string_view pattern) const;

  std::size_t length_;
  std::size_t blocks_;  // in a row; a row has a place behind the last character too
  std::array<std::uint16_t, 256> row_of_byte_{};
  std::vector<Block> rows_;
};

}  // namespace quillspeech
