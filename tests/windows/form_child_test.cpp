// Forms as children in a host's window.
#include <gtest/gtest.h>

#include <vector>

#include "core/face_form.hpp"
#include "tests/support/test_control.hpp"
#include "tests/windows/form_screen.hpp"

namespace quillspeech::tests {
namespace {

struct FormChildren : FormScreen {
  FormChildren() {
    form->Set_Place("Text1", {60, 60, 1500, 300});
    form->Set_Place("Command2", {60, 600, 900, 300});
  }
  void Embed(ChildMode mode) {
    views.Make_Child(*form, host.Handle(), {30, 40, 200, 100}, mode);
    views.Show(*form, Modality::None);
    Run();
  }
  HostWindow host;
};

TEST_F(FormChildren, Lie_where_they_are_put) {
  Embed(ChildMode::Live);
  EXPECT_EQ(GetParent(Window()), host.Window());
  views.Move_Child(*form, {50, 60, 210, 110});
  RECT place = Place_On_Screen(Window());
  MapWindowPoints(nullptr, host.Window(), reinterpret_cast<POINT*>(&place), 2);
  EXPECT_EQ(place.left, 50);
  EXPECT_EQ(place.top, 60);
  EXPECT_EQ(place.right, 260);
  EXPECT_EQ(place.bottom, 170);
}

TEST_F(FormChildren, Are_not_visible_before_they_are_shown) {
  views.Make_Child(*form, host.Handle(), {0, 0, 100, 100}, ChildMode::Live);
  EXPECT_FALSE(IsWindowVisible(Window()));
  views.Show(*form, Modality::None);
  EXPECT_TRUE(IsWindowVisible(Window()));
  views.Hide(*form);
  EXPECT_FALSE(IsWindowVisible(Window()));
}

TEST_F(FormChildren, An_inert_one_lets_every_point_through_to_the_host) {
  Embed(ChildMode::Inert);
  for (const HWND window : {Window(), Control("first"), Control("Close")}) {
    EXPECT_EQ(SendMessageW(window, WM_NCHITTEST, 0, 0), HTTRANSPARENT);
  }
  const RECT button = Place_On_Screen(Control("Close"));
  EXPECT_EQ(WindowFromPoint({button.left + 5, button.top + 5}), host.Window());
  EXPECT_FALSE(IsWindowEnabled(Window()));
  EXPECT_TRUE(IsWindowEnabled(Control("Close")));  // and does not look disabled
  views.Set_Child_Mode(*form, ChildMode::Live);
  EXPECT_EQ(WindowFromPoint({button.left + 5, button.top + 5}), Control("Close"));
}

TEST_F(FormChildren, Tell_when_the_focus_comes_and_goes) {
  Embed(ChildMode::Live);
  std::vector<bool> focus;
  views.Set_Signals(*form, {[&](bool got) { focus.push_back(got); }, nullptr});
  SetFocus(Control("first"));
  SetFocus(Control("Close"));
  SetFocus(host.Window());
  EXPECT_EQ(focus, (std::vector<bool>{true, false}));
}

TEST_F(FormChildren, Tell_before_they_are_painted) {
  Embed(ChildMode::Live);
  int paints = 0;
  views.Set_Signals(*form, {nullptr, [&] { ++paints; }});
  views.Repaint(*form);
  EXPECT_EQ(paints, 1);
}

TEST_F(FormChildren, A_Tab_that_goes_out_of_them_is_the_hosts) {
  Embed(ChildMode::Live);
  SetFocus(Control("first"));
  MSG tab{};
  tab.hwnd = GetFocus();
  tab.message = WM_KEYDOWN;
  tab.wParam = VK_TAB;
  int inside = 0;
  while (inside < 10 && views.Translate(*form, tab)) {
    ++inside;
    tab.hwnd = GetFocus();
  }
  EXPECT_EQ(inside, 3);  // to the two buttons and to the combo box
}

TEST_F(FormChildren, A_host_that_destroys_its_window_ends_the_view_and_not_the_form) {
  Embed(ChildMode::Live);
  host.Destroy();
  EXPECT_EQ(views.Window_Of(*form), 0);
  EXPECT_EQ(form->View(), nullptr);
  EXPECT_TRUE(form->Is_Loaded());
  form->Set_Text("Text1", "second");
}

TEST_F(FormChildren, May_move_into_another_host) {
  Embed(ChildMode::Live);
  HostWindow second;
  views.Make_Child(*form, second.Handle(), {0, 0, 100, 100}, ChildMode::Live);
  EXPECT_EQ(GetParent(Window()), second.Window());
  EXPECT_EQ(FindWindowExW(host.Window(), nullptr, nullptr, nullptr), nullptr);
}

struct FaceOnScreen : testing::Test, ControlTest {
  FaceOnScreen() {
    views.Make_Child(*form, host.Handle(), {0, 0, 222, 126}, ChildMode::Live);
    views.Show(*form, Modality::None);
  }
  HWND Child(const std::string& text) const {
    return Child_With_Text(reinterpret_cast<HWND>(views.Window_Of(*form)), text);
  }
  void Run() {
    for (int i = 0; i < 20; ++i) loop.Run_Pending_Events();
  }
  HostWindow host;
  windows::EventLoop loop;
  windows::FormViews views{loop, 96};
  std::unique_ptr<Form> form = Make_Face_Form(*control);
};

TEST_F(FaceOnScreen, Clicks_on_frames_and_label_raise_Click_and_others_do_not) {
  const HWND label = Child("Status Update");
  FormScreen::Press_Mouse(label);
  FormScreen::Press_Mouse(GetParent(label), 1, 1);
  FormScreen::Press_Mouse(GetParent(Child("Pattern :")), 1, 1);
  FormScreen::Press_Mouse(Child("Spoken Word :"));
  FormScreen::Press_Mouse(Child("Quillspeech Editor"));
  Run();
  EXPECT_EQ(host_program.Times("Click"), 3);
  EXPECT_EQ(Times("Show_Splash"), 1);
}

TEST_F(FaceOnScreen, A_click_may_end_the_control_and_its_face) {
  host_program.At_First(EventId::Click, [this] {
    control->UserControl_Terminate();
    control.reset();
    form.reset();
  });
  FormScreen::Press_Mouse(Child("Status Update"));
  Run();
  EXPECT_EQ(FindWindowExW(host.Window(), nullptr, nullptr, nullptr), nullptr);
}

}  // namespace
}  // namespace quillspeech::tests
