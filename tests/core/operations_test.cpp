#include "core/operations.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/analysis_session.hpp"

namespace quillspeech {
namespace {

using namespace tests;

// A session that is to open a WAV file with one word.
struct OpenFile : AnalysisSession {
  OpenFile() {
    riff_files.files["word.wav"] = Wave().Data(Words({1000}, Bytes(2000)));
    session.settings.Open_this_Wave_File = "word.wav";
    session.settings.Stop_everything_now = "YES";
    session.settings.Sample_processing_resolution = 0;
    session.flags.Stopped_Marker = 1;
    session.flags.Show_Activities = 1;
    session.flags.Stopped_Text = "YES";
  }
  OpenFile& Open() {
    Open_Specified_Wave_File_And_Process(session);
    return *this;
  }
};

TEST(OpenSpecifiedWaveFile, It_reads_the_file_and_runs_the_analysis) {
  OpenFile test;
  EXPECT_EQ(test.Open().Slices(), (AnalysisSession::Bounds{{2000, 3000}}));
  EXPECT_TRUE(test.boxes.shown.empty());
  EXPECT_TRUE(test.session.trace.failures.empty());
}

TEST(OpenSpecifiedWaveFile, It_lifts_the_stop) {
  OpenFile test;
  test.Open();
  EXPECT_EQ(test.session.settings.Stop_everything_now, "NO");
  EXPECT_EQ(test.session.flags.Stopped_Marker, 0);
  EXPECT_EQ(test.session.flags.Show_Activities, 0);
  EXPECT_EQ(test.session.flags.Stopped_Text, "NO");
}

TEST(OpenSpecifiedWaveFile, A_live_session_shuts_the_file_out_without_a_message) {
  for (const FormTimer timer : {FormTimer::Timer1, FormTimer::Timer2, FormTimer::Timer3,
                                FormTimer::Timer4, FormTimer::Timer5}) {
    OpenFile test;
    test.events.Enable(timer, true);
    EXPECT_TRUE(test.Open().Slices().empty());
    EXPECT_TRUE(test.boxes.shown.empty());
    EXPECT_EQ(test.session.settings.Stop_everything_now, "NO");
    EXPECT_EQ(test.session.flags.Show_Activities, 0);
    EXPECT_EQ(test.session.flags.File_Run_Active, 0);
    EXPECT_EQ(test.Times("Wave_File_Was_Read"), 0);
  }
}

TEST(OpenSpecifiedWaveFile, A_live_session_that_shuts_the_file_out_has_lost_its_sound_to_it) {
  OpenFile test;
  Put_File(test.session, Level(200, Bytes(100)));
  test.events.Enable(FormTimer::Timer1, true);
  test.Open();
  const Sound word = Words({1000}, Bytes(2000));
  const auto& store = test.session.sample.Speech_Sample_Bytes;
  EXPECT_EQ(test.session.sample.Samples_Per_Capture, static_cast<std::int64_t>(word.size()));
  ASSERT_GT(store.Count(), 2000);
  EXPECT_EQ(store[50], word[50]);
  EXPECT_EQ(store[2000], word[2000]);
}

TEST(OpenSpecifiedWaveFile, A_missing_file_shows_its_box_during_a_live_session_too) {
  OpenFile test;
  test.session.settings.Open_this_Wave_File = "missing.wav";
  test.events.Enable(FormTimer::Timer1, true);
  test.Open();
  EXPECT_EQ(test.boxes.shown.size(), 1U);
}

TEST(OpenSpecifiedWaveFile, A_started_session_without_a_timer_on_lets_the_file_in) {
  OpenFile test;
  test.session.flags.Session_Started = 1;
  EXPECT_EQ(test.Open().Slices(), (AnalysisSession::Bounds{{2000, 3000}}));
  EXPECT_EQ(test.session.flags.Session_Started, 1);
}

TEST(OpenSpecifiedWaveFile, A_file_that_cannot_be_read_is_not_analysed) {
  OpenFile test;
  test.session.settings.Open_this_Wave_File = "missing.wav";
  EXPECT_TRUE(test.Open().Slices().empty());
  EXPECT_EQ(test.session.flags.File_Run_Active, 0);
  EXPECT_EQ(test.Times("Wave_File_Was_Read"), 0);
  EXPECT_EQ(test.session.settings.Stop_everything_now, "NO");
}

TEST(OpenSpecifiedWaveFile, The_file_run_is_marked_before_the_analysis_begins) {
  OpenFile test;
  int active = -1;
  test.events.At_Yield = [&] {
    if (active < 0) active = static_cast<int>(test.session.flags.File_Run_Active);
  };
  test.Open();
  EXPECT_EQ(active, 1);
}

TEST(OpenSpecifiedWaveFile, The_host_is_told_of_the_file_before_the_run_is_marked) {
  OpenFile test;
  test.session.operations.Wave_File_Was_Read = [&](Session& session) {
    EXPECT_EQ(session.flags.File_Run_Active, 0);
    EXPECT_GT(session.sample.Speech_Sample_Bytes.Count(), 2000);
    test.calls.emplace_back("told");
  };
  test.Open();
  EXPECT_EQ(test.Times("told"), 1);
}

TEST(OpenSpecifiedWaveFile, A_host_may_change_the_sound_between_reading_and_analysis) {
  OpenFile test;
  test.session.operations.Wave_File_Was_Read = [](Session& session) {
    Put_File(session, Words({500, 600}, Bytes(2000)));
  };
  EXPECT_EQ(test.Open().Slices().size(), 2U);
}

TEST(OpenSpecifiedWaveFile, A_failure_ends_it_silently_and_without_a_recovery) {
  OpenFile test;
  test.session.operations.Wave_File_Was_Read = [](Session&) { Fail(Failure::Out_Of_Memory); };
  test.Open();
  EXPECT_TRUE(test.Slices().empty());
  EXPECT_TRUE(test.boxes.shown.empty());
  EXPECT_EQ(test.Times("Stop_And_Recover"), 0);
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{7});
}

// A session with the traces of a stopped one that had results.
struct StoppedSession : AnalysisSession {
  StoppedSession() {
    session.settings.Stop_everything_now = "YES";
    session.flags.File_Run_Active = 1;
    session.flags.Stopped_Marker = 1;
    session.flags.Stopped_Text = "YES";
    session.flags.Operation_Status = "Finish";
    session.flags.Capture_Busy = 1;
    for (const FormTimer timer : {FormTimer::Timer1, FormTimer::Timer3}) {
      events.Enable(timer, true);
    }
  }
  StoppedSession& Begin() {
    Begin_Session(session);
    return *this;
  }
};

TEST(BeginSession, It_clears_the_results_and_ends_a_file_run) {
  StoppedSession test;
  Results& results = test.session.results;
  results.Platinum_Words_Available = 1;
  results.Platinum_Word_Table[1] = "hello";
  results.Platinum_Score_Table[1] = 80;
  results.Platinum_Best_Table[1] = "hello";
  results.Platinum_Word_Font = "Courier";
  test.Begin();
  EXPECT_EQ(results.Platinum_Words_Available, 0);
  EXPECT_EQ(results.Platinum_Word_Table[1], "");
  EXPECT_EQ(results.Platinum_Score_Table[1], 0);
  EXPECT_EQ(results.Platinum_Best_Table[1], "");
  EXPECT_EQ(results.Platinum_Word_Font, "");
  EXPECT_EQ(test.session.flags.File_Run_Active, 0);
}

TEST(BeginSession, The_patterns_of_the_last_sample_stay) {
  StoppedSession test;
  test.session.filter.Voice_Word_Table[1] = "fths";
  test.session.filter.Voice_Magic_Elements = "_4";
  test.Begin();
  EXPECT_EQ(test.session.filter.Voice_Word_Table[1], "fths");
  EXPECT_EQ(test.session.filter.Voice_Magic_Elements, "_4");
}

TEST(BeginSession, It_lifts_the_stop) {
  StoppedSession test;
  EXPECT_FALSE(Is_Stopped(test.Begin().session));
  EXPECT_EQ(test.session.settings.Stop_everything_now, "NO");
  EXPECT_EQ(test.session.flags.Stopped_Marker, 0);
  EXPECT_EQ(test.session.flags.Stopped_Text, "NO");
}

TEST(BeginSession, The_session_is_started_alive_asleep_and_not_busy) {
  StoppedSession test;
  test.Begin();
  EXPECT_EQ(test.session.flags.Session_Started, 1);
  EXPECT_EQ(test.session.flags.Session_Alive, -1);
  EXPECT_EQ(test.session.flags.Operation_Status, "Sleeping");
  EXPECT_EQ(test.session.flags.Capture_Busy, 0);
}

TEST(BeginSession, A_missing_frequency_becomes_22050_and_any_other_stays) {
  const std::vector<std::pair<int, int>> Frequencies = {
      {-1, 22050}, {0, 22050}, {1, 1}, {8000, 8000}, {44100, 44100}};
  for (const auto& [before, after] : Frequencies) {
    StoppedSession test;
    test.session.settings.Set_Recording_Frequency = before;
    test.Begin();
    EXPECT_EQ(test.session.settings.Set_Recording_Frequency, after) << before;
  }
}

TEST(BeginSession, Timer5_goes_on_and_Timer3_off_and_the_others_stay) {
  StoppedSession test;
  test.Begin();
  EXPECT_TRUE(test.Is_On(FormTimer::Timer5));
  EXPECT_FALSE(test.Is_On(FormTimer::Timer3));
  EXPECT_TRUE(test.Is_On(FormTimer::Timer1));
  EXPECT_FALSE(test.Is_On(FormTimer::Timer2));
  EXPECT_FALSE(test.Is_On(FormTimer::Timer4));
  test.events.Enable(FormTimer::Timer1, false);
  test.Begin();
  EXPECT_FALSE(test.Is_On(FormTimer::Timer1));
}

TEST(BeginSession, The_wish_for_activities_and_the_start_gate_stay) {
  StoppedSession test;
  test.session.flags.Show_Activities = 1;
  test.session.flags.Settings_Ready_Count = 5;
  test.session.flags.Analysis_Running = 1;
  test.Begin();
  EXPECT_EQ(test.session.flags.Show_Activities, 1);
  EXPECT_EQ(test.session.flags.Settings_Ready_Count, 5);
  EXPECT_EQ(test.session.flags.Analysis_Running, 1);
}

TEST(BeginSession, Nobody_is_told_and_nothing_is_played) {
  StoppedSession test;
  test.Begin();
  EXPECT_TRUE(test.boxes.shown.empty());
  EXPECT_TRUE(test.cues.calls.empty());
  EXPECT_TRUE(test.calls.empty());
}

TEST(PrepareSession, A_failure_in_the_analysis_reaches_the_recovery) {
  TestSession test;
  Prepare_Session(test.session);
  // More hits than 16 bits count.
  test.riff_files.files["loud.wav"] = Wave().Data(Level(200, Bytes(25 * 32767 + 1)));
  test.session.settings.Open_this_Wave_File = "loud.wav";
  Open_Specified_Wave_File_And_Process(test.session);
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{6});
  EXPECT_EQ(test.session.settings.Stop_everything_now, "YES");
  EXPECT_EQ(test.session.flags.Stopped_Marker, 1);
  EXPECT_EQ(test.session.flags.Stopped_Text, "YES");
  EXPECT_EQ(test.session.flags.Operation_Status, "Sleeping");
}

// A prepared session that nothing else has touched.
struct PreparedSession : TestSession {
  PreparedSession() { Prepare_Session(session); }
};

TEST(PrepareSession, The_stop_of_a_recording_reaches_the_recorder) {
  PreparedSession test;
  test.session.recorder.Recording_Active = 1;
  test.session.operations.Stop_Recording(test.session);
  EXPECT_EQ(test.session.recorder.Recording_Active, 0);
  EXPECT_EQ(test.session.recorder.Recording_Stopped, 1);
}

TEST(PrepareSession, The_closing_reaches_the_second_recorder) {
  PreparedSession test;
  test.session.recorder.Second_Recorder_Open = 1;
  test.session.operations.Close_Recorder(test.session);
  EXPECT_EQ(test.session.recorder.Second_Recorder_Open, 0);
}

TEST(PrepareSession, The_echo_takes_its_bytes_from_the_store) {
  PreparedSession test;
  Put_File(test.session, Level(200, Bytes(100)));
  test.session.operations.Play_Echo(test.session, 10, 60);
  const auto& echo = test.session.recorder.Echo_Sample_Bytes;
  ASSERT_EQ(echo.Count(), 61);
  EXPECT_EQ(echo[1], 200);
  EXPECT_EQ(echo[60], 0);
}

TEST(PrepareSession, The_adding_asks_its_question) {
  PreparedSession test;
  test.session.operations.Add_Engine_String_To_Language(test.session);
  ASSERT_EQ(test.boxes.shown.size(), 1U);
  EXPECT_EQ(test.boxes.shown[0].box.buttons, BoxButtons::YesNo);
}

// The clock counts seconds, the poll calls the pump, the starter finds no microphone.
TEST(PrepareSession, Three_of_the_five_timers_have_each_its_own_tick) {
  struct Effects {
    FormTimer timer;
    int seconds;
    std::string status;
    std::size_t boxes;
  };
  const std::vector<Effects> Expected = {{FormTimer::Timer1, 1, "", 0},
                                         {FormTimer::Timer2, 0, "", 0},
                                         {FormTimer::Timer3, 0, "Alert", 0},
                                         {FormTimer::Timer4, 0, "", 0},
                                         {FormTimer::Timer5, 0, "", 1}};
  for (const Effects& effects : Expected) {
    PreparedSession test;
    test.events.Enable(effects.timer, true);
    test.events.Wait_For_Events();
    SCOPED_TRACE(static_cast<int>(effects.timer) + 1);
    EXPECT_EQ(test.session.recorder.Capture_Seconds, effects.seconds);
    EXPECT_EQ(test.session.flags.Operation_Status, effects.status);
    EXPECT_EQ(test.boxes.shown.size(), effects.boxes);
  }
}

TEST(PrepareSession, The_built_in_engine_stands_from_the_start) {
  TestSession test;
  Prepare_Session(test.session);
  EXPECT_EQ(test.session.filter.Engine_Table[0], "_");
  EXPECT_EQ(test.session.filter.Engine_Table[70], "sx");
  EXPECT_EQ(test.session.filter.Engine_Table[71], "");
}

// A file of one word, every slice of which adds its letters.
struct RunWithEngine : TestSession {
  RunWithEngine(const std::string& engine, const std::string& restart) {
    Prepare_Session(session);
    riff_files.files["word.wav"] = Wave().Data(Words({1000}, Bytes(2000)));
    session.settings.Open_this_Wave_File = "word.wav";
    session.settings.Enable_Artificial_Intelligence = "NO";
    session.settings.Keep_Engine_Frequency_Input_Flow = "Pass All";
    session.settings.Consider_this_Engine_for_Recognition = engine;
    session.settings.Always_Restart_on_Error = restart;
    Open_Specified_Wave_File_And_Process(session);
  }
};

TEST(PrepareSession, After_a_refused_engine_file_a_restart_goes_on_over_the_built_in_table) {
  const RunWithEngine built_in("", "YES");
  const RunWithEngine restarted("voice.txt", "YES");
  EXPECT_EQ(restarted.boxes.shown.size(), 1U);
  EXPECT_NE(restarted.session.filter.Current_Voice_Word, "");
  EXPECT_EQ(restarted.session.filter.Current_Voice_Word,
            built_in.session.filter.Current_Voice_Word);
  EXPECT_TRUE(restarted.session.trace.failures.empty());
}

TEST(PrepareSession, After_a_refused_engine_file_a_stop_analyses_nothing) {
  const RunWithEngine stopped("voice.txt", "NO");
  EXPECT_EQ(stopped.boxes.shown.size(), 1U);
  EXPECT_EQ(stopped.session.filter.Current_Voice_Word, "");
  EXPECT_EQ(stopped.session.flags.Operation_Status, "Starting Processing");
}

}  // namespace
}  // namespace quillspeech
