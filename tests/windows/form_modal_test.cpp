// Modal forms, children in a host's window, and the keyboard.
#include <gtest/gtest.h>

#include <utility>

#include "core/face_form.hpp"
#include "tests/support/test_control.hpp"
#include "tests/windows/form_screen.hpp"

namespace quillspeech::tests {
namespace {

struct FormModals : FormScreen {
  HostWindow host;
};

TEST_F(FormModals, A_modal_show_returns_when_the_form_is_closed) {
  Later([this] { PostMessageW(Window(), WM_CLOSE, 0, 0); });
  views.Show(*form, Modality::Modal);
  EXPECT_EQ(heard, (Heard{"Form_Load", "Form_Unload"}));
}

TEST_F(FormModals, What_waits_in_the_queue_behind_the_end_comes_after_the_return) {
  TestWindow other;
  bool is_closed = false;
  bool has_returned = false;
  bool came_after = false;
  other.at_message = [&](UINT message) {
    if (message == WM_APP) came_after = has_returned;
  };
  Later([&] {
    if (std::exchange(is_closed, true)) return;
    PostMessageW(Window(), WM_CLOSE, 0, 0);
    PostMessageW(other.Handle(), WM_APP, 0, 0);
  });
  views.Show(*form, Modality::Modal);
  has_returned = true;
  Run();
  EXPECT_EQ(other.Count(WM_APP), 1);
  EXPECT_TRUE(came_after);
}

TEST_F(FormModals, The_threads_other_windows_take_no_input_meanwhile) {
  bool was_enabled = true;
  Later([&] {
    was_enabled = IsWindowEnabled(host.Window()) != FALSE;
    form->Unload();
  });
  views.Show(*form, Modality::Modal);
  EXPECT_FALSE(was_enabled);
  EXPECT_TRUE(IsWindowEnabled(host.Window()));
}

TEST_F(FormModals, A_modal_form_may_be_hidden_and_stays_loaded) {
  Later([this] { views.Hide(*form); });
  views.Show(*form, Modality::Modal);
  EXPECT_TRUE(form->Is_Loaded());
  EXPECT_FALSE(views.Is_Shown(*form));
  EXPECT_TRUE(IsWindowEnabled(host.Window()));
}

TEST_F(FormModals, A_modal_form_may_be_destroyed) {
  Later([this] { form.reset(); });
  views.Show(*form, Modality::Modal);
  EXPECT_EQ(form, nullptr);
  EXPECT_TRUE(IsWindowEnabled(host.Window()));
}

TEST_F(FormModals, Modal_forms_nest) {
  Form inner("Form2", "Inner", {1500, 1500});
  Later([&] {
    later.clear();
    Later([&] { inner.Unload(); });
    views.Show(inner, Modality::Modal);
    EXPECT_TRUE(IsWindowEnabled(Window()));
    EXPECT_FALSE(IsWindowEnabled(host.Window()));
    form->Unload();
  });
  views.Show(*form, Modality::Modal);
  EXPECT_TRUE(IsWindowEnabled(host.Window()));
}

TEST_F(FormModals, A_thread_that_is_told_to_quit_ends_them) {
  Later([] { PostQuitMessage(3); });
  views.Show(*form, Modality::Modal);
  EXPECT_FALSE(form->Is_Loaded());
  MSG message;
  EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

TEST_F(FormModals, What_a_handler_throws_does_not_keep_the_others_disabled) {
  Later([] { throw 1; });
  EXPECT_THROW(views.Show(*form, Modality::Modal), int);
  EXPECT_TRUE(IsWindowEnabled(host.Window()));
}

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
