// Forms as real windows: what they show, and what a person does to them.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "tests/windows/form_screen.hpp"

namespace quillspeech::tests {
namespace {

struct FormWindows : FormScreen {
  FormWindows() {
    int top = 60;
    for (const FormControl& control : form->Controls()) {
      form->Set_Place(control.name, control.parent.empty() ? FormPlace{60, top, 1500, 300}
                                                           : FormPlace{30, 30, 900, 240});
      if (control.parent.empty()) top += 330;
    }
    form->Set_Size({3000, 2100});
  }
};

TEST_F(FormWindows, Show_the_caption_and_each_control_at_its_place) {
  Show();
  EXPECT_EQ(Text_Of(Window()), "A form");
  RECT inside{};
  GetClientRect(Window(), &inside);
  EXPECT_EQ(inside.right, 200);
  EXPECT_EQ(inside.bottom, 140);
  const HWND box = Control("first");
  RECT place = Place_On_Screen(box);
  MapWindowPoints(nullptr, Window(), reinterpret_cast<POINT*>(&place), 2);
  EXPECT_EQ(place.left, 4);
  EXPECT_EQ(place.top, 26);
  EXPECT_EQ(place.right, 104);
  EXPECT_EQ(place.bottom, 46);
  EXPECT_EQ(GetParent(Control("&Save")), Control("Group"));
}

TEST_F(FormWindows, Grow_with_the_dots_per_inch) {
  windows::FormViews larger(loop, 144);
  larger.Show(*form, Modality::None);
  RECT inside{};
  GetClientRect(reinterpret_cast<HWND>(larger.Window_Of(*form)), &inside);
  EXPECT_EQ(inside.right, 300);
  EXPECT_EQ(inside.bottom, 210);
}

TEST_F(FormWindows, Follow_the_model) {
  Show();
  form->Set_Caption("Another");
  form->Set_Text("Text1", "second \x80");
  form->Set_Enabled("Command2", false);
  form->Set_Visible("Label1", false);
  form->Set_Size({1500, 1500});
  EXPECT_EQ(Text_Of(Window()), "Another");
  const HWND box = Control("second \x80");
  ASSERT_NE(box, nullptr);
  EXPECT_FALSE(IsWindowEnabled(Control("Close")));
  EXPECT_FALSE(IsWindowVisible(Control("&Name:")));
  form->Set_Read_Only("Text1", true);
  EXPECT_TRUE(GetWindowLongPtrW(box, GWL_STYLE) & ES_READONLY);
  RECT inside{};
  GetClientRect(Window(), &inside);
  EXPECT_EQ(inside.right, 100);
  form->Set_Place("Text1", {150, 300, 600, 300});
  RECT place = Place_On_Screen(box);
  MapWindowPoints(nullptr, Window(), reinterpret_cast<POINT*>(&place), 2);
  EXPECT_EQ(place.left, 10);
  EXPECT_EQ(place.right, 50);
  EXPECT_EQ(heard, Heard{"Form_Load"});
}

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
  const HWND combo = FindWindowExW(Window(), nullptr, L"COMBOBOX", nullptr);
  ASSERT_NE(combo, nullptr);
  EXPECT_EQ(SendMessageW(combo, CB_GETCOUNT, 0, 0), 3);
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  ASSERT_TRUE(GetComboBoxInfo(combo, &parts));
  SetFocus(combo);
  Press(parts.hwndItem, VK_DOWN);
  Press(parts.hwndItem, VK_DOWN);
  Run();
  EXPECT_EQ((*form)["Combo1"].index, 1);
  EXPECT_EQ((*form)["Combo1"].text, "two");
  EXPECT_EQ(Text_Of(combo), "two");
  EXPECT_EQ(heard, (Heard{"Form_Load", "Combo1_Click", "Combo1_Click"}));
  heard.clear();
  Type(parts.hwndItem, "x");
  Run();
  EXPECT_EQ(heard, Heard{"Combo1_Change"});
  EXPECT_EQ((*form)["Combo1"].index, -1);
}

TEST_F(FormWindows, Items_of_the_model_follow_in_the_list) {
  Show();
  const HWND combo = FindWindowExW(Window(), nullptr, L"COMBOBOX", nullptr);
  form->Add_Item("Combo1", "four");
  EXPECT_EQ(SendMessageW(combo, CB_GETCOUNT, 0, 0), 4);
  form->Set_Index("Combo1", 3);
  EXPECT_EQ(Text_Of(combo), "four");
  form->Clear_Items("Combo1");
  EXPECT_EQ(SendMessageW(combo, CB_GETCOUNT, 0, 0), 0);
  EXPECT_EQ(Text_Of(combo), "");
  EXPECT_EQ(heard, Heard{"Form_Load"});
}

TEST_F(FormWindows, The_cross_unloads_the_form_and_ends_its_window) {
  Show();
  const HWND window = Window();
  PostMessageW(window, WM_CLOSE, 0, 0);
  Run();
  EXPECT_EQ(heard, (Heard{"Form_Load", "Form_Unload"}));
  EXPECT_FALSE(IsWindow(window));
  EXPECT_EQ(views.Window_Of(*form), 0);
}

TEST_F(FormWindows, A_button_may_unload_or_destroy_its_form) {
  form->On("Command2", FormEvent::Click, [this] { form->Unload(); });
  Show();
  const HWND window = Window();
  Press_Mouse(Control("Close"));
  Run();
  EXPECT_FALSE(IsWindow(window));
  form->On("Command2", FormEvent::Click, [this] { form.reset(); });
  Show();
  const HWND second = Window();
  Press_Mouse(Control("Close"));
  Run();
  EXPECT_FALSE(IsWindow(second));
  EXPECT_EQ(form, nullptr);
}

TEST_F(FormWindows, A_choice_may_destroy_its_form) {
  form->On("Combo1", FormEvent::Click, [this] { form.reset(); });
  Show();
  const HWND window = Window();
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  ASSERT_TRUE(GetComboBoxInfo(FindWindowExW(window, nullptr, L"COMBOBOX", nullptr), &parts));
  Press(parts.hwndItem, VK_DOWN);
  Run();
  EXPECT_EQ(form, nullptr);
  EXPECT_FALSE(IsWindow(window));
}

TEST_F(FormWindows, A_choice_in_the_open_list_may_destroy_its_form) {
  form->On("Combo1", FormEvent::Click, [this] { form.reset(); });
  Show();
  const HWND window = Window();
  const HWND combo = FindWindowExW(window, nullptr, L"COMBOBOX", nullptr);
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  ASSERT_TRUE(GetComboBoxInfo(combo, &parts));
  SendMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
  PostMessageW(parts.hwndList, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
  PostMessageW(parts.hwndList, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
  Run();
  EXPECT_EQ(form, nullptr);
  EXPECT_FALSE(IsWindow(window));
}

TEST_F(FormWindows,
       An_entry_that_Enter_takes_from_the_open_list_is_chosen_and_the_key_goes_no_further) {
  Note_Keys("Combo1");
  Show();
  const HWND combo = FindWindowExW(Window(), nullptr, L"COMBOBOX", nullptr);
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  ASSERT_TRUE(GetComboBoxInfo(combo, &parts));
  SetFocus(parts.hwndItem);
  SendMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
  Press(parts.hwndItem, VK_DOWN);
  Run();
  Press(parts.hwndItem, VK_RETURN);
  Run();
  EXPECT_EQ((*form)["Combo1"].text, "one");
  EXPECT_EQ((*form)["Combo1"].index, 0);
  EXPECT_EQ(std::ranges::count(heard, "Combo1_KeyPress 13"), 0);
  Press(parts.hwndItem, VK_RETURN);
  Run();
  EXPECT_EQ(std::ranges::count(heard, "Combo1_KeyPress 13"), 1);
}

TEST_F(FormWindows, A_form_beside_another_does_not_end_with_it) {
  Show();
  Form other("Form2", "Beside", {1500, 1500});
  views.Show(other, Modality::None);
  form->Unload();
  Run();
  EXPECT_TRUE(other.Is_Loaded());
  EXPECT_TRUE(views.Is_Shown(other));
}

TEST_F(FormWindows, A_change_may_destroy_its_form) {
  form->On("Text1", FormEvent::Change, [this] { form.reset(); });
  Show();
  const HWND window = Window();
  Type(Control("first"), "x");
  Run();
  EXPECT_EQ(form, nullptr);
  EXPECT_FALSE(IsWindow(window));
}

TEST_F(FormWindows, A_failing_handler_is_told_and_leaves_the_window_standing) {
  int failures = 0;
  views.At_Failure = [&] { ++failures; };
  form->On("Command2", FormEvent::Click, [] { throw 1; });
  Show();
  Press_Mouse(Control("Close"));
  Run();
  EXPECT_EQ(failures, 1);
  EXPECT_TRUE(IsWindow(Window()));
}

TEST_F(FormWindows, A_tip_belongs_to_its_control) {
  form->Set_Tip("Command2", "Ends it");
  Show();
  HWND tips = nullptr;
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND window, LPARAM found) WINAPI -> BOOL {
        wchar_t name[64] = {};
        GetClassNameW(window, name, 64);
        if (std::wstring(name) == L"tooltips_class32") *reinterpret_cast<HWND*>(found) = window;
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&tips));
  EXPECT_NE(tips, nullptr);
}

TEST_F(FormWindows, Have_classes_of_their_own_that_go_with_their_views) {
  auto own = std::make_unique<windows::FormViews>(loop, 96);
  own->Show(*form, Modality::None);
  wchar_t name[128] = {};
  GetClassNameW(reinterpret_cast<HWND>(own->Window_Of(*form)), name, 128);
  WNDCLASSEXW found{};
  found.cbSize = sizeof found;
  EXPECT_TRUE(GetClassInfoExW(windows::This_Module(), name, &found));
  own.reset();
  EXPECT_FALSE(GetClassInfoExW(windows::This_Module(), name, &found));
}

TEST_F(FormWindows, A_parent_that_is_none_leaves_the_form_without_a_view) {
  HostWindow host;
  const std::intptr_t parent = host.Handle();
  host.Destroy();
  EXPECT_THROW(views.Make_Child(*form, parent, {0, 0, 9, 9}, ChildMode::Live), std::system_error);
  EXPECT_EQ(form->View(), nullptr);
  EXPECT_EQ(views.Window_Of(*form), 0);
}

TEST_F(FormWindows, Go_with_their_views_and_leave_the_models) {
  auto own = std::make_unique<windows::FormViews>(loop, 96);
  own->Show(*form, Modality::None);
  const auto window = reinterpret_cast<HWND>(own->Window_Of(*form));
  own.reset();
  EXPECT_FALSE(IsWindow(window));
  EXPECT_EQ(form->View(), nullptr);
  form->Set_Text("Text1", "second");
}

// The index of a new drawing object in the process's table of them: it grows with what is left
// behind.
int Next_Drawing_Object() {
  const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
  const int index = LOWORD(reinterpret_cast<std::uintptr_t>(brush));
  DeleteObject(brush);
  return index;
}

int Windows_Of_The_Thread() {
  int count = 0;
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND, LPARAM counted) WINAPI -> BOOL {
        ++*reinterpret_cast<int*>(counted);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&count));
  return count;
}

TEST_F(FormWindows, Hundreds_of_them_leave_no_window_and_no_drawing_object_behind) {
  HostWindow host;
  form->Set_Tip("Command2", "Ends it");
  const auto one_more = [&] {
    views.Make_Child(*form, host.Handle(), {0, 0, 200, 140}, ChildMode::Live);
    views.Show(*form, Modality::None);
    views.Repaint(*form);
    form->Unload();
  };
  for (int i = 0; i < 20; ++i) one_more();
  Run();
  const int windows = Windows_Of_The_Thread();
  const int objects = Next_Drawing_Object();
  for (int i = 0; i < 300; ++i) one_more();
  Run();
  EXPECT_EQ(Windows_Of_The_Thread(), windows);
  EXPECT_LE(Next_Drawing_Object(), objects + 60);
  EXPECT_EQ(FindWindowExW(host.Window(), nullptr, nullptr, nullptr), nullptr);
}

}  // namespace
}  // namespace quillspeech::tests
