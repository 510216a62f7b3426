#include "platform/windows/text.hpp"

#include <gtest/gtest.h>

#include <string>

#include "base/text.hpp"

namespace quillspeech::tests {
namespace {

using windows::NameEncoding;
using windows::Narrow;
using windows::Utf8_From_Wide;
using windows::Wide;
using windows::Wide_From_Utf8;
using windows::Wide_Name;

std::string Every_Byte() {
  std::string text;
  for (int byte = 0; byte < 256; ++byte) text += static_cast<char>(byte);
  return text;
}

TEST(WideText, Every_byte_survives_the_way_there_and_back) {
  const std::string text = Every_Byte();
  ASSERT_EQ(Wide(text).size(), 256u);
  EXPECT_EQ(Narrow(Wide(text)), text);
  EXPECT_EQ(Narrow(Wide("")), "");
}

TEST(WideText, Bytes_stand_for_the_same_characters_as_in_utf8) {
  EXPECT_EQ(Utf8_From_Wide(Wide(Every_Byte())), To_Utf8(Every_Byte()));
  EXPECT_EQ(Wide("\x80 caf\xE9"), L"\u20AC caf\u00E9");
}

TEST(WideText, A_character_that_windows_1252_lacks_is_a_question_mark) {
  EXPECT_EQ(Narrow(L"a\u0101\u4E2D\u03B1z"), "a???z");
}

TEST(WideText, Utf8_goes_there_and_back_beyond_windows_1252_too) {
  const std::string text = "\xE4\xB8\xAD \xF0\x9F\x8E\xA4 \xC3\xA9";
  const auto wide = Wide_From_Utf8(text);
  ASSERT_TRUE(wide);
  EXPECT_EQ(*wide, L"\u4E2D \U0001F3A4 \u00E9");
  EXPECT_EQ(Utf8_From_Wide(*wide), text);
  EXPECT_EQ(Wide_From_Utf8(""), L"");
}

TEST(WideText, What_is_no_utf8_is_nothing) {
  for (const char* const text : {"\xE9", "a\xC3", "\xC0\x80", "\xED\xA0\x80", "\xFF"}) {
    EXPECT_EQ(Wide_From_Utf8(text), std::nullopt);
  }
}

TEST(WideText, Half_a_pair_becomes_the_sign_for_what_is_unknown) {
  EXPECT_EQ(Utf8_From_Wide(std::wstring{L'a', wchar_t{0xD83C}, L'b'}),
            "a\xEF\xBF\xBD"
            "b");
}

TEST(WideText, A_name_is_not_empty_and_has_no_nul) {
  for (const NameEncoding encoding : {NameEncoding::Windows1252, NameEncoding::Utf8}) {
    EXPECT_EQ(Wide_Name("", encoding), std::nullopt);
    EXPECT_EQ(Wide_Name(std::string("a\0b", 3), encoding), std::nullopt);
    EXPECT_EQ(Wide_Name("a", encoding), L"a");
  }
  EXPECT_EQ(Wide_Name("\xE9", NameEncoding::Windows1252), L"\u00E9");
  EXPECT_EQ(Wide_Name("\xE9", NameEncoding::Utf8), std::nullopt);
  EXPECT_EQ(Wide_Name("\xC3\xA9", NameEncoding::Utf8), L"\u00E9");
}

}  // namespace
}  // namespace quillspeech::tests
