#include <gtest/gtest.h>

#include "tests/support/captured_sample.hpp"

namespace quillspeech {
namespace {

using namespace tests;
using Bounds = AnalysisSession::Bounds;

TEST(CapturedSample, A_word_of_length_0_is_analysed_as_the_empty_slice_0_to_0) {
  Capture test(Silence(Bytes(2000)) + Level(200, Bytes(2000)) + Silence(Bytes(2001)));
  test.Slice_Bytes(5000).Run();
  EXPECT_EQ(test.session.words.Probable_no_of_words_recognized, 2);
  ASSERT_EQ(test.Slices().size(), 2U);
  EXPECT_EQ(test.Slices()[1], (std::pair{0, 0}));
  EXPECT_EQ(test.session.trace.slices[1].category, 0);
}

TEST(CapturedSample, With_a_slice_length_of_0_a_word_of_length_0_is_analysed_once) {
  Capture test(Silence(Bytes(2000)) + Level(200, Bytes(2000)) + Silence(Bytes(2001)));
  test.Run();
  EXPECT_EQ(test.Slices().size(), 2U);
}

TEST(CapturedSample, A_word_of_2500_bytes_in_slices_of_1000_gives_two) {
  Capture test(Words({2500}, Pause));
  test.Slice_Bytes(1000).Run();
  EXPECT_EQ(test.Slices(), (Bounds{{2000, 3000}, {2700, 4000}}));
  EXPECT_EQ(test.session.words.No_of_Processings, 2);
}

TEST(CapturedSample, A_word_of_3500_bytes_in_slices_of_1000_gives_four_and_runs_past_its_end) {
  Capture test(Words({3500}, Pause));
  test.Slice_Bytes(1000, 100).Run();
  EXPECT_EQ(test.Slices(), (Bounds{{2000, 3000}, {2900, 4000}, {3900, 5000}, {4900, 6000}}));
  EXPECT_EQ(test.session.words.Current_Vyanjana_no_Processed, 4);
}

TEST(CapturedSample, A_slice_length_set_during_a_slice_holds_from_the_next_slice_on) {
  Capture test(Words({3000}, Pause));
  test.events.At_Yield = [&] { test.session.settings.Sample_processing_resolution = 500; };
  test.Slice_Bytes(1000, 1).Run();
  EXPECT_EQ(test.Slices(), (Bounds{{2000, 3000}, {2499, 3000}, {2999, 3500}}));
  EXPECT_EQ(test.session.words.No_of_Processings, 3);
}

TEST(CapturedSample, A_slice_length_set_during_a_whole_word_may_have_it_analysed_once_more) {
  Capture test(Words({3000}, Pause));
  test.events.At_Yield = [&] { test.session.settings.Sample_processing_resolution = 5000; };
  test.Slice_Bytes(0).Run();
  EXPECT_EQ(test.Slices(), (Bounds{{2000, 5000}, {2000, 5000}}));
}

TEST(CapturedSample, A_word_no_longer_than_a_slice_is_analysed_whole) {
  for (const int bytes : {1000, 2500}) {
    Capture test(Words({1000}, Pause));
    EXPECT_EQ(test.Slice_Bytes(bytes).Run().Slices(), (Bounds{{2000, 3000}}));
  }
}

TEST(CapturedSample, The_middle_of_three_slices_and_of_five_is_the_second_and_one_has_none) {
  const struct {
    std::int64_t length;
    Bounds middle;
  } cases[] = {{1400, {}}, {3000, {{3000, 4000}}}, {5000, {{3000, 4000}}}, {4000, {{3000, 4000}}}};
  for (const auto& c : cases) {
    Capture test(Words({c.length}, Pause));
    EXPECT_EQ(test.Slice_Bytes(1000).Only("NO", "YES", "NO").Run().Slices(), c.middle) << c.length;
  }
}

TEST(CapturedSample, The_switches_are_independent_and_come_in_the_order_start_end_middle) {
  Capture all(Words({3000}, Pause));
  EXPECT_EQ(all.Slice_Bytes(1000).Only("YES", "YES", "YES").Run().Slices(),
            (Bounds{{2000, 3000}, {3000, 4000}, {4000, 5000}}));
  Capture one(Words({1400}, Pause));  // one slice is the first and the last
  EXPECT_EQ(one.Slice_Bytes(1000).Only("YES", "NO", "YES").Run().Slices(),
            (Bounds{{2000, 3000}, {2000, 3000}}));
  Capture two(Words({2000}, Pause));  // of two the middle is the first
  EXPECT_EQ(two.Slice_Bytes(1000).Only("YES", "YES", "YES").Run().Slices(),
            (Bounds{{2000, 3000}, {2000, 3000}, {3000, 4000}}));
}

TEST(CapturedSample, A_switch_that_is_neither_YES_nor_NO_shuts_every_site) {
  Capture test(Words({3000}, Pause));
  EXPECT_TRUE(test.Slice_Bytes(1000).Only("no", "NO", "NO").Run().Slices().empty());
}

TEST(CapturedSample, A_setting_counts_only_in_its_exact_text) {
  for (const char* text : {"yes", "Yes", "YES ", " YES", "no", "NO ", "TRUE", "1"}) {
    const auto run = [text](const char* start_only) {
      Capture test(Words({3000}, Pause));
      test.host.path = "C:\\vb6.exe";
      Settings& settings = test.session.settings;
      for (std::string* setting : {&settings.This_Audio_Process, &settings.Speech_echo_feature,
                                   &settings.Direct_Add_Enabled, &settings.Show_Audio_Graph}) {
        *setting = text;
      }
      test.Slice_Bytes(1000).Only(start_only, "NO", text).Run();
      return std::pair(test.Slices(), test.calls);
    };
    const auto [first, calls] = run("YES");
    EXPECT_EQ(first, (Bounds{{2000, 3000}})) << text;  // words are taken, the end slice is not
    EXPECT_EQ(calls, std::vector<std::string>{"Stop_Recording"}) << text;  // the slice's own
    EXPECT_TRUE(run("NO").first.empty()) << text;  // only three times "NO" opens every slice
  }
}

TEST(CapturedSample, A_negative_slice_length_numbers_no_slice_and_takes_none) {
  Capture test(Words({3000}, Pause));
  EXPECT_TRUE(test.Slice_Bytes(-1000).Run().Slices().empty());
  EXPECT_EQ(test.session.words.No_of_Processings, 0);
  EXPECT_EQ(test.session.words.Probable_no_of_words_recognized, 1);
}

TEST(CapturedSample, A_negative_overlap_stays_and_lets_slices_begin_later) {
  Capture test(Words({3000}, Pause));
  EXPECT_EQ(test.Slice_Bytes(1000, -100).Run().Slices(),
            (Bounds{{2000, 3000}, {3100, 4000}, {4100, 5000}}));
  EXPECT_EQ(test.session.settings.Sample_Overlap_Bytes, -100);
}

TEST(CapturedSample, An_overlap_that_reaches_before_the_store_fails_that_slice_with_9) {
  Capture test(Words({1000}, Bytes(200)));
  test.session.settings.Always_Restart_on_Error = "YES";
  test.Slice_Bytes(500, 1000).Run();
  EXPECT_EQ(test.Slices(), (Bounds{{200, 700}, {-300, 1200}}));
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{9});
  EXPECT_EQ(test.session.flags.Operation_Status, "Finish");
}

TEST(CapturedSample, After_a_failed_slice_the_word_loop_goes_on) {
  Capture test(Words({3000, 500}, Pause));
  test.session.settings.Always_Restart_on_Error = "YES";
  int stops = 0;
  test.session.operations.Stop_Recording = [&](Session&) {
    if (++stops == 1) Fail(Failure::Device_Failure);
  };
  test.Slice_Bytes(1000).Run();
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{57});
  ASSERT_EQ(test.Slices().size(), 4U);
  EXPECT_NE(test.session.trace.slices[0].category, std::nullopt);  // it failed after its count
  EXPECT_EQ(test.session.filter.Processings_Delivered, 3);
}

TEST(CapturedSample, After_a_failed_slice_that_stops_all_the_next_ones_leave_at_their_head) {
  Capture test(Words({3000}, Pause));
  int stops = 0;
  test.session.operations.Stop_Recording = [&](Session&) {
    if (++stops == 1) Fail(Failure::Device_Failure);
  };
  test.Slice_Bytes(1000).Run();
  EXPECT_EQ(test.session.settings.Stop_everything_now, "YES");
  ASSERT_EQ(test.Slices().size(), 3U);
  EXPECT_EQ(test.session.trace.slices[1].category, std::nullopt);
  EXPECT_EQ(test.session.trace.slices[2].category, std::nullopt);
}

TEST(CapturedSample, The_analysis_counts_as_running_after_the_slices_of_a_word_even_failed_ones) {
  Capture test(Words({1000}, Pause));
  test.session.settings.Always_Restart_on_Error = "YES";
  int stops = 0;
  test.session.operations.Stop_Recording = [&](Session&) {
    if (++stops == 2) Fail(Failure::Device_Failure);
  };
  test.Slice_Bytes(500).Run();
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{57});
  EXPECT_EQ(test.session.flags.Analysis_Running, 1);
}

TEST(CapturedSample, A_word_with_more_slices_than_16_bits_count_fails_with_6) {
  Capture test(Words({45000}, Pause));
  test.Slice_Bytes(1).Run();
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{6});
  EXPECT_TRUE(test.Slices().empty());
}

}  // namespace
}  // namespace quillspeech
