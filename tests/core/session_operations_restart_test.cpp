// Restart and the end, step by step.
#include "core/session_operations.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/core/session_operations_fixture.hpp"

namespace quillspeech {
namespace {

using namespace tests;
using namespace std::chrono_literals;

// Restart.

struct RestartSession : SessionOperations {};

TEST_F(RestartSession, Without_a_session_it_does_nothing_at_all) {
  events.Enable(FormTimer::Timer1, true);
  session.flags.Operation_Status = "Alert";
  session.flags.Show_Activities = 1;
  Restart_It();
  EXPECT_TRUE(host_program.events.empty());
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_TRUE(cues.calls.empty());
  EXPECT_TRUE(calls.empty());
  EXPECT_EQ(Timers_On(), "1");
  EXPECT_EQ(session.flags.Operation_Status, "Alert");
  EXPECT_EQ(session.flags.Show_Activities, 1);
  EXPECT_EQ(session.flags.Stop_Sample_Flag, 0);
  EXPECT_EQ(session.flags.Session_Started, 0);
}

TEST_F(RestartSession, Only_the_value_True_is_alive) {
  session.flags.Session_Alive = 1;
  Restart_It();
  EXPECT_TRUE(host_program.events.empty());
  EXPECT_TRUE(calls.empty());
}

TEST_F(RestartSession, It_abandons_the_sample_and_begins_again) {
  Run_Live();
  session.flags.File_Run_Active = 1;
  session.flags.Session_Started = 0;
  Restart_It();
  EXPECT_EQ(host_program.events, Lines{"RestartRecognitionActivity"});
  EXPECT_EQ(Timers_On(), "5");
  EXPECT_EQ(session.flags.Operation_Status, "Sleeping");
  EXPECT_EQ(session.flags.Stop_Sample_Flag, 1);
  EXPECT_EQ(session.flags.Show_Activities, 0);
  EXPECT_EQ(session.flags.File_Run_Active, 0);
  EXPECT_EQ(session.flags.Session_Started, 1);
  EXPECT_EQ(session.flags.Session_Alive, True);
  EXPECT_EQ(session.flags.Capture_Busy, 0);
  EXPECT_EQ(session.flags.Stopped_Marker, 0);
  EXPECT_EQ(session.flags.Stopped_Text, "NO");
  EXPECT_EQ(session.settings.Stop_everything_now, "NO");
  EXPECT_EQ(session.results.Platinum_Words_Available, 0);
  EXPECT_EQ(session.results.Platinum_Best_Table[1], "");
}

TEST_F(RestartSession, No_cue_is_played_and_the_file_stays_open) {
  Run_Live();
  Restart_It();
  EXPECT_EQ(cues.calls, Lines{"purge"});
  EXPECT_TRUE(session.data.Main_File_Number.Is_Open());
}

TEST_F(RestartSession, The_pump_stays_as_it_is) {
  Run_Live();
  Restart_It();
  EXPECT_TRUE(Pump_Is_On());
  control->Enable_Timer1(false);
  Restart_It();
  EXPECT_FALSE(Pump_Is_On());
}

TEST_F(RestartSession, The_frequency_stays_as_it_is) {
  Run_Live();
  session.settings.Set_Recording_Frequency = 0;
  Restart_It();
  EXPECT_EQ(session.settings.Set_Recording_Frequency, 0);
}

TEST_F(RestartSession, The_recorder_stops_in_the_status_finish) {
  Run_Live();
  Note_At_Stop_Recording();
  Restart_It();
  EXPECT_EQ(calls, Lines{"Finish,YES,1,-1,135"});
}

TEST_F(RestartSession, The_sample_is_told_to_skip_its_words_before_the_recorder_stops) {
  Run_Live();
  session.operations.Stop_Recording = [this](Session&) {
    calls.push_back(std::to_string(session.flags.Stop_Sample_Flag));
  };
  Restart_It();
  EXPECT_EQ(calls, Lines{"1"});
}

TEST_F(RestartSession, The_purge_comes_after_the_reset_and_before_the_timers) {
  Run_Live();
  session.flags.Session_Started = 0;
  cues.At_Call = [this](const std::string&, int) {
    calls.push_back(session.results.Platinum_Best_Table[1] + session.settings.Stop_everything_now +
                    "," + std::to_string(session.flags.Session_Started.Raw()) + "," +
                    std::to_string(session.flags.Capture_Busy.Raw()) + "," + Timers_On());
  };
  Restart_It();
  EXPECT_EQ(calls, (Lines{"Stop_Recording", "NO,1,0,"}));
}

TEST_F(RestartSession, The_timers_go_off_in_the_order_5_3_1_and_Timer5_comes_back_before_3_goes) {
  TimerOrder test;
  test.session.flags.Session_Alive = True;
  test.session.flags.Settings_Ready_Count = 2;
  Restart(*test.control);
  EXPECT_EQ(test.loop.used, "53153");
}

TEST_F(RestartSession, The_capture_is_armed_before_the_event) {
  Run_Live();
  std::string on;
  host_program.At_First(EventId::RestartRecognitionActivity, [&] { on = Timers_On(); });
  Restart_It();
  EXPECT_EQ(on, "5");
}

TEST_F(RestartSession, With_incomplete_settings_the_session_stands_stopped_and_alive) {
  Run_Live();
  session.flags.Settings_Ready_Count = 1;
  Restart_It();
  Expect_Incomplete_Box();
  EXPECT_TRUE(host_program.events.empty());
  EXPECT_EQ(Timers_On(), "");
  EXPECT_TRUE(Pump_Is_On());
  EXPECT_EQ(session.flags.Session_Alive, True);
  EXPECT_EQ(session.flags.Session_Started, 1);
  EXPECT_EQ(session.settings.Stop_everything_now, "YES");
  EXPECT_EQ(session.flags.Stopped_Marker, 1);
  EXPECT_EQ(session.flags.Stopped_Text, "YES");
  EXPECT_EQ(session.flags.Operation_Status, "Sleeping");
  EXPECT_EQ(session.flags.Show_Activities, 0);
  EXPECT_EQ(session.results.Platinum_Words_Available, 1);
  EXPECT_TRUE(cues.calls.empty());
}

TEST_F(RestartSession, It_traps_no_failure) {
  Run_Live();
  host_program.At_First(EventId::RestartRecognitionActivity, [] { Fail(Failure::Invalid_Call); });
  EXPECT_EQ(Failure_Of([&] { Restart_It(); }), 5);
  Fail_At_Stop_Recording();
  EXPECT_EQ(Failure_Of([&] { Restart_It(); }), 6);
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_TRUE(session.trace.failures.empty());
}

// The end.

struct Termination : SessionOperations {};

TEST_F(Termination, It_ends_the_session_in_silence) {
  Run_Live();
  control->UserControl_Terminate();
  EXPECT_TRUE(host_program.events.empty());
  EXPECT_EQ(cues.calls, Lines{"purge"});
  EXPECT_FALSE(Pump_Is_On());
  EXPECT_EQ(session.flags.Session_Started, 0);
  EXPECT_EQ(session.flags.Operation_Status, "Sleeping");
  EXPECT_EQ(session.settings.Stop_everything_now, "YES");
  EXPECT_EQ(session.flags.Stopped_Marker, 1);
  EXPECT_EQ(session.flags.Stopped_Text, "YES");
  EXPECT_EQ(session.flags.Show_Activities, 0);
  EXPECT_EQ(session.results.Platinum_Best_Table[1], "");
  EXPECT_FALSE(session.data.Main_File_Number.Is_Open());
}

TEST_F(Termination, The_clock_of_the_capture_and_the_alive_flag_stay) {
  Run_Live();
  control->UserControl_Terminate();
  EXPECT_EQ(Timers_On(), "1");
  EXPECT_EQ(session.flags.Session_Alive, True);
}

TEST_F(Termination, The_session_is_closed_reset_and_asleep_before_the_recorder_stops) {
  Run_Live();
  session.operations.Stop_Recording = [this](Session&) {
    calls.push_back(session.results.Platinum_Best_Table[1] + session.flags.Operation_Status + "," +
                    session.settings.Stop_everything_now + "," +
                    std::to_string(session.flags.Session_Started.Raw()) + "," + Timers_On() +
                    (Pump_Is_On() ? "p" : ""));
  };
  control->UserControl_Terminate();
  EXPECT_EQ(calls.at(0), "Sleeping,YES,0,135");
}

TEST_F(Termination, The_timers_go_off_in_the_order_5_3) {
  TimerOrder test;
  test.control->UserControl_Terminate();
  EXPECT_EQ(test.loop.used, "535");  // 5 again, which an editor may have started as it went
}

TEST_F(Termination, Letting_go_of_the_last_pointer_is_the_end_as_well) {
  Run_Live();
  control.reset();
  EXPECT_EQ(calls, (Lines{"Stop_Recording", "Unload_Graph", "Unload_StatusBar", "Unload_Database",
                          "Unload_Help"}));
  EXPECT_EQ(cues.calls, Lines{"purge"});
  EXPECT_EQ(Timers_On(), "1");
  EXPECT_EQ(session.flags.Session_Started, 0);
  EXPECT_EQ(session.settings.Stop_everything_now, "YES");
  EXPECT_FALSE(session.data.Main_File_Number.Is_Open());
  EXPECT_TRUE(host_program.events.empty());
  Pass_Time(100ms);
  EXPECT_EQ(host_program.status_events, 0);
}

TEST_F(Termination, Letting_go_of_a_terminated_control_does_nothing_more) {
  control->UserControl_Terminate();
  calls.clear();
  control.reset();
  EXPECT_TRUE(calls.empty());
}

TEST_F(Termination, A_failure_while_it_is_let_go_is_told_too) {
  Run_Live();
  Fail_At_Stop_Recording();
  control.reset();
  EXPECT_EQ(boxes.shown.size(), 1U);
  EXPECT_EQ(session.trace.failures, std::vector<int>{6});
}

TEST_F(Termination, A_control_may_be_let_go_inside_its_end) {
  session.operations.Unload_Graph = [this](Session&) { control.reset(); };
  control->UserControl_Terminate();
  EXPECT_EQ(Times("Stop_Recording"), 1);
  EXPECT_EQ(Times("Unload_Help"), 1);
}

TEST_F(Termination, The_windows_go_in_their_order_behind_the_recorder) {
  control->UserControl_Terminate();
  EXPECT_EQ(calls, (Lines{"Stop_Recording", "Unload_Graph", "Unload_StatusBar", "Unload_Database",
                          "Unload_Help"}));
}

TEST_F(Termination, What_runs_inside_it_reaches_the_container_no_more) {
  session.operations.Unload_Graph = [this](Session&) {
    control->Frame1_Click();
    control->UserControl_Terminate();
    calls.emplace_back("Unload_Graph");
  };
  control->UserControl_Terminate();
  EXPECT_TRUE(host_program.events.empty());
  EXPECT_EQ(Times("Unload_Graph"), 1);
  EXPECT_EQ(Times("Unload_Help"), 1);
}

TEST_F(Termination, A_failure_is_told_and_the_steps_behind_it_are_not_taken) {
  Run_Live();
  session.operations.Unload_Database = [](Session&) { Fail(Failure::Device_Failure); };
  control->UserControl_Terminate();
  Expect_Problem_Box(
      "Problems during termination, check system problems like RAM memory(32 MB must) or other "
      "system states. This is a rare problem. ");
  EXPECT_EQ(session.trace.failures, std::vector<int>{57});
  EXPECT_EQ(Times("Unload_StatusBar"), 1);
  EXPECT_EQ(Times("Unload_Help"), 0);
  EXPECT_TRUE(cues.calls.empty());
}

}  // namespace
}  // namespace quillspeech
