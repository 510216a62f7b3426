#include <gtest/gtest.h>

#include <functional>

#include "tests/support/captured_sample.hpp"

namespace quillspeech {
namespace {

using namespace tests;
using Bounds = AnalysisSession::Bounds;
using Calls = std::vector<std::string>;

TEST(CapturedSample, Silence_stalls_the_capture_chain_until_a_restart) {
  Capture test(Silence(Bytes(20001)));
  test.Run();
  EXPECT_EQ(test.session.words.Probable_no_of_words_recognized, 0);
  EXPECT_EQ(test.session.flags.Analysis_Running, 0);
  EXPECT_EQ(test.session.flags.Capture_Busy, 0);
  EXPECT_EQ(test.session.flags.Operation_Status, "Finish");
  EXPECT_TRUE(test.Slices().empty());
  for (const FormTimer timer : {FormTimer::Timer1, FormTimer::Timer3, FormTimer::Timer5}) {
    EXPECT_FALSE(test.Is_On(timer));
  }
}

TEST(CapturedSample, With_words_found_the_next_capture_is_armed) {
  Capture test(Words({2500}, Pause));
  test.Run();
  EXPECT_EQ(test.session.flags.Operation_Status, "Finish");
  EXPECT_TRUE(test.Is_On(FormTimer::Timer5));
  EXPECT_FALSE(test.Is_On(FormTimer::Timer1));
  EXPECT_FALSE(test.Is_On(FormTimer::Timer3));
  EXPECT_EQ(test.session.flags.Capture_Busy, 0);
}

TEST(CapturedSample, A_restart_during_a_slice_skips_the_rest_and_leaves_the_capture_unarmed) {
  Capture test(Words({3000, 500}, Pause));
  test.events.At_Yield = [&] { test.session.flags.Stop_Sample_Flag = 1; };
  test.Slice_Bytes(1000).Run();
  EXPECT_EQ(test.Slices(), (Bounds{{2000, 3000}}));
  EXPECT_EQ(test.session.filter.Processings_Delivered, 1);
  EXPECT_EQ(test.session.words.Current_Word_no_Processed, 1);
  EXPECT_EQ(test.session.flags.Operation_Status, "Finish");
  EXPECT_FALSE(test.Is_On(FormTimer::Timer5));
}

TEST(CapturedSample, A_direct_add_happens_only_with_words_found) {
  Capture words(Words({500}, Pause));
  words.session.settings.Direct_Add_Enabled = "YES";
  EXPECT_EQ(words.Run().Times("Add_Engine_String_To_Language"), 1);
  EXPECT_TRUE(words.Is_On(FormTimer::Timer5));
  Capture silence(Silence(Bytes(5001)));
  silence.session.settings.Direct_Add_Enabled = "YES";
  EXPECT_EQ(silence.Run().Times("Add_Engine_String_To_Language"), 0);
}

// A capture whose run ends in the Language Editor.
struct EditorCapture : Capture {
  EditorCapture() : Capture(Words({500}, Pause)) {
    session.settings.Add_To_Language = "YES";
    session.flags.Show_Activities = 1;
    events.Enable(FormTimer::Timer5, true);
  }
};

TEST(CapturedSample, A_session_that_adds_to_its_language_loads_the_editor_and_stays_unarmed) {
  EditorCapture test;
  test.Run();
  EXPECT_EQ(test.calls,
            (Calls{"Stop_Recording", "Stop_Recording", "Show_Status_Image 1", "Load_Database"}));
  EXPECT_FALSE(test.Is_On(FormTimer::Timer5));
  EXPECT_FALSE(test.Is_On(FormTimer::Timer1));
  EXPECT_EQ(test.session.flags.Operation_Status, "Processing...");
}

TEST(CapturedSample, Only_a_design_environment_shows_the_editor_and_not_modally) {
  EditorCapture test;
  test.host.path = "C:\\vb6.exe";
  test.Run();
  EXPECT_EQ(test.calls.back(), "Show_Database");
}

TEST(CapturedSample, A_failure_in_showing_the_editor_is_ignored) {
  EditorCapture test;
  test.host.path = "C:\\vb6.exe";
  test.session.operations.Show_Database = [](Session&, bool) { Fail(Failure::Invalid_Call); };
  test.Run();
  EXPECT_EQ(test.Times("Stop_And_Recover"), 0);
  EXPECT_TRUE(test.boxes.shown.empty());
}

TEST(CapturedSample, A_failure_in_loading_the_editor_is_ignored_and_nothing_is_shown) {
  for (const char* host : {"C:\\vb6.exe", "C:\\host.exe"}) {
    EditorCapture test;
    test.host.path = host;
    test.session.operations.Load_Database = [](Session&) { Fail(Failure::Invalid_Call); };
    test.Run();
    EXPECT_EQ(test.session.trace.failures, std::vector<int>{5});
    EXPECT_EQ(test.calls.back(), "Show_Status_Image 1");
    EXPECT_EQ(test.Times("Stop_And_Recover"), 0);
    EXPECT_TRUE(test.boxes.shown.empty());
  }
}

TEST(CapturedSample, A_direct_add_comes_before_the_editor_and_does_not_replace_it) {
  EditorCapture test;
  test.session.settings.Direct_Add_Enabled = "YES";
  test.Run();
  EXPECT_EQ(test.calls, (Calls{"Stop_Recording", "Add_Engine_String_To_Language", "Stop_Recording",
                               "Show_Status_Image 1", "Load_Database"}));
}

TEST(CapturedSample, Words_skipped_for_their_end_or_length_open_the_editor_all_the_same) {
  EditorCapture late;
  late.session.sample.Samples_Per_Capture = 2500;
  EXPECT_EQ(late.Run().Times("Load_Database"), 1);
  EditorCapture longer;
  Put_Capture(longer.session, Words({45025}, Pause));
  EXPECT_EQ(longer.Run().Times("Load_Database"), 1);
  for (const auto* test : {&late, &longer}) EXPECT_TRUE(test->Slices().empty());
}

TEST(CapturedSample, Without_any_one_of_its_conditions_the_editor_is_not_loaded) {
  const std::function<void(EditorCapture&)> changes[] = {
      [](EditorCapture& test) { test.session.settings.Add_To_Language = "NO"; },
      [](EditorCapture& test) { test.session.flags.Show_Activities = 0; },
      [](EditorCapture& test) { test.session.settings.Noise_Word_No_CutOff = 1; },
      [](EditorCapture& test) {
        test.events.At_Yield = [&] { test.session.flags.Stop_Sample_Flag = 1; };
      },
      [](EditorCapture& test) { Put_Capture(test.session, Silence(Bytes(5001))); }};
  for (const auto& change : changes) {
    EditorCapture test;
    change(test);
    test.Run();
    EXPECT_EQ(test.Times("Load_Database"), 0);
    EXPECT_EQ(test.session.flags.Operation_Status, "Finish");
  }
}

TEST(CapturedSample, The_end_of_a_run_switches_off_the_timers_that_came_on_while_slices_yielded) {
  Capture test(Words({500}, Pause));
  test.events.At_Yield = [&] {
    test.events.Enable(FormTimer::Timer1, true);
    test.events.Enable(FormTimer::Timer3, true);
  };
  test.Run();
  EXPECT_FALSE(test.Is_On(FormTimer::Timer1));
  EXPECT_FALSE(test.Is_On(FormTimer::Timer3));
  EXPECT_TRUE(test.Is_On(FormTimer::Timer5));
}

TEST(CapturedSample, A_run_that_was_told_to_skip_switches_off_the_pump_and_leaves_the_clock) {
  Capture test(Words({500}, Pause));
  test.events.At_Yield = [&] {
    test.events.Enable(FormTimer::Timer1, true);
    test.events.Enable(FormTimer::Timer3, true);
    test.session.flags.Stop_Sample_Flag = 1;
  };
  test.Run();
  EXPECT_TRUE(test.Is_On(FormTimer::Timer1));
  EXPECT_FALSE(test.Is_On(FormTimer::Timer3));
  EXPECT_FALSE(test.Is_On(FormTimer::Timer5));
}

TEST(CapturedSample, A_run_that_ends_in_the_editor_switches_off_every_timer_before_it_is_loaded) {
  EditorCapture test;
  const auto timers = {FormTimer::Timer1, FormTimer::Timer3, FormTimer::Timer5};
  test.events.At_Yield = [&] {
    for (const FormTimer timer : timers) test.events.Enable(timer, true);
  };
  int loads = 0;
  test.session.operations.Load_Database = [&](Session& session) {
    ++loads;
    for (const FormTimer timer : timers) EXPECT_FALSE(test.Is_On(timer));
    EXPECT_EQ(session.flags.Capture_Busy, 0);
  };
  test.Run();
  EXPECT_EQ(loads, 1);
  for (const FormTimer timer : timers) EXPECT_FALSE(test.Is_On(timer));
}

TEST(CapturedSample, Words_whose_count_went_to_0_while_a_slice_yielded_open_no_editor) {
  EditorCapture test;
  test.session.settings.Direct_Add_Enabled = "YES";
  test.events.At_Yield = [&] {
    test.session.words.Probable_no_of_words_recognized = 0;
    test.events.Enable(FormTimer::Timer5, false);
  };
  test.Run();
  EXPECT_EQ(test.session.flags.Analysis_Running, 1);
  EXPECT_EQ(test.calls, (Calls{"Stop_Recording"}));
  EXPECT_EQ(test.session.flags.Operation_Status, "Finish");
  EXPECT_FALSE(test.Is_On(FormTimer::Timer5));
}

TEST(CapturedSample, Silence_stops_the_analysis_even_when_drawing_the_graph_started_it) {
  EditorCapture test;
  Put_Capture(test.session, Silence(Bytes(5001)));
  test.host.path = "C:\\vb6.exe";
  test.session.settings.Show_Audio_Graph = "YES";
  int draws = 0;
  test.session.operations.Draw_Audio_Graph = [&](Session& session) {
    ++draws;
    session.flags.Analysis_Running = 1;
  };
  test.Run();
  EXPECT_EQ(draws, 1);
  EXPECT_EQ(test.session.flags.Analysis_Running, 0);
  EXPECT_EQ(test.Times("Load_Database"), 0);
}

}  // namespace
}  // namespace quillspeech
