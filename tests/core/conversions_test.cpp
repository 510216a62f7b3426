#include "core/conversions.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/failures.hpp"

namespace quillspeech {
namespace {

using tests::Failure_Of;

MemberValue Text(const char* text) { return std::string(text); }
MemberValue Nothing() { return {}; }

// The number that a text spells in 32 bits.
using Spellings = std::vector<std::pair<const char*, std::int32_t>>;
void Expect_Numbers(const Spellings& spellings) {
  for (const auto& [text, number] : spellings) {
    EXPECT_EQ(Failure_Of([&] { EXPECT_EQ(To_Number32(Text(text)), number) << text; }), 0) << text;
    EXPECT_TRUE(Is_Numeric(Text(text))) << text;
  }
}

TEST(Conversions, Blanks_tabs_and_line_ends_around_a_number_mean_nothing) {
  Expect_Numbers({{"12", 12},
                  {"  12 ", 12},
                  {"\t12\r\n", 12},
                  {"\v12\f", 12},
                  {"12 \v\f-", -12},
                  {"-\f\v12", -12},
                  {"- 12", -12},
                  {" + 12", 12}});
}

TEST(Conversions, A_sign_stands_before_or_behind_or_is_a_pair_of_brackets) {
  Expect_Numbers({{"+12", 12},
                  {"-12", -12},
                  {"12-", -12},
                  {"12 -", -12},
                  {"12+", 12},
                  {"(12)", -12},
                  {" ( 12 ) ", -12},
                  {"-0", 0}});
}

TEST(Conversions, Fractions_are_rounded_half_to_even) {
  Expect_Numbers({{"0.5", 0},
                  {"1.5", 2},
                  {"2.5", 2},
                  {"-0.5", 0},
                  {"-1.5", -2},
                  {"-2.5", -2},
                  {"2.51", 3},
                  {"2.49", 2},
                  {".75", 1},
                  {"5.", 5}});
}

TEST(Conversions, Commas_may_stand_anywhere_before_the_point) {
  Expect_Numbers({{"1,234", 1234},
                  {"1,2,3", 123},
                  {"12,34.5", 1234},
                  {"1,000,000", 1000000},
                  {",5", 5},
                  {"5,", 5},
                  {",,5.5", 6}});
}

TEST(Conversions, An_exponent_follows_e_or_d_in_either_case) {
  Expect_Numbers({{"12e3", 12000},
                  {"12E3", 12000},
                  {"12d3", 12000},
                  {"12D+3", 12000},
                  {"25e-1", 2},
                  {"1.5e1", 15},
                  {"1e-400", 0},
                  {"0e999", 0}});
}

TEST(Conversions, Hexadecimal_and_octal_digits_are_bits) {
  Expect_Numbers({{"&HFF", 255},
                  {"&hff", 255},
                  {"&H0", 0},
                  {"&O17", 15},
                  {"&o17", 15},
                  {" &H10 ", 16},
                  {"&HFFFF", 65535},
                  {"&HFFFFFFFF", -1},
                  {"&H80000000", -2147483647 - 1},
                  {"&O37777777777", -1}});
  EXPECT_EQ(To_Number16(Text("&HFFFF")), -1);
  EXPECT_EQ(To_Number16(Text("&H7FFF")), 32767);
  EXPECT_EQ(To_Number16(Text("&H8000")), -32768);
  EXPECT_EQ(To_Byte(Text("&HFF")), 255);
}

TEST(Conversions, A_text_that_spells_no_number_is_a_type_mismatch) {
  for (const char* text :
       {"",     " ",   "many",  "12a", "a12", "1 2", "--1",  "+-1",      "-1-",   "-(1)",
        "(-1)", "(1",  "1)",    "()",  ".",   ",",   "-",    "1.2.3",    "1.2,3", "1e",
        "1e+",  "e5",  "1e1.5", "&H",  "&HG", "&O8", "-&H1", "&H FF",    "& HFF", "&O 7",
        "&H1-", "&12", "0x10",  "$5",  "1%",  "nan", "inf",  "infinity", "True"}) {
    EXPECT_EQ(Failure_Of([&] { To_Number16(Text(text)); }), 13) << text;
    EXPECT_EQ(Failure_Of([&] { To_Number32(Text(text)); }), 13) << text;
    EXPECT_EQ(Failure_Of([&] { To_Byte(Text(text)); }), 13) << text;
    EXPECT_FALSE(Is_Numeric(Text(text))) << text;
  }
}

TEST(Conversions, A_number_beyond_its_width_overflows) {
  for (const char* text : {"32768", "-32769", "32767.5", "1e10", "&H10000", "1e400"}) {
    EXPECT_EQ(Failure_Of([&] { To_Number16(Text(text)); }), 6) << text;
  }
  for (const char* text : {"2147483648", "-2147483649", "2147483647.5", "1e10", "&H100000000",
                           "&HFFFFFFFFFFFFFFFFF", "1e400", "-1e99999999999"}) {
    EXPECT_EQ(Failure_Of([&] { To_Number32(Text(text)); }), 6) << text;
  }
  for (const char* text : {"256", "-1", "255.5", "&H100"}) {
    EXPECT_EQ(Failure_Of([&] { To_Byte(Text(text)); }), 6) << text;
  }
}

TEST(Conversions, The_ends_of_each_width_fit) {
  EXPECT_EQ(To_Number16(Text("32767.4")), 32767);
  EXPECT_EQ(To_Number16(Text("-32768.5")), -32768);
  EXPECT_EQ(To_Number32(Text("2147483647.4")), 2147483647);
  EXPECT_EQ(To_Number32(Text("-2147483648.5")), -2147483647 - 1);
  EXPECT_EQ(To_Byte(Text("255.4")), 255);
  EXPECT_EQ(To_Byte(Text("-0.5")), 0);
}

TEST(Conversions, A_number_larger_than_any_double_is_not_numeric) {
  EXPECT_FALSE(Is_Numeric(Text("1e400")));
  EXPECT_TRUE(Is_Numeric(Text("1e300")));
}

TEST(Conversions, What_is_no_text_is_numeric) {
  for (const MemberValue& value :
       {Nothing(), MemberValue(std::int16_t{1}), MemberValue(std::int32_t{1}), MemberValue(true)}) {
    EXPECT_TRUE(Is_Numeric(value));
  }
}

TEST(Conversions, A_number_of_another_width_is_kept_when_it_fits) {
  EXPECT_EQ(To_Number32(std::int16_t{-7}), -7);
  EXPECT_EQ(To_Number16(std::int32_t{32767}), 32767);
  EXPECT_EQ(To_Byte(std::int16_t{255}), 255);
  EXPECT_EQ(Failure_Of([] { To_Number16(std::int32_t{32768}); }), 6);
  EXPECT_EQ(Failure_Of([] { To_Byte(std::int16_t{256}); }), 6);
  EXPECT_EQ(Failure_Of([] { To_Byte(std::int32_t{-1}); }), 6);
}

TEST(Conversions, A_Boolean_is_minus_1_or_0_and_all_bits_of_a_byte) {
  EXPECT_EQ(To_Number16(true), -1);
  EXPECT_EQ(To_Number32(true), -1);
  EXPECT_EQ(To_Byte(true), 255);
  EXPECT_EQ(To_Number16(false), 0);
  EXPECT_EQ(To_Number32(false), 0);
}

TEST(Conversions, A_Boolean_takes_True_False_and_numbers) {
  const std::vector<std::pair<MemberValue, bool>> Cases = {
      {Text("True"), true},     {Text("TRUE"), true},        {Text("false"), false},
      {Text("0"), false},       {Text("-1"), true},          {Text("0.3"), true},
      {Text("&H0"), false},     {Text("&H10"), true},        {std::int16_t{0}, false},
      {std::int16_t{-1}, true}, {std::int32_t{70000}, true}, {true, true},
      {false, false},           {Nothing(), false}};
  for (const auto& [value, truth] : Cases) EXPECT_EQ(To_Boolean(value), truth) << To_Text(value);
  for (const char* text : {"", "YES", "Truth", " True", "True ", "false ", " false"}) {
    EXPECT_EQ(Failure_Of([&] { To_Boolean(Text(text)); }), 13) << text;
  }
  EXPECT_EQ(Failure_Of([] { To_Boolean(Text("1e400")); }), 6);
}

TEST(Conversions, Every_type_has_a_text) {
  EXPECT_EQ(To_Text(Nothing()), "");
  EXPECT_EQ(To_Text(Text(" as it is ")), " as it is ");
  EXPECT_EQ(To_Text(std::int16_t{-32768}), "-32768");
  EXPECT_EQ(To_Text(std::numeric_limits<std::int32_t>::min()), "-2147483648");
  EXPECT_EQ(To_Text(true), "True");
  EXPECT_EQ(To_Text(false), "False");
}

TEST(Conversions, No_value_is_0) {
  EXPECT_EQ(To_Number16(Nothing()), 0);
  EXPECT_EQ(To_Number32(Nothing()), 0);
  EXPECT_EQ(To_Byte(Nothing()), 0);
}

TEST(Conversions, Every_16_bit_number_survives_as_text) {
  for (std::int32_t number = -32768; number <= 32767; ++number) {
    const auto narrow = static_cast<std::int16_t>(number);
    ASSERT_EQ(To_Number16(To_Text(narrow)), narrow);
  }
}

}  // namespace
}  // namespace quillspeech
