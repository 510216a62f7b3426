// The autocorrelation of a slice: its sums, what they read, and where they fail.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "analysis/spectrum.hpp"
#include "tests/support/centred_samples.hpp"
#include "tests/support/failures.hpp"
#include "tests/support/plain_spectrum.hpp"

namespace quillspeech {
namespace {

using namespace tests;

// The number of the failure that ends the autocorrelation, 0 when it ends well.
int Ending_Of(const CentredSamples& samples, SpectrumTable& R) {
  return Failure_Of([&] { Autocorrelate(samples.cells.data(), samples.length, samples.level, R); });
}

int Ending_Of(const CentredSamples& samples) {
  SpectrumTable R;
  return Ending_Of(samples, R);
}

TEST(Autocorrelate, Sums_products_of_samples_a_lag_apart_and_divides_by_the_level) {
  CentredSamples samples(5, 3);  // its own samples stand at 1, 2 and 3
  const std::int16_t values[] = {99, 2, -3, 5, 0, 0, 0};
  std::copy(std::begin(values), std::end(values), samples.cells.begin());
  SpectrumTable R;
  Autocorrelate(samples.cells.data(), 5, 3, R);
  EXPECT_EQ(R[0], (4 + 9 + 25) / 3.0);
  EXPECT_EQ(R[1], (-6 - 15) / 3.0);
  EXPECT_EQ(R[2], 10 / 3.0);
  EXPECT_EQ(R[3], 0);
}

TEST(Autocorrelate, Cells_past_the_slice_count_as_they_stand) {
  CentredSamples samples(5, 3);
  const std::int16_t values[] = {99, 2, -3, 5, 10, 20, 30};
  std::copy(std::begin(values), std::end(values), samples.cells.begin());
  SpectrumTable R;
  Autocorrelate(samples.cells.data(), 5, 3, R);
  EXPECT_EQ(R[1], (-6 - 15 + 50) / 3.0);
  EXPECT_EQ(R[2], (10 - 30 + 100) / 3.0);
  EXPECT_EQ(R[3], (20 - 60 + 150) / 3.0);
}

TEST(Autocorrelate, A_slice_of_2_bytes_or_fewer_has_0_at_every_lag) {
  for (const std::int64_t length : {0, 1, 2}) {
    SpectrumTable R;
    R.Fill(7);
    Autocorrelate(Extreme(1, length, 128).cells.data(), length, 128, R);
    for (int lag = 0; lag <= 128; ++lag) ASSERT_EQ(R[lag], 0);
    EXPECT_EQ(R[129], 7);
  }
}

TEST(Autocorrelate, The_longest_word_stays_within_32_bits) {
  EXPECT_EQ(Ending_Of(Constant(-128, 45000, 128)), 0);
}

TEST(Autocorrelate, A_running_sum_that_leaves_32_bits_is_failure_6) {
  SpectrumTable R;  // 131,071 times 128 * 128 is the last sum that fits
  EXPECT_EQ(Ending_Of(Constant(-128, 131071 + 2, 2), R), 0);
  EXPECT_EQ(R[0], 131071.0 * 16384 / 2);
  EXPECT_EQ(Ending_Of(Constant(-128, 131072 + 2, 2)), 6);
}

TEST(Autocorrelate, A_long_slice_that_is_quiet_enough_passes) {
  const CentredSamples samples = Tone(440, 100, 300000, 3);
  SpectrumTable R;
  EXPECT_EQ(Ending_Of(samples, R), 0);
  const auto plain = Plain_Autocorrelation(samples.cells.data(), 300000, 3);
  for (int lag = 0; lag <= 3; ++lag) EXPECT_EQ(R[lag], plain[static_cast<std::size_t>(lag)]);
}

// 133,144 samples of -127 leave 4,071 to the bound; each louder one behind them adds 127.
CentredSamples Loud_With_Louder_Leftovers(int level) {
  CentredSamples samples = Constant(-127, 133144 + 2, level);
  for (std::int64_t i = samples.Own() + 1; i <= samples.Own() + level; ++i) samples.At(i) = -128;
  return samples;
}

TEST(Autocorrelate, Lags_before_the_one_that_fails_are_stored) {
  SpectrumTable R;
  R.Fill(7);
  EXPECT_EQ(Ending_Of(Loud_With_Louder_Leftovers(40), R), 6);
  EXPECT_EQ(R[32], (133144.0 * 127 * 127 + 32 * 127) / 40);
  EXPECT_EQ(R[33], 7);
}

TEST(Autocorrelate, Level_1201_fails_at_its_last_lag_with_failure_9) {
  for (const std::int64_t length : {0, 500, 140000}) {
    SpectrumTable R;
    R.Fill(7);
    EXPECT_EQ(Ending_Of(Tone(500, 50, length, 1201), R), 9);
    for (int lag = 0; lag <= 1200; ++lag) ASSERT_NE(R[lag], 7);
    EXPECT_EQ(R[0] > 0, length > 2);
  }
  EXPECT_EQ(Ending_Of(Tone(500, 50, 500, 1200)), 0);
}

TEST(Autocorrelate, An_overflow_at_an_earlier_lag_comes_before_failure_9) {
  EXPECT_EQ(Ending_Of(Loud_With_Louder_Leftovers(1201)), 6);
}

}  // namespace
}  // namespace quillspeech
