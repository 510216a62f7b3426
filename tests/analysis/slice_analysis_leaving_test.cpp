#include "analysis/slice_analysis.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/failures.hpp"
#include "tests/support/slice_test.hpp"

namespace quillspeech {
namespace {

using namespace tests;

TEST(AnalyseSlice, A_slice_yields_once_and_says_that_it_is_processed) {
  SliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  test.session.flags.Operation_Status = "Starting Processing";
  std::string status;
  test.events.At_Yield = [&] { status = test.session.flags.Operation_Status; };
  test.session.operations.Stop_Recording = [&](Session& session) {
    EXPECT_EQ(session.flags.Operation_Status, "Processing ...");
  };
  test.Category(0, 500);
  EXPECT_EQ(test.events.yields, 1);
  EXPECT_EQ(status, "Starting Processing");
  EXPECT_EQ(test.session.flags.Operation_Status, "Processing...");  // the filter's own
  EXPECT_EQ(test.session.flags.Analysis_Running, 1);
}

TEST(AnalyseSlice, The_status_image_shows_only_when_it_is_wanted) {
  SliceTest test(Silence(Bytes(3000)));
  for (const char* text : {"NO", "", "yes"}) {
    test.session.settings.I_want_Status_Animation = text;
    test.Category(0, 500);
    EXPECT_EQ(test.Times("Show_Status_Image 2"), 0) << text;
  }
  test.session.settings.I_want_Status_Animation = "YES";
  test.Category(0, 500);
  EXPECT_EQ(test.Times("Show_Status_Image 2"), 1);
}

TEST(AnalyseSlice, The_status_image_shows_before_the_yield) {
  SliceTest test(Silence(Bytes(3000)));
  test.session.settings.I_want_Status_Animation = "YES";
  std::int64_t shown = -1;
  test.events.At_Yield = [&] { shown = test.Times("Show_Status_Image 2"); };
  test.Category(0, 500);
  EXPECT_EQ(shown, 1);
}

TEST(AnalyseSlice, A_stop_at_the_yield_leaves_without_the_filter) {
  SliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  test.events.At_Yield = [&] { test.session.settings.Stop_everything_now = "YES"; };
  EXPECT_EQ(test.Category(0, 500), 77);
  EXPECT_EQ(test.Filtered(), 0);
  EXPECT_EQ(test.Times("Stop_Recording"), 0);
  EXPECT_EQ(test.session.flags.Operation_Status, "Processing ...");
  EXPECT_EQ(test.session.flags.Analysis_Running, 1);
  EXPECT_EQ(test.session.trace.slices.at(0).category, std::nullopt);
}

TEST(AnalyseSlice, A_session_that_is_stopped_already_shows_the_image_and_yields_before_it_leaves) {
  SliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  test.session.settings.I_want_Status_Animation = "YES";
  test.session.settings.Stop_everything_now = "YES";
  EXPECT_EQ(test.Category(0, 500), 77);
  EXPECT_EQ(test.Times("Show_Status_Image 2"), 1);
  EXPECT_EQ(test.events.yields, 1);
  EXPECT_EQ(test.session.flags.Operation_Status, "Processing ...");
  EXPECT_EQ(test.session.flags.Analysis_Running, 1);
  EXPECT_EQ(test.Times("Stop_Recording"), 0);
  EXPECT_EQ(test.Filtered(), 0);
}

TEST(AnalyseSlice, A_slice_cut_to_end_before_its_start_leaves_without_the_filter) {
  SliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  EXPECT_EQ(test.Category(2951, 3000), 77);
  EXPECT_EQ(test.session.words.Sample_Span, -1);
  EXPECT_EQ(test.Filtered(), 0);
  EXPECT_EQ(test.Times("Stop_Recording"), 0);
  EXPECT_TRUE(test.boxes.shown.empty());
  EXPECT_TRUE(test.session.trace.failures.empty());
  test.Category(2950, 3000);
  EXPECT_EQ(test.Filtered(), 1);
}

TEST(AnalyseSlice,
     A_slice_cut_to_end_before_its_start_leaves_the_samples_and_bounds_of_the_last_one) {
  SliceTest test(Level(138, Bytes(3000)));
  test.Category(0, 2000);
  test.Category(2951, 3000);
  EXPECT_EQ(test.session.words.Sample_Span, -1);
  EXPECT_EQ(test.session.slice.Span_Samples.Count(), 2001);
  EXPECT_EQ(test.session.words.Centred_Samples.Count(), 2000 + 128 + 1);
  EXPECT_EQ(test.session.words.Centred_Samples[1500], 10);
  EXPECT_EQ(test.session.slice.Span_Start, 0);
  EXPECT_EQ(test.session.slice.Span_End, 2000);
}

TEST(AnalyseSlice, Only_a_slice_of_more_than_2000_bytes_is_walked_before_it_is_taken) {
  const struct {
    std::int64_t length;
    int last_sample;  // of the store, which is shorter than promised
  } cases[] = {{2000, 72}, {2001, 0}};
  for (const auto& c : cases) {
    SliceTest test(Level(200, Bytes(1000)));
    test.session.sample.Samples_Per_Capture = 5000;
    EXPECT_EQ(test.Category(0, c.length), 77);
    EXPECT_EQ(test.session.trace.failures, std::vector<int>{9});
    EXPECT_EQ(test.session.slice.Span_Samples[999], c.last_sample) << c.length;
  }
}

TEST(AnalyseSlice, A_failure_in_the_autocorrelation_leaves_the_last_valleys_and_the_scan) {
  SliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  ASSERT_EQ(test.Category(0, 2000), 12);
  const std::int32_t bin = test.session.slice.Valley_Bin[0];
  ASSERT_NE(bin, 0);
  test.session.words.scan.Forward_Hits.Resize(5);
  test.session.settings.Digital_Signal_Processing_Level = 1201;
  EXPECT_EQ(test.Category(0, 2000), 12);
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{9});
  EXPECT_EQ(test.session.slice.Valley_Bin[0], bin);
  EXPECT_EQ(test.session.words.scan.Forward_Hits.Count(), 6);
}

TEST(AnalyseSlice, A_slice_that_begins_before_the_store_fails_with_9) {
  SliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  test.Category(-2, 500);
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{9});
  EXPECT_EQ(test.Filtered(), 0);
}

TEST(AnalyseSlice, One_byte_before_the_store_is_harmless_as_the_first_byte_is_left_out) {
  SliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
  test.Category(-1, 500);
  EXPECT_TRUE(test.session.trace.failures.empty());
  EXPECT_EQ(test.Filtered(), 1);
}

TEST(AnalyseSlice, A_running_sum_past_32_bits_fails_with_6_and_the_filter_is_not_called) {
  // 131,071 terms of 128 squared fit, one more does not; a byte of 0 is 128 below silence.
  SliceTest fits(Level(0, Bytes(140000)));
  fits.Category(0, 131071 + 2);
  EXPECT_TRUE(fits.session.trace.failures.empty());
  EXPECT_EQ(fits.Filtered(), 1);
  SliceTest fails(Level(0, Bytes(140000)));
  EXPECT_EQ(fails.Category(0, 131072 + 2), 77);
  EXPECT_EQ(fails.session.trace.failures, std::vector<int>{6});
  EXPECT_EQ(fails.Times("Stop_And_Recover"), 1);
  EXPECT_EQ(fails.Filtered(), 0);
  EXPECT_EQ(fails.session.trace.slices.at(0).category, std::nullopt);
}

TEST(AnalyseSlice, A_position_past_32_bits_is_the_callers_own_failure_6_traced_or_not) {
  for (const bool traced : {true, false}) {
    SliceTest test(Tone(1000_Hz, Amplitude(100), Bytes(3000)));
    test.session.trace.Keep_Slices = traced;
    EXPECT_EQ(Failure_Of([&] { test.Category(0, 2147483648); }), 6);
    EXPECT_EQ(Failure_Of([&] { test.Category(-2147483649, 500); }), 6);
    EXPECT_EQ(Failure_Of([&] { test.Category(0, 2147483647); }), 0);
    EXPECT_TRUE(test.session.trace.failures.empty());
    EXPECT_TRUE(test.Times("Stop_And_Recover") == 0 && test.Filtered() == 1);
  }
}

}  // namespace
}  // namespace quillspeech
