// The valleys and peaks of a curve.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "analysis/spectrum.hpp"

namespace quillspeech {
namespace {

SpectrumTable Curve(const std::vector<double>& values) {
  SpectrumTable curve;
  std::copy(values.begin(), values.end(), curve.Data());
  return curve;
}

struct Turns {
  std::vector<double> curve;  // from index 0, as long as the level plus 1
  std::vector<int> valleys;
  std::vector<int> peaks;
};

TEST(FindValleys, A_valley_or_a_peak_lies_strictly_beyond_both_neighbours) {
  const Turns cases[] = {
      {{0, 0}, {}, {}},       // level 1: no bin
      {{0, -1, 0}, {1}, {}},  // index 0 and the level are neighbours
      {{0, 1, 0}, {}, {1}},
      {{0, 3, 1, 2, 0}, {2}, {1, 3}},
      {{0, 3, 1, 1, 3, 0}, {}, {1, 4}},  // a tie is no valley
      {{0, 2, 2, 1, 2, 2, 0}, {3}, {}},  // and no peak
      {{0, -5, -5, 0}, {}, {}},
      {{0, 1, 2, 3, 4, 0}, {}, {4}},
  };
  for (const Turns& turns : cases) {
    const SpectrumTable curve = Curve(turns.curve);
    const int level = static_cast<int>(turns.curve.size()) - 1;
    SCOPED_TRACE(::testing::PrintToString(turns.curve));
    SpectrumTable dB;
    BinTable bins;
    ASSERT_EQ(Find_Valleys(curve, level, dB, bins), static_cast<int>(turns.valleys.size()));
    for (std::size_t i = 0; i < turns.valleys.size(); ++i) {
      const auto at = static_cast<std::int64_t>(i);
      EXPECT_EQ(bins[at], turns.valleys[i]);
      EXPECT_EQ(dB[at], curve[turns.valleys[i]]);
    }
    ASSERT_EQ(Find_Peaks(curve, level, dB, bins), static_cast<int>(turns.peaks.size()));
    for (std::size_t i = 0; i < turns.peaks.size(); ++i) {
      const auto at = static_cast<std::int64_t>(i);
      EXPECT_EQ(bins[at], turns.peaks[i]);
      EXPECT_EQ(dB[at], curve[turns.peaks[i]]);
    }
  }
}

TEST(FindValleys, Cells_past_the_last_valley_stay) {
  SpectrumTable dB;
  BinTable bins;
  dB.Fill(7);
  bins.Fill(7);
  ASSERT_EQ(Find_Valleys(Curve({0, 3, 1, 3, 0}), 4, dB, bins), 1);
  EXPECT_EQ(dB[0], 1);
  EXPECT_EQ(bins[0], 2);
  EXPECT_EQ(dB[1], 7);
  EXPECT_EQ(bins[1], 7);
}

TEST(FindValleys, The_tables_hold_every_valley_of_the_greatest_level) {
  SpectrumTable curve;
  for (int bin = 1; bin < 1200; bin += 2) curve[bin] = -1;
  SpectrumTable dB;
  BinTable bins;
  EXPECT_EQ(Find_Valleys(curve, 1200, dB, bins), 600);
  EXPECT_EQ(bins[599], 1199);
  Clear_Valleys(dB, bins);
  for (int i = 0; i <= 1200; ++i) ASSERT_TRUE(dB[i] == 0 && bins[i] == 0) << i;
}

}  // namespace
}  // namespace quillspeech
