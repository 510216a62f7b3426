#include "analysis/recovery.hpp"

#include <gtest/gtest.h>

#include "session/failure_trap.hpp"
#include "tests/support/analysis_session.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech {
namespace {

using namespace tests;
using Calls = std::vector<std::string>;

// A session in the middle of an analysis.
struct Recovery : AnalysisSession {
  explicit Recovery(const std::string& restart) {
    session.settings.Always_Restart_on_Error = restart;
    session.flags.Session_Started = 1;
    session.flags.Session_Alive = True;
    session.flags.Analysis_Running = 1;
    session.flags.Capture_Busy = 1;
    session.flags.Show_Activities = 1;
    session.flags.Operation_Status = "Processing ...";
    session.results.Platinum_Words_Available = 3;
    events.Enable(FormTimer::Timer1, true);
    events.Enable(FormTimer::Timer3, true);
  }
};

TEST(StopAndRecover, NO_and_an_empty_text_bring_the_session_to_rest) {
  for (const char* text : {"", "NO"}) {
    Recovery test(text);
    Stop_And_Recover(test.session);
    EXPECT_EQ(test.session.settings.Stop_everything_now, "YES") << text;
    EXPECT_EQ(test.session.flags.Operation_Status, "Sleeping") << text;
  }
}

TEST(StopAndRecover, Any_other_text_re_arms_the_capture) {
  for (const char* text : {"YES", "no", "Yes", "NO ", "typo"}) {
    Recovery test(text);
    Stop_And_Recover(test.session);
    EXPECT_EQ(test.session.settings.Stop_everything_now, "NO") << text;
    EXPECT_TRUE(test.Is_On(FormTimer::Timer5)) << text;
    EXPECT_FALSE(test.Is_On(FormTimer::Timer3)) << text;
  }
}

TEST(StopAndRecover, A_restart_stops_the_recorder_and_the_analysis_and_leaves_the_rest) {
  Recovery test("YES");
  test.session.data.Main_File_Number.Open(test.data_files, "a.SAY", 8476);
  Stop_And_Recover(test.session);
  EXPECT_EQ(test.calls, (Calls{"Stop_Recording"}));
  EXPECT_FALSE(test.session.data.Main_File_Number.Is_Open());
  EXPECT_EQ(test.session.flags.Analysis_Running, 0);
  EXPECT_EQ(test.session.flags.Capture_Busy, 1);
  EXPECT_EQ(test.session.flags.Show_Activities, 1);
  EXPECT_EQ(test.session.flags.Operation_Status, "Processing ...");
  EXPECT_EQ(test.session.results.Platinum_Words_Available, 3);
  EXPECT_TRUE(test.Is_On(FormTimer::Timer1));
  EXPECT_TRUE(test.cues.calls.empty());
}

TEST(StopAndRecover, A_restart_closes_the_file_then_stops_the_recorder_then_ends_the_analysis) {
  Recovery test("YES");
  test.session.data.Main_File_Number.Open(test.data_files, "a.SAY", 8476);
  int stops = 0;
  test.session.operations.Stop_Recording = [&](Session& session) {
    ++stops;
    EXPECT_FALSE(session.data.Main_File_Number.Is_Open());
    EXPECT_EQ(session.flags.Analysis_Running, 1);
    EXPECT_TRUE(test.Is_On(FormTimer::Timer3));
    EXPECT_FALSE(test.Is_On(FormTimer::Timer5));
  };
  Stop_And_Recover(test.session);
  EXPECT_EQ(stops, 1);
}

TEST(StopAndRecover, A_stop_clears_the_results_and_writes_every_mark) {
  Recovery test("NO");
  test.session.flags.File_Run_Active = 1;
  test.events.Enable(FormTimer::Timer5, true);
  test.session.data.Main_File_Number.Open(test.data_files, "a.SAY", 8476);
  Stop_And_Recover(test.session);
  EXPECT_EQ(test.session.results.Platinum_Words_Available, 0);
  EXPECT_EQ(test.session.flags.File_Run_Active, 0);
  EXPECT_EQ(test.session.flags.Stopped_Marker, 1);
  EXPECT_EQ(test.session.flags.Stopped_Text, "YES");
  EXPECT_EQ(test.session.flags.Show_Activities, 0);
  EXPECT_FALSE(test.session.data.Main_File_Number.Is_Open());
  EXPECT_FALSE(test.Is_On(FormTimer::Timer5));
  EXPECT_FALSE(test.Is_On(FormTimer::Timer3));
}

TEST(StopAndRecover, A_stop_leaves_the_clock_and_the_session_marks_alone) {
  Recovery test("NO");
  Stop_And_Recover(test.session);
  EXPECT_TRUE(test.Is_On(FormTimer::Timer1));
  EXPECT_EQ(test.session.flags.Session_Started, 1);
  EXPECT_EQ(test.session.flags.Session_Alive, True);
  EXPECT_EQ(test.session.flags.Analysis_Running, 1);
}

TEST(StopAndRecover, A_stop_unloads_the_three_windows_in_order) {
  Recovery test("NO");
  Stop_And_Recover(test.session);
  EXPECT_EQ(test.calls,
            (Calls{"Stop_Recording", "Unload_Graph", "Unload_StatusBar", "Unload_Database"}));
}

TEST(StopAndRecover, The_recorder_is_closed_only_when_no_session_is_open) {
  Recovery test("NO");
  test.session.flags.Session_Started = 0;
  Stop_And_Recover(test.session);
  EXPECT_EQ(test.calls, (Calls{"Stop_Recording", "Close_Recorder", "Unload_Graph",
                               "Unload_StatusBar", "Unload_Database"}));
}

TEST(StopAndRecover, The_recorder_is_closed_when_the_stop_is_marked_and_before_the_file_is) {
  Recovery test("NO");
  test.session.flags.Session_Started = 0;
  test.session.data.Main_File_Number.Open(test.data_files, "a.SAY", 8476);
  int closes = 0;
  test.session.operations.Close_Recorder = [&](Session& session) {
    ++closes;
    EXPECT_EQ(session.flags.Stopped_Marker, 1);
    EXPECT_EQ(session.flags.Stopped_Text, "YES");
    EXPECT_TRUE(session.data.Main_File_Number.Is_Open());
    session.flags.Stopped_Marker = 0;
  };
  Stop_And_Recover(test.session);
  EXPECT_EQ(closes, 1);
  EXPECT_EQ(test.session.flags.Stopped_Marker, 1);  // marked once more behind it
}

TEST(StopAndRecover, The_file_is_closed_before_the_first_window_is_unloaded) {
  Recovery test("NO");
  test.session.data.Main_File_Number.Open(test.data_files, "a.SAY", 8476);
  int unloads = 0;
  test.session.operations.Unload_Graph = [&](Session& session) {
    ++unloads;
    EXPECT_FALSE(session.data.Main_File_Number.Is_Open());
  };
  Stop_And_Recover(test.session);
  EXPECT_EQ(unloads, 1);
}

TEST(StopAndRecover, The_recorder_is_stopped_when_the_stop_is_in_force_and_not_yet_marked) {
  Recovery test("NO");
  int stops = 0;
  test.session.operations.Stop_Recording = [&](Session& session) {
    ++stops;
    EXPECT_EQ(session.results.Platinum_Words_Available, 0);
    EXPECT_EQ(session.flags.Operation_Status, "Sleeping");
    EXPECT_EQ(session.settings.Stop_everything_now, "YES");
    EXPECT_EQ(session.flags.Stopped_Marker, 0);
    EXPECT_EQ(session.flags.Show_Activities, 1);
  };
  Stop_And_Recover(test.session);
  EXPECT_EQ(stops, 1);
}

TEST(StopAndRecover, The_windows_are_unloaded_before_the_sound_is_purged) {
  Recovery test("NO");
  int unloads = 0;
  test.session.operations.Unload_Database = [&](Session&) {
    ++unloads;
    EXPECT_TRUE(test.cues.calls.empty());
  };
  Stop_And_Recover(test.session);
  EXPECT_EQ(unloads, 1);
}

TEST(StopAndRecover, A_stop_purges_the_sound_and_plays_the_stop_cue) {
  Recovery test("NO");
  Stop_And_Recover(test.session);
  EXPECT_EQ(test.cues.calls, (Calls{"purge", "play stop.wav"}));
}

TEST(StopAndRecover, Without_a_stop_cue_the_sound_is_only_purged) {
  Recovery test("NO");
  test.session.settings.Play_this_file_for_Stop.clear();
  Stop_And_Recover(test.session);
  EXPECT_EQ(test.cues.calls, (Calls{"purge"}));
}

TEST(StopAndRecover, With_no_open_file_it_is_no_failure) {
  for (const char* text : {"NO", "YES"}) {
    Recovery test(text);
    EXPECT_EQ(Failure_Of([&] { Stop_And_Recover(test.session); }), 0);
  }
}

TEST(StopAndRecover, It_shows_no_message_and_does_not_yield) {
  for (const char* text : {"NO", "YES"}) {
    Recovery test(text);
    Stop_And_Recover(test.session);
    EXPECT_TRUE(test.boxes.shown.empty());
    EXPECT_EQ(test.events.yields, 0);
  }
}

TEST(StopAndRecover, A_failure_in_the_restart_is_not_caught_again_and_does_not_reach_the_stop) {
  Recovery test("YES");
  test.session.operations.Stop_Recording = [](Session&) { Fail(Failure::Device_Failure); };
  const int failure =
      Failure_Of([&] { Run_Trapped(test.session, [] { Fail(Failure::Overflow); }); });
  EXPECT_EQ(failure, 57);
  EXPECT_EQ(test.session.settings.Stop_everything_now, "NO");
  EXPECT_TRUE(test.cues.calls.empty());
}

}  // namespace
}  // namespace quillspeech
