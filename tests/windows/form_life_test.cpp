// How windows of forms end: by their cross, their handlers, their views.
#include <gtest/gtest.h>

#include <memory>
#include <system_error>

#include "tests/windows/drawing_objects.hpp"
#include "tests/windows/form_pictures.hpp"
#include "tests/windows/form_windows.hpp"
#include "tests/windows/thread_windows.hpp"

namespace quillspeech::tests {
namespace {

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
  Press(Parts_Of(Combo()).hwndItem, VK_DOWN);
  Run();
  EXPECT_EQ(form, nullptr);
  EXPECT_FALSE(IsWindow(window));
}

TEST_F(FormWindows, A_choice_in_the_open_list_may_destroy_its_form) {
  form->On("Combo1", FormEvent::Click, [this] { form.reset(); });
  Show();
  const HWND window = Window();
  SendMessageW(Combo(), CB_SHOWDROPDOWN, TRUE, 0);
  Press_Mouse(Parts_Of(Combo()).hwndList);
  Run();
  EXPECT_EQ(form, nullptr);
  EXPECT_FALSE(IsWindow(window));
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

TEST_F(FormWindows, Have_classes_of_their_own_that_go_with_their_views) {
  auto own = std::make_unique<windows::FormViews>(loop, 96);
  own->Show(*form, Modality::None);
  const std::wstring name = Class_Of(reinterpret_cast<HWND>(own->Window_Of(*form)));
  WNDCLASSEXW found{};
  found.cbSize = sizeof found;
  EXPECT_TRUE(GetClassInfoExW(windows::This_Module(), name.c_str(), &found));
  own.reset();
  EXPECT_FALSE(GetClassInfoExW(windows::This_Module(), name.c_str(), &found));
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
  const std::size_t windows = Windows_Of(GetCurrentThreadId()).size();
  const int objects = Drawing_Objects();
  for (int i = 0; i < 300; ++i) one_more();
  Run();
  EXPECT_EQ(Windows_Of(GetCurrentThreadId()).size(), windows);
  EXPECT_LE(Drawing_Objects(), objects + 10);
  EXPECT_EQ(FindWindowExW(host.Window(), nullptr, nullptr, nullptr), nullptr);
}

}  // namespace
}  // namespace quillspeech::tests
