#include "analysis/captured_sample.hpp"

#include <gtest/gtest.h>

#include "tests/support/captured_sample.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech {
namespace {

using namespace tests;
using Bounds = AnalysisSession::Bounds;
using Calls = std::vector<std::string>;

TEST(CapturedSample, Each_word_is_analysed_between_its_bounds) {
  Capture test(Words({2500, 1000}, Pause));
  test.Run();
  EXPECT_EQ(test.session.words.Probable_no_of_words_recognized, 2);
  EXPECT_EQ(test.Slices(), (Bounds{{2000, 4500}, {6550, 7550}}));
  EXPECT_EQ(test.session.trace.slices[0].word, 1);
  EXPECT_EQ(test.session.trace.slices[1].word, 2);
}

TEST(CapturedSample, Only_words_below_the_cut_off_number_are_analysed) {
  Capture test(Words({500, 600, 700, 800, 900}, Pause));
  test.Run();
  EXPECT_EQ(test.session.words.Probable_no_of_words_recognized, 5);
  EXPECT_EQ(test.Slices().size(), 3U);
  EXPECT_EQ(test.session.trace.slices.back().word, 3);
  EXPECT_EQ(test.session.words.Current_Word_no_Processed, 5);
  EXPECT_EQ(test.session.flags.Analysis_Running, 0);
}

TEST(CapturedSample, A_cut_off_of_1_enters_every_word_and_analyses_none) {
  Capture test(Words({500, 600}, Pause));
  test.session.settings.Noise_Word_No_CutOff = 1;
  test.Run();
  EXPECT_TRUE(test.Slices().empty());
  EXPECT_EQ(test.session.words.Word_Entry_Length[0], 500);
  EXPECT_EQ(test.session.words.Word_Entry_Length[1], 600);
}

TEST(CapturedSample, Words_are_entered_with_total_number_and_length) {
  Capture test(Words({500, 600}, Pause));
  test.Run();
  const WordTables& words = test.session.words;
  for (std::int64_t i = 0; i < 2; ++i) {
    EXPECT_EQ(words.Word_Count_Log[i], 2);
    EXPECT_EQ(words.Word_Entry_Number[i], i + 1);
    EXPECT_EQ(words.Word_Entry_Length[i], words.Word_Length[i + 1]);
  }
  EXPECT_EQ(words.Word_Count_Log[2], 0);
}

TEST(CapturedSample, A_last_word_that_runs_to_the_end_is_entered_and_then_skipped) {
  Capture test(Silence(Bytes(2000)) + Buzz(Bytes(8001)));
  test.Run();
  EXPECT_EQ(test.session.words.Probable_no_of_words_recognized, 1);
  EXPECT_EQ(test.session.words.Word_End[1], 10100);  // past the 10,001 bytes of the capture
  EXPECT_EQ(test.session.words.Word_Entry_Length[0], 8100);
  EXPECT_TRUE(test.Slices().empty());
}

// One byte more behind the last grid sample moves every end on by one.
Sound Word_One_Byte_Longer(std::int64_t length) {
  return Words({length}, Pause) + Silence(Bytes(1));
}

TEST(CapturedSample, A_word_of_45000_bytes_is_analysed_and_one_of_45001_dropped) {
  Capture longest(Words({45000}, Pause));
  EXPECT_EQ(longest.Run().Slices(), (Bounds{{2000, 47000}}));
  EXPECT_EQ(longest.session.words.Word_Entry_Length[0], 45000);
  Capture longer(Word_One_Byte_Longer(45000));
  EXPECT_TRUE(longer.Run().Slices().empty());
  EXPECT_EQ(longer.session.words.Word_Entry_Length[0], 45001);
}

TEST(CapturedSample, Unbroken_sound_of_32767_hits_fails_with_6_and_recovers) {
  Capture test(Level(200, Bytes(25 * 32767 + 1)));
  test.Run();
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{6});
  EXPECT_EQ(test.Times("Stop_And_Recover"), 1);
  EXPECT_EQ(test.session.flags.Operation_Status, "Sleeping");
}

TEST(CapturedSample, With_This_Audio_Process_NO_no_word_is_entered) {
  Capture test(Words({500}, Pause));
  test.session.settings.This_Audio_Process = "NO";
  test.Run();
  EXPECT_TRUE(test.Slices().empty());
  EXPECT_EQ(test.session.words.Word_Entry_Number[0], 0);
  EXPECT_EQ(test.session.words.Current_Word_no_Processed, 0);
  EXPECT_TRUE(test.Is_On(FormTimer::Timer5));
}

TEST(CapturedSample, A_word_of_2001_bytes_is_echoed_without_its_last_200_and_one_of_2000_is_not) {
  Capture longer(Word_One_Byte_Longer(2000));
  longer.session.settings.Speech_echo_feature = "YES";
  longer.Run();
  EXPECT_EQ(longer.session.words.Word_Entry_Length[0], 2001);
  EXPECT_EQ(longer.calls, (Calls{"Play_Echo 2000 3801", "Stop_Recording"}));
  Capture shorter(Words({2000}, Pause));
  shorter.session.settings.Speech_echo_feature = "YES";
  shorter.Run();
  EXPECT_EQ(shorter.session.words.Word_Entry_Length[0], 2000);
  EXPECT_EQ(shorter.calls, (Calls{"Stop_Recording"}));
}

TEST(CapturedSample, Without_the_echo_feature_nothing_is_echoed) {
  Capture test(Words({5000}, Pause));
  test.Run();
  EXPECT_EQ(test.calls, (Calls{"Stop_Recording"}));
}

TEST(CapturedSample, A_word_that_ends_at_the_promised_bytes_is_skipped) {
  for (const auto& [promised, slices] : {std::pair{4500, 0U}, {4501, 1U}}) {
    Capture test(Words({2500}, Pause));
    test.session.sample.Samples_Per_Capture = promised;
    EXPECT_EQ(test.Run().Slices().size(), slices) << promised;
  }
}

TEST(CapturedSample, A_quiet_sample_clears_Capture_Busy_and_a_word_in_it_sets_it_again) {
  Capture test(Silence(Pause) + Buzz(Bytes(500)) + Silence(Bytes(5001)));
  int busy = -1;
  test.events.At_Yield = [&] { busy = static_cast<int>(test.session.flags.Capture_Busy); };
  test.Run();
  EXPECT_LT(test.session.words.scan.Forward_Hit_Count, 50);
  EXPECT_EQ(busy, 1);
  EXPECT_EQ(test.session.flags.Capture_Busy, 0);
}

TEST(CapturedSample, The_clock_switched_on_during_a_word_is_off_again_at_the_next) {
  Capture test(Words({500, 600}, Pause));
  std::vector<bool> clock;
  std::vector<std::int64_t> busy;
  test.events.At_Yield = [&] {
    clock.push_back(test.Is_On(FormTimer::Timer1));
    busy.push_back(test.session.flags.Capture_Busy);
    test.events.Enable(FormTimer::Timer1, true);
    test.session.flags.Capture_Busy = 0;
  };
  test.Run();
  EXPECT_EQ(clock, (std::vector<bool>{false, false}));
  EXPECT_EQ(busy, (std::vector<std::int64_t>{1, 1}));
}

TEST(CapturedSample, A_word_that_is_skipped_lets_the_analysis_count_as_running_too) {
  Capture test(Words({500, 600}, Pause));
  test.session.sample.Samples_Per_Capture = 5150;  // where the second word ends
  test.events.At_Yield = [&] { test.session.flags.Analysis_Running = 0; };
  test.session.operations.Stop_Recording = [](Session& session) {
    session.flags.Analysis_Running = 0;
  };
  test.Run();
  EXPECT_EQ(test.Slices(), (Bounds{{2000, 2500}}));
  EXPECT_EQ(test.session.flags.Analysis_Running, 1);
}

TEST(CapturedSample, As_many_words_are_taken_as_were_counted_before_the_first) {
  for (const int count : {0, 1, 9}) {
    Capture test(Words({500, 600}, Pause));
    test.events.At_Yield = [&] { test.session.words.Probable_no_of_words_recognized = count; };
    test.Run();
    EXPECT_EQ(test.Slices(), (Bounds{{2000, 2500}, {4550, 5150}})) << count;
    EXPECT_EQ(test.session.words.Current_Word_no_Processed, 2) << count;
  }
}

// A capture whose recorder fails with each of these in turn, and then works.
struct FailingCapture : Capture {
  FailingCapture(const char* restart, std::vector<Failure> ways)
      : Capture(Words({500, 600}, Pause)) {
    session.settings.Always_Restart_on_Error = restart;
    session.operations.Stop_Recording = [ways, stops = std::size_t{0}](Session&) mutable {
      if (stops < ways.size()) Fail(ways[stops++]);
    };
  }
};

TEST(CapturedSample, A_slice_whose_recovery_fails_too_ends_the_run_which_recovers_once_more) {
  for (const auto& [restart, status] : {std::pair{"YES", "Processing ..."}, {"NO", "Sleeping"}}) {
    FailingCapture test(restart, {Failure::Device_Failure, Failure::Overflow});
    test.Run();
    EXPECT_EQ(test.session.trace.failures, (std::vector<int>{57, 6})) << restart;
    EXPECT_EQ(test.Times("Stop_And_Recover"), 2) << restart;
    EXPECT_EQ(test.Slices().size(), 1U) << restart;
    EXPECT_EQ(test.session.flags.Operation_Status, status);
    EXPECT_EQ(test.session.flags.Capture_Busy, 1) << restart;
    EXPECT_EQ(test.Is_On(FormTimer::Timer5), std::string(restart) == "YES");
    EXPECT_FALSE(test.Is_On(FormTimer::Timer3)) << restart;
  }
}

TEST(CapturedSample, A_failure_in_the_run_s_own_recovery_goes_on_to_its_caller) {
  for (const char* restart : {"YES", "NO"}) {
    FailingCapture test(restart,
                        {Failure::Device_Failure, Failure::Overflow, Failure::Invalid_Call});
    EXPECT_EQ(Failure_Of([&] { test.Run(); }), 5) << restart;
    EXPECT_EQ(test.session.trace.failures, (std::vector<int>{57, 6})) << restart;
    EXPECT_EQ(test.Times("Stop_And_Recover"), 2) << restart;
  }
}

}  // namespace
}  // namespace quillspeech
