// Start and stop, step by step.
#include "core/session_operations.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/core/session_operations_fixture.hpp"
#include "tests/support/member_texts.hpp"

namespace quillspeech {
namespace {

using namespace tests;
using namespace std::chrono_literals;

// Start.

struct StartRealAction : SessionOperations {};

TEST_F(StartRealAction, It_begins_a_session_tells_the_host_and_switches_the_pump_on) {
  session.settings.Stop_everything_now = "YES";
  session.flags.Stopped_Marker = 1;
  session.flags.Stopped_Text = "YES";
  session.flags.File_Run_Active = 1;
  session.flags.Capture_Busy = 1;
  session.results.Platinum_Words_Available = 1;
  Start();
  EXPECT_EQ(host_program.events, Lines{"StartRecognitionActivity"});
  EXPECT_TRUE(Pump_Is_On());
  EXPECT_EQ(Timers_On(), "5");
  EXPECT_EQ(session.flags.Session_Started, 1);
  EXPECT_EQ(session.flags.Session_Alive, True);
  EXPECT_EQ(session.flags.Operation_Status, "Sleeping");
  EXPECT_EQ(session.settings.Stop_everything_now, "NO");
  EXPECT_EQ(session.flags.Stopped_Marker, 0);
  EXPECT_EQ(session.flags.Stopped_Text, "NO");
  EXPECT_EQ(session.flags.File_Run_Active, 0);
  EXPECT_EQ(session.flags.Capture_Busy, 0);
  EXPECT_EQ(session.results.Platinum_Words_Available, 0);
}

TEST_F(StartRealAction, The_event_comes_before_the_pump_and_after_the_purge) {
  bool pump_was_on = true;
  host_program.At_First(EventId::StartRecognitionActivity, [&] {
    pump_was_on = Pump_Is_On();
    EXPECT_EQ(cues.calls, Lines{"purge"});
    EXPECT_EQ(Timers_On(), "5");
  });
  Start();
  EXPECT_FALSE(pump_was_on);
}

TEST_F(StartRealAction, The_second_start_in_a_row_does_nothing_and_raises_nothing) {
  Start();
  session.flags.Operation_Status = "Alert";
  session.results.Platinum_Words_Available = 3;
  session.settings.Stop_everything_now = "YES";
  events.Enable(FormTimer::Timer5, false);
  Start();
  EXPECT_EQ(host_program.events, Lines{"StartRecognitionActivity"});
  EXPECT_EQ(cues.calls, Lines{"purge"});
  EXPECT_EQ(session.flags.Operation_Status, "Alert");
  EXPECT_EQ(session.results.Platinum_Words_Available, 3);
  EXPECT_EQ(session.settings.Stop_everything_now, "YES");
  EXPECT_EQ(Timers_On(), "");
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(StartRealAction, Only_a_session_started_by_exactly_1_refuses_it) {
  for (const int started : {-1, 0, 2}) {
    ControlTest test;
    test.session.flags.Session_Started = started;
    Start_Real_Action(*test.control);
    EXPECT_EQ(test.host_program.events, Lines{"StartRecognitionActivity"}) << started;
    EXPECT_EQ(test.session.flags.Session_Started, 1);
  }
}

TEST_F(StartRealAction, A_started_session_needs_no_complete_settings) {
  Start();
  session.flags.Settings_Ready_Count = 0;
  Start();
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(StartRealAction, With_only_the_wanted_words_set_the_settings_are_incomplete) {
  session.flags.Settings_Ready_Count = 0;
  Let_Text(*control, "Words_I_Want", "*");
  EXPECT_EQ(session.flags.Settings_Ready_Count, 1);
  Start();
  Expect_Incomplete_Box();
  EXPECT_TRUE(host_program.events.empty());
  EXPECT_EQ(Timers_On(), "");
  EXPECT_FALSE(Pump_Is_On());
}

TEST_F(StartRealAction, Incomplete_settings_change_nothing) {
  session.flags.Settings_Ready_Count = 1;
  session.settings.Stop_everything_now = "YES";
  session.settings.Set_Recording_Frequency = 0;
  session.results.Platinum_Words_Available = 3;
  Start();
  EXPECT_EQ(session.flags.Session_Started, 0);
  EXPECT_EQ(session.flags.Session_Alive, False);
  EXPECT_EQ(session.flags.Operation_Status, "");
  EXPECT_EQ(session.settings.Stop_everything_now, "YES");
  EXPECT_EQ(session.settings.Set_Recording_Frequency, 0);
  EXPECT_EQ(session.results.Platinum_Words_Available, 3);
  EXPECT_TRUE(cues.calls.empty());
}

TEST_F(StartRealAction, It_takes_two_settings_or_more) {
  const std::vector<std::pair<int, int>> Counts = {{-1, 0}, {0, 0}, {1, 0}, {2, 1}, {32767, 1}};
  for (const auto& [count, started] : Counts) {
    ControlTest test;
    test.session.flags.Settings_Ready_Count = count;
    Start_Real_Action(*test.control);
    EXPECT_EQ(test.session.flags.Session_Started, started) << count;
  }
}

TEST_F(StartRealAction, A_stored_frequency_of_0_becomes_22050) {
  session.settings.Set_Recording_Frequency = 0;
  Start();
  EXPECT_EQ(session.settings.Set_Recording_Frequency, 22050);
}

TEST_F(StartRealAction, The_clock_of_the_capture_stays_as_it_is) {
  events.Enable(FormTimer::Timer1, true);
  events.Enable(FormTimer::Timer3, true);
  Start();
  EXPECT_EQ(Timers_On(), "15");
}

TEST_F(StartRealAction, It_ends_the_loop_of_the_initialisation_and_plays_no_cue) {
  InitializeSound(session);
  EXPECT_EQ(cues.calls, Lines{"loop backon.wav"});
  Start();
  EXPECT_EQ(cues.calls, (Lines{"loop backon.wav", "purge"}));
}

TEST_F(StartRealAction, A_failure_is_told_and_what_was_done_stays) {
  host_program.At_First(EventId::StartRecognitionActivity, [] { Fail(Failure::Overflow); });
  Start();
  Expect_Problem_Box(
      "Problems during start, check your machine system problems or other machine system states. "
      "This is a rare problem. Please try again");
  EXPECT_EQ(session.trace.failures, std::vector<int>{6});
  EXPECT_EQ(session.flags.Session_Started, 1);
  EXPECT_EQ(Timers_On(), "5");
  EXPECT_FALSE(Pump_Is_On());
}

TEST_F(StartRealAction, A_stop_in_its_event_closes_the_session_but_the_pump_goes_on_behind_it) {
  host_program.At_First(EventId::StartRecognitionActivity, [&] { Stop(); });
  Start();
  EXPECT_EQ(host_program.events, (Lines{"StartRecognitionActivity", "StopRecognitionActivity"}));
  EXPECT_EQ(session.flags.Session_Started, 0);
  EXPECT_EQ(Timers_On(), "");
  EXPECT_TRUE(Pump_Is_On());
}

TEST_F(StartRealAction, A_termination_in_its_event_leaves_no_pump) {
  host_program.At_First(EventId::StartRecognitionActivity,
                        [&] { control->UserControl_Terminate(); });
  Start();
  EXPECT_FALSE(Pump_Is_On());
  EXPECT_EQ(session.flags.Session_Started, 0);
}

TEST(InitializeSound, Without_a_name_nothing_sounds) {
  ControlTest test;
  test.session.settings.Play_this_file_on_Initialization = "";
  InitializeSound(test.session);
  EXPECT_TRUE(test.cues.calls.empty());
}

// Stop.

struct StopRealAction : SessionOperations {};

TEST_F(StopRealAction, It_closes_the_session) {
  Run_Live();
  Stop();
  EXPECT_EQ(session.flags.Session_Started, 0);
  EXPECT_EQ(session.flags.Session_Alive, False);
  EXPECT_EQ(session.flags.Operation_Status, "Sleeping");
  EXPECT_EQ(session.settings.Stop_everything_now, "YES");
  EXPECT_EQ(session.flags.Stopped_Marker, 1);
  EXPECT_EQ(session.flags.Stopped_Text, "YES");
  EXPECT_EQ(session.flags.Show_Activities, 0);
  EXPECT_EQ(Timers_On(), "");
  EXPECT_FALSE(Pump_Is_On());
  EXPECT_FALSE(session.data.Main_File_Number.Is_Open());
  EXPECT_EQ(calls, Lines{"Stop_Recording"});
  EXPECT_EQ(cues.calls, (Lines{"purge", "play stop.wav"}));
  EXPECT_EQ(host_program.events, Lines{"StopRecognitionActivity"});
}

TEST_F(StopRealAction, Results_and_the_busy_flag_stay) {
  Run_Live();
  Stop();
  EXPECT_EQ(session.results.Platinum_Best_Table[1], "hello");
  EXPECT_EQ(session.results.Platinum_Words_Available, 1);
  EXPECT_EQ(session.flags.Capture_Busy, 1);
  EXPECT_EQ(session.flags.Stop_Sample_Flag, 0);
}

TEST_F(StopRealAction, Without_a_session_the_cue_and_the_event_come_all_the_same) {
  Stop();
  EXPECT_EQ(cues.calls, (Lines{"purge", "play stop.wav"}));
  EXPECT_EQ(host_program.events, Lines{"StopRecognitionActivity"});
  EXPECT_EQ(session.settings.Stop_everything_now, "YES");
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(StopRealAction, Without_a_cue_only_the_purge_is_left) {
  session.settings.Play_this_file_for_Stop = "";
  Stop();
  EXPECT_EQ(cues.calls, Lines{"purge"});
}

TEST_F(StopRealAction, The_recorder_stops_before_the_timers_and_while_the_session_is_alive) {
  Run_Live();
  Note_At_Stop_Recording();
  Stop();
  EXPECT_EQ(calls, Lines{"Sleeping,YES,0,-1,135"});
}

TEST_F(StopRealAction, The_cue_comes_before_the_event) {
  Run_Live();
  Lines heard;
  host_program.At_First(EventId::StopRecognitionActivity, [&] { heard = cues.calls; });
  Stop();
  EXPECT_EQ(heard, (Lines{"purge", "play stop.wav"}));
}

TEST_F(StopRealAction, The_session_dies_before_the_file_is_closed_and_that_before_the_purge) {
  Run_Live();
  TellingFile file([this] {
    calls.push_back("close, alive " + std::to_string(session.flags.Session_Alive.Raw()) +
                    ", timers " + Timers_On());
  });
  session.data.Main_File_Number.Open(file, "user.say", 100);
  calls.clear();
  cues.At_Call = [this](const std::string&, int flags) { calls.push_back(std::to_string(flags)); };
  Stop();
  EXPECT_EQ(calls, (Lines{"Stop_Recording", "close, alive 0, timers ", "64", "1"}));
}

TEST_F(StopRealAction, The_timers_go_off_in_the_order_5_3_1) {
  TimerOrder test;
  Stop_Real_Action(*test.control);
  EXPECT_EQ(test.loop.used, "531");
}

TEST_F(StopRealAction, The_pump_is_still_on_when_the_event_comes) {
  Run_Live();
  bool pump_was_on = false;
  host_program.At_First(EventId::StopRecognitionActivity, [&] { pump_was_on = Pump_Is_On(); });
  Stop();
  EXPECT_TRUE(pump_was_on);
  EXPECT_FALSE(Pump_Is_On());
}

TEST_F(StopRealAction, Events_that_were_due_in_the_last_50_ms_are_lost) {
  Start();
  events.Enable(FormTimer::Timer5, false);
  Pass_Time(100ms);
  session.flags.Operation_Status = "Finish";
  session.results.Platinum_Best_Table[1] = "hello";
  session.results.Platinum_Words_Available = 1;
  Pass_Time(49ms);
  Stop();
  Pass_Time(1s);
  EXPECT_EQ(host_program.events, (Lines{"StartRecognitionActivity", "StopRecognitionActivity"}));
  EXPECT_EQ(host_program.status_events, 2);
}

TEST_F(StopRealAction, A_failure_is_told_and_the_steps_behind_it_are_not_taken) {
  Run_Live();
  Fail_At_Stop_Recording();
  Stop();
  Expect_Problem_Box(
      "Problems during stop, check system problems like RAM memory(32 MB must) or other system "
      "states. This is a rare problem. (Do not execute this instruction twice i.e w/o "
      "Start_Real_Action being executed before the first Start). Please try again");
  EXPECT_EQ(session.trace.failures, std::vector<int>{6});
  EXPECT_EQ(session.settings.Stop_everything_now, "YES");
  EXPECT_EQ(session.flags.Session_Started, 0);
  EXPECT_EQ(session.flags.Session_Alive, True);
  EXPECT_EQ(session.flags.Show_Activities, 1);
  EXPECT_EQ(Timers_On(), "135");
  EXPECT_TRUE(Pump_Is_On());
  EXPECT_TRUE(cues.calls.empty());
  EXPECT_TRUE(host_program.events.empty());
}

TEST_F(StopRealAction, A_start_in_its_event_leaves_a_session_without_a_pump) {
  Run_Live();
  host_program.At_First(EventId::StopRecognitionActivity, [&] { Start(); });
  Stop();
  EXPECT_EQ(host_program.events, (Lines{"StopRecognitionActivity", "StartRecognitionActivity"}));
  EXPECT_EQ(session.flags.Session_Started, 1);
  EXPECT_EQ(Timers_On(), "5");
  EXPECT_FALSE(Pump_Is_On());
}

// A file during a session.

TEST_F(SessionOperations, A_live_session_shuts_a_file_out_and_loses_its_stop_and_its_activities) {
  riff_files.files["word.wav"] = Wave().Data(Words({1000}, Bytes(2000)));
  session.settings.Open_this_Wave_File = "word.wav";
  Start();
  session.flags.Show_Activities = 1;
  session.settings.Stop_everything_now = "YES";
  Open_Specified_Wave_File_And_Process(session);
  EXPECT_TRUE(Slices().empty());
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_EQ(session.settings.Stop_everything_now, "NO");
  EXPECT_EQ(session.flags.Show_Activities, 0);
  EXPECT_EQ(session.flags.Session_Started, 1);
}

TEST_F(SessionOperations, After_a_stop_the_file_is_let_in_again) {
  riff_files.files["word.wav"] = Wave().Data(Words({1000}, Bytes(2000)));
  session.settings.Open_this_Wave_File = "word.wav";
  session.settings.Sample_processing_resolution = 0;
  Start();
  Stop();
  Open_Specified_Wave_File_And_Process(session);
  EXPECT_EQ(Slices().size(), 1U);
}

}  // namespace
}  // namespace quillspeech
