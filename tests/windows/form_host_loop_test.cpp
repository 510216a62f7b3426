// Forms before a host whose loop takes every key to the active window as to a dialog.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include "platform/windows/dialogs.hpp"
#include "tests/windows/form_screen.hpp"

namespace quillspeech::tests {
namespace {

struct FormInAHostsLoop : FormScreen {
  void Make_Buttons(const std::string& default_button) {
    form = std::make_unique<Form>("Form1", "Buttons", FormSize{3000, 2000});
    int top = 60;
    for (const char* const name : {"Command1", "Command2", "Command3"}) {
      FormControl button = Named(name, FormControlKind::Button, name);
      button.place = {60, top, 1000, 300};
      form->Add(button);
      Note(name, FormEvent::Click, "Click");
      top += 330;
    }
    FormControl box = Named("Text1", FormControlKind::TextBox, "first");
    box.place = {60, top, 1000, 300};
    form->Add(box);
    form->Set_Default_Button(default_button);
    form->Set_Cancel_Button("Command2");
    Show();
  }
  static void Press_In_Host(WPARAM key) {
    MSG message{GetFocus(), WM_KEYDOWN, key, 1, 0, {}};
    EXPECT_TRUE(IsDialogMessageW(GetActiveWindow(), &message));
  }
};

TEST_F(FormInAHostsLoop, Enter_presses_the_default_button_and_not_the_first_control) {
  Make_Buttons("Command3");
  SetFocus(Control("first"));
  Press_In_Host(VK_RETURN);
  EXPECT_EQ(heard, Heard{"Command3_Click"});
}

TEST_F(FormInAHostsLoop, Enter_presses_the_button_that_has_the_focus) {
  Make_Buttons("Command3");
  SetFocus(Control("Command2"));
  Press_In_Host(VK_RETURN);
  EXPECT_EQ(heard, Heard{"Command2_Click"});
}

TEST_F(FormInAHostsLoop, Enter_presses_nothing_where_no_button_is_the_default) {
  Make_Buttons("");
  SetFocus(Control("first"));
  Press_In_Host(VK_RETURN);
  EXPECT_EQ(heard, Heard{});
}

TEST_F(FormInAHostsLoop, The_form_hears_Enter_before_its_default_button) {
  Make_Buttons("Command3");
  Note_Keys("Form");
  SetFocus(Control("first"));
  Press_In_Host(VK_RETURN);
  EXPECT_EQ(heard, (Heard{"Form_KeyPress 13", "Command3_Click"}));
}

TEST_F(FormInAHostsLoop, Escape_presses_the_cancel_button) {
  Make_Buttons("Command3");
  SetFocus(Control("first"));
  Press_In_Host(VK_ESCAPE);
  EXPECT_EQ(heard, Heard{"Command2_Click"});
}

TEST_F(FormInAHostsLoop, Enter_in_an_input_box_is_its_OK) {
  windows::Dialogs dialogs{views};
  bool is_done = false;
  Later([&] {
    const HWND up = views.Modal_Window();
    const HWND field = up ? FindWindowExW(up, nullptr, L"EDIT", nullptr) : nullptr;
    if (!field || std::exchange(is_done, true)) return;
    EXPECT_EQ(GetFocus(), field);
    Press_In_Host(VK_RETURN);
    Press(field, VK_ESCAPE);  // which finds no box any more
  });
  EXPECT_EQ(dialogs.Ask_Text({"Rename:", "Enter the New Name:", "XYZ"}), "XYZ");
}

}  // namespace
}  // namespace quillspeech::tests
