// Forms and the keyboard.
#include <gtest/gtest.h>

#include "tests/windows/form_screen.hpp"

namespace quillspeech::tests {
namespace {

struct FormKeysOnScreen : FormScreen {
  FormKeysOnScreen() {
    form->Set_Place("Text1", {60, 60, 1500, 300});
    form->Set_Place("Frame1", {60, 400, 1500, 500});
    form->Set_Place("Command1", {60, 60, 900, 300});
    form->Set_Place("Command2", {60, 1000, 900, 300});
    form->Set_Default_Button("Command1");
    form->Set_Cancel_Button("Command2");
    Show();
  }
  HWND Box() const { return Control("first"); }
};

TEST_F(FormKeysOnScreen, The_first_control_has_the_focus) { EXPECT_EQ(GetFocus(), Box()); }

TEST_F(FormKeysOnScreen, Tab_goes_through_the_controls_in_order_into_frames_too) {
  Press(GetFocus(), VK_TAB);
  Run();
  EXPECT_EQ(GetFocus(), Control("&Save"));
  EXPECT_EQ(form->Focused(), "Command1");
  Press(GetFocus(), VK_TAB);
  Run();
  EXPECT_EQ(GetFocus(), Control("Close"));
}

TEST_F(FormKeysOnScreen, Tab_works_in_a_host_that_knows_nothing_of_dialog_keys) {
  SendMessageW(Box(), WM_KEYDOWN, VK_TAB, 1);
  EXPECT_EQ(GetFocus(), Control("&Save"));
}

TEST_F(FormKeysOnScreen, Enter_and_Escape_press_their_buttons) {
  Press(Box(), VK_RETURN);
  Press(Box(), VK_ESCAPE);
  Run();
  EXPECT_EQ(heard, (Heard{"Form_Load", "Command1_Click", "Command2_Click"}));
}

TEST_F(FormKeysOnScreen, Alt_and_a_letter_press_a_button) {
  PostMessageW(Box(), WM_SYSCHAR, 's', 0x20000001);
  Run();
  EXPECT_EQ(heard, (Heard{"Form_Load", "Command1_Click"}));
}

TEST_F(FormKeysOnScreen, The_form_hears_keys_that_are_typed) {
  Note_Keys("Form");
  Type(Box(), "x");
  Run();
  EXPECT_EQ(heard, (Heard{"Form_Load", "Form_KeyPress 120", "Text1_Change"}));
}

TEST_F(FormKeysOnScreen, Characters_are_known_by_their_bytes_and_others_are_no_keys) {
  Note_Keys("Form");
  SetFocus(Control("Close"));
  PostMessageW(Control("Close"), WM_CHAR, 0x20AC, 1);  // the euro
  PostMessageW(Window(), WM_CHAR, 0x20AC, 1);
  PostMessageW(Control("Close"), WM_CHAR, 0x3A9, 1);  // a Greek letter
  PostMessageW(Window(), WM_CHAR, 0x3A9, 1);
  Run();
  heard.erase(heard.begin());
  EXPECT_EQ(heard, (Heard{"Form_KeyPress 128", "Form_KeyPress 128"}));
}

TEST_F(FormKeysOnScreen, A_letter_that_only_shares_a_byte_with_another_does_not_press_its_button) {
  for (const HWND window : {Box(), Window()}) {
    PostMessageW(window, WM_SYSCHAR, 0x453, 1);  // whose lower byte is that of S
  }
  Run();
  EXPECT_EQ(heard, Heard{"Form_Load"});
}

TEST_F(FormKeysOnScreen, Only_keys_that_mean_something_to_it_are_its_own) {
  const auto takes = [&](UINT kind, WPARAM key) {
    MSG message = {Box(), kind, key, 1, 0, {}};
    return views.Translate(*form, message);
  };
  for (const WPARAM key : {VK_TAB, VK_UP, VK_RIGHT}) EXPECT_TRUE(takes(WM_KEYDOWN, key)) << key;
  EXPECT_TRUE(takes(WM_SYSCHAR, 's'));
  for (const WPARAM key : {VK_F5, VK_HOME, int{'S'}}) {
    EXPECT_FALSE(takes(WM_KEYDOWN, key)) << key;
  }
  EXPECT_FALSE(takes(WM_SYSCHAR, 'x'));
  EXPECT_FALSE(takes(WM_SYSKEYDOWN, 'F'));
  EXPECT_FALSE(takes(WM_CHAR, 's'));
}

TEST_F(FormKeysOnScreen, A_key_may_unload_the_form) {
  form->On_Key_Press(Form::Itself, [this](unsigned char) { form->Unload(); });
  const HWND window = Window();
  Type(Box(), "x");
  Run();
  EXPECT_FALSE(IsWindow(window));
}

}  // namespace
}  // namespace quillspeech::tests
