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
  void Leave_Only_Labels() {
    for (const char* const name : {"Command2", "Combo1", "Frame1", "Text1"}) {
      form->Set_Visible(name, false);
    }
  }
  // As a host asks it before it deals with the key itself.
  bool Takes_Tab() {
    MSG tab{};
    tab.hwnd = GetFocus();
    tab.message = WM_KEYDOWN;
    tab.wParam = VK_TAB;
    return views.Translate(*form, tab);
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
  int inside = 0;
  while (inside < 10 && Takes_Tab()) ++inside;
  EXPECT_EQ(inside, 3);  // to the two buttons and to the combo box
}

TEST_F(FormChildren, A_Tab_backwards_out_of_the_first_control_is_the_hosts) {
  Embed(ChildMode::Live);
  SetFocus(Control("Close"));
  const HeldShift shift;
  EXPECT_TRUE(Takes_Tab());
  EXPECT_EQ(GetFocus(), Control("&Save"));
  EXPECT_TRUE(Takes_Tab());
  EXPECT_EQ(GetFocus(), Control("first"));
  EXPECT_FALSE(Takes_Tab());
  EXPECT_EQ(GetFocus(), Control("first"));
}

TEST_F(FormChildren,
       A_Tab_in_the_only_control_that_takes_the_focus_is_the_hosts_in_both_directions) {
  for (const char* const name : {"Text1", "Frame1", "Combo1"}) form->Set_Enabled(name, false);
  Embed(ChildMode::Live);
  SetFocus(Control("Close"));
  EXPECT_FALSE(Takes_Tab());
  const HeldShift shift;
  EXPECT_FALSE(Takes_Tab());
  EXPECT_EQ(GetFocus(), Control("Close"));
}

TEST_F(FormChildren, A_Tab_in_one_without_a_control_that_takes_the_focus_is_the_hosts) {
  Leave_Only_Labels();
  Embed(ChildMode::Live);
  SetFocus(Window());
  ASSERT_EQ(GetFocus(), Window());
  EXPECT_FALSE(Takes_Tab());
  const HeldShift shift;
  EXPECT_FALSE(Takes_Tab());
  EXPECT_EQ(GetFocus(), Window());
}

TEST_F(FormChildren, Tell_when_the_focus_comes_and_goes_where_no_control_can_take_it) {
  Leave_Only_Labels();
  Embed(ChildMode::Live);
  SetFocus(host.Window());
  std::vector<bool> focus;
  views.Set_Signals(*form, {[&](bool got) { focus.push_back(got); }, nullptr});
  for (int i = 0; i < 2; ++i) {
    Press_Mouse(Window());
    Run();
    EXPECT_EQ(GetFocus(), Window());
    SetFocus(host.Window());
  }
  EXPECT_EQ(focus, (std::vector<bool>{true, false, true, false}));
}

TEST_F(FormChildren, Tell_that_the_focus_goes_once_their_last_control_has_gone) {
  Embed(ChildMode::Live);
  std::vector<bool> focus;
  views.Set_Signals(*form, {[&](bool got) { focus.push_back(got); }, nullptr});
  SetFocus(Control("first"));
  Leave_Only_Labels();
  EXPECT_EQ(GetFocus(), Window());
  EXPECT_EQ(focus, std::vector<bool>{true});
  SetFocus(host.Window());
  EXPECT_EQ(focus, (std::vector<bool>{true, false}));
  for (const char* const name : {"Text1", "Command2"}) form->Set_Visible(name, true);
  Press_Mouse(Window());
  Run();
  EXPECT_EQ(GetFocus(), Control("first"));
  EXPECT_EQ(focus, (std::vector<bool>{true, false, true}));
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
