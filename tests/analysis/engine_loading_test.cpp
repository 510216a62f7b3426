#include <gtest/gtest.h>

#include <array>

#include "analysis/captured_sample.hpp"
#include "analysis/file_analysis.hpp"
#include "base/text.hpp"
#include "tests/support/analysis_session.hpp"
#include "tests/support/record_builder.hpp"

namespace quillspeech {
namespace {

using namespace tests;

// A capture and a file begin alike: with the engine.
constexpr std::array Runs{Process_Captured_Sample, Run_File_Analysis};

// A sound of one word, every slice of which adds its letters.
struct EngineTest : AnalysisSession {
  explicit EngineTest(const std::string& engine) {
    Put_File(session, Words({1000}, Bytes(2000)));
    session.settings.Sample_processing_resolution = 0;
    session.settings.Keep_Engine_Frequency_Input_Flow = "Pass All";
    session.settings.Consider_this_Engine_for_Recognition = engine;
  }
};

TEST(EngineLoading, The_engine_file_is_loaded_anew_for_every_run) {
  for (const auto run : Runs) {
    EngineTest test("voice.EGN");
    for (const std::string letters : {"one", "two"}) {
      Put_Engine_File(test.data_files, "voice.EGN", All_Groups(letters));
      run(test.session);
      EXPECT_EQ(test.session.filter.Current_Voice_Word, letters);
    }
    EXPECT_EQ(test.data_files.opens, 2);
    EXPECT_EQ(test.data_files.open_files, 0);
  }
}

TEST(EngineLoading, A_stopped_session_opens_no_engine_file) {
  for (const auto run : Runs) {
    EngineTest test("voice.EGN");
    test.session.settings.Stop_everything_now = "YES";
    run(test.session);
    EXPECT_EQ(test.data_files.opens, 0);
  }
}

TEST(EngineLoading, The_engine_is_there_when_the_run_first_yields) {
  for (const auto run : Runs) {
    EngineTest test("voice.EGN");
    Put_Engine_File(test.data_files, "voice.EGN", All_Groups("one"));
    test.events.At_Yield = [&] { EXPECT_EQ(Trim(test.session.filter.Engine_Table[5]), "one"); };
    run(test.session);
    EXPECT_EQ(test.events.yields, 1);
  }
}

TEST(EngineLoading, A_refused_engine_file_finds_the_capture_not_yet_held_and_the_status_as_it_was) {
  for (const auto run : Runs) {
    EngineTest test("voice.txt");
    test.session.flags.Operation_Status = "Speechdetected";
    test.session.flags.Analysis_Running = 0;
    for (const FormTimer timer : {FormTimer::Timer1, FormTimer::Timer3}) {
      test.events.Enable(timer, true);
    }
    int recoveries = 0;
    test.session.operations.Stop_And_Recover = [&](Session& session) {
      ++recoveries;
      EXPECT_EQ(session.flags.Operation_Status, "Speechdetected");
      EXPECT_EQ(session.flags.Analysis_Running, 0);
      EXPECT_EQ(session.flags.Capture_Busy, 0);
      EXPECT_TRUE(test.Is_On(FormTimer::Timer1));
      EXPECT_TRUE(test.Is_On(FormTimer::Timer3));
    };
    run(test.session);
    EXPECT_EQ(recoveries, 1);
  }
}

TEST(EngineLoading, After_a_refused_engine_file_that_stops_all_the_status_is_written_once_more) {
  for (const auto& [run, status] : {std::pair{&Process_Captured_Sample, "Finish"},
                                    {&Run_File_Analysis, "Starting Processing"}}) {
    EngineTest test("voice.txt");
    run(test.session);
    EXPECT_EQ(test.session.settings.Stop_everything_now, "YES");
    EXPECT_EQ(test.session.flags.Operation_Status, status);
    ASSERT_EQ(test.Slices().size(), 1U);
    EXPECT_EQ(test.session.trace.slices[0].category, std::nullopt);
  }
}

}  // namespace
}  // namespace quillspeech
