// The event loop's ticks while the host's message loop has the thread.
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <optional>
#include <stdexcept>

#include "tests/windows/event_loop_fixture.hpp"

namespace quillspeech::tests {
namespace {

using namespace std::chrono_literals;
using windows::EventLoop;
using Time = EventLoop::Time;

using HostsLoop = MessageLoop;

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
  int before = -1;
  const auto timer = events.Make_Timer(10ms, [&] { before = window.Count(Some_Message); });
  timer->Enable(true);
  const Time due = events.Now() + 20ms;
  while (events.Now() < due) {
  }
  Post(Some_Message);
  ::SendMessageW(events.Window(), WM_TIMER, 1, 0);
  EXPECT_EQ(before, 0);
  EXPECT_EQ(window.Count(Some_Message), 0);
  events.Run_Pending_Events();
  EXPECT_EQ(window.Count(Some_Message), 1);
}

TEST_F(HostsLoop, A_tick_may_yield_and_counts_as_one) {
  int depth = 0;
  std::unique_ptr<Timer> timer;
  timer = events.Make_Timer(10ms, [&] {
    timer->Enable(false);
    depth = events.Depth();
    Post(Some_Message);
    events.Run_Pending_Events();
  });
  timer->Enable(true);
  EXPECT_TRUE(Run_Host_While([&] { return window.Count(Some_Message) == 0; }));
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

TEST_F(HostsLoop, A_source_that_becomes_due_there_is_served_there) {
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
  At(Some_Message, [&] {
    device.due = Time{0};
    events.Schedule();
  });
  Post(Some_Message);
  EXPECT_TRUE(Run_Host_While([&] { return device.served < 1; }));
  events.Remove_Source(device);
}

}  // namespace
}  // namespace quillspeech::tests
