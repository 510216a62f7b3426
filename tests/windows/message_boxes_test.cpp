#include "platform/windows/message_boxes.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <utility>
#include <vector>

#include "platform/windows/event_loop.hpp"
#include "platform/windows/text.hpp"
#include "tests/windows/thread_windows.hpp"

namespace quillspeech::tests {
namespace {

using namespace std::chrono_literals;
using windows::EventLoop;
using windows::MessageBoxes;

std::string Text_Of(HWND window) {
  wchar_t text[200] = {};
  ::GetWindowTextW(window, text, 200);
  return windows::Narrow(text);
}

struct SystemBoxes : testing::Test {
  // Shows the box, looks at it from a tick that comes while it is up, and presses the button.
  BoxAnswer Show_And_Press(MessageBoxes& shown, const MessageBox& box, WPARAM button) {
    const auto timer = events.Make_Timer(10ms, [&] {
      const HWND up = Dialog_That_Is_Up();
      if (up == nullptr) return;
      title = Text_Of(up);
      texts.clear();
      const auto note = [](HWND window, LPARAM self) __attribute__((stdcall))->BOOL {
        reinterpret_cast<SystemBoxes*>(self)->texts.push_back(Text_Of(window));
        return TRUE;
      };
      ::EnumChildWindows(up, note, reinterpret_cast<LPARAM>(this));
      has_icon = ::SendDlgItemMessageW(up, Icon_Of_Box, STM_GETICON, 0, 0) != 0;
      owner = ::GetWindow(up, GW_OWNER);
      can_say_yes = ::GetDlgItem(up, IDYES) != nullptr;
      ::PostMessageW(up, WM_COMMAND, button, 0);
    });
    timer->Enable(true);
    return shown.Show(box);
  }

  bool Shows(const std::string& text) const {
    return std::find(texts.begin(), texts.end(), text) != texts.end();
  }

  static constexpr int Icon_Of_Box = 1088;

  EventLoop events;
  MessageBoxes boxes;
  std::string title;
  std::vector<std::string> texts;
  HWND owner = nullptr;
  bool has_icon = false;
  bool can_say_yes = false;
};

TEST_F(SystemBoxes, A_box_shows_its_title_and_text_and_is_answered_OK) {
  EXPECT_EQ(Show_And_Press(boxes, {"Caf\xE9", "It costs 5 \x80."}, IDOK), BoxAnswer::OK);
  EXPECT_EQ(title, "Caf\xE9");
  EXPECT_TRUE(Shows("It costs 5 \x80."));
  EXPECT_FALSE(can_say_yes);
  EXPECT_FALSE(has_icon);
}

TEST_F(SystemBoxes, A_question_is_answered_with_yes_or_no) {
  const MessageBox question{"T", "Really?", BoxButtons::YesNo};
  EXPECT_EQ(Show_And_Press(boxes, question, IDYES), BoxAnswer::Yes);
  EXPECT_TRUE(can_say_yes);
  EXPECT_EQ(Show_And_Press(boxes, question, IDNO), BoxAnswer::No);
}

TEST_F(SystemBoxes, Icons_show) {
  for (const BoxIcon icon : {BoxIcon::Stop, BoxIcon::Information}) {
    Show_And_Press(boxes, {"T", "text", BoxButtons::OK, icon}, IDOK);
    EXPECT_TRUE(has_icon);
  }
}

TEST_F(SystemBoxes, A_box_belongs_to_the_owner_that_was_given) {
  const HWND window = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                        nullptr, nullptr);
  ASSERT_NE(window, nullptr);
  MessageBoxes owned([window] { return window; });
  Show_And_Press(owned, {"T", "text"}, IDOK);
  EXPECT_EQ(owner, window);
  ::DestroyWindow(window);
}

TEST_F(SystemBoxes, Without_one_it_belongs_to_the_active_window_of_the_thread) {
  const HWND window = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 10, 10,
                                        nullptr, nullptr, nullptr, nullptr);
  ASSERT_NE(window, nullptr);
  ::SetActiveWindow(window);
  Show_And_Press(boxes, {"T", "text"}, IDOK);
  EXPECT_EQ(owner, window);
  ::DestroyWindow(window);
}

struct Popup {
  ~Popup() { ::DestroyWindow(window); }
  const HWND window = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 10, 10,
                                        nullptr, nullptr, nullptr, nullptr);
};

TEST_F(SystemBoxes, No_window_of_the_thread_takes_input_while_a_box_is_up) {
  const Popup other;
  const Popup front;
  const Popup disabled;
  ::EnableWindow(disabled.window, FALSE);
  ::SetActiveWindow(front.window);
  bool was_enabled = true;
  const auto look = events.Make_Timer(10ms, [&] {
    if (!Dialog_That_Is_Up()) return;
    was_enabled = ::IsWindowEnabled(other.window) || ::IsWindowEnabled(front.window);
  });
  look->Enable(true);
  Show_And_Press(boxes, {"T", "text"}, IDOK);
  EXPECT_FALSE(was_enabled);
  EXPECT_TRUE(::IsWindowEnabled(other.window));
  EXPECT_TRUE(::IsWindowEnabled(front.window));
  EXPECT_FALSE(::IsWindowEnabled(disabled.window));
  EXPECT_EQ(::GetActiveWindow(), front.window);
}

TEST_F(SystemBoxes, What_was_active_is_so_again_behind_a_box_whose_window_has_gone) {
  const Popup below;
  const Popup front;
  ::SetActiveWindow(front.window);
  MessageBoxes owned([&] { return below.window; });
  const auto hide = events.Make_Timer(10ms, [&] {
    if (Dialog_That_Is_Up()) ::ShowWindow(below.window, SW_HIDE);
  });
  hide->Enable(true);
  Show_And_Press(owned, {"T", "text"}, IDOK);
  EXPECT_EQ(::GetActiveWindow(), front.window);
}

TEST_F(SystemBoxes, A_box_of_nobodys_shows_too) {
  EXPECT_EQ(Show_And_Press(boxes, {"T", "text"}, IDOK), BoxAnswer::OK);
}

TEST_F(SystemBoxes, Timers_go_on_while_a_box_of_a_tick_is_up) {
  int ticks = 0;
  const auto other = events.Make_Timer(10ms, [&] { ++ticks; });
  BoxAnswer answer = BoxAnswer::Yes;
  bool is_over = false;
  const auto timer = events.Make_Timer(10ms, [&] {
    if (std::exchange(is_over, true)) return;
    answer = Show_And_Press(boxes, {"T", "text"}, IDOK);
  });
  other->Enable(true);
  timer->Enable(true);
  while (answer != BoxAnswer::OK) events.Wait_For_Events();
  EXPECT_GT(ticks, 0);
  EXPECT_EQ(events.Depth(), 0);
}

}  // namespace
}  // namespace quillspeech::tests
