#include "analysis/slice_analysis.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <utility>

#include "tests/support/slice_test.hpp"

namespace quillspeech {
namespace {

using namespace tests;

TEST(AnalyseSlice, A_tone_gives_about_twice_its_frequency_by_level_over_rate) {
  for (const auto& [pitch, valleys] : {std::pair{1000_Hz, 12}, {2000_Hz, 23}, {3000_Hz, 34}}) {
    SliceTest test(Tone(pitch, Amplitude(100), Bytes(2000)) + Silence(Bytes(100)));
    EXPECT_EQ(test.Category(0, 2000), valleys) << pitch.value;
  }
}

TEST(AnalyseSlice, A_silent_slice_gives_0_and_the_filter_still_runs) {
  SliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(2000)) + Silence(Bytes(4000)));
  ASSERT_EQ(test.Category(0, 2000), 12);
  test.Category(2000, 4200);  // takes the place of what the tone left beyond the next slice
  EXPECT_EQ(test.Category(2000, 4000), 0);
  EXPECT_EQ(test.Filtered(), 3);
  for (std::int64_t lag = 0; lag <= 128; ++lag) {
    EXPECT_EQ(test.session.slice.Autocorrelation[lag], 0);
    EXPECT_EQ(test.session.slice.Magnitude_dB[lag], 0);
  }
}

TEST(AnalyseSlice, White_noise_gives_33_to_51) {
  for (std::uint32_t seed = 1; seed <= 60; ++seed) {
    SliceTest test(Noise(Amplitude(100), Bytes(2200), seed));
    const std::int64_t valleys = test.Category(0, 2000);
    EXPECT_GE(valleys, 33) << seed;
    EXPECT_LE(valleys, 51) << seed;
  }
}

TEST(AnalyseSlice, A_slice_that_reaches_the_end_of_the_store_ends_50_bytes_before_it) {
  const struct {
    std::int64_t last;
    std::int64_t end;
  } cases[] = {{2999, 2999}, {3000, 2950}, {3001, 2950}, {9999, 2950}};
  for (const auto& c : cases) {
    SliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
    test.Category(2500, c.last);
    EXPECT_EQ(test.session.slice.Span_End, c.end);
    EXPECT_EQ(test.session.words.Sample_Span, c.end - 2500);
    EXPECT_EQ(test.Filtered(), 1);
  }
}

TEST(AnalyseSlice, A_quiet_long_slice_is_analysed_all_the_same) {
  SliceTest test(Tone(1000_Hz, Amplitude(10), Bytes(5000)));
  EXPECT_EQ(test.Category(0, 4000), 12);
  EXPECT_EQ(test.Filtered(), 1);
  EXPECT_EQ(test.session.slice.Noise_Gate_Limit, 0);
}

TEST(AnalyseSlice, A_slice_of_2_bytes_or_fewer_has_no_product_and_gives_0) {
  for (const std::int64_t length : {0, 1, 2}) {
    SliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
    ASSERT_EQ(test.Category(0, 2000), 12);
    EXPECT_EQ(test.Category(100, 100 + length), 0) << length;
    for (std::int64_t lag = 0; lag <= 128; ++lag) {
      ASSERT_EQ(test.session.slice.Autocorrelation[lag], 0);
    }
    EXPECT_EQ(test.Filtered(), 2);
  }
}

TEST(AnalyseSlice, The_first_byte_of_a_slice_and_the_last_two_are_left_out) {
  Sound sound = Silence(Bytes(3000));
  sound[100] = sound[198] = sound[199] = sound[200] = 255;
  SliceTest test(sound);
  test.Category(100, 200);
  EXPECT_EQ(test.session.slice.Autocorrelation[0], 127.0 * 127.0 / 128);  // byte 198 came in
  EXPECT_EQ(test.session.slice.Span_Samples[198], 127);
  EXPECT_EQ(test.session.slice.Span_Samples[100], 0);
  EXPECT_EQ(test.session.words.Centred_Samples[98], 127);
}

TEST(AnalyseSlice, Lags_beyond_a_slice_reach_what_an_earlier_slice_left) {
  SliceTest test(Level(138, Bytes(3000)));
  test.session.settings.Digital_Signal_Processing_Level = 100;
  test.Category(0, 1000);
  test.Category(1000, 1500);
  // 498 samples of 10, and 100 more of the first slice behind them.
  for (std::int64_t lag = 0; lag <= 100; ++lag) {
    ASSERT_EQ(test.session.slice.Autocorrelation[lag], 49800.0 / 100) << lag;
  }
}

TEST(AnalyseSlice, Lags_beyond_a_slice_meet_0_where_nothing_was_ever_written) {
  SliceTest test(Level(138, Bytes(3000)));
  test.session.settings.Digital_Signal_Processing_Level = 100;
  test.Category(0, 500);
  for (std::int64_t lag = 0; lag <= 100; ++lag) {
    ASSERT_EQ(test.session.slice.Autocorrelation[lag], (498.0 - static_cast<double>(lag)));
  }
}

TEST(AnalyseSlice, Growing_forgets_what_lay_beyond_a_shorter_slice_and_its_level) {
  SliceTest test(Level(138, Bytes(3000)));
  test.session.settings.Digital_Signal_Processing_Level = 100;
  test.Category(0, 2000);
  test.Category(0, 100);
  EXPECT_EQ(test.session.words.Centred_Samples.Count(), 201);
  EXPECT_EQ(test.session.words.Centred_Samples[200], 10);
  test.Category(0, 500);
  EXPECT_EQ(test.session.words.Centred_Samples[500], 0);
}

TEST(AnalyseSlice, Samples_keep_their_positions_in_the_store) {
  SliceTest test(Level(130, Bytes(3000)));
  test.Category(1000, 1500);
  EXPECT_EQ(test.session.slice.Span_Samples.Count(), 1501);
  EXPECT_EQ(test.session.slice.Span_Samples[1001], 2);
  EXPECT_EQ(test.session.slice.Span_Samples[1000], 0);
  EXPECT_EQ(test.session.slice.Span_Samples[1498], 2);
  EXPECT_EQ(test.session.slice.Span_Samples[1499], 0);
  EXPECT_EQ(test.session.slice.Span_Start, 1000);
  EXPECT_EQ(test.session.slice.Span_End, 1500);
}

TEST(AnalyseSlice, A_slice_frees_the_tables_of_the_scan_and_keeps_the_bounds_of_the_words) {
  SliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  WordTables& words = test.session.words;
  for (auto* table :
       {&words.scan.Forward_Hits, &words.scan.Backward_Hits, &words.scan.Forward_Word_Starts,
        &words.scan.Backward_Word_Ends, &words.Word_Start, &words.Word_End, &words.Word_Length}) {
    table->Resize(10);
  }
  words.scan.Forward_Gap_Index.Resize(10);
  words.scan.Backward_Gap_Index.Resize(10);
  words.Word_Start.Put(1, 700);
  test.Category(0, 500);
  EXPECT_EQ(words.scan.Forward_Hits.Count(), 0);
  EXPECT_EQ(words.scan.Backward_Hits.Count(), 0);
  EXPECT_EQ(words.scan.Forward_Gap_Index.Count(), 0);
  EXPECT_EQ(words.scan.Backward_Gap_Index.Count(), 0);
  EXPECT_EQ(words.scan.Forward_Word_Starts.Count(), 0);
  EXPECT_EQ(words.scan.Backward_Word_Ends.Count(), 0);
  EXPECT_EQ(words.Decimated_Samples.Count(), 0);
  EXPECT_EQ(words.Word_Start[1], 700);
  EXPECT_EQ(words.Word_End.Count(), 11);
  EXPECT_EQ(words.Word_Length.Count(), 11);
}

TEST(AnalyseSlice, The_peaks_of_the_last_file_slice_stay) {
  SliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  test.session.slice.Peak_Count = 13;
  ASSERT_EQ(test.Category(0, 2000), 12);
  EXPECT_EQ(test.session.slice.Peak_Count, 13);
}

TEST(AnalyseSlice, A_slice_with_fewer_valleys_leaves_none_of_the_last_one) {
  SliceTest test(Tone(3000_Hz, Amplitude(100), Bytes(3000)) + Silence(Bytes(6000)));
  EXPECT_EQ(test.Category(0, 2000), 34);
  EXPECT_NE(test.session.slice.Valley_Bin[33], 0);
  test.Category(3500, 6500);
  EXPECT_EQ(test.Category(3500, 6500), 0);
  for (std::int64_t i = 0; i <= 1200; ++i) {
    ASSERT_EQ(test.session.slice.Valley_Bin[i], 0);
    ASSERT_EQ(test.session.slice.Valley_dB[i], 0);
    ASSERT_EQ(test.session.slice.Magnitude_dB[i], 0);
  }
}

TEST(AnalyseSlice, The_recorder_is_stopped_before_the_filter_runs) {
  SliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  std::int64_t filtered = -1;
  test.session.operations.Stop_Recording = [&](Session&) { filtered = test.Filtered(); };
  test.Category(0, 500);
  EXPECT_EQ(filtered, 0);
  EXPECT_EQ(test.Filtered(), 1);
}

TEST(AnalyseSlice, The_engine_filter_runs_whatever_Enable_Speech_Engine_says) {
  SliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  test.session.settings.Enable_Speech_Engine = "NO";
  test.Category(0, 500);
  EXPECT_EQ(test.Filtered(), 1);
}

TEST(AnalyseSlice, A_call_is_traced_with_its_bounds_counters_and_category) {
  SliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  test.session.words.Current_Word_no_Processed = 2;
  test.session.words.Current_DeepWord_no_Processed = 3;
  test.session.words.Current_TooDeepWord_no_Processed = 4;
  test.Category(500, 5000);
  ASSERT_EQ(test.session.trace.slices.size(), 1U);
  const SliceTrace& slice = test.session.trace.slices[0];
  EXPECT_EQ(slice.word, 2);
  EXPECT_EQ(slice.deep, 3);
  EXPECT_EQ(slice.too_deep, 4);
  EXPECT_EQ(slice.first, 500);
  EXPECT_EQ(slice.last, 5000);
  EXPECT_EQ(slice.category, 12);
}

TEST(AnalyseSlice, Without_the_wish_nothing_is_traced) {
  SliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  test.session.trace.Keep_Slices = false;
  test.Category(0, 500);
  EXPECT_TRUE(test.session.trace.slices.empty());
}

}  // namespace
}  // namespace quillspeech
