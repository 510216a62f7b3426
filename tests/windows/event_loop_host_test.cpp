// How the event loop lives with a host's message loop: its ticks there, the filters, the end of
// the host, and another thread.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>

#include "platform/windows/event_loop.hpp"
#include "tests/windows/event_loop_fixture.hpp"

namespace quillspeech::tests {
namespace {

using namespace std::chrono_literals;
using windows::EventLoop;
using Time = EventLoop::Time;

using HostsLoop = MessageLoop;
using Rests = MessageLoop;
using MessageFilters = MessageLoop;
using Quitting = MessageLoop;
using OtherThread = MessageLoop;

TEST_F(HostsLoop, A_timer_ticks_while_the_hosts_loop_runs) {
  int ticks = 0;
  const auto timer = events.Make_Timer(20ms, [&] { ++ticks; });
  const Time before = events.Now();
  timer->Enable(true);
  EXPECT_TRUE(Run_Host_While([&] { return ticks < 5; }));
  EXPECT_GE(events.Now() - before, 100ms);
}

TEST_F(HostsLoop, What_is_due_sooner_comes_sooner) {
  const auto never = Never(events);
  bool came = false;
  const auto timer = events.Make_Timer(60s, [&] { came = true; });
  timer->Enable(true);
  timer->Set_Interval(10ms);
  EXPECT_TRUE(Run_Host_While([&] { return !came; }));
}

TEST_F(HostsLoop, Nothing_comes_when_no_timer_is_on) {
  const auto timer = events.Make_Timer(10ms, [] { ADD_FAILURE() << "it was switched off"; });
  timer->Enable(true);
  timer->Enable(false);
  const UINT_PTR end = ::SetTimer(nullptr, 0, 60, nullptr);
  int to_the_window = 0;
  MSG message{};
  while (::GetMessageW(&message, nullptr, 0, 0) > 0 && message.wParam != end) {
    if (message.hwnd == events.Window()) ++to_the_window;
    ::DispatchMessageW(&message);
  }
  ::KillTimer(nullptr, end);
  EXPECT_LE(to_the_window, 1);  // one that was on its way
}

TEST_F(HostsLoop, A_tick_runs_what_is_due_and_dispatches_nothing_else) {
  const TestWindow window;
  int before = -1;
  const auto timer = events.Make_Timer(10ms, [&] { before = window.Count(Some_Message); });
  timer->Enable(true);
  const Time due = events.Now() + 20ms;
  while (events.Now() < due) {
  }
  ::PostMessageW(window.Handle(), Some_Message, 0, 0);
  ::SendMessageW(events.Window(), WM_TIMER, 1, 0);
  EXPECT_EQ(before, 0);
  EXPECT_EQ(window.Count(Some_Message), 0);
  events.Run_Pending_Events();
  EXPECT_EQ(window.Count(Some_Message), 1);
}

TEST_F(HostsLoop, A_tick_may_yield_and_counts_as_one) {
  int depth = 0;
  bool came = false;
  events.On_Message(Some_Message, [&](WPARAM, LPARAM) { came = true; });
  const auto timer = events.Make_Timer(10ms, [&] {
    depth = events.Depth();
    Post(Some_Message);
    events.Run_Pending_Events();
  });
  timer->Enable(true);
  EXPECT_TRUE(Run_Host_While([&] { return !came; }));
  EXPECT_EQ(depth, 1);
}

TEST_F(HostsLoop, Ticks_come_within_a_loop_that_a_tick_itself_runs) {
  int outer = 0;
  int inner = 0;
  const auto other = events.Make_Timer(10ms, [&] { ++inner; });
  const auto timer = events.Make_Timer(10ms, [&] {
    if (outer++ > 0) return;
    other->Enable(true);
    EXPECT_TRUE(Run_Host_While([&] { return inner < 3 || outer < 3; }));
  });
  timer->Enable(true);
  events.Wait_For_Events();
  EXPECT_EQ(events.Depth(), 0);
  EXPECT_GE(inner, 3);
}

TEST_F(HostsLoop, Ticks_go_on_after_one_that_threw) {
  int ticks = 0;
  const auto timer = events.Make_Timer(10ms, [&] {
    if (++ticks == 1) throw std::runtime_error("no");
  });
  timer->Enable(true);
  EXPECT_TRUE(Run_Host_While([&] { return ticks < 3; }));
  EXPECT_EQ(events.Depth(), 0);
}

TEST_F(HostsLoop, A_source_that_a_message_makes_due_is_served_there) {
  struct Device final : EventSource {
    std::optional<Time> Next_Due() const override { return due; }
    void Serve(Time) override {
      if (due) ++served;
      due.reset();
    }
    std::optional<Time> due;
    int served = 0;
  } device;
  events.Add_Source(device);
  events.On_Message(Some_Message, [&](WPARAM, LPARAM) { device.due = Time{0}; });
  Post(Some_Message);
  EXPECT_TRUE(Run_Host_While([&] { return device.served < 1; }));
  device.due = Time{0};
  events.Schedule();
  EXPECT_TRUE(Run_Host_While([&] { return device.served < 2; }));
  events.Remove_Source(device);
}

// Lets the host's loop run for a while.
void Run_Host_For(UINT milliseconds) {
  const UINT_PTR end = ::SetTimer(nullptr, 0, milliseconds, nullptr);
  bool is_over = false;
  while (!is_over) {
    MSG message;
    if (::GetMessageW(&message, nullptr, 0, 0) <= 0) break;
    is_over = message.hwnd == nullptr && message.wParam == end;
    ::DispatchMessageW(&message);
  }
  ::KillTimer(nullptr, end);
}

TEST_F(Rests, Nothing_ticks_and_what_is_on_stays_on) {
  int ticks = 0;
  const auto timer = events.Make_Timer(10ms, [&] { ++ticks; });
  events.On_Message(Some_Message, [&](WPARAM, LPARAM) { ADD_FAILURE() << "nobody is to hear it"; });
  timer->Enable(true);
  events.Rest();
  EXPECT_TRUE(events.Is_Resting());
  Post(Some_Message);
  Run_Host_For(60);
  EXPECT_EQ(ticks, 0);
  EXPECT_TRUE(timer->Is_Enabled());
  events.Resume();
  EXPECT_TRUE(Run_Host_While([&] { return ticks < 2; }));
}

TEST_F(Rests, One_that_is_asked_for_in_a_tick_begins_when_that_is_over) {
  int ticks = 0;
  const auto other = events.Make_Timer(10ms, [&] { ++ticks; });
  bool is_over = false;
  bool has_begun = false;
  const auto timer = events.Make_Timer(10ms, [&] {
    if (std::exchange(has_begun, true)) return;
    events.Rest();
    EXPECT_FALSE(events.Is_Resting());
    while (ticks < 2) events.Wait_For_Events();
    is_over = true;
  });
  other->Enable(true);
  timer->Enable(true);
  EXPECT_TRUE(Run_Host_While([&] { return !is_over; }));
  EXPECT_TRUE(events.Is_Resting());
  ticks = 0;
  Run_Host_For(50);
  EXPECT_EQ(ticks, 0);
}

TEST_F(Rests, It_moves_while_its_first_thread_pumps_which_meets_nothing_of_it_any_more) {
  std::atomic<DWORD> ticked_on = 0;
  const auto timer = events.Make_Timer(5ms, [&] { ticked_on = ::GetCurrentThreadId(); });
  timer->Enable(true);
  events.Rest();
  std::atomic<bool> is_over = false;
  DWORD elsewhere = 0;
  std::thread other([&] {
    elsewhere = ::GetCurrentThreadId();
    events.Move_To_This_Thread();
    EXPECT_TRUE(events.Is_Resting());
    events.Resume();
    EXPECT_TRUE(Run_Host_While([&] { return ticked_on == 0; }));
    events.Rest();
    is_over = true;
  });
  while (!is_over) Run_Host_For(10);
  other.join();
  EXPECT_EQ(ticked_on, elsewhere);
  events.Move_To_This_Thread();
}

// A host's hook that sees messages of such loops, and takes one of them.
struct MessageHook {
  MessageHook()
      : hook(::SetWindowsHookExW(WH_MSGFILTER, &Procedure, nullptr, ::GetCurrentThreadId())) {}
  ~MessageHook() { ::UnhookWindowsHookEx(hook); }
  MessageHook(const MessageHook&) = delete;
  MessageHook& operator=(const MessageHook&) = delete;

  static LRESULT CALLBACK Procedure(int code, WPARAM, LPARAM message) {
    if (code != MSGF_USER) return 0;
    return reinterpret_cast<const MSG*>(message)->message == Some_Message;
  }
  HHOOK hook;
};

TEST_F(MessageFilters, The_hosts_hook_is_asked_too) {
  const TestWindow window;
  const MessageHook hook;
  ::PostMessageW(window.Handle(), Some_Message, 0, 0);
  ::PostMessageW(window.Handle(), Other_Message, 0, 0);
  events.Run_Pending_Events();
  EXPECT_EQ(window.Count(Some_Message), 0);
  EXPECT_EQ(window.Count(Other_Message), 1);
}

TEST_F(MessageFilters, A_filter_can_deal_with_a_message_before_its_window) {
  const TestWindow window;
  events.Add_Filter([](MSG& message) { return message.message == Some_Message; });
  ::PostMessageW(window.Handle(), Some_Message, 0, 0);
  ::PostMessageW(window.Handle(), Other_Message, 0, 0);
  events.Run_Pending_Events();
  EXPECT_EQ(window.Count(Some_Message), 0);
  EXPECT_EQ(window.Count(Other_Message), 1);
}

TEST_F(MessageFilters, The_oldest_is_asked_first_and_the_first_that_takes_it_is_the_last_asked) {
  const TestWindow window;
  std::string asked;
  for (const auto& [name, takes] : {std::pair{'a', false}, {'b', true}, {'c', true}}) {
    events.Add_Filter([&asked, name, takes](MSG&) {
      asked += name;
      return takes;
    });
  }
  ::PostMessageW(window.Handle(), Some_Message, 0, 0);
  events.Run_Pending_Events();
  EXPECT_EQ(asked, "ab");
}

TEST_F(MessageFilters, One_that_was_removed_is_not_asked_even_by_another_filter) {
  const TestWindow window;
  int first = 0;
  int second = 0;
  int asked = 0;
  first = events.Add_Filter([&](MSG&) {
    events.Remove_Filter(first);
    events.Remove_Filter(second);
    return false;
  });
  second = events.Add_Filter([&](MSG&) {
    ++asked;
    return true;
  });
  for (int i = 0; i < 2; ++i) ::PostMessageW(window.Handle(), Some_Message, 0, 0);
  events.Run_Pending_Events();
  EXPECT_EQ(asked, 0);
  EXPECT_EQ(window.Count(Some_Message), 2);
}

TEST_F(MessageFilters, What_is_for_the_hidden_window_goes_past_them) {
  bool came = false;
  events.On_Message(Some_Message, [&](WPARAM, LPARAM) { came = true; });
  events.Add_Filter([](MSG&) { return true; });
  Post(Some_Message);
  events.Run_Pending_Events();
  EXPECT_TRUE(came);
}

// What a host's loop would take next: whether it is told to quit, and with which code.
std::optional<int> Exit_Code_Told() {
  MSG message;
  if (!::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) return std::nullopt;
  if (message.message != WM_QUIT) return std::nullopt;
  return static_cast<int>(message.wParam);
}

TEST_F(Quitting, A_yield_leaves_the_message_to_the_host) {
  EXPECT_FALSE(events.Is_Quitting());
  ::PostQuitMessage(7);
  events.Run_Pending_Events();
  EXPECT_TRUE(events.Is_Quitting());
  EXPECT_EQ(Exit_Code_Told(), 7);
}

TEST_F(Quitting, No_wait_blocks_any_more) {
  ::PostQuitMessage(0);
  for (int i = 0; i < 3; ++i) events.Wait_For_Events();
  const auto never = Never(events);
  for (int i = 0; i < 3; ++i) events.Wait_For_Events();
  EXPECT_TRUE(events.Is_Quitting());
}

TEST_F(Quitting, It_is_told_once_and_may_yield_there) {
  int told = 0;
  events.At_Quit = [&] {
    ++told;
    events.Run_Pending_Events();
  };
  ::PostQuitMessage(0);
  for (int i = 0; i < 3; ++i) events.Run_Pending_Events();
  events.Wait_For_Events();
  EXPECT_EQ(told, 1);
}

TEST_F(Quitting, A_host_that_goes_on_after_it_has_waits_that_sleep_again) {
  int told = 0;
  events.At_Quit = [&] { ++told; };
  ::PostQuitMessage(0);
  events.Run_Pending_Events();
  ASSERT_TRUE(Exit_Code_Told());
  int ticks = 0;
  const auto timer = events.Make_Timer(20ms, [&] { ++ticks; });
  timer->Enable(true);
  events.Wait_For_Events();
  EXPECT_EQ(ticks, 1);
  EXPECT_FALSE(events.Is_Quitting());
  ::PostQuitMessage(0);
  events.Run_Pending_Events();
  EXPECT_EQ(told, 2);
}

TEST_F(Quitting, Thousands_of_passes_take_no_time) {
  ::PostQuitMessage(0);
  events.Run_Pending_Events();
  const Time before = events.Now();
  for (int i = 0; i < 30'000; ++i) events.Pass(Time{100});
  EXPECT_LT(events.Now() - before, 1s);
}

TEST_F(Quitting, Who_waits_on_regardless_does_not_take_a_whole_core) {
  ::PostQuitMessage(0);
  const Time until = events.Now() + 100ms;
  int waits = 0;
  while (events.Now() < until) {
    events.Wait_For_Events();
    ++waits;
  }
  EXPECT_LE(waits, 105);
}

TEST_F(Quitting, Timers_still_tick) {
  ::PostQuitMessage(0);
  int ticks = 0;
  const auto timer = events.Make_Timer(5ms, [&] { ++ticks; });
  timer->Enable(true);
  while (ticks < 2) events.Wait_For_Events();
}

TEST_F(OtherThread, A_loop_that_moved_ticks_and_hears_there) {
  const HWND old = events.Window();
  int ticks = 0;
  const auto timer = events.Make_Timer(10ms, [&] { ++ticks; });
  timer->Enable(true);
  bool came = false;
  events.On_Message(Some_Message, [&](WPARAM, LPARAM) { came = true; });
  std::thread other([&] {
    events.Move_To_This_Thread();
    EXPECT_NE(events.Window(), old);
    EXPECT_EQ(::GetWindowThreadProcessId(events.Window(), nullptr), ::GetCurrentThreadId());
    EXPECT_TRUE(Run_Host_While([&] { return ticks < 2; }));
    Post(Some_Message);
    while (!came) events.Wait_For_Events();
  });
  other.join();
  EXPECT_TRUE(came);
  Dispatch_Messages();
  EXPECT_FALSE(::IsWindow(old));
  events.Move_To_This_Thread();
}

TEST_F(OtherThread, What_still_comes_to_the_old_window_reaches_nobody) {
  const HWND old = events.Window();
  int got = 0;
  events.On_Message(Some_Message, [&](WPARAM, LPARAM) { ++got; });
  Post(Some_Message);
  std::thread([&] { events.Move_To_This_Thread(); }).join();
  Dispatch_Messages();
  EXPECT_EQ(got, 0);
  EXPECT_FALSE(::IsWindow(old));
  events.Move_To_This_Thread();
}

TEST_F(OtherThread, Moving_to_the_thread_it_is_on_changes_nothing) {
  const HWND window = events.Window();
  events.Move_To_This_Thread();
  EXPECT_EQ(events.Window(), window);
}

}  // namespace
}  // namespace quillspeech::tests
