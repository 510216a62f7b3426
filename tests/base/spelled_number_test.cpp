#include "base/spelled_number.hpp"

#include <gtest/gtest.h>

#include <cstdint>

#include "tests/support/failures.hpp"

namespace quillspeech::tests {
namespace {

TEST(NumericValue, Is_the_number_that_a_text_begins_with) {
  const struct {
    const char* text;
    double value;
  } cases[] = {{"", 0},
               {"12", 12},
               {"  12", 12},
               {"12 monkeys", 12},
               {"monkeys", 0},
               {"1   2", 1},
               {"-3x", -3},
               {"+4", 4},
               {"1.5e2z", 150},
               {".5", 0.5},
               {"-", 0},
               {"inf", 0},
               {"nan", 0},
               {"1e-400", 0},
               {"1e400", std::numeric_limits<double>::max()},
               {"2e", 2},
               {"__***__", 0},
               {"--1", 0},
               {"5,6", 5}};
  for (const auto& [text, value] : cases) EXPECT_EQ(Numeric_Value(text), value) << text;
}

TEST(SpelledNumber, Is_numeric_when_the_whole_text_spells_it) {
  for (const auto text : {"1", " 1 ", "-2.5", "(3)", "1,234", "&HFF", "1e5"}) {
    EXPECT_TRUE(Is_Numeric(text)) << text;
  }
  for (const auto text : {"", " ", "1x", "x1", "1 2", "e5", "&HG", "1e400"}) {
    EXPECT_FALSE(Is_Numeric(text)) << text;
  }
}

TEST(SpelledNumber, Is_rounded_to_the_width_asked_for) {
  EXPECT_EQ(Number_In<std::uint8_t>("255"), 255);
  EXPECT_EQ(Number_In<std::int16_t>("2.5"), 2);
  EXPECT_EQ(Number_In<std::int16_t>("&HFFFF"), -1);
  EXPECT_EQ(Failure_Of([] { Number_In<std::uint8_t>("256"); }), 6);
  EXPECT_EQ(Failure_Of([] { Number_In<std::int16_t>("32768"); }), 6);
  EXPECT_EQ(Failure_Of([] { Number_In<std::int16_t>("ten"); }), 13);
}

}  // namespace
}  // namespace quillspeech::tests
