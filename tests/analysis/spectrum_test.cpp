#include "analysis/spectrum.hpp"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "tests/support/centred_samples.hpp"
#include "tests/support/plain_spectrum.hpp"

namespace quillspeech {
namespace {

using namespace tests;

// The widths that this machine has.
std::vector<VectorWidth> Every_Width() {
  std::vector<VectorWidth> widths;
  for (const VectorWidth width : {VectorWidth::Two, VectorWidth::Four, VectorWidth::Eight}) {
    if (width <= Widest_Vectors()) widths.push_back(width);
  }
  return widths;
}

// A number as itself, a real one as its bits: 0 and -0 differ.
std::int64_t Bits(std::int32_t value) { return value; }
std::int64_t Bits(double value) { return std::bit_cast<std::int64_t>(value); }

// The tables of one slice after another.
struct Analysis {
  SpectrumTable Autocorrelation;
  SpectrumTable Magnitude;
  SpectrumTable Magnitude_dB;
  std::int32_t bins_in_use = 0;
  SpectrumTable Valley_dB;
  BinTable Valley_Bin;
  SpectrumTable Peak_dB;
  BinTable Peak_Bin;
  int valleys = 0;
  int peaks = 0;

  void Run(const CentredSamples& samples) { Run(samples, AngleTable(samples.level)); }
  void Run(const CentredSamples& samples, const AngleTable& angles,
           VectorWidth width = Widest_Vectors()) {
    Autocorrelate(samples.cells.data(), samples.length, samples.level, Autocorrelation, width);
    Clear_Curve(Magnitude, Magnitude_dB, bins_in_use);
    Compute_Curve(Autocorrelation, angles, Magnitude, Magnitude_dB, bins_in_use, width);
    Clear_Valleys(Valley_dB, Valley_Bin);
    valleys = Find_Valleys(Magnitude_dB, samples.level, Valley_dB, Valley_Bin);
    peaks = Find_Peaks(Magnitude_dB, samples.level, Peak_dB, Peak_Bin);
  }
};

int Valleys_Of(const CentredSamples& samples) {
  Analysis analysis;
  analysis.Run(samples);
  return analysis.valleys;
}

template <class Table, class T>
void Expect_Same(const char* what, const Table& table, const std::vector<T>& plain) {
  for (std::size_t i = 0; i < plain.size(); ++i) {
    const auto value = table[static_cast<std::int64_t>(i)];
    ASSERT_EQ(Bits(value), Bits(plain[i])) << what << " " << i << ": " << value;
  }
}

void Expect_Same(const Analysis& fast, const PlainSpectrum& plain) {
  Expect_Same("Autocorrelation", fast.Autocorrelation, plain.Autocorrelation);
  Expect_Same("Magnitude", fast.Magnitude, plain.Magnitude);
  Expect_Same("Magnitude_dB", fast.Magnitude_dB, plain.Magnitude_dB);
  ASSERT_EQ(fast.valleys, static_cast<int>(plain.Valley_Bin.size()));
  Expect_Same("Valley_dB", fast.Valley_dB, plain.Valley_dB);
  Expect_Same("Valley_Bin", fast.Valley_Bin, plain.Valley_Bin);
  ASSERT_EQ(fast.peaks, static_cast<int>(plain.Peak_Bin.size()));
  Expect_Same("Peak_dB", fast.Peak_dB, plain.Peak_dB);
  Expect_Same("Peak_Bin", fast.Peak_Bin, plain.Peak_Bin);
}

void Expect_Plain_Bits(const CentredSamples& samples, const AngleTable& angles) {
  const PlainSpectrum plain = Plain_Spectrum(samples.cells.data(), samples.length, samples.level);
  for (const VectorWidth width : Every_Width()) {
    SCOPED_TRACE("level " + std::to_string(samples.level) + ", length " +
                 std::to_string(samples.length) + ", width " +
                 std::to_string(static_cast<int>(width)));
    Analysis fast;
    fast.Run(samples, angles, width);
    Expect_Same(fast, plain);
  }
}

void Expect_Plain_Bits(const CentredSamples& samples) {
  Expect_Plain_Bits(samples, AngleTable(samples.level));
}

TEST(Spectrum, Has_the_plain_bits_at_every_short_length) {
  for (const int level : {1, 2, 3, 33, 80, 100, 128}) {
    for (std::int64_t length = 0; length <= 10; ++length) {
      Expect_Plain_Bits(Noise(1, length, level));
      Expect_Plain_Bits(Extreme(2, length, level));
    }
  }
}

TEST(Spectrum, Has_the_plain_bits_for_noise_tones_silence_and_the_greatest_swings) {
  for (const int level : {1, 2, 80, 100, 128, 256}) {
    for (const std::int64_t length : {500, 501, 2000}) {
      Expect_Plain_Bits(Silence(length, level));
      Expect_Plain_Bits(Tone(1000, 100, length, level));
      Expect_Plain_Bits(Tone(80, 3, length, level));
      Expect_Plain_Bits(Noise(3, length, level));
      Expect_Plain_Bits(Noise_After_Noise(4, length, level));
      Expect_Plain_Bits(Extreme(5, length, level));
      Expect_Plain_Bits(Constant(-128, length, level));
    }
  }
}

TEST(Spectrum, Has_the_plain_bits_for_the_longest_word) {
  for (const int level : {2, 128, 256}) {
    Expect_Plain_Bits(Noise_After_Noise(6, 45000, level));
    Expect_Plain_Bits(Constant(-128, 45000, level));
  }
}

TEST(Spectrum, Has_the_plain_bits_at_level_1200) {
  const AngleTable angles(1200);
  for (std::int64_t length = 0; length <= 4; ++length) {
    Expect_Plain_Bits(Extreme(2, length, 1200), angles);
  }
  Expect_Plain_Bits(Noise_After_Noise(7, 500, 1200), angles);
  Expect_Plain_Bits(Tone(1000, 100, 2000, 1200), angles);
  Expect_Plain_Bits(Extreme(5, 2000, 1200), angles);
}

TEST(Spectrum, Has_the_plain_bits_on_many_slices_of_random_shape) {
  std::mt19937 random(8);
  for (unsigned i = 0; i < 60; ++i) {
    const int level = 1 + static_cast<int>(random() % 150);
    Expect_Plain_Bits(Noise_After_Noise(i, static_cast<std::int64_t>(random() % 900), level));
  }
}

TEST(Spectrum, Every_build_gives_the_same_bits) {
  CentredSamples samples(45000, 1200);
  std::uint32_t random = 12345;
  for (auto& cell : samples.cells) {
    random = random * 1664525 + 1013904223;
    cell = static_cast<std::int16_t>(static_cast<int>(random >> 24) - 128);
  }
  std::uint64_t hash = 0xcbf29ce484222325;
  const auto take = [&hash](double value) {
    hash = (hash ^ std::bit_cast<std::uint64_t>(value)) * 0x100000001b3;
  };
  Analysis analysis;
  for (const int level : {1, 2, 80, 100, 128, 256, 1200}) {
    const AngleTable angles(level);
    for (const int length : {0, 1, 2, 3, 4, 5, 7, 10, 500, 2000, 45000}) {
      samples.length = length;
      samples.level = level;
      analysis.Run(samples, angles);
      for (int i = 0; i <= level; ++i) {
        take(analysis.Autocorrelation[i]);
        take(analysis.Magnitude[i]);
        take(analysis.Magnitude_dB[i]);
        take(analysis.Valley_dB[i]);
        take(analysis.Valley_Bin[i]);
      }
      take(analysis.valleys);
    }
  }
  EXPECT_EQ(hash, 0x4fd2016122547835u);
}

TEST(Spectrum, Level_1200_works) { EXPECT_GT(Valleys_Of(Noise(1, 2000, 1200)), 300); }

TEST(Spectrum, Level_1_has_no_bin_and_no_valley) { EXPECT_EQ(Valleys_Of(Noise(1, 500, 1)), 0); }

TEST(Spectrum, A_silent_slice_has_a_curve_of_0_and_no_valley) {
  Analysis analysis;
  analysis.Run(Noise(1, 2000, 128));
  ASSERT_GT(analysis.valleys, 0);
  analysis.Run(Silence(2000, 128));
  EXPECT_EQ(analysis.valleys, 0);
  EXPECT_EQ(analysis.peaks, 0);
  for (int bin = 0; bin <= 128; ++bin) {
    ASSERT_EQ(analysis.Autocorrelation[bin], 0);
    ASSERT_EQ(analysis.Magnitude[bin], 0);
    ASSERT_EQ(analysis.Magnitude_dB[bin], 0);
  }
}

TEST(Spectrum, A_slice_of_2_bytes_or_fewer_has_no_valley) {
  for (const std::int64_t length : {0, 1, 2}) EXPECT_EQ(Valleys_Of(Extreme(1, length, 128)), 0);
}

// Level 3, with R at lags 1, 2 and 3 being 1, 2 and 3; lag 0 takes no part. A third of 6.284 has
// the cosine C = -0.5002351631 and the sine S = 0.8658895897, twice that C2 = -0.4995295632 and S2
// = -0.8662968403.
//   first transform   bin 1:  1 + 2 + 3 = 6                   0
//                     bin 2:  1 + 2 C + 3 C2 = -1.4990590157  -2 S - 3 S2 = 0.8671113415
//   second, bin 1     real:  6 - 1.4990590157 = 4.5009409843
//                     imag:  -0.8671113415
//   second, bin 2     real:  6 + (-1.4990590157 C + 0.8671113415 S) = 7.5007047150
//                     imag:  1.4990590157 S - 0.8671113415 C = 1.7317791794
// With the signs of a plain complex product bin 2 would be 7.5503322173.
TEST(Spectrum, The_second_transform_takes_both_products_of_its_imaginary_sum_off) {
  CentredSamples samples(3, 3);  // its one own sample of 3 makes each R the cell at lag + 1
  const std::int16_t cells[] = {99, 3, 1, 2, 3};
  samples.cells.assign(std::begin(cells), std::end(cells));
  const PlainSpectrum plain = Plain_Spectrum(samples.cells.data(), 3, 3);
  Analysis fast;
  fast.Run(samples);
  const double magnitudes[] = {4.583705032243907, 7.698027692054388};
  const double decibels[] = {13.224333248163457, 17.727589380910025};
  for (std::size_t i = 0; i < 2; ++i) {
    const auto bin = static_cast<std::int64_t>(i) + 1;
    EXPECT_EQ(fast.Autocorrelation[bin], static_cast<double>(bin));
    EXPECT_NEAR(fast.Magnitude[bin], magnitudes[i], 1e-13);
    EXPECT_NEAR(fast.Magnitude_dB[bin], decibels[i], 1e-13);
    EXPECT_NEAR(plain.Magnitude[i + 1], magnitudes[i], 1e-13);
    EXPECT_NEAR(plain.Magnitude_dB[i + 1], decibels[i], 1e-13);
  }
  EXPECT_EQ(fast.valleys, 0);
  EXPECT_EQ(fast.peaks, 1);
}

TEST(Spectrum, The_count_of_a_tone_grows_with_its_frequency) {
  const int cases[][2] = {{1000, 12}, {2000, 23}, {3000, 34}};
  for (const auto& [hertz, valleys] : cases) {
    EXPECT_EQ(Valleys_Of(Tone(hertz, 100, 2000, 128)), valleys) << hertz;
  }
}

TEST(Spectrum, White_noise_counts_between_33_and_51) {
  int sum = 0;
  for (unsigned seed = 1; seed <= 100; ++seed) {
    const int valleys = Valleys_Of(Noise(seed, 2000, 128));
    ASSERT_GE(valleys, 33) << seed;
    ASSERT_LE(valleys, 51) << seed;
    sum += valleys;
  }
  EXPECT_NEAR(sum / 100.0, 42, 1);
}

TEST(Spectrum, Magnitudes_in_decibels_are_20_times_the_logarithm_to_base_10) {
  Analysis analysis;
  analysis.Run(Noise(1, 500, 128));
  for (int bin = 1; bin < 128; ++bin) {
    ASSERT_NEAR(analysis.Magnitude_dB[bin], 20 * std::log10(analysis.Magnitude[bin]), 1e-12);
  }
}

TEST(Spectrum, A_smaller_level_leaves_nothing_of_a_greater_one) {
  Analysis used;
  used.Run(Noise(1, 2000, 1200));
  used.Run(Extreme(2, 2000, 256));
  used.Run(Noise(3, 500, 128));
  Analysis fresh;
  fresh.Run(Noise(3, 500, 128));
  EXPECT_EQ(used.bins_in_use, 128);
  EXPECT_EQ(used.valleys, fresh.valleys);
  for (int i = 0; i <= 1200; ++i) {
    ASSERT_EQ(used.Magnitude[i], fresh.Magnitude[i]) << i;
    ASSERT_EQ(used.Magnitude_dB[i], fresh.Magnitude_dB[i]) << i;
    ASSERT_EQ(used.Valley_dB[i], fresh.Valley_dB[i]) << i;
    ASSERT_EQ(used.Valley_Bin[i], fresh.Valley_Bin[i]) << i;
  }
}

TEST(Spectrum, A_cleared_curve_reads_0_everywhere) {
  Analysis analysis;
  analysis.Run(Noise(1, 500, 256));
  Clear_Curve(analysis.Magnitude, analysis.Magnitude_dB, analysis.bins_in_use);
  EXPECT_EQ(analysis.bins_in_use, 0);
  for (int i = 0; i <= 1200; ++i) {
    ASSERT_EQ(analysis.Magnitude[i], 0);
    ASSERT_EQ(analysis.Magnitude_dB[i], 0);
  }
}

}  // namespace
}  // namespace quillspeech
