#include "core/operations.hpp"

#include <gtest/gtest.h>

#include <string>
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

TEST(ConnectOperations, A_failure_in_the_analysis_reaches_the_recovery) {
  TestSession test;
  Connect_Operations(test.session);
  Put_File(test.session, Silence(Bytes(5000)));
  test.session.operations.Stop_And_Recover(test.session);
  EXPECT_EQ(test.session.settings.Stop_everything_now, "YES");
  EXPECT_EQ(test.session.flags.Operation_Status, "Sleeping");
}

TEST(ConnectOperations, The_built_in_engine_stands_from_the_start) {
  TestSession test;
  Connect_Operations(test.session);
  EXPECT_EQ(test.session.filter.Engine_Table[0], "_");
  EXPECT_EQ(test.session.filter.Engine_Table[70], "sx");
  EXPECT_EQ(test.session.filter.Engine_Table[71], "");
}

// A file of one word, every slice of which adds its letters.
struct RunWithEngine : TestSession {
  RunWithEngine(const std::string& engine, const std::string& restart) {
    Connect_Operations(session);
    riff_files.files["word.wav"] = Wave().Data(Words({1000}, Bytes(2000)));
    session.settings.Open_this_Wave_File = "word.wav";
    session.settings.Enable_Artificial_Intelligence = "NO";
    session.settings.Keep_Engine_Frequency_Input_Flow = "Pass All";
    session.settings.Consider_this_Engine_for_Recognition = engine;
    session.settings.Always_Restart_on_Error = restart;
    Open_Specified_Wave_File_And_Process(session);
  }
};

TEST(ConnectOperations, After_a_refused_engine_file_a_restart_goes_on_over_the_built_in_table) {
  const RunWithEngine built_in("", "YES");
  const RunWithEngine restarted("voice.txt", "YES");
  EXPECT_EQ(restarted.boxes.shown.size(), 1U);
  EXPECT_NE(restarted.session.filter.Current_Voice_Word, "");
  EXPECT_EQ(restarted.session.filter.Current_Voice_Word,
            built_in.session.filter.Current_Voice_Word);
  EXPECT_TRUE(restarted.session.trace.failures.empty());
}

TEST(ConnectOperations, After_a_refused_engine_file_a_stop_analyses_nothing) {
  const RunWithEngine stopped("voice.txt", "NO");
  EXPECT_EQ(stopped.boxes.shown.size(), 1U);
  EXPECT_EQ(stopped.session.filter.Current_Voice_Word, "");
}

}  // namespace
}  // namespace quillspeech
