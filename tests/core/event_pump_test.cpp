// What the control's Timer1 makes of the shared state, 20 times a second.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/core/event_pump_fixture.hpp"

namespace quillspeech {
namespace {

using namespace tests;
using namespace std::chrono_literals;

TEST_F(EventPump, Before_a_start_there_is_no_event_at_all) {
  Status("Speechdetected");
  session.results.No_Language_Match = True;
  Pass_Time(10s);
  EXPECT_TRUE(host_program.events.empty());
  EXPECT_EQ(host_program.status_events, 0);
}

TEST_F(EventPump, The_status_event_comes_every_50_ms_also_when_nothing_changes) {
  control->Enable_Timer1(true);
  Pass_Time(49ms);
  EXPECT_EQ(host_program.status_events, 0);
  Pass_Time(1ms);
  EXPECT_EQ(host_program.status_events, 1);
  Pass_Time(950ms);
  EXPECT_EQ(host_program.status_events, 20);
  EXPECT_TRUE(host_program.events.empty());
}

TEST_F(EventPump, The_label_shows_the_status_without_its_blanks) {
  Status("  Processing ... ");
  Tick();
  EXPECT_EQ(control->face.Label1, "Processing ...");
  Status("");
  Tick();
  EXPECT_EQ(control->face.Label1, "");
}

TEST_F(EventPump, The_face_is_told_only_when_it_changes) {
  Status("Alert");
  Tick();
  Tick();
  EXPECT_EQ(host_program.faces.size(), 1U);
}

TEST_F(EventPump, A_finish_with_words_gives_the_best_word_trimmed) {
  Status(" Finish ");
  Best(" hello ");
  EXPECT_EQ(Tick(), Events{"SpokenWordConvertedToText hello"});
  EXPECT_TRUE(control->Text_Event_Raised);
  EXPECT_FALSE(control->Pattern_Event_Raised);
}

TEST_F(EventPump, A_finish_without_words_gives_the_pattern_trimmed) {
  Status("Finish");
  Pattern(" fths ");
  EXPECT_EQ(Tick(), Events{"SpokenWordConvertedToPatternOnly fths"});
  EXPECT_TRUE(control->Pattern_Event_Raised);
  EXPECT_FALSE(control->Text_Event_Raised);
}

TEST_F(EventPump, The_count_of_words_chooses_between_text_and_pattern) {
  const std::vector<std::pair<int, Events>> Expected = {
      {-1, {}},
      {0, {"SpokenWordConvertedToPatternOnly fths"}},
      {1, {"SpokenWordConvertedToText hello"}},
      {1000, {"SpokenWordConvertedToText hello"}}};
  for (const auto& [available, heard] : Expected) {
    ControlTest test;
    test.session.flags.Operation_Status = "Finish";
    test.session.results.Platinum_Best_Table[1] = "hello";
    test.session.results.Platinum_Words_Available = available;
    test.session.filter.Voice_Word_Table[1] = "fths";
    EXPECT_EQ(test.Tick(), heard) << available;
  }
}

TEST_F(EventPump, Results_come_in_no_other_status_than_the_exact_finish) {
  for (const char* status : {"", "Alert", "finish", "FINISH", "IntelligentFinish", "Finish."}) {
    Status(status);
    Best("hello");
    EXPECT_TRUE(Tick().empty()) << status;
    Best("", 0);
    Pattern("fths");
    EXPECT_TRUE(Tick().empty()) << status;
  }
}

TEST_F(EventPump, A_blank_pattern_is_no_result) {
  Status("Finish");
  Pattern("   ");
  EXPECT_TRUE(Tick().empty());
  EXPECT_FALSE(control->Pattern_Event_Raised);
}

TEST_F(EventPump, An_empty_best_word_waits_until_it_is_filled_in) {
  Status("Finish");
  Best("");
  EXPECT_TRUE(Tick().empty());
  EXPECT_FALSE(control->Text_Event_Raised);
  Best("late");
  EXPECT_EQ(Tick(), Events{"SpokenWordConvertedToText late"});
}

TEST_F(EventPump, A_second_finish_without_a_detection_stays_silent) {
  Status("Finish");
  Best("hello");
  Tick();
  Status("Alert");
  Tick();
  Status("Finish");
  Best("world");
  EXPECT_EQ(Tick(), Events{"SpokenWordConvertedToText hello"});
}

TEST_F(EventPump, One_finish_may_give_a_text_and_later_a_pattern) {
  Status("Finish");
  Best("hello");
  Pattern("fths");
  Tick();
  session.results.Platinum_Words_Available = 0;
  EXPECT_EQ(Tick(),
            (Events{"SpokenWordConvertedToText hello", "SpokenWordConvertedToPatternOnly fths"}));
}

TEST_F(EventPump, A_detection_is_told_once_until_a_result_came) {
  Status(" Speechdetected ");
  Tick();
  Tick();
  Status("Alert");
  Tick();
  Status("Speechdetected");
  EXPECT_EQ(Tick(), Events{"SpokenWordDetected 0"});
  Status("Finish");
  Best("hello");
  Tick();
  EXPECT_FALSE(control->Detected_Event_Raised);
  Status("Speechdetected");
  EXPECT_EQ(Tick(), (Events{"SpokenWordDetected 0", "SpokenWordConvertedToText hello",
                            "SpokenWordDetected 0"}));
}

TEST_F(EventPump, A_pattern_result_lets_the_next_detection_through_too) {
  Status("Speechdetected");
  Tick();
  Status("Finish");
  Pattern("fths");
  Tick();
  Status("Speechdetected");
  Tick();
  EXPECT_EQ(host_program.Times("SpokenWordDetected 0"), 2);
}

TEST_F(EventPump, A_detection_lets_both_results_through_again) {
  control->Text_Event_Raised = true;
  control->Pattern_Event_Raised = true;
  Status("Speechdetected");
  Tick();
  EXPECT_TRUE(control->Detected_Event_Raised);
  EXPECT_FALSE(control->Text_Event_Raised);
  EXPECT_FALSE(control->Pattern_Event_Raised);
}

TEST_F(EventPump, The_detected_number_is_that_of_the_word_under_way_and_not_the_count_of_words) {
  Status("Speechdetected");
  session.words.Current_Word_no_Processed = 3;
  session.words.Probable_no_of_words_recognized = 7;
  EXPECT_EQ(Tick(), Events{"SpokenWordDetected 3"});
}

TEST_F(EventPump, The_boxes_show_pattern_and_word_in_every_status) {
  for (const char* status : {"", "Sleeping", "Alert", "Speechdetected", "Starting Processing",
                             "Processing ...", "Processing...", "IntelligentFinish", "Finish"}) {
    ControlTest test;
    test.session.flags.Operation_Status = status;
    test.session.results.Platinum_Best_Table[1] = " hello ";
    test.session.filter.Voice_Word_Table[1] = " fths ";
    test.Tick();
    EXPECT_EQ(test.control->face.Label1, status);
    EXPECT_EQ(test.control->face.Text1, "hello") << status;
    EXPECT_EQ(test.control->face.Text2, "fths") << status;
  }
}

TEST_F(EventPump, The_boxes_keep_their_last_text) {
  Tick();
  EXPECT_EQ(control->face.Text1, "Spoken Word :");
  EXPECT_EQ(control->face.Text2, "Pattern :");
  Best("hello");
  Pattern("fths");
  Tick();
  Best(" ");
  Pattern("");
  Tick();
  EXPECT_EQ(control->face.Text1, "hello");
  EXPECT_EQ(control->face.Text2, "fths");
}

TEST_F(EventPump, A_missing_match_is_told_once_whatever_the_status_and_the_latches) {
  control->Text_Event_Raised = true;
  control->Pattern_Event_Raised = true;
  control->Detected_Event_Raised = true;
  session.results.No_Language_Match = True;
  EXPECT_EQ(Tick(), Events{"NoMatchFoundinFile"});
  EXPECT_EQ(session.results.No_Language_Match, False);
  EXPECT_EQ(Tick(), Events{"NoMatchFoundinFile"});
}

TEST_F(EventPump, The_missing_match_comes_last_in_the_tick_of_its_pattern) {
  Status("Speechdetected");
  Tick();
  Status("Finish");
  Pattern("fths");
  session.results.No_Language_Match = True;
  EXPECT_EQ(Tick(), (Events{"SpokenWordDetected 0", "SpokenWordConvertedToPatternOnly fths",
                            "NoMatchFoundinFile"}));
}

}  // namespace
}  // namespace quillspeech
