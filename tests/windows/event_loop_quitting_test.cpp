// A thread that is told to quit while the loop has it.
#include <gtest/gtest.h>

#include <chrono>
#include <optional>

#include "tests/windows/event_loop_fixture.hpp"

namespace quillspeech::tests {
namespace {

using namespace std::chrono_literals;
using windows::EventLoop;
using Time = EventLoop::Time;

using Quitting = MessageLoop;

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

}  // namespace
}  // namespace quillspeech::tests
