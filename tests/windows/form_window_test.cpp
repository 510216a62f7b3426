// Forms as real windows: what they show.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/windows/form_windows.hpp"
#include "tests/windows/thread_windows.hpp"

namespace quillspeech::tests {
namespace {

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

TEST_F(FormWindows, Items_of_the_model_follow_in_the_list) {
  Show();
  const HWND combo = Combo();
  form->Add_Item("Combo1", "four");
  EXPECT_EQ(SendMessageW(combo, CB_GETCOUNT, 0, 0), 4);
  form->Set_Index("Combo1", 3);
  EXPECT_EQ(Text_Of(combo), "four");
  form->Clear_Items("Combo1");
  EXPECT_EQ(SendMessageW(combo, CB_GETCOUNT, 0, 0), 0);
  EXPECT_EQ(Text_Of(combo), "");
  EXPECT_EQ(heard, Heard{"Form_Load"});
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
  EXPECT_TRUE(std::ranges::any_of(Windows_Of(GetCurrentThreadId()), [](HWND window) {
    return Class_Of(window) == L"tooltips_class32";
  }));
}

}  // namespace
}  // namespace quillspeech::tests
