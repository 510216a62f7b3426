#include "analysis/file_slice_analysis.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "recognition/engine_table.hpp"
#include "tests/support/analysis_session.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech {
namespace {

using namespace tests;

struct FileSliceTest : AnalysisSession {
  explicit FileSliceTest(const Sound& sound) {
    Put_File(session, sound);
    Load_Default_Engine_Table(session);
    session.words.No_of_Processings = 30000;
    session.slice.Engine_Category = 77;  // to see whether a call touches it
  }
  std::int64_t Category(std::int64_t first, std::int64_t last) {
    Analyse_File_Slice(session, first, last);
    return session.slice.Engine_Category;
  }
  std::int64_t Filtered() const { return session.filter.Processings_Delivered; }
};

TEST(AnalyseFileSlice, A_tone_gives_the_same_numbers_as_in_a_capture) {
  for (const auto& [pitch, valleys] : {std::pair{1000_Hz, 12}, {2000_Hz, 23}, {3000_Hz, 34}}) {
    FileSliceTest test(Tone(pitch, Amplitude(100), Bytes(2000)) + Silence(Bytes(100)));
    EXPECT_EQ(test.Category(0, 2000), valleys) << pitch.value;
    EXPECT_EQ(test.Filtered(), 1);
  }
}

TEST(AnalyseFileSlice, A_silent_slice_of_1499_bytes_is_never_noise) {
  FileSliceTest test(Silence(Bytes(3000)));
  EXPECT_EQ(test.Category(0, 1499), 0);
  EXPECT_EQ(test.Filtered(), 1);
}

TEST(AnalyseFileSlice, A_silent_slice_of_1500_bytes_is_noise_and_adds_nothing) {
  FileSliceTest test(Silence(Bytes(3000)));
  EXPECT_EQ(test.Category(0, 1500), 77);
  EXPECT_EQ(test.Filtered(), 0);
  EXPECT_EQ(test.session.trace.slices.at(0).category, std::nullopt);
}

// A slice of 2,000 bytes with so many loud grid bytes inside.
bool Passes(int loud_bytes, int byte) {
  Sound sound = Silence(Bytes(3000));
  for (std::size_t i = 1; i <= static_cast<std::size_t>(loud_bytes); ++i) {
    sound[i * 25] = static_cast<std::uint8_t>(byte);
  }
  FileSliceTest test(sound);
  test.Category(0, 2000);
  return test.Filtered() == 1;
}

TEST(AnalyseFileSlice, Fewer_than_9_loud_bytes_are_noise) {
  EXPECT_FALSE(Passes(8, 200));
  EXPECT_TRUE(Passes(9, 200));
}

TEST(AnalyseFileSlice, A_byte_is_loud_from_a_distance_of_30_on) {
  EXPECT_TRUE(Passes(20, 128 + 30));
  EXPECT_TRUE(Passes(20, 128 - 30));
  EXPECT_FALSE(Passes(20, 128 + 29));
  EXPECT_FALSE(Passes(20, 128 - 29));
}

TEST(AnalyseFileSlice, Noise_is_told_on_the_graph_when_the_graph_is_wanted) {
  FileSliceTest test(Silence(Bytes(3000)));
  test.session.words.Current_Word_no_Processed = 3;
  test.session.words.Current_DeepWord_no_Processed = 2;
  test.session.words.Current_TooDeepWord_no_Processed = 1;
  test.Category(0, 2000);
  EXPECT_EQ(test.Times("Print Noise Found on 3 2 1"), 1);
  for (const char* text : {"NO", "", "yes"}) {
    test.session.settings.Show_Audio_Graph = text;
    test.Category(0, 2000);
    EXPECT_EQ(test.Times("Print Noise Found on 3 2 1"), 1) << text;
  }
}

TEST(AnalyseFileSlice, A_changed_level_changes_nothing) {
  FileSliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  test.session.settings.Digital_Signal_Processing_Level = 256;
  test.session.settings.Keep_Digital_Signal_Processing_level = "256";
  EXPECT_EQ(test.Category(0, 2000), 12);
  test.session.settings.Digital_Signal_Processing_Level = 0;
  EXPECT_EQ(test.Category(0, 2000), 12);
  EXPECT_EQ(test.session.settings.Digital_Signal_Processing_Level, 0);
}

TEST(AnalyseFileSlice, With_Enable_Speech_Engine_NO_the_number_moves_and_goes_nowhere) {
  for (const char* text : {"NO", "", "yes"}) {
    FileSliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
    test.session.settings.Enable_Speech_Engine = text;
    EXPECT_EQ(test.Category(0, 2000), 12);
    EXPECT_EQ(test.Filtered(), 0);
    EXPECT_EQ(test.session.trace.slices.at(0).category, 12);
  }
}

// What a word of two slices that sound alike leaves as its string.
std::string String_Of_Word(const char* Enable_Speech_Engine) {
  FileSliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  test.session.settings.Enable_Speech_Engine = Enable_Speech_Engine;
  test.session.words.No_of_Processings = 2;
  EXPECT_EQ(test.Category(0, 1000), test.Category(1000, 2000));
  return test.session.filter.Voice_Word_Table[1];
}

TEST(AnalyseFileSlice, The_last_slice_of_a_word_ends_its_string_when_Enable_Speech_Engine_is_YES) {
  EXPECT_FALSE(String_Of_Word("YES").empty());
  EXPECT_TRUE(String_Of_Word("NO").empty());
}

TEST(AnalyseFileSlice, A_slice_that_reaches_the_end_of_the_store_ends_50_bytes_before_it) {
  FileSliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  test.Category(1000, 2999);
  EXPECT_EQ(test.session.slice.Span_End, 2999);
  test.Category(1000, 3000);
  EXPECT_EQ(test.session.slice.Span_End, 2950);
  EXPECT_EQ(test.session.words.Sample_Span, 1950);
}

TEST(AnalyseFileSlice, A_negative_length_shows_a_message_and_the_run_goes_on) {
  FileSliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  test.Category(2960, 3000);
  ASSERT_EQ(test.boxes.shown.size(), 1U);
  EXPECT_EQ(test.boxes.shown[0].box.title, "Quillspeech USER ERROR");
  EXPECT_EQ(test.boxes.shown[0].box.text,
            "CANNOT PROCESS: CODE : WP,User: Please change your experimental settings");
  EXPECT_EQ(test.boxes.shown[0].box.icon, BoxIcon::Stop);
  EXPECT_EQ(test.session.words.Sample_Span, -10);
  EXPECT_EQ(test.session.slice.Engine_Category, 77);
  EXPECT_EQ(test.Filtered(), 0);
  EXPECT_EQ(test.Category(0, 2000), 12);
}

TEST(AnalyseFileSlice, A_negative_length_leaves_the_samples_and_bounds_of_the_last_slice) {
  FileSliceTest test(Level(178, Bytes(3000)));
  test.Category(0, 2000);
  test.Category(2951, 3000);
  EXPECT_EQ(test.session.words.Sample_Span, -1);
  EXPECT_EQ(test.session.slice.Span_Samples.Count(), 2001);
  EXPECT_EQ(test.session.words.Centred_Samples.Count(), 2000 + 130 + 1);
  EXPECT_EQ(test.session.words.Centred_Samples[1500], 50);
  EXPECT_EQ(test.session.slice.Span_Start, 0);
  EXPECT_EQ(test.session.slice.Span_End, 2000);
}

TEST(AnalyseFileSlice, A_length_of_0_gives_0_with_the_filter_and_without_a_message) {
  FileSliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  ASSERT_EQ(test.Category(0, 2000), 12);
  EXPECT_EQ(test.Category(2950, 3000), 0);
  EXPECT_EQ(test.session.words.Sample_Span, 0);
  EXPECT_EQ(test.Filtered(), 2);
  EXPECT_TRUE(test.boxes.shown.empty());
}

TEST(AnalyseFileSlice, A_file_slice_never_yields_and_leaves_status_flags_and_recorder_alone) {
  FileSliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  test.session.settings.I_want_Status_Animation = "YES";
  test.session.settings.Enable_Speech_Engine = "NO";
  test.session.flags.Operation_Status = "Starting Processing";
  test.Category(0, 2000);
  EXPECT_EQ(test.events.yields, 0);
  EXPECT_EQ(test.session.flags.Operation_Status, "Starting Processing");
  EXPECT_EQ(test.session.flags.Analysis_Running, 0);
  EXPECT_TRUE(test.calls.empty());
}

TEST(AnalyseFileSlice, A_stopped_session_only_gets_its_work_tables_cleared) {
  FileSliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  test.Category(0, 2000);
  ASSERT_EQ(test.session.slice.Peak_Count, 13);
  test.session.words.scan.Forward_Hits.Resize(5);
  test.session.settings.Stop_everything_now = "YES";
  EXPECT_EQ(test.Category(0, 500), 12);
  EXPECT_EQ(test.Filtered(), 1);
  EXPECT_EQ(test.session.words.scan.Forward_Hits.Count(), 0);
  EXPECT_EQ(test.session.slice.Magnitude_dB[5], 0);
  EXPECT_EQ(test.session.slice.Valley_Bin[0], 0);
  EXPECT_EQ(test.session.slice.Peak_Count, 13);
}

TEST(AnalyseFileSlice, A_noise_slice_clears_the_curve_and_keeps_the_autocorrelation_and_the_peaks) {
  FileSliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)) + Silence(Bytes(3000)));
  test.Category(0, 2000);
  const double lag_0 = test.session.slice.Autocorrelation[0];
  ASSERT_EQ(test.session.slice.Peak_Count, 13);
  EXPECT_EQ(test.Category(3500, 5500), 12);
  EXPECT_EQ(test.session.slice.Autocorrelation[0], lag_0);
  EXPECT_EQ(test.session.slice.Valley_Bin[0], 0);
  EXPECT_EQ(test.session.slice.Magnitude[1], 0);
  EXPECT_EQ(test.session.slice.Peak_Count, 13);
}

TEST(AnalyseFileSlice, A_file_slice_makes_room_for_130_cells_beyond_it) {
  FileSliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  test.Category(0, 500);
  EXPECT_EQ(test.session.words.Centred_Samples.Count(), 500 + 130 + 1);
}

TEST(AnalyseFileSlice, A_file_slice_is_gated_by_9) {
  FileSliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  test.Category(0, 500);
  EXPECT_EQ(test.session.slice.Noise_Gate_Limit, 9);
}

TEST(AnalyseFileSlice, Decimated_Samples_hold_the_slice_at_its_place_and_nothing_else) {
  FileSliceTest test(Level(138, Bytes(3000)));
  test.Category(0, 2500);
  test.Category(1000, 1500);
  const auto& samples = test.session.words.Decimated_Samples;
  ASSERT_EQ(samples.Count(), 1501);
  for (std::int64_t i = 0; i <= 1500; ++i) {
    ASSERT_EQ(samples[i], i > 1000 && i < 1499 ? 10 : 0) << i;
  }
}

TEST(AnalyseFileSlice, Lags_beyond_a_file_slice_reach_what_an_earlier_one_left) {
  FileSliceTest test(Level(138, Bytes(3000)));
  test.Category(0, 1000);
  test.Category(1000, 1500);
  // 498 samples of 10, and 128 more of the first slice behind them.
  for (std::int64_t lag = 0; lag <= 128; ++lag) {
    ASSERT_EQ(test.session.slice.Autocorrelation[lag], 49800.0 / 128) << lag;
  }
}

TEST(AnalyseFileSlice, A_noise_slice_moves_the_bounds_and_forgets_what_lay_beyond_its_room) {
  FileSliceTest test(Level(178, Bytes(4000)) + Silence(Bytes(3000)));
  test.Category(0, 3000);
  const std::int64_t category = test.session.slice.Engine_Category;
  EXPECT_EQ(test.Category(4500, 6000), category);
  EXPECT_EQ(test.Filtered(), 1);
  EXPECT_EQ(test.session.slice.Span_Start, 4500);
  EXPECT_EQ(test.session.slice.Span_End, 6000);
  EXPECT_EQ(test.session.words.Centred_Samples.Count(), 1500 + 130 + 1);
  test.Category(0, 1600);
  // 1,598 samples of 50, and beyond them what the noise slice had room for, up to cell 1,630.
  for (std::int64_t lag = 0; lag <= 128; ++lag) {
    const std::int64_t terms = std::min<std::int64_t>(1598, 1630 - lag);
    ASSERT_EQ(test.session.slice.Autocorrelation[lag], static_cast<double>(terms) * 2500 / 128);
  }
}

TEST(AnalyseFileSlice, Peaks_are_counted_over_the_same_curve) {
  FileSliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  test.Category(0, 2000);
  const Slice& slice = test.session.slice;
  std::int64_t peaks = 0;
  for (std::int64_t n = 1; n <= 127; ++n) {
    const double value = slice.Magnitude_dB[n];
    if (value > slice.Magnitude_dB[n - 1] && value > slice.Magnitude_dB[n + 1]) {
      EXPECT_EQ(slice.Peak_Bin[peaks], n);
      EXPECT_EQ(slice.Peak_dB[peaks], value);
      ++peaks;
    }
  }
  EXPECT_GT(peaks, 5);
  EXPECT_EQ(slice.Peak_Count, peaks);
}

TEST(AnalyseFileSlice, Peaks_are_counted_with_Enable_Speech_Engine_NO_too) {
  FileSliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  test.session.settings.Enable_Speech_Engine = "NO";
  test.Category(0, 2000);
  EXPECT_GT(test.session.slice.Peak_Count, 5);
}

TEST(AnalyseFileSlice, Peak_tables_keep_old_entries_above_the_count) {
  FileSliceTest test(Tone(3000_Hz, Amplitude(100), Bytes(3000)) +
                     Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  const Slice& slice = test.session.slice;
  test.Category(0, 2000);
  const std::int64_t last = slice.Peak_Count - 1;
  const std::int32_t bin = slice.Peak_Bin[last];
  const double value = slice.Peak_dB[last];
  ASSERT_NE(bin, 0);
  test.Category(3000, 5000);
  ASSERT_LT(slice.Peak_Count, last);
  EXPECT_EQ(slice.Peak_Bin[last], bin);
  EXPECT_EQ(slice.Peak_dB[last], value);
}

TEST(AnalyseFileSlice, A_position_past_32_bits_is_the_callers_own_failure_6_traced_or_not) {
  for (const bool traced : {true, false}) {
    FileSliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
    test.session.trace.Keep_Slices = traced;
    EXPECT_EQ(Failure_Of([&] { test.Category(0, 2147483648); }), 6);
    EXPECT_EQ(Failure_Of([&] { test.Category(0, 2147483647); }), 0);
    EXPECT_TRUE(test.session.trace.failures.empty());
    EXPECT_TRUE(test.Times("Stop_And_Recover") == 0 && test.Filtered() == 1);
  }
}

TEST(AnalyseFileSlice, A_running_sum_past_32_bits_fails_with_6) {
  // 131,071 terms of 128 squared fit, one more does not; a byte of 0 is 128 below silence.
  FileSliceTest fits(Level(0, Bytes(140000)));
  fits.Category(0, 131071 + 2);
  EXPECT_TRUE(fits.session.trace.failures.empty());
  FileSliceTest fails(Level(0, Bytes(140000)));
  fails.Category(0, 131072 + 2);
  EXPECT_EQ(fails.session.trace.failures, std::vector<int>{6});
  EXPECT_EQ(fails.Times("Stop_And_Recover"), 1);
  EXPECT_EQ(fails.Filtered(), 0);
}

TEST(AnalyseFileSlice, A_failure_in_the_autocorrelation_leaves_no_valleys_and_no_scan) {
  FileSliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(2000)) + Level(0, Bytes(140000)));
  ASSERT_EQ(test.Category(0, 2000), 12);
  test.session.words.scan.Forward_Hits.Resize(5);
  EXPECT_EQ(test.Category(2000, 2000 + 131072 + 2), 12);
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{6});
  EXPECT_EQ(test.session.slice.Valley_Bin[0], 0);
  EXPECT_EQ(test.session.words.scan.Forward_Hits.Count(), 0);
}

}  // namespace
}  // namespace quillspeech
