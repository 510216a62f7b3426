// In which order a tick of the pump takes its steps, and what a handler finds and leaves.
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/core/event_pump_fixture.hpp"

namespace quillspeech {
namespace {

using namespace tests;
using namespace std::chrono_literals;

TEST_F(EventPump, A_handler_that_changes_the_status_is_seen_by_the_steps_behind_it) {
  Status("Finish");
  Best("hello");
  host_program.At_First(EventId::PropertyStatusBetweenDetectionToCoversion,
                        [&] { Status("Speechdetected"); });
  EXPECT_EQ(Tick(), Events{"SpokenWordDetected 0"});
  EXPECT_EQ(control->face.Label1, "Speechdetected");
}

// Steps and their order.

TEST_F(EventPump, A_text_handler_that_sets_the_count_to_0_gets_the_pattern_in_the_same_tick) {
  Status("Finish");
  Best("hello");
  Pattern("fths");
  host_program.At_First(EventId::SpokenWordConvertedToText,
                        [&] { session.results.Platinum_Words_Available = 0; });
  EXPECT_EQ(Tick(),
            (Events{"SpokenWordConvertedToText hello", "SpokenWordConvertedToPatternOnly fths"}));
}

TEST_F(EventPump, A_pattern_handler_that_sets_the_count_to_1_gets_the_text_a_tick_later) {
  Status("Finish");
  Best("hello", 0);
  Pattern("fths");
  host_program.At_First(EventId::SpokenWordConvertedToPatternOnly,
                        [&] { session.results.Platinum_Words_Available = 1; });
  EXPECT_EQ(Tick(), Events{"SpokenWordConvertedToPatternOnly fths"});
  EXPECT_EQ(Tick(),
            (Events{"SpokenWordConvertedToPatternOnly fths", "SpokenWordConvertedToText hello"}));
}

TEST_F(EventPump, A_result_handler_that_sets_the_status_gets_the_detection_in_the_same_tick) {
  Status("Finish");
  Pattern("fths");
  host_program.At_First(EventId::SpokenWordConvertedToPatternOnly,
                        [&] { Status("Speechdetected"); });
  EXPECT_EQ(Tick(), (Events{"SpokenWordConvertedToPatternOnly fths", "SpokenWordDetected 0"}));
}

TEST_F(EventPump, The_label_changes_before_the_box_of_the_pattern_and_that_before_the_words) {
  Status("Alert");
  Best("hello");
  Pattern("fths");
  Tick();
  const std::vector<Face> Expected = {
      {"Alert"}, {"Alert", "Spoken Word :", "fths"}, {"Alert", "hello", "fths"}};
  EXPECT_EQ(host_program.faces, Expected);
}

// The face as the handler of each event finds it.
TEST_F(EventPump, The_events_stand_in_their_order_between_the_changes_of_the_face) {
  const Face Before;
  Face label = Before;
  label.Label1 = "Finish";
  Face all = label;
  all.Text1 = "hello";
  all.Text2 = "fths";
  const std::vector<std::pair<EventId, Face>> Expected = {
      {EventId::PropertyStatusBetweenDetectionToCoversion, Before},
      {EventId::SpokenWordConvertedToText, label},
      {EventId::SpokenWordConvertedToPatternOnly, label},
      {EventId::SpokenWordDetected, label},
      {EventId::NoMatchFoundinFile, all}};
  std::vector<std::pair<EventId, Face>> found;
  host_program.At_Event = [&](const ControlEvent& event) {
    found.emplace_back(event.id, control->face);
    session.results.Platinum_Words_Available = 0;
    if (found.size() == 1) session.results.Platinum_Words_Available = 1;
    if (found.size() == 3) Status("Speechdetected");
  };
  Status("Finish");
  Best("hello");
  Pattern("fths");
  session.results.No_Language_Match = True;
  Tick();
  EXPECT_EQ(found, Expected);
}

// Each event goes out before what it sets.

// Text_Event_Raised, Detected_Event_Raised, Pattern_Event_Raised and No_Language_Match.
using Marks = std::array<bool, 4>;

struct MarkedEvent {
  EventId id;
  const char* status;
  int available;
  Marks before;
  Marks after;
};

const std::vector<MarkedEvent> Marked_Events = {
    {EventId::SpokenWordConvertedToText, "Finish", 1, {false, true}, {true, false}},
    {EventId::SpokenWordConvertedToPatternOnly, "Finish", 0, {false, true}, {false, false, true}},
    {EventId::SpokenWordDetected, "Speechdetected", 0, {true, false, true}, {false, true, false}},
    {EventId::NoMatchFoundinFile, "Alert", 0, {true, true, true, true}, {true, true, true, false}}};

struct MarkTest : ControlTest {
  explicit MarkTest(const MarkedEvent& event) {
    session.flags.Operation_Status = event.status;
    session.results.Platinum_Words_Available = event.available;
    session.results.Platinum_Best_Table[1] = "hello";
    session.filter.Voice_Word_Table[1] = "fths";
    control->Text_Event_Raised = event.before[0];
    control->Detected_Event_Raised = event.before[1];
    control->Pattern_Event_Raised = event.before[2];
    session.results.No_Language_Match = event.before[3] ? True : False;
  }
  Marks Now() const {
    return {control->Text_Event_Raised, control->Detected_Event_Raised,
            control->Pattern_Event_Raised, session.results.No_Language_Match == True};
  }
};

TEST_F(EventPump, A_handler_reads_the_marks_as_they_were_before_its_event) {
  for (const MarkedEvent& event : Marked_Events) {
    MarkTest test(event);
    Marks read{};
    bool came = false;
    test.host_program.At_First(event.id, [&] {
      came = true;
      read = test.Now();
    });
    test.Tick();
    SCOPED_TRACE(Row_Of(event.id).name);
    EXPECT_TRUE(came);
    EXPECT_EQ(read, event.before);
    EXPECT_EQ(test.Now(), event.after);
  }
}

TEST_F(EventPump, An_event_whose_handler_fails_sets_nothing_and_comes_again) {
  for (const MarkedEvent& event : Marked_Events) {
    MarkTest test(event);
    test.host_program.At_First(event.id, [] { Fail(Failure::Invalid_Call); });
    SCOPED_TRACE(Row_Of(event.id).name);
    EXPECT_EQ(Failure_Of([&] { test.Tick(); }), 5);
    EXPECT_EQ(test.Now(), event.before);
    ASSERT_EQ(test.host_program.events.size(), 1U);
    const std::string told = test.host_program.events[0];
    EXPECT_EQ(test.Tick(), (Events{told, told}));
    EXPECT_EQ(test.Now(), event.after);
  }
}

// Failures.

TEST_F(EventPump, A_failing_handler_ends_the_tick_and_surfaces_in_the_timers_callback) {
  Status("Speechdetected");
  Pattern("fths");
  host_program.At_First(EventId::SpokenWordDetected, [] { Fail(Failure::Invalid_Call); });
  EXPECT_EQ(Failure_Of([&] { Tick(); }), 5);
  EXPECT_FALSE(control->Detected_Event_Raised);
  EXPECT_EQ(control->face.Text2, "Pattern :");
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_TRUE(session.trace.failures.empty());
  EXPECT_EQ(Tick(), (Events{"SpokenWordDetected 0", "SpokenWordDetected 0"}));
}

TEST_F(EventPump, A_tick_of_the_timer_keeps_the_failure_from_whoever_yields) {
  control->Enable_Timer1(true);
  Status("Speechdetected");
  host_program.At_First(EventId::SpokenWordDetected, [] { Fail(Failure::Invalid_Call); });
  EXPECT_EQ(Failure_Of([&] { Pass_Time(50ms); }), 0);
  EXPECT_EQ(host_program.pump_failures, std::vector<int>{5});
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_TRUE(session.trace.failures.empty());
  Pass_Time(50ms);
  EXPECT_EQ(host_program.events, (Events{"SpokenWordDetected 0", "SpokenWordDetected 0"}));
  EXPECT_EQ(host_program.pump_failures.size(), 1U);
}

TEST_F(EventPump, A_handler_that_ends_the_control_and_fails_tells_nobody) {
  control->Enable_Timer1(true);
  const std::weak_ptr<Control> watched = control;
  host_program.At_First(EventId::PropertyStatusBetweenDetectionToCoversion, [&] {
    control->UserControl_Terminate();
    control.reset();
    Fail(Failure::Invalid_Call);
  });
  EXPECT_EQ(Failure_Of([&] { Pass_Time(1s); }), 0);
  EXPECT_TRUE(host_program.pump_failures.empty());
  EXPECT_TRUE(watched.expired());
}

TEST_F(EventPump, Restarting_during_a_result_leaves_no_tick_for_it) {
  Start_Real_Action(*control);
  Status("Speechdetected");
  Pass_Time(50ms);
  Best("hello");
  session.operations.Stop_Recording = [&](Session&) {
    calls.push_back(session.flags.Operation_Status);
  };
  calls.clear();
  Restart(*control);
  EXPECT_EQ(calls, Events{"Finish"});
  Pass_Time(50ms);
  EXPECT_EQ(host_program.events, (Events{"StartRecognitionActivity", "SpokenWordDetected 0",
                                         "RestartRecognitionActivity"}));
}

TEST_F(EventPump, A_termination_inside_a_tick_ends_it) {
  Status("Speechdetected");
  Pattern("fths");
  session.results.No_Language_Match = True;
  host_program.At_First(EventId::SpokenWordDetected, [&] { control->UserControl_Terminate(); });
  Tick();
  EXPECT_EQ(host_program.events, Events{"SpokenWordDetected 0"});
  EXPECT_EQ(host_program.faces.size(), 1U);  // the status before it
  EXPECT_EQ(session.results.No_Language_Match, True);
}

}  // namespace
}  // namespace quillspeech
