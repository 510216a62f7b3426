#include "base/rounding.hpp"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/failures.hpp"

namespace quillspeech {
namespace {

using tests::Failure_Of;

TEST(Rounding, A_half_goes_to_the_even_neighbour) {
  const struct {
    double value;
    double rounded;
  } cases[] = {{0.5, 0},   {1.5, 2},   {2.5, 2},     {3.5, 4},     {-0.5, 0},
               {-1.5, -2}, {-2.5, -2}, {154.5, 154}, {155.5, 156}, {1e15 + 0.5, 1e15}};
  for (const auto& c : cases) EXPECT_EQ(Round(c.value), c.rounded) << c.value;
}

TEST(Rounding, Other_values_go_to_the_nearest_whole_number) {
  EXPECT_EQ(Round(2.49999), 2);
  EXPECT_EQ(Round(2.50001), 3);
  EXPECT_EQ(Round(-2.49999), -2);
  EXPECT_EQ(Round(-2.50001), -3);
  EXPECT_EQ(Round(7), 7);
  EXPECT_EQ(Round(0.49999999999999994), 0);
  EXPECT_EQ(Round(-0.49999999999999994), 0);
}

TEST(Rounding, A_value_that_rounds_into_the_field_fits) {
  EXPECT_EQ(Round_To_16(32767.4), 32767);
  EXPECT_EQ(Round_To_16(-32768.5), -32768);
  EXPECT_EQ(Round_To_32(2147483647.25), 2147483647);
}

TEST(Rounding, A_value_that_rounds_past_the_field_fails_with_6) {
  EXPECT_EQ(Failure_Of([] { Round_To_16(32767.5); }), 6);
  EXPECT_EQ(Failure_Of([] { Round_To_32(2147483647.5); }), 6);
  EXPECT_EQ(Failure_Of([] { Round_To_32(1e300); }), 6);
  EXPECT_EQ(Failure_Of([] { Round_To_16(-32769); }), 6);
  EXPECT_EQ(Failure_Of([] { Round_To_32(-2147483648.75); }), 6);
  EXPECT_EQ(Failure_Of([] { Round_To_32(-1e300); }), 6);
}

TEST(Rounding, A_value_that_is_no_number_fails_with_6) {
  EXPECT_EQ(Failure_Of([] { Round_To_32(std::numeric_limits<double>::quiet_NaN()); }), 6);
  EXPECT_EQ(Failure_Of([] { Round_To_16(std::numeric_limits<double>::infinity()); }), 6);
  EXPECT_EQ(Failure_Of([] { Round_To_16(-std::numeric_limits<double>::infinity()); }), 6);
  EXPECT_EQ(Failure_Of([] { Round_To_32(-std::numeric_limits<double>::infinity()); }), 6);
}

TEST(Rounding, A_quotient_is_rounded_half_to_even) {
  EXPECT_EQ(Rounded_Quotient(2500, 1000), 2);
  EXPECT_EQ(Rounded_Quotient(3500, 1000), 4);
  EXPECT_EQ(Rounded_Quotient(3036, 2024), 2);
  EXPECT_EQ(Rounded_Quotient(1012, 2024), 0);
  EXPECT_EQ(Rounded_Quotient(154350, 10), 15435);
}

}  // namespace
}  // namespace quillspeech
