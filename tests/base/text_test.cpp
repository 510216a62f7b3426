#include "base/text.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace quillspeech {
namespace {

TEST(Text, Trimming_takes_blanks_from_both_ends_and_nothing_else) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim("\ta\n"), "\ta\n");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim(""), "");
  EXPECT_EQ(Trimmed(" x "), "x");
}

TEST(Text, A_fixed_text_is_cut_or_padded_on_the_right) {
  EXPECT_EQ(Fixed("hello", 3), "hel");
  EXPECT_EQ(Fixed("hello", 8), "hello   ");
  EXPECT_EQ(Fixed("", 2), "  ");
}

TEST(Text, Lower_case_changes_the_letters_A_to_Z_alone) {
  EXPECT_EQ(Lower_Case("VB6.EXE"), "vb6.exe");
  EXPECT_EQ(Lower_Case("\xC4@[z"), "\xC4@[z");
}

TEST(Text, A_text_that_spells_a_number_gives_it) {
  const struct {
    const char* text;
    double number;
  } cases[] = {{"5", 5},     {" 5 ", 5},  {"-7", -7},    {"+7", 7},
               {"2.5", 2.5}, {".5", 0.5}, {"1e3", 1000}, {"-1.5E-2", -0.015}};
  for (const auto& c : cases) EXPECT_EQ(Text_To_Number(c.text), c.number) << c.text;
}

TEST(Text, A_text_that_spells_none_gives_nothing) {
  for (const char* text : {"", " ", "abc", "5x", "+-5", "++5", "1 2", "1e999", "inf", "nan", "-"}) {
    EXPECT_EQ(Text_To_Number(text), std::nullopt) << text;
  }
}

TEST(Text, A_number_too_small_for_a_double_is_0) {
  const std::string zeros(400, '0');
  for (const std::string& text :
       {std::string("1e-999"), std::string("-1E-999"), std::string(" 0.5e-99999999999 "),
        std::string("2e-324"), "0." + zeros + "1", "1" + zeros + "e-800"}) {
    EXPECT_EQ(Text_To_Number(text), 0) << text;
  }
  EXPECT_EQ(Text_To_Number("3e-324"), 0x1p-1074);  // the smallest there is
}

TEST(Text, A_number_too_large_for_a_double_is_none) {
  const std::string zeros(400, '0');
  for (const std::string& text :
       {std::string("1e999"), std::string("-1E+999"), std::string("0.001e99999999999"),
        std::string("1.8e308"), "1" + zeros, "0." + zeros + "1e800"}) {
    EXPECT_EQ(Text_To_Number(text), std::nullopt) << text;
  }
  EXPECT_EQ(Text_To_Number("0e99999999999"), 0);
}

TEST(Text, Every_byte_survives_the_way_to_UTF_8_and_back) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string text(1, static_cast<char>(byte));
    EXPECT_EQ(From_Utf8(To_Utf8(text)), text) << byte;
  }
}

TEST(Text, Bytes_above_127_are_Windows_1252) {
  EXPECT_EQ(To_Utf8("\x80"), "\xE2\x82\xAC");  // the euro sign
  EXPECT_EQ(To_Utf8("\xE9"), "\xC3\xA9");      // e acute
}

TEST(Text, What_Windows_1252_lacks_or_UTF_8_forbids_gives_nothing) {
  for (const char* text : {"\xCE\xB1", "\xF0\x9F\x98\x80", "\xC3", "\x80", "\xC0\x80",
                           "\xE0\x80\x80", "\xC3(", "\xE2\x82"}) {
    EXPECT_EQ(From_Utf8(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace quillspeech
