// The control as its container and a person at it see it.
#include "core/control.hpp"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "tests/support/failures.hpp"
#include "tests/support/member_texts.hpp"
#include "tests/support/test_control.hpp"

namespace quillspeech {
namespace {

using namespace tests;
using namespace std::chrono_literals;

using Lines = std::vector<std::string>;

struct ControlFace : ::testing::Test, ControlTest {};

// The face.

TEST(ChildControls, Ten_stand_on_the_face_in_this_order) {
  using Child = std::tuple<std::string, ChildKind, std::string, std::string>;
  const std::vector<Child> Expected = {
      {"Frame1", ChildKind::Frame, "", ""},
      {"Text2", ChildKind::TextBox, "Pattern :", "Frame1"},
      {"Command4", ChildKind::Button, "Quillspeech Editor", ""},
      {"Text1", ChildKind::TextBox, "Spoken Word :", ""},
      {"Command3", ChildKind::Button, "Restart Recogniton Activity", ""},
      {"Command2", ChildKind::Button, "Stop Recognition Activity", ""},
      {"Command1", ChildKind::Button, "Start Recognition Activity", ""},
      {"Frame2", ChildKind::Frame, "", ""},
      {"Label1", ChildKind::Label, "Status Update", "Frame2"},
      {"Timer1", ChildKind::Timer, "", ""}};
  std::vector<Child> found;
  for (const ChildControl& child : Child_Controls()) {
    found.emplace_back(child.name, child.kind, child.text, child.parent);
  }
  EXPECT_EQ(found, Expected);
}

TEST(ChildControls, The_boxes_have_tips_and_texts_have_fonts) {
  for (const ChildControl& child : Child_Controls()) {
    const bool box = child.kind == ChildKind::TextBox;
    EXPECT_EQ(child.font, box ? "Arial" : child.name == "Label1" ? "Small Fonts" : "");
    EXPECT_EQ(child.tip, child.name == "Text2" ? "Displays the pattern produced"
                         : child.name == "Text1"
                             ? "Final Word as matched from your prepared SAY file"
                             : "");
  }
}

TEST_F(ControlFace, A_new_face_shows_the_texts_of_its_children) {
  const auto Text_Of = [](std::string_view name) {
    for (const ChildControl& child : Child_Controls()) {
      if (child.name == name) return std::string(child.text);
    }
    return std::string("no such child");
  };
  EXPECT_EQ(control->face.Label1, Text_Of("Label1"));
  EXPECT_EQ(control->face.Text1, Text_Of("Text1"));
  EXPECT_EQ(control->face.Text2, Text_Of("Text2"));
}

TEST(ControlSize, It_is_3336_by_1884_twips_whatever_the_container_asks) {
  for (const FaceSize asked :
       {FaceSize{0, 0}, FaceSize{-1, 5}, FaceSize{3336, 1884}, FaceSize{100'000, 1}}) {
    EXPECT_EQ(UserControl_Resize(asked), (FaceSize{3336, 1884}));
  }
}

TEST_F(ControlFace, The_label_sleeps_at_run_time_and_waits_in_design_mode) {
  control->UserControl_Show();
  EXPECT_EQ(control->face.Label1, "Sleeping");
  host_program.user_mode = false;
  control->UserControl_Show();
  EXPECT_EQ(control->face.Label1, "Status Update");
}

TEST_F(ControlFace, Each_paint_colours_the_boxes_by_the_mode) {
  control->UserControl_Paint();
  EXPECT_EQ(control->face.Text_Colour, 0x0000FF00U);  // green alone
  host_program.user_mode = false;
  control->UserControl_Paint();
  EXPECT_EQ(control->face.Text_Colour, 0x00C0C0C0U);
  EXPECT_EQ(host_program.faces.size(), 2U);
}

TEST_F(ControlFace, Only_frames_and_label_click) {
  for (const char* child : {"Frame1", "Frame2", "Label1"}) {
    host_program.events.clear();
    EXPECT_TRUE(control->Click_On(child));
    EXPECT_EQ(host_program.events, Lines{"Click"}) << child;
  }
}

TEST_F(ControlFace, Boxes_and_buttons_raise_no_click) {
  for (const char* child : {"Text1", "Text2", "Command1", "Command2", "Command3", "Command4"}) {
    EXPECT_TRUE(control->Click_On(child)) << child;
  }
  EXPECT_EQ(host_program.Times("Click"), 0);
  EXPECT_FALSE(control->Click_On("Command5"));
}

// The events.

TEST(ControlEvents, Nine_events_have_these_ids_names_and_arguments) {
  const std::vector<std::tuple<int, std::string, EventArgument, std::string>> Expected = {
      {1, "Click", EventArgument::None, ""},
      {2, "RestartRecognitionActivity", EventArgument::None, ""},
      {3, "StartRecognitionActivity", EventArgument::None, ""},
      {4, "StopRecognitionActivity", EventArgument::None, ""},
      {5, "SpokenWordConvertedToText", EventArgument::Text, "TheBestPercentageWord"},
      {6, "SpokenWordConvertedToPatternOnly", EventArgument::Text, "TheBasicPattern"},
      {7, "SpokenWordDetected", EventArgument::Number16, "NumberofWords"},
      {8, "PropertyStatusBetweenDetectionToCoversion", EventArgument::None, ""},
      {9, "NoMatchFoundinFile", EventArgument::None, ""}};
  std::vector<std::tuple<int, std::string, EventArgument, std::string>> found;
  for (const EventRow& row : Event_Rows()) {
    found.emplace_back(static_cast<int>(row.id), row.name, row.kind, row.argument);
    EXPECT_EQ(&Row_Of(row.id), &row);
    EXPECT_EQ(row.help,
              row.id == EventId::Click ? "Event for Clicking on Component User Interface" : "");
  }
  EXPECT_EQ(found, Expected);
}

// The buttons.

struct Buttons : ControlFace {};

TEST_F(Buttons, Start_switches_the_pump_on_and_starts) {
  bool pump_was_on = false;
  host_program.At_First(EventId::StartRecognitionActivity, [&] { pump_was_on = Pump_Is_On(); });
  control->Command1_Click();
  EXPECT_EQ(host_program.events, Lines{"StartRecognitionActivity"});
  EXPECT_TRUE(pump_was_on);
}

TEST_F(Buttons, Start_with_incomplete_settings_runs_the_pump_without_a_session) {
  session.flags.Settings_Ready_Count = 1;
  control->Command1_Click();
  ASSERT_EQ(boxes.shown.size(), 1U);
  EXPECT_EQ(Box().title, "Quillspeech Start");
  Pass_Time(1s);
  EXPECT_EQ(host_program.status_events, 20);
  EXPECT_TRUE(host_program.events.empty());
  EXPECT_EQ(session.flags.Session_Started, 0);
}

TEST_F(Buttons, Stop_stops_a_living_session_only) {
  control->Command2_Click();
  EXPECT_TRUE(host_program.events.empty());
  for (const int alive : {-1, 1}) {  // anything but False
    session.flags.Session_Alive = alive;
    control->Command2_Click();
  }
  EXPECT_EQ(host_program.Times("StopRecognitionActivity"), 2);
}

TEST_F(Buttons, Stop_without_a_session_leaves_the_pump_alone) {
  for (const bool on : {true, false}) {
    control->Enable_Timer1(on);
    control->Command2_Click();
    EXPECT_EQ(Pump_Is_On(), on);
  }
}

TEST_F(Buttons, Restart_restarts_a_living_session) {
  control->Command1_Click();
  control->Command3_Click();
  EXPECT_EQ(host_program.events, (Lines{"StartRecognitionActivity", "RestartRecognitionActivity"}));
  EXPECT_TRUE(Pump_Is_On());
}

TEST_F(Buttons, Restart_without_a_session_switches_the_pump_off) {
  for (const int alive : {0, 1}) {  // True alone is alive
    session.flags.Session_Alive = alive;
    control->Enable_Timer1(true);
    control->Command3_Click();
    EXPECT_FALSE(Pump_Is_On()) << alive;
  }
  EXPECT_TRUE(host_program.events.empty());
}

TEST_F(Buttons, In_design_mode_three_buttons_only_switch_the_pump_off) {
  host_program.user_mode = false;
  session.flags.Session_Alive = True;
  for (const char* button : {"Command1", "Command2", "Command3"}) {
    control->Enable_Timer1(true);
    control->Click_On(button);
    EXPECT_FALSE(Pump_Is_On()) << button;
  }
  EXPECT_TRUE(host_program.events.empty());
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(Buttons, In_design_mode_the_editor_button_does_nothing) {
  host_program.user_mode = false;
  session.flags.Session_Alive = True;
  session.settings.Consider_this_Lang_File_to_Add = "";
  control->Enable_Timer1(true);
  control->Command4_Click();
  EXPECT_TRUE(Pump_Is_On());
  EXPECT_TRUE(calls.empty());
  EXPECT_EQ(session.settings.Consider_this_Lang_File_to_Add, "");
}

TEST_F(Buttons, The_mode_is_asked_at_each_click) {
  host_program.user_mode = false;
  control->Command1_Click();
  host_program.user_mode = true;
  control->Command1_Click();
  EXPECT_EQ(host_program.events, Lines{"StartRecognitionActivity"});
}

TEST_F(Buttons, The_editor_button_stops_the_session_and_shows_the_chooser) {
  control->Command1_Click();
  bool pump_was_on = true;
  host_program.At_First(EventId::StopRecognitionActivity, [&] { pump_was_on = Pump_Is_On(); });
  control->Command4_Click();
  EXPECT_FALSE(pump_was_on);
  EXPECT_EQ(host_program.Times("StopRecognitionActivity"), 1);
  EXPECT_EQ(calls, (Lines{"Stop_Recording", "Show_Splash"}));
}

TEST_F(Buttons, The_editor_button_without_a_session_leaves_the_pump_on) {
  control->Enable_Timer1(true);
  control->Command4_Click();
  EXPECT_TRUE(Pump_Is_On());
  EXPECT_TRUE(host_program.events.empty());
  EXPECT_EQ(calls, Lines{"Show_Splash"});
}

TEST_F(Buttons, The_editor_button_stops_a_session_only_when_it_is_exactly_alive) {
  session.flags.Session_Alive = 1;
  control->Enable_Timer1(true);
  control->Command4_Click();
  EXPECT_TRUE(Pump_Is_On());
  EXPECT_TRUE(host_program.events.empty());
  EXPECT_EQ(calls, Lines{"Show_Splash"});
}

TEST_F(Buttons, The_editor_button_names_a_language_file_where_none_is_named) {
  const std::string Other = "Mine.SAY";
  const std::vector<std::tuple<std::string, std::string, std::string>> Cases = {
      {"", Other, "Unspecified Languge File to Add|Match"},
      {Other, "", "Unspecified Languge File to Add|Match"},
      {"", "", "Unspecified Languge File to Add|Match"},
      {Other, Other, "Status Update"}};
  for (const auto& [add, match, label] : Cases) {
    ControlTest test;
    Settings& settings = test.session.settings;
    settings.Consider_this_Lang_File_to_Add = add;
    settings.Consider_this_Lang_File_to_match = match;
    test.control->Command4_Click();
    EXPECT_EQ(settings.Consider_this_Lang_File_to_Add, add.empty() ? "User.SAY" : add);
    EXPECT_EQ(settings.Consider_this_Lang_File_to_match, match.empty() ? "User.SAY" : match);
    EXPECT_EQ(test.control->face.Label1, label);
  }
}

TEST_F(Buttons, The_editor_buttons_errors_are_ignored) {
  session.operations.Show_Splash = [](Session&) { Fail(Failure::Out_Of_Memory); };
  control->Command4_Click();
  EXPECT_TRUE(boxes.shown.empty());
}

// Members that show a window or pass to the container.

TEST_F(ControlFace, Both_editor_members_show_the_chooser_and_stop_nothing) {
  control->Command1_Click();
  control->SHOW_LANGUAGE_EDITOR();
  control->SHOW_ENGINE_EDITOR();
  EXPECT_EQ(calls, (Lines{"Show_Splash", "Show_Splash"}));
  EXPECT_EQ(session.flags.Session_Started, 1);
  EXPECT_TRUE(Pump_Is_On());
}

TEST_F(ControlFace, The_about_box_is_the_help) {
  control->AboutBox();
  EXPECT_EQ(calls, Lines{"Show_Help"});
}

TEST_F(ControlFace, Errors_of_the_shown_windows_are_ignored) {
  session.operations.Show_Splash = [](Session&) { Fail(Failure::Out_Of_Memory); };
  session.operations.Show_Help = session.operations.Show_Splash;
  EXPECT_EQ(Failure_Of([&] {
              control->AboutBox();
              control->SHOW_LANGUAGE_EDITOR();
              control->SHOW_ENGINE_EDITOR();
            }),
            0);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(ControlFace, Enabling_passes_to_the_container_and_is_announced) {
  EXPECT_TRUE(control->Enabled());
  Let_Text(*control, "Enabled", "False");
  EXPECT_FALSE(control->Enabled());
  EXPECT_FALSE(host_program.enabled);
  EXPECT_EQ(host_program.changed, Lines{"Enabled"});
}

TEST_F(ControlFace, The_container_enables_itself_before_the_change_is_announced) {
  Lines order;
  host_program.At_Call = [&](std::string_view call) { order.emplace_back(call); };
  Let_Text(*control, "Enabled", "False");
  EXPECT_EQ(order, (Lines{"User_Mode", "Enabled_Changed", "Property_Changed"}));
}

TEST_F(ControlFace, The_window_and_its_repainting_are_the_containers) {
  EXPECT_EQ(control->hWnd(), 1234);
  control->Refresh();
  EXPECT_EQ(host_program.repaints, 1);
}

TEST_F(ControlFace, A_set_goes_by_the_containers_mode_and_is_announced_to_it) {
  host_program.user_mode = false;
  Let_Text(*control, "Speech_sampling_time_in_ms", "100");
  EXPECT_EQ(session.settings.Speech_sampling_time_in_ms, 100);
  EXPECT_EQ(host_program.changed, Lines{"Speech_sampling_time_in_ms"});
  host_program.user_mode = true;
  Let_Text(*control, "Speech_sampling_time_in_ms", "100");
  EXPECT_EQ(Get_Text(*control, "Speech_sampling_time_in_ms"), "4000");
  EXPECT_EQ(boxes.shown.size(), 1U);
}

}  // namespace
}  // namespace quillspeech
