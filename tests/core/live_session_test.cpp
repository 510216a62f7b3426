// A whole session: a control that listens to a simulated sound card on a virtual clock.
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "tests/core/live_session_fixture.hpp"
#include "tests/support/member_texts.hpp"

namespace quillspeech {
namespace {

using namespace tests;
using namespace std::chrono_literals;

TEST(LiveSession, A_spoken_word_is_detected_and_then_converted_with_status_events_all_along) {
  LiveRun test;
  std::vector<std::pair<EventId, int>> order;  // with the status events before each
  test.host_program.At_Event = [&](const ControlEvent& event) {
    if (event.id != EventId::PropertyStatusBetweenDetectionToCoversion) {
      order.emplace_back(event.id, test.host_program.status_events);
    }
  };
  test.Listen();
  EXPECT_EQ(test.host_program.events, (Lines{"StartRecognitionActivity", "SpokenWordDetected 0",
                                             "SpokenWordConvertedToText hello"}));
  ASSERT_EQ(order.size(), 3U);
  EXPECT_EQ(order[0].second, 0);
  EXPECT_EQ(order[1].second, 21);  // a second of silence, and the tick that sees it
  EXPECT_EQ(order[2].second, 24);  // the 150 ms of Voice_Processing_Delay later
  EXPECT_EQ(test.control->face.Text1, "hello");
  EXPECT_TRUE(test.boxes.shown.empty());
  EXPECT_TRUE(test.session.trace.failures.empty());
}

TEST(LiveSession, The_status_event_comes_20_times_a_second_throughout) {
  LiveRun test;
  test.Listen();
  EXPECT_EQ(test.host_program.status_events, test.events.Now() / 50ms);
}

TEST(LiveSession, A_word_that_fits_nothing_gives_its_pattern_and_the_missing_match_in_one_tick) {
  LiveRun test;
  test.Know(Record().Word("hello").Pattern("never"));
  int at_pattern = 0;
  int at_no_match = 0;
  std::string pattern;
  test.host_program.At_Event = [&](const ControlEvent& event) {
    const int now = test.host_program.status_events;
    if (event.id == EventId::NoMatchFoundinFile) at_no_match = now;
    if (event.id != EventId::SpokenWordConvertedToPatternOnly) return;
    at_pattern = now;
    pattern = Get_Text(*test.control, "Voice_Word");
  };
  test.Listen();
  EXPECT_FALSE(pattern.empty());
  EXPECT_EQ(test.host_program.events,
            (Lines{"StartRecognitionActivity", "SpokenWordDetected 0",
                   "SpokenWordConvertedToPatternOnly " + pattern, "NoMatchFoundinFile"}));
  EXPECT_EQ(at_pattern, at_no_match);
  EXPECT_EQ(test.control->face.Text2, pattern);
}

TEST(LiveSession, Two_words_with_a_pause_give_two_results_always_the_same) {
  const auto Hear = [] {
    LiveRun test;
    test.Say_At(4s);
    test.Listen(8s);
    return test.host_program.events;
  };
  EXPECT_EQ(Hear(), (Lines{"StartRecognitionActivity", "SpokenWordDetected 0",
                           "SpokenWordConvertedToText hello", "SpokenWordDetected 0",
                           "SpokenWordConvertedToText hello"}));
  EXPECT_EQ(Hear(), Hear());
}

TEST(LiveSession, Silence_gives_no_event_and_one_capture_after_another) {
  LiveRun test;
  Start_Real_Action(*test.control);
  test.events.Run_For(60s);
  EXPECT_EQ(test.host_program.events, Lines{"StartRecognitionActivity"});
  EXPECT_EQ(test.session.flags.Operation_Status, "Alert");
  EXPECT_GE(test.Captures(), 8);
  EXPECT_EQ(test.session.flags.Settings_Ready_Count, 2 + test.Captures());
}

TEST(LiveSession, Captures_that_end_by_the_clock_for_ten_minutes_keep_the_stack_flat) {
  LiveRun test;
  test.session.settings.Speech_sampling_time_in_ms = 1000;  // the clock is faster than the buffer
  int deepest = 0;
  test.host_program.At_Event = [&](const ControlEvent&) {
    deepest = std::max(deepest, test.events.Depth());
  };
  Start_Real_Action(*test.control);
  test.events.At(600s, [&] { Stop_Real_Action(*test.control); });
  test.events.Run_For(601s);
  EXPECT_GE(test.Captures(), 500);
  EXPECT_LE(deepest, 3);
  test.Expect_Rest();
}

TEST(LiveSession, The_start_cue_plays_with_the_first_recording_after_the_loop_ended) {
  LiveRun test;
  InitializeSound(test.session);
  Start_Real_Action(*test.control);
  EXPECT_EQ(test.cues.calls, (Lines{"loop backon.wav", "purge"}));
  test.events.At(150ms, [&] {
    EXPECT_EQ(test.cues.calls, (Lines{"loop backon.wav", "purge", "play start.wav"}));
    Stop_Real_Action(*test.control);
  });
  test.events.Run_For(1s);
  EXPECT_EQ(test.cues.calls,
            (Lines{"loop backon.wav", "purge", "play start.wav", "purge", "play stop.wav"}));
}

TEST(LiveSession, The_timers_follow_its_states) {
  LiveRun test;
  EXPECT_EQ(test.Timers_On(), "");  // closed
  std::string processing;
  test.events.At_Yield = [&] {
    if (test.session.flags.Analysis_Running == 1) processing = test.Timers_On();
  };
  test.events.At(99ms, [&] { EXPECT_EQ(test.Timers_On(), "5p"); });    // waiting
  test.events.At(500ms, [&] { EXPECT_EQ(test.Timers_On(), "13p"); });  // recording
  test.Listen();
  EXPECT_EQ(processing, "p");
  Stop_Real_Action(*test.control);
  EXPECT_EQ(test.Timers_On(), "");
}

TEST(LiveSession, The_result_tables_can_be_read_in_the_event) {
  LiveRun test;
  std::string best;
  std::string available;
  test.host_program.At_First(EventId::SpokenWordConvertedToText, [&] {
    best = Get_Text(*test.control, "Platinum_Word_Best");
    available = Get_Text(*test.control, "Platinum_Words_Available");
  });
  test.Listen();
  EXPECT_EQ(best, "hello");
  EXPECT_EQ(available, "1");
}

TEST(LiveSession, The_second_start_is_nothing_to_a_running_session) {
  LiveRun test;
  test.events.At(1300ms, [&] { Start_Real_Action(*test.control); });
  test.Listen();
  EXPECT_EQ(test.host_program.events, (Lines{"StartRecognitionActivity", "SpokenWordDetected 0",
                                             "SpokenWordConvertedToText hello"}));
}

// Failures.

TEST(LiveSession, The_recording_that_overflows_the_start_gate_fails_into_the_recovery) {
  LiveRun test;
  test.session.flags.Settings_Ready_Count = 32766;
  Start_Real_Action(*test.control);
  test.events.Run_For(2s);
  EXPECT_EQ(test.session.flags.Settings_Ready_Count, 32767);
  EXPECT_TRUE(test.boxes.shown.empty());
  test.events.Run_For(10s);
  ASSERT_EQ(test.boxes.shown.size(), 1U);
  EXPECT_EQ(test.boxes.shown[0].box.title, "Quillspeech RECORDING ERROR(Rare)");
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{6});
  EXPECT_EQ(test.session.settings.Stop_everything_now, "YES");
  EXPECT_FALSE(test.events.Is_Enabled(FormTimer::Timer5));
}

TEST(LiveSession, A_handler_that_fails_in_the_detection_costs_its_tick_and_not_the_word) {
  LiveRun test;
  test.host_program.At_First(EventId::SpokenWordDetected, [] { Fail(Failure::Invalid_Call); });
  test.Listen();
  EXPECT_EQ(test.host_program.events,
            (Lines{"StartRecognitionActivity", "SpokenWordDetected 0", "SpokenWordDetected 0",
                   "SpokenWordConvertedToText hello"}));
  EXPECT_EQ(test.host_program.pump_failures, std::vector<int>{5});
  EXPECT_TRUE(test.session.trace.failures.empty());
  EXPECT_TRUE(test.boxes.shown.empty());
}

TEST(LiveSession, A_handler_that_always_fails_leaves_the_analysis_and_its_results_alone) {
  LiveRun test;
  test.host_program.At_Event = [](const ControlEvent& event) {
    if (event.id == EventId::PropertyStatusBetweenDetectionToCoversion) {
      Fail(Failure::Out_Of_Memory);
    }
  };
  test.Listen();
  EXPECT_EQ(test.host_program.events, Lines{"StartRecognitionActivity"});
  EXPECT_EQ(test.session.results.Platinum_Best_Table[1], "hello");
  EXPECT_EQ(test.host_program.pump_failures,
            std::vector<int>(static_cast<std::size_t>(test.host_program.status_events), 7));
  EXPECT_TRUE(test.session.trace.failures.empty());
  EXPECT_TRUE(test.boxes.shown.empty());
}

TEST(LiveSession, Without_a_microphone_a_box_tells_so) {
  LiveRun test;
  test.card.present = false;
  test.Listen(500ms);
  ASSERT_EQ(test.boxes.shown.size(), 1U);
  EXPECT_EQ(test.boxes.shown[0].box.text, "ACCESS DENIED.Please install your Sound Card properly");
}

}  // namespace
}  // namespace quillspeech
