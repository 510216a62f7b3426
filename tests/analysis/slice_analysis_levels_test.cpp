#include "analysis/slice_analysis.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "analysis/file_slice_analysis.hpp"
#include "tests/support/slice_test.hpp"

namespace quillspeech {
namespace {

using namespace tests;

TEST(AnalyseSlice, Level_1200_works) {
  SliceTest test(Tone(500_Hz, Amplitude(100), Bytes(3000)));
  test.session.settings.Digital_Signal_Processing_Level = 1200;
  const std::int64_t valleys = test.Category(0, 2000);
  EXPECT_GT(valleys, 20);
  EXPECT_TRUE(test.session.trace.failures.empty());
}

TEST(AnalyseSlice, A_category_above_100_fails_in_the_filter_with_9) {
  SliceTest test(Tone(2000_Hz, Amplitude(100), Bytes(3000)));
  test.session.settings.Digital_Signal_Processing_Level = 1200;
  EXPECT_GT(test.Category(0, 2000), 100);
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{9});
}

TEST(AnalyseSlice, Level_1201_fails_with_9_and_the_filter_is_not_called) {
  SliceTest test(Tone(500_Hz, Amplitude(100), Bytes(3000)));
  test.session.settings.Digital_Signal_Processing_Level = 1201;
  EXPECT_EQ(test.Category(0, 2000), 77);
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{9});
  EXPECT_EQ(test.Times("Stop_And_Recover"), 1);
  EXPECT_EQ(test.Filtered(), 0);
  EXPECT_EQ(test.session.trace.slices.at(0).category, std::nullopt);
}

TEST(AnalyseSlice, Level_1_has_no_bin_and_gives_0) {
  SliceTest test(Tone(2000_Hz, Amplitude(100), Bytes(3000)));
  test.session.settings.Digital_Signal_Processing_Level = 1;
  EXPECT_EQ(test.Category(0, 2000), 0);
  EXPECT_EQ(test.Filtered(), 1);
}

TEST(AnalyseSlice, A_level_of_0_or_less_becomes_128_in_the_setting) {
  for (const int level : {0, -5}) {
    SliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(2100)));
    test.session.settings.Digital_Signal_Processing_Level = level;
    EXPECT_EQ(test.Category(0, 2000), 12);
    EXPECT_EQ(test.session.settings.Digital_Signal_Processing_Level, 128);
  }
}

TEST(AnalyseSlice, A_level_gets_its_default_after_the_yield_and_not_when_a_stop_came) {
  for (const char* stop : {"NO", "YES"}) {
    SliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(2100)));
    test.events.At_Yield = [&] {
      test.session.settings.Digital_Signal_Processing_Level = 0;
      test.session.settings.Stop_everything_now = stop;
    };
    test.Category(0, 2000);
    const bool stopped = test.session.settings.Stop_everything_now == "YES";
    EXPECT_EQ(test.session.settings.Digital_Signal_Processing_Level, stopped ? 0 : 128);
  }
}

TEST(AnalyseSlice, The_level_is_read_anew_for_each_slice) {
  SliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(2000)) + Silence(Bytes(100)));
  for (const auto& [level, valleys] : {std::pair{128, 12}, {256, 24}, {80, 8}}) {
    test.session.settings.Digital_Signal_Processing_Level = level;
    EXPECT_EQ(test.Category(0, 2000), valleys) << level;
  }
}

TEST(AnalyseSlice, A_file_slice_after_a_slice_at_level_256_is_at_128_again) {
  SliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(2000)) + Silence(Bytes(100)));
  test.session.settings.Digital_Signal_Processing_Level = 256;
  ASSERT_EQ(test.Category(0, 2000), 24);
  Analyse_File_Slice(test.session, 0, 2000);
  EXPECT_EQ(test.session.slice.Engine_Category, 12);
}

TEST(AnalyseSlice, Lags_above_a_smaller_level_keep_their_values) {
  SliceTest test(Level(138, Bytes(3000)));
  const SpectrumTable& Autocorrelation = test.session.slice.Autocorrelation;
  test.session.settings.Digital_Signal_Processing_Level = 256;
  test.Category(0, 2000);
  test.session.settings.Digital_Signal_Processing_Level = 80;
  test.Category(0, 2000);
  // 1,998 samples of 10, the lag fewer products.
  for (std::int64_t lag = 0; lag <= 256; ++lag) {
    const double sum = static_cast<double>(1998 - lag) * 100;
    ASSERT_EQ(Autocorrelation[lag], sum / (lag <= 80 ? 80 : 256)) << lag;
  }
}

}  // namespace
}  // namespace quillspeech
