// Text that is read from a console in pieces.
#include "cli/windows/input_reader.hpp"

#include <gtest/gtest.h>

#include <string>

namespace quillspeech::tests {
namespace {

using cli::Utf16Pieces;

const std::wstring Text = L"a\xd83d\xde00\x00e9\x20ac\xd834\xdd1e.\r\n";
const std::string Text_In_Utf8 = "a\xf0\x9f\x98\x80\xc3\xa9\xe2\x82\xac\xf0\x9d\x84\x9e.\r\n";

TEST(Utf16InPieces, Comes_out_as_if_it_were_read_at_once_wherever_it_is_cut) {
  for (std::size_t first = 0; first <= Text.size(); ++first) {
    for (std::size_t second = first; second <= Text.size(); ++second) {
      Utf16Pieces pieces;
      std::string text = pieces.Take(Text.substr(0, first));
      text += pieces.Take(Text.substr(first, second - first));
      text += pieces.Take(Text.substr(second));
      EXPECT_EQ(text, Text_In_Utf8) << first << ", " << second;
    }
  }
}

TEST(Utf16InPieces, The_first_half_of_a_character_waits_for_the_second) {
  Utf16Pieces pieces;
  EXPECT_EQ(pieces.Take(L"a\xd83d"), "a");
  EXPECT_EQ(pieces.Take(L"\xde00"), "\xf0\x9f\x98\x80");
  EXPECT_EQ(pieces.Take(L"b"), "b");
}

TEST(Utf16InPieces, A_half_whose_other_does_not_come_is_one_unknown_character) {
  Utf16Pieces pieces;
  EXPECT_EQ(pieces.Take(L"\xd83d"), "");
  EXPECT_EQ(pieces.Take(L"b\r\n"),
            "\xef\xbf\xbd"
            "b\r\n");
  EXPECT_EQ(pieces.Take(L"\xde00"), "\xef\xbf\xbd");
}

}  // namespace
}  // namespace quillspeech::tests
