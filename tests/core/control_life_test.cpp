// The life of a control in its container, and two controls on one session.
#include "core/control.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/failures.hpp"
#include "tests/support/member_texts.hpp"
#include "tests/support/test_control.hpp"

namespace quillspeech {
namespace {

using namespace tests;
using namespace std::chrono_literals;

using Lines = std::vector<std::string>;

struct ControlLife : ::testing::Test, ControlTest {};

TEST_F(ControlLife, A_new_control_loads_the_built_in_engine_and_closes_the_session) {
  session.filter.Engine_Table[0] = "other";
  session.flags.Session_Started = 1;
  NotingContainer other;
  const auto second = Control::Make(session, other);
  EXPECT_EQ(session.filter.Engine_Table[0], "_");
  EXPECT_EQ(session.flags.Session_Started, 0);
  EXPECT_FALSE(second->Text_Event_Raised);
  EXPECT_FALSE(second->Detected_Event_Raised);
  EXPECT_FALSE(second->Pattern_Event_Raised);
  EXPECT_FALSE(second->Timer1().Is_Enabled());
}

TEST_F(ControlLife, A_second_control_leaves_the_session_alive) {
  Start_Real_Action(*control);
  NotingContainer other;
  const auto second = Control::Make(session, other);
  EXPECT_EQ(session.flags.Session_Alive, True);
  EXPECT_EQ(session.flags.Session_Started, 0);
}

TEST_F(ControlLife, After_the_end_nothing_reaches_the_container) {
  control->UserControl_Terminate();
  control->UserControl_Show();
  control->UserControl_Paint();
  control->Frame1_Click();
  control->Command1_Click();
  Let_Text(*control, "Enabled", "False");
  control->Refresh();
  Let_Text(*control, "Noise_Sensitivity", "5");
  control->Timer1_Timer();
  Pass_Time(99ms);
  EXPECT_TRUE(host_program.events.empty());
  EXPECT_EQ(host_program.status_events, 0);
  EXPECT_TRUE(host_program.faces.empty());
  EXPECT_TRUE(host_program.changed.empty());
  EXPECT_TRUE(host_program.enabled);
  EXPECT_EQ(host_program.repaints, 0);
  EXPECT_EQ(control->hWnd(), 0);
  EXPECT_FALSE(Pump_Is_On());
}

TEST_F(ControlLife, It_ends_once) {
  control->UserControl_Terminate();
  calls.clear();
  control->UserControl_Terminate();
  EXPECT_TRUE(calls.empty());
  EXPECT_TRUE(control->Is_Terminated());
}

TEST_F(ControlLife, An_end_that_fails_is_an_end) {
  session.operations.Stop_Recording = [](Session&) { Fail(Failure::Overflow); };
  control->UserControl_Terminate();
  control->Frame1_Click();
  EXPECT_EQ(boxes.shown.size(), 1U);
  EXPECT_TRUE(host_program.events.empty());
}

TEST_F(ControlLife, A_handler_may_end_the_control_and_let_go_of_it) {
  for (const EventId id :
       {EventId::Click, EventId::StartRecognitionActivity, EventId::RestartRecognitionActivity,
        EventId::SpokenWordDetected, EventId::PropertyStatusBetweenDetectionToCoversion,
        EventId::StopRecognitionActivity}) {
    ControlTest test;
    const std::weak_ptr<Control> watched = test.control;
    test.host_program.At_First(id, [&] {
      test.control->UserControl_Terminate();
      test.control.reset();
      EXPECT_FALSE(watched.expired()) << static_cast<int>(id);
    });
    Control& control_used = *test.control;
    const auto Use = [&](auto action) {
      if (!watched.expired()) action();
    };
    Use([&] { control_used.Label1_Click(); });
    Use([&] { control_used.Command1_Click(); });
    test.session.flags.Operation_Status = "Speechdetected";
    Use([&] { control_used.Timer1_Timer(); });
    Use([&] { control_used.Command3_Click(); });
    Use([&] { control_used.Command4_Click(); });
    EXPECT_TRUE(watched.expired()) << static_cast<int>(id);
    test.events.Enable(FormTimer::Timer5, false);
    test.events.Run_For(1s);
  }
}

TEST_F(ControlLife, A_container_may_end_the_control_and_let_go_of_it_in_any_of_its_calls) {
  const std::vector<std::pair<std::string, std::function<void(Control&)>>> Cases = {
      {"User_Mode", [](Control& used) { Let_Text(used, "Noise_Sensitivity", "5"); }},
      {"User_Mode", [](Control& used) { used.UserControl_Show(); }},
      {"User_Mode", [](Control& used) { used.UserControl_Paint(); }},
      {"User_Mode", [](Control& used) { used.Command1_Click(); }},
      {"User_Mode", [](Control& used) { used.Command2_Click(); }},
      {"User_Mode", [](Control& used) { used.Command3_Click(); }},
      {"User_Mode", [](Control& used) { used.Command4_Click(); }},
      {"Property_Changed", [](Control& used) { Let_Text(used, "Noise_Sensitivity", "5"); }},
      {"Property_Changed", [](Control& used) { Get_Text(used, "Voice_Word"); }},
      {"Property_Changed", [](Control& used) { Let_Text(used, "Enabled", "False"); }},
      {"Property_Changed", [](Control& used) { Get_Text(used, "Platinum_Words"); }},
      {"Property_Changed", [](Control& used) { Let_Text(used, "Memory_Clean", "YES"); }},
      {"Enabled_Changed", [](Control& used) { Let_Text(used, "Enabled", "False"); }},
      {"Enabled_Changed", [](Control& used) { used.Set_Enabled(false); }},
      {"Face_Changed", [](Control& used) { used.UserControl_Show(); }},
      {"Face_Changed", [](Control& used) { used.Set_Label1("Alert"); }}};
  for (std::size_t i = 0; i < Cases.size(); ++i) {
    ControlTest test;
    const std::weak_ptr<Control> watched = test.control;
    bool stayed = false;
    test.host_program.At_Call = [&](std::string_view call) {
      if (call != Cases[i].first || !test.control) return;
      test.control->UserControl_Terminate();
      test.control.reset();
      stayed = !watched.expired();
    };
    Cases[i].second(*test.control);
    EXPECT_TRUE(stayed) << i;
    EXPECT_TRUE(watched.expired()) << i;
  }
}

TEST_F(ControlLife, A_control_let_go_inside_its_timers_tick_is_gone_after_it) {
  const std::weak_ptr<Control> watched = control;
  control->Enable_Timer1(true);
  host_program.At_First(EventId::PropertyStatusBetweenDetectionToCoversion, [&] {
    control->UserControl_Terminate();
    control.reset();
    EXPECT_FALSE(watched.expired());
  });
  Pass_Time(1s);
  EXPECT_TRUE(watched.expired());
  EXPECT_EQ(host_program.status_events, 1);
}

// The call as a host makes it, which keeps no pointer of its own.
TEST_F(ControlLife, A_control_that_a_call_ends_and_lets_go_of_stays_until_the_call_is_over) {
  for (const std::string_view name : {"Stop_Real_Action", "Start_Real_Action", "Restart",
                                      "AboutBox", "SHOW_LANGUAGE_EDITOR", "SHOW_ENGINE_EDITOR"}) {
    ControlTest test;
    if (name != "Start_Real_Action") Start_Real_Action(*test.control);
    const std::weak_ptr<Control> watched = test.control;
    bool stayed = false;
    const auto let_go = [&] {
      if (!test.control) return;
      test.control->UserControl_Terminate();
      test.control.reset();
      stayed = !watched.expired();
    };
    test.host_program.At_Event = [&](const ControlEvent&) { let_go(); };
    test.session.operations.Show_Help = [&](Session&) { let_go(); };
    test.session.operations.Show_Splash = [&](Session&) { let_go(); };
    Call_Member(*Find_Member(name, Access::Call), *test.control);
    EXPECT_TRUE(stayed) << name;
    EXPECT_TRUE(watched.expired()) << name;
  }
}

TEST_F(ControlLife, A_let_stores_and_answers_although_the_box_it_shows_ends_the_control) {
  struct EndingBoxes final : MessageBoxes {
    BoxAnswer Show(const MessageBox&) override {
      control->UserControl_Terminate();
      control.reset();
      return BoxAnswer::OK;
    }
    std::shared_ptr<Control> control;
  } ending;
  TestSession ground;
  Session shared{Ports{ground.events, ending, ground.host, ground.cues, ground.shell,
                       ground.riff_files, ground.wave_input, ground.wave_output, ground.data_files,
                       ground.dialogs, ground.views}};
  NotingContainer container;
  ending.control = Control::Make(shared, container);
  const std::weak_ptr<Control> watched = ending.control;
  EXPECT_EQ(Let_Text(*ending.control, "Speech_sampling_time_in_ms", "3999"), SetResult::Replaced);
  EXPECT_TRUE(watched.expired());
  EXPECT_EQ(shared.settings.Speech_sampling_time_in_ms, 4000);
  EXPECT_TRUE(container.changed.empty());
}

TEST_F(ControlLife, A_get_does_not_ask_for_the_mode_and_a_let_does) {
  Lines told;
  host_program.At_Call = [&](std::string_view call) { told.emplace_back(call); };
  Get_Text(*control, "Noise_Sensitivity");
  EXPECT_EQ(told, Lines());
  Let_Text(*control, "Filter_Pass_Value", "5");
  EXPECT_EQ(told, Lines{"User_Mode"});
}

// Two on one session.

struct TwoControls : ControlLife {
  NotingContainer other_program;
  std::shared_ptr<Control> other = Control::Make(session, other_program);
};

TEST_F(TwoControls, Only_the_starter_is_told_of_the_start_and_pumps) {
  Start_Real_Action(*control);
  Start_Real_Action(*other);
  EXPECT_EQ(host_program.events, Lines{"StartRecognitionActivity"});
  EXPECT_TRUE(other_program.events.empty());
  EXPECT_FALSE(other->Timer1().Is_Enabled());
}

TEST_F(TwoControls, One_stops_what_the_other_started_and_the_others_pump_goes_on) {
  Start_Real_Action(*control);
  Stop_Real_Action(*other);
  EXPECT_EQ(other_program.events, Lines{"StopRecognitionActivity"});
  EXPECT_EQ(session.flags.Session_Started, 0);
  Pass_Time(100ms);
  EXPECT_EQ(host_program.status_events, 2);
  EXPECT_EQ(host_program.events, Lines{"StartRecognitionActivity"});
}

TEST_F(TwoControls, Each_has_latches_of_its_own_but_a_missing_match_is_told_to_one) {
  control->Enable_Timer1(true);
  other->Enable_Timer1(true);
  session.flags.Operation_Status = "Speechdetected";
  session.results.No_Language_Match = True;
  Pass_Time(100ms);
  EXPECT_EQ(host_program.events, (Lines{"SpokenWordDetected 0", "NoMatchFoundinFile"}));
  EXPECT_EQ(other_program.events, Lines{"SpokenWordDetected 0"});
}

TEST_F(TwoControls, The_end_of_one_closes_the_session_of_both_and_leaves_the_other_its_pump) {
  Start_Real_Action(*other);
  control->UserControl_Terminate();
  EXPECT_EQ(session.flags.Session_Started, 0);
  EXPECT_FALSE(Is_On(FormTimer::Timer5));
  Pass_Time(50ms);
  EXPECT_EQ(other_program.status_events, 1);
}

}  // namespace
}  // namespace quillspeech
