// What a host does to a whole session from inside its events and yields.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/core/live_session_fixture.hpp"
#include "tests/support/member_texts.hpp"

namespace quillspeech {
namespace {

using namespace tests;
using namespace std::chrono_literals;

TEST(LiveSession, A_stop_inside_every_event_brings_it_to_rest) {
  for (const EventId id :
       {EventId::SpokenWordDetected, EventId::PropertyStatusBetweenDetectionToCoversion,
        EventId::SpokenWordConvertedToText, EventId::SpokenWordConvertedToPatternOnly,
        EventId::NoMatchFoundinFile}) {
    LiveRun test;
    const bool no_match =
        id == EventId::SpokenWordConvertedToPatternOnly || id == EventId::NoMatchFoundinFile;
    if (no_match) test.Know(Record().Word("hello").Pattern("never"));
    bool stopped = false;
    test.host_program.At_First(id, [&] {
      Stop_Real_Action(*test.control);
      stopped = true;
    });
    test.Listen();
    SCOPED_TRACE(Row_Of(id).name);
    EXPECT_TRUE(stopped);
    test.Expect_Rest();
    EXPECT_EQ(test.host_program.Times("StopRecognitionActivity"), 1);
    EXPECT_TRUE(test.session.trace.failures.empty());
  }
}

TEST(LiveSession, A_stop_inside_the_start_event_leaves_the_pump_alone_running) {
  LiveRun test;
  test.host_program.At_First(EventId::StartRecognitionActivity,
                             [&] { Stop_Real_Action(*test.control); });
  test.Listen();
  test.Expect_Rest("p");
  EXPECT_EQ(test.Captures(), 0);
}

TEST(LiveSession, After_a_stop_at_any_moment_a_start_hears_the_next_word) {
  for (auto moment = 50ms; moment < 1600ms; moment += 110ms) {
    LiveRun test;
    test.events.At(moment, [&] { Stop_Real_Action(*test.control); });
    test.Listen(3s);
    SCOPED_TRACE(moment.count());
    test.Expect_Rest();
    test.host_program.events.clear();
    test.Say_At(4s);
    Start_Real_Action(*test.control);
    test.events.Run_For(4s);
    EXPECT_EQ(test.host_program.Times("SpokenWordConvertedToText hello"), 1);
  }
}

TEST(LiveSession, A_restart_in_the_detection_abandons_the_word_and_hears_the_next) {
  LiveRun test;
  test.host_program.At_First(EventId::SpokenWordDetected, [&] { Restart(*test.control); });
  test.Say_At(6s);
  test.Listen(4s);
  EXPECT_EQ(test.host_program.Times("RestartRecognitionActivity"), 1);
  test.events.Run_For(8s);
  EXPECT_GE(test.host_program.Times("SpokenWordConvertedToText hello"), 1);
  EXPECT_TRUE(test.session.trace.failures.empty());
}

TEST(LiveSession, A_restart_between_finish_and_its_tick_gives_no_result) {
  LiveRun test;
  bool restarted = false;
  test.events.At_Yield = [&] {
    if (restarted || test.session.flags.Operation_Status != "Finish") return;
    restarted = true;
    Restart(*test.control);
  };
  // The moment of "Finish" is that of its sample; a finer yield than the pump's comes first.
  const auto yields = test.events.Make_Timer(1ms, [&] { test.events.Run_Pending_Events(); });
  yields->Enable(true);
  test.Listen();
  EXPECT_TRUE(restarted);
  EXPECT_EQ(test.host_program.events, (Lines{"StartRecognitionActivity", "SpokenWordDetected 0",
                                             "RestartRecognitionActivity"}));
}

TEST(LiveSession, A_restart_in_the_result_goes_on_listening) {
  LiveRun test;
  test.host_program.At_First(EventId::SpokenWordConvertedToText, [&] { Restart(*test.control); });
  test.Say_At(5s);
  test.Listen(9s);
  EXPECT_EQ(test.host_program.events,
            (Lines{"StartRecognitionActivity", "SpokenWordDetected 0",
                   "SpokenWordConvertedToText hello", "RestartRecognitionActivity",
                   "SpokenWordDetected 0", "SpokenWordConvertedToText hello"}));
}

std::string Pattern_Of_Spoken_Word() {
  LiveRun test;
  test.Listen();
  return Get_Text(*test.control, "Voice_Word");
}

// The first word is told as the row says, a later one as ever.
TEST(LiveSession, A_restart_inside_every_event_goes_on_listening) {
  struct RestartIn {
    EventId id;
    Lines told;
  };
  const std::string Pattern = "SpokenWordConvertedToPatternOnly " + Pattern_Of_Spoken_Word();
  const std::vector<RestartIn> Cases = {
      {EventId::StartRecognitionActivity,
       {"StartRecognitionActivity", "RestartRecognitionActivity", "SpokenWordDetected 0",
        "SpokenWordConvertedToText hello"}},
      {EventId::RestartRecognitionActivity,
       {"StartRecognitionActivity", "RestartRecognitionActivity", "RestartRecognitionActivity",
        "SpokenWordDetected 0", "SpokenWordConvertedToText hello"}},
      {EventId::PropertyStatusBetweenDetectionToCoversion,
       {"StartRecognitionActivity", "RestartRecognitionActivity", "SpokenWordDetected 0",
        "SpokenWordConvertedToText hello"}},
      {EventId::SpokenWordConvertedToPatternOnly,
       {"StartRecognitionActivity", "SpokenWordDetected 0", Pattern, "RestartRecognitionActivity",
        "NoMatchFoundinFile"}},
      {EventId::NoMatchFoundinFile,
       {"StartRecognitionActivity", "SpokenWordDetected 0", Pattern, "NoMatchFoundinFile",
        "RestartRecognitionActivity"}},
  };
  for (const RestartIn& row : Cases) {
    LiveRun test;
    const bool no_match = row.id == EventId::SpokenWordConvertedToPatternOnly ||
                          row.id == EventId::NoMatchFoundinFile;
    if (no_match) test.Know(Record().Word("hello").Pattern("never"));
    test.host_program.At_First(row.id, [&] { Restart(*test.control); });
    if (row.id == EventId::RestartRecognitionActivity) {
      test.events.At(300ms, [&] { Restart(*test.control); });
    }
    test.Listen();
    SCOPED_TRACE(Row_Of(row.id).name);
    EXPECT_EQ(test.host_program.events, row.told);
    EXPECT_TRUE(test.session.trace.failures.empty());
    EXPECT_EQ(test.session.flags.Session_Started, 1);
    test.Know(Record().Word("hello").Pattern("*"));
    test.host_program.events.clear();
    test.Say_At(9s);
    test.events.Run_For(9s);
    EXPECT_EQ(test.host_program.events,
              (Lines{"SpokenWordDetected 0", "SpokenWordConvertedToText hello"}));
    EXPECT_EQ(test.events.Depth(), 0);
  }
}

// The next word comes without a detection: no result has let the next one through.
TEST(LiveSession, A_restart_inside_the_analysis_or_its_echo_drops_the_word_and_hears_the_next) {
  for (const char* echo : {"NO", "YES"}) {
    LiveRun test;
    test.session.settings.Speech_echo_feature = echo;
    bool restarted = false;
    test.events.At_Yield = [&] {
      if (restarted || test.session.flags.Analysis_Running != 1) return;
      if (echo == std::string("YES") && test.Times("wave_out_write") == 0) return;
      restarted = true;
      Restart(*test.control);
    };
    test.Listen();
    SCOPED_TRACE(echo);
    EXPECT_TRUE(restarted);
    EXPECT_EQ(test.host_program.events, (Lines{"StartRecognitionActivity", "SpokenWordDetected 0",
                                               "RestartRecognitionActivity"}));
    EXPECT_TRUE(test.session.trace.failures.empty());
    test.events.At_Yield = nullptr;
    test.session.settings.Speech_echo_feature = "NO";
    test.host_program.events.clear();
    test.Say_At(9s);
    test.events.Run_For(9s);
    EXPECT_EQ(test.host_program.events, Lines{"SpokenWordConvertedToText hello"});
  }
}

TEST(LiveSession, A_termination_during_an_echo_ends_in_silence) {
  LiveRun test;
  test.session.settings.Speech_echo_feature = "YES";
  bool ended = false;
  test.events.At_Yield = [&] {
    if (ended || test.Times("wave_out_write") == 0) return;
    ended = true;
    test.control->UserControl_Terminate();
  };
  test.Listen();
  EXPECT_TRUE(ended);
  EXPECT_EQ(test.host_program.events, (Lines{"StartRecognitionActivity", "SpokenWordDetected 0"}));
  EXPECT_EQ(test.session.results.Platinum_Words_Available, 0);
  EXPECT_EQ(test.session.recorder.Recording_Active, 0);
  EXPECT_EQ(test.Captures(), 1);
  EXPECT_EQ(test.events.Depth(), 0);
  EXPECT_TRUE(test.session.trace.failures.empty());
}

TEST(LiveSession, Setting_and_reading_inside_every_event_disturbs_nothing) {
  LiveRun test;
  test.host_program.At_Event = [&](const ControlEvent&) {
    Let_Text(*test.control, "Noise_Word_No_CutOff", "4");
    Let_Text(*test.control, "Send_of_no", "1");
    Get_Text(*test.control, "Platinum_Words");
    Get_Text(*test.control, "Operation_Status");
    Start_Real_Action(*test.control);
  };
  test.Listen();
  EXPECT_EQ(test.host_program.events, (Lines{"StartRecognitionActivity", "SpokenWordDetected 0",
                                             "SpokenWordConvertedToText hello"}));
}

// The sample on its way out arms a capture that the stop then forbids, until the next start.
TEST(LiveSession, A_stop_during_the_analysis_or_its_echo_gives_no_result_and_no_capture) {
  for (const char* echo : {"NO", "YES"}) {
    LiveRun test;
    test.session.settings.Speech_echo_feature = echo;
    bool stopped = false;
    test.events.At_Yield = [&] {
      const bool echoes = test.Times("wave_out_write") > 0;
      if (stopped || test.session.flags.Analysis_Running != 1) return;
      if (echo == std::string("YES") && !echoes) return;
      stopped = true;
      Stop_Real_Action(*test.control);
    };
    test.Listen();
    SCOPED_TRACE(echo);
    EXPECT_TRUE(stopped);
    EXPECT_EQ(test.host_program.events, (Lines{"StartRecognitionActivity", "SpokenWordDetected 0",
                                               "StopRecognitionActivity"}));
    EXPECT_EQ(test.Captures(), 1);
    EXPECT_EQ(test.Timers_On(), "5");
    EXPECT_EQ(test.session.flags.Operation_Status, "Finish");
    EXPECT_EQ(test.session.recorder.Recording_Active, 0);
    EXPECT_EQ(test.session.recorder.Wave_Out_Handle != 0, echo == std::string("YES"));
    test.events.At_Yield = nullptr;
    test.session.settings.Speech_echo_feature = "NO";
    test.Say_At(5s);
    Start_Real_Action(*test.control);
    test.events.Run_For(5s);
    EXPECT_EQ(test.host_program.Times("SpokenWordConvertedToText hello"), 1);
  }
}

TEST(LiveSession, A_termination_inside_a_yield_of_the_recording_is_the_end) {
  LiveRun test;
  int at_the_end = 0;
  test.events.At(500ms, [&] {
    test.control->UserControl_Terminate();
    at_the_end = test.host_program.status_events;
  });
  test.Listen();
  EXPECT_EQ(test.host_program.status_events, at_the_end);
  EXPECT_EQ(test.host_program.events, Lines{"StartRecognitionActivity"});
  EXPECT_EQ(test.session.recorder.Recording_Active, 0);
  EXPECT_EQ(test.session.settings.Stop_everything_now, "YES");
  EXPECT_EQ(test.events.Depth(), 0);
}

TEST(LiveSession, A_termination_inside_a_yield_of_the_analysis_drops_the_word) {
  LiveRun test;
  bool ended = false;
  test.events.At_Yield = [&] {
    if (ended || test.session.flags.Analysis_Running != 1) return;
    ended = true;
    test.control->UserControl_Terminate();
  };
  test.Listen();
  EXPECT_TRUE(ended);
  EXPECT_EQ(test.host_program.events, (Lines{"StartRecognitionActivity", "SpokenWordDetected 0"}));
  EXPECT_EQ(test.session.results.Platinum_Words_Available, 0);
  EXPECT_EQ(test.session.recorder.Recording_Active, 0);
  EXPECT_TRUE(test.session.trace.failures.empty());
}

TEST(LiveSession, A_control_that_is_let_go_in_its_event_leaves_the_session_to_the_next) {
  LiveRun test;
  test.host_program.At_First(EventId::SpokenWordDetected, [&] {
    test.control->UserControl_Terminate();
    test.control.reset();
  });
  test.Listen();
  test.control = Control::Make(test.session, test.host_program);
  test.host_program.events.clear();
  test.Say_At(6s);
  Start_Real_Action(*test.control);
  test.events.Run_For(6s);
  EXPECT_EQ(test.host_program.events, (Lines{"StartRecognitionActivity", "SpokenWordDetected 0",
                                             "SpokenWordConvertedToText hello"}));
}

TEST(LiveSession, Two_controls_whose_pumps_run_hear_the_same_word) {
  LiveRun test;
  NotingContainer other_program;
  const auto other = Control::Make(test.session, other_program);
  test.events.At(500ms, [&] { other->Command1_Click(); });
  test.Listen();
  EXPECT_EQ(other_program.events,
            (Lines{"SpokenWordDetected 0", "SpokenWordConvertedToText hello"}));
  EXPECT_EQ(test.host_program.Times("SpokenWordConvertedToText hello"), 1);
}

TEST(LiveSession, A_file_is_shut_out_and_the_session_goes_on) {
  LiveRun test;
  test.riff_files.files["word.wav"] = Wave().Data(Words({1000}, Bytes(2000)));
  test.session.settings.Open_this_Wave_File = "word.wav";
  test.events.At(500ms, [&] { Open_Specified_Wave_File_And_Process(test.session); });
  test.Listen(500ms);
  EXPECT_EQ(test.session.settings.Stop_everything_now, "NO");
  EXPECT_EQ(test.session.flags.File_Run_Active, 0);
  EXPECT_TRUE(test.boxes.shown.empty());
  EXPECT_EQ(test.session.flags.Session_Started, 1);
}

}  // namespace
}  // namespace quillspeech
