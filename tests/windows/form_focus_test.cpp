// Where the focus goes when the control that has it takes no action any more.
#include <gtest/gtest.h>

#include "tests/windows/form_screen.hpp"

namespace quillspeech::tests {
namespace {

// Six buttons one below the other, the third and the fourth of them in a frame. The second is
// disabled and the fifth hidden.
struct FormFocus : FormScreen {
  FormFocus() {
    form = std::make_unique<Form>("Form1", "Buttons", FormSize{3000, 3000});
    FormControl frame = Named("Frame1", FormControlKind::Frame, "Frame1");
    frame.place = {0, 600, 3000, 800};
    Add("Command1", 50);
    Add("Command2", 350);
    form->Add(frame);
    Add("Command3", 50, "Frame1");
    Add("Command4", 350, "Frame1");
    Add("Command5", 1500);
    Add("Command6", 1800);
    form->Set_Enabled("Command2", false);
    form->Set_Visible("Command5", false);
  }
  void Add(const std::string& name, int top, const std::string& parent = {}) {
    FormControl button = Named(name, FormControlKind::Button, name, parent);
    button.place = {100, top, 1000, 250};
    form->Add(button);
  }
  void Show_With_Focus_On(const std::string& name) {
    Show();
    SetFocus(Control(name));
    ASSERT_EQ(form->Focused(), name);
  }
  void Expect_Focus_On(const std::string& name) const {
    EXPECT_EQ(Text_Of(GetFocus()), name);
    EXPECT_EQ(form->Focused(), name);
  }
  void Behind_Another_Window(const std::function<void()>& act) {
    HostWindow other;
    SetActiveWindow(other.Window());
    ASSERT_EQ(GetActiveWindow(), other.Window());
    act();
    SetActiveWindow(Window());
    Run();
  }
  void Disable(const std::string& name) { form->Set_Enabled(name, false); }
  void Take_Away(const std::string& name) { form->Set_Visible(name, false); }
};

TEST_F(FormFocus, A_control_that_is_disabled_hands_it_on_to_the_next_that_takes_action) {
  Show_With_Focus_On("Command1");
  Disable("Command1");
  Expect_Focus_On("Command3");
}

TEST_F(FormFocus, A_control_that_is_hidden_hands_it_on_to_the_next_that_takes_action) {
  Show_With_Focus_On("Command4");
  Take_Away("Command4");
  Expect_Focus_On("Command6");
}

TEST_F(FormFocus, The_last_control_hands_it_on_to_the_first) {
  Show_With_Focus_On("Command6");
  Take_Away("Command6");
  Expect_Focus_On("Command1");
  EXPECT_FALSE(IsWindowVisible(Control("Command6")));
}

TEST_F(FormFocus, A_frame_that_is_hidden_hands_on_that_of_what_it_holds) {
  Show_With_Focus_On("Command3");
  Take_Away("Frame1");
  Expect_Focus_On("Command6");
}

TEST_F(FormFocus, A_frame_that_is_disabled_hands_on_that_of_what_it_holds) {
  Show_With_Focus_On("Command3");
  Disable("Frame1");
  Expect_Focus_On("Command6");
}

TEST_F(FormFocus, It_stays_where_it_is_when_another_control_is_disabled_or_hidden) {
  Show_With_Focus_On("Command3");
  Disable("Command1");
  Take_Away("Command6");
  Expect_Focus_On("Command3");
}

TEST_F(FormFocus, A_text_box_that_gets_it_so_has_its_text_selected) {
  FormControl box = Named("Text1", FormControlKind::TextBox, "whole");
  box.place = {1500, 1800, 1000, 250};
  form->Add(box);
  Show_With_Focus_On("Command6");
  Take_Away("Command6");
  EXPECT_EQ(GetFocus(), Control("whole"));
  EXPECT_EQ(SendMessageW(GetFocus(), EM_GETSEL, 0, 0), MAKELRESULT(0, 5));
}

TEST_F(FormFocus, Where_nothing_else_takes_action_the_form_itself_hears_the_keys) {
  for (const bool is_hidden : {false, true}) {
    Form lone("Form2", "Lone", {3000, 2000});
    FormControl button = Named("Command1", FormControlKind::Button, "Lonely");
    button.place = {100, 100, 1000, 300};
    lone.Add(button);
    std::string keys;
    lone.On_Key_Press(Form::Itself, [&](unsigned char key) { keys += static_cast<char>(key); });
    views.Show(lone, Modality::None);
    Run();
    ASSERT_EQ(Text_Of(GetFocus()), "Lonely");
    is_hidden ? lone.Set_Visible("Command1", false) : lone.Set_Enabled("Command1", false);
    EXPECT_EQ(GetFocus(), reinterpret_cast<HWND>(views.Window_Of(lone)));
    Type(GetFocus(), "x");
    Run();
    EXPECT_EQ(keys, "x");
  }
}

TEST_F(FormFocus, A_form_that_comes_to_the_front_again_passes_over_what_was_disabled_meanwhile) {
  Show_With_Focus_On("Command1");
  Behind_Another_Window([this] { Disable("Command1"); });
  Expect_Focus_On("Command3");
}

TEST_F(FormFocus, A_form_that_comes_to_the_front_again_passes_over_what_was_hidden_meanwhile) {
  Show_With_Focus_On("Command3");
  Behind_Another_Window([this] { Take_Away("Frame1"); });
  Expect_Focus_On("Command6");
}

TEST_F(FormFocus, A_form_that_comes_to_the_front_with_only_labels_left_hears_the_keys_itself) {
  FormControl label = Named("Label1", FormControlKind::Label, "Label1");
  label.place = {1500, 50, 1000, 250};
  form->Add(label);
  Note_Keys("Form");
  Disable("Frame1");
  for (const char* const name : {"Command1", "Command2"}) Take_Away(name);
  Show_With_Focus_On("Command6");
  Behind_Another_Window([this] { Take_Away("Command6"); });
  EXPECT_EQ(GetFocus(), Window());
  for (const WPARAM key : {VK_UP, VK_RIGHT}) Press(GetFocus(), key);
  Type(GetFocus(), "x");
  Run();
  Press(GetFocus(), VK_TAB);
  Run();
  EXPECT_EQ(GetFocus(), Window());
  EXPECT_EQ(heard, (Heard{"Form_KeyPress 120", "Form_KeyPress 9"}));
}

TEST_F(FormFocus, Tab_goes_round_what_takes_action_in_both_directions) {
  Show_With_Focus_On("Command1");
  const auto walk = [this](bool by_host) {
    Heard way;
    for (int i = 0; i < 4; ++i) {
      by_host ? void(SendMessageW(GetFocus(), WM_KEYDOWN, VK_TAB, 1)) : Press(GetFocus(), VK_TAB);
      Run();
      way.push_back(Text_Of(GetFocus()));
    }
    return way;
  };
  for (const bool by_host : {false, true}) {
    EXPECT_EQ(walk(by_host), (Heard{"Command3", "Command4", "Command6", "Command1"}));
    const HeldShift shift;
    EXPECT_EQ(walk(by_host), (Heard{"Command6", "Command4", "Command3", "Command1"}));
  }
}

TEST_F(FormFocus, A_child_does_not_tell_that_it_leaves_when_it_only_goes_on) {
  HostWindow host;
  views.Make_Child(*form, host.Handle(), {0, 0, 300, 300}, ChildMode::Live);
  std::vector<bool> told;
  views.Set_Signals(*form, {[&](bool got) { told.push_back(got); }, nullptr});
  Show_With_Focus_On("Command1");
  Disable("Command1");
  Take_Away("Command3");
  Expect_Focus_On("Command4");
  EXPECT_EQ(told, std::vector<bool>{true});
}

}  // namespace
}  // namespace quillspeech::tests
