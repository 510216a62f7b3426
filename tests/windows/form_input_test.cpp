// What a person does to a form: clicks, typing and choices.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "tests/windows/form_windows.hpp"

namespace quillspeech::tests {
namespace {

TEST_F(FormWindows, A_click_on_a_button_a_label_a_frame_and_the_form_is_heard) {
  Show();
  for (const char* const text : {"&Save", "Close", "&Name:", "Group"}) Press_Mouse(Control(text));
  Press_Mouse(Window(), 190, 5);
  Run();
  EXPECT_EQ(heard, (Heard{"Form_Load", "Command1_Click", "Command2_Click", "Label1_Click",
                          "Frame1_Click", "Form_Click"}));
}

TEST_F(FormWindows, Two_quick_clicks_on_a_button_a_label_a_frame_and_the_form_are_two) {
  Show();
  heard.clear();
  const std::vector<std::pair<HWND, std::string>> Clicked = {{Control("Close"), "Command2_Click"},
                                                             {Control("&Name:"), "Label1_Click"},
                                                             {Control("Group"), "Frame1_Click"},
                                                             {Window(), "Form_Click"}};
  for (const auto& [window, click] : Clicked) {
    Press_Mouse(window, 2, 2);
    // The system tells a second press so where the window's class wants to know.
    const bool tells = (GetClassLongPtrW(window, GCL_STYLE) & CS_DBLCLKS) != 0;
    PostMessageW(window, tells ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 2));
    PostMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(2, 2));
    Run();
    EXPECT_EQ(heard, (Heard{click, click}));
    heard.clear();
  }
}

TEST_F(FormWindows, A_press_that_is_let_go_elsewhere_is_no_click) {
  Show();
  for (const HWND window : {Window(), Control("&Name:"), Control("Group"), Control("Close")}) {
    PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 2));
    PostMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(500, 2));
    Run();
  }
  EXPECT_EQ(heard, Heard{"Form_Load"});
}

TEST_F(FormWindows, A_press_on_a_label_is_a_click_only_when_it_is_let_go) {
  Show();
  heard.clear();
  PostMessageW(Control("&Name:"), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 2));
  Run();
  EXPECT_TRUE(heard.empty());
  PostMessageW(Control("&Name:"), WM_LBUTTONUP, 0, MAKELPARAM(2, 2));
  Run();
  EXPECT_EQ(heard, Heard{"Label1_Click"});
}

TEST_F(FormWindows, Typing_reaches_the_model_and_its_handler) {
  Show();
  const HWND box = Control("first");
  SetFocus(box);
  SendMessageW(box, EM_SETSEL, 0, -1);
  Type(box, "hi");
  Run();
  EXPECT_EQ((*form)["Text1"].text, "hi");
  EXPECT_EQ(heard, (Heard{"Form_Load", "Text1_Change", "Text1_Change"}));
}

TEST_F(FormWindows, What_the_handler_makes_of_the_text_stands_in_the_box) {
  form->On("Text1", FormEvent::Change, [this] { form->Set_Text("Text1", "100"); });
  Show();
  const HWND box = Control("first");
  Type(box, "7");
  Run();
  EXPECT_EQ(Text_Of(box), "100");
}

TEST_F(FormWindows, A_letter_that_the_model_cannot_hold_shows_as_it_holds_it) {
  Show();
  const HWND box = Control("first");
  SendMessageW(box, EM_SETSEL, 0, -1);
  PostMessageW(box, WM_CHAR, 0x3A9, 1);  // a Greek letter
  Run();
  EXPECT_EQ((*form)["Text1"].text, "?");
  wchar_t shown[8] = {};
  GetWindowTextW(box, shown, 8);
  EXPECT_EQ(std::wstring(shown), L"?");
}

TEST_F(FormWindows, An_item_chosen_in_a_combo_box_is_heard_and_shown) {
  Show();
  const HWND combo = Combo();
  ASSERT_NE(combo, nullptr);
  EXPECT_EQ(SendMessageW(combo, CB_GETCOUNT, 0, 0), 3);
  const HWND field = Parts_Of(combo).hwndItem;
  SetFocus(combo);
  Press(field, VK_DOWN);
  Press(field, VK_DOWN);
  Run();
  EXPECT_EQ((*form)["Combo1"].index, 1);
  EXPECT_EQ((*form)["Combo1"].text, "two");
  EXPECT_EQ(Text_Of(combo), "two");
  EXPECT_EQ(heard, (Heard{"Form_Load", "Combo1_Click", "Combo1_Click"}));
  heard.clear();
  Type(field, "x");
  Run();
  EXPECT_EQ(heard, Heard{"Combo1_Change"});
  EXPECT_EQ((*form)["Combo1"].index, -1);
}

TEST_F(FormWindows,
       An_entry_that_Enter_takes_from_the_open_list_is_chosen_and_the_key_goes_no_further) {
  Note_Keys("Combo1");
  Show();
  const HWND combo = Combo();
  const HWND field = Parts_Of(combo).hwndItem;
  SetFocus(field);
  SendMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
  Press(field, VK_DOWN);
  Run();
  Press(field, VK_RETURN);
  Run();
  EXPECT_EQ((*form)["Combo1"].text, "one");
  EXPECT_EQ((*form)["Combo1"].index, 0);
  EXPECT_EQ(std::ranges::count(heard, "Combo1_KeyPress 13"), 0);
  Press(field, VK_RETURN);
  Run();
  EXPECT_EQ(std::ranges::count(heard, "Combo1_KeyPress 13"), 1);
}

}  // namespace
}  // namespace quillspeech::tests
