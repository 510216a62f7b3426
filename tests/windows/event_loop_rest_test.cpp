// The event loop at rest, and as it moves to another thread.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>
#include <utility>

#include "tests/windows/event_loop_fixture.hpp"

namespace quillspeech::tests {
namespace {

using namespace std::chrono_literals;
using windows::EventLoop;
using Time = EventLoop::Time;

using Rests = MessageLoop;
using OtherThread = MessageLoop;

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
  timer->Enable(true);
  events.Rest();
  EXPECT_TRUE(events.Is_Resting());
  Post_Tick();
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

TEST_F(OtherThread, A_loop_that_moved_ticks_and_wakes_there) {
  const HWND old = events.Window();
  int ticks = 0;
  const auto timer = events.Make_Timer(10ms, [&] { ++ticks; });
  timer->Enable(true);
  std::thread other([&] {
    events.Move_To_This_Thread();
    EXPECT_NE(events.Window(), old);
    EXPECT_EQ(::GetWindowThreadProcessId(events.Window(), nullptr), ::GetCurrentThreadId());
    EXPECT_TRUE(Run_Host_While([&] { return ticks < 2; }));
    const auto never = Never(events);
    std::thread([&] { events.Wake(); }).join();
    events.Wait_For_Events();
  });
  other.join();
  Dispatch_Messages();
  EXPECT_FALSE(::IsWindow(old));
  events.Move_To_This_Thread();
}

TEST_F(OtherThread, What_still_comes_to_the_old_window_reaches_nobody) {
  const HWND old = events.Window();
  int ticks = 0;
  const auto timer = events.Make_Timer(1ms, [&] { ++ticks; });
  timer->Enable(true);
  const Time due = events.Now() + 2ms;
  while (events.Now() < due) {
  }
  Post_Tick();
  std::thread([&] { events.Move_To_This_Thread(); }).join();
  Dispatch_Messages();
  EXPECT_EQ(ticks, 0);
  EXPECT_FALSE(::IsWindow(old));
  events.Move_To_This_Thread();
}

TEST_F(OtherThread, Moving_to_the_thread_it_is_on_changes_nothing) {
  const HWND before = events.Window();
  events.Move_To_This_Thread();
  EXPECT_EQ(events.Window(), before);
}

}  // namespace
}  // namespace quillspeech::tests
