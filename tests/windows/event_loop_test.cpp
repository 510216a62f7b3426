#include "platform/windows/event_loop.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "tests/windows/event_loop_fixture.hpp"

namespace quillspeech::tests {
namespace {

using namespace std::chrono_literals;
using windows::EventLoop;
using Time = EventLoop::Time;

TEST_F(MessageLoop, Time_begins_at_0_and_goes_on) {
  const Time first = events.Now();
  EXPECT_GE(first, Time{0});
  while (events.Now() == first) {
  }
  EXPECT_GT(events.Now(), first);
}

TEST_F(MessageLoop, The_window_never_shows_and_is_not_found_among_the_others) {
  EXPECT_TRUE(::IsWindow(events.Window()));
  EXPECT_FALSE(::IsWindowVisible(events.Window()));
  EXPECT_NE(::GetAncestor(events.Window(), GA_PARENT), ::GetDesktopWindow());
}

TEST_F(MessageLoop, The_window_goes_with_its_loop) {
  HWND its_window = nullptr;
  {
    const EventLoop other;
    its_window = other.Window();
    EXPECT_NE(its_window, events.Window());
  }
  EXPECT_FALSE(::IsWindow(its_window));
  EXPECT_TRUE(::IsWindow(events.Window()));
}

TEST_F(MessageLoop, A_yield_dispatches_what_waits_in_the_queue_in_its_order) {
  std::vector<UINT> got;
  window.at_message = [&](UINT message) { got.push_back(message); };
  const std::vector<UINT> sent = {Other_Message, Some_Message, Other_Message};
  for (const UINT message : sent) Post(message);
  EXPECT_TRUE(got.empty());
  events.Run_Pending_Events();
  EXPECT_EQ(got, sent);
  window.at_message = nullptr;
}

TEST_F(MessageLoop, A_queue_that_fills_itself_does_not_hold_a_yield) {
  int rounds = 0;
  At(Some_Message, [&] {
    ++rounds;
    Post(Some_Message);
  });
  Post(Some_Message);
  events.Run_Pending_Events();
  EXPECT_GT(rounds, 0);
  EXPECT_LT(rounds, 1'000);
}

TEST_F(MessageLoop, A_yield_may_be_nested_in_a_message_and_dispatches_the_rest) {
  std::string log;
  window.at_message = [&](UINT message) {
    if (message != Some_Message) {
      log += 'x';
      return;
    }
    log += '(';
    events.Run_Pending_Events();
    log += ')';
  };
  Post(Some_Message);
  Post(Other_Message);
  events.Run_Pending_Events();
  window.at_message = nullptr;
  EXPECT_EQ(log, "(x)");
  EXPECT_EQ(events.Depth(), 0);
}

TEST_F(MessageLoop, A_wait_lasts_until_a_timer_is_due_and_lets_it_tick) {
  int ticks = 0;
  const auto timer = events.Make_Timer(30ms, [&] { ++ticks; });
  const Time before = events.Now();
  timer->Enable(true);
  events.Wait_For_Events();
  EXPECT_EQ(ticks, 1);
  EXPECT_GE(events.Now() - before, 30ms);
}

TEST_F(MessageLoop, Waits_leave_the_processor_alone) {
  int ticks = 0;
  const auto timer = events.Make_Timer(5ms, [&] { ++ticks; });
  timer->Enable(true);
  int waits = 0;
  for (; ticks < 20; ++waits) events.Wait_For_Events();
  EXPECT_EQ(waits, 20);
}

TEST_F(MessageLoop, A_yield_runs_no_tick_that_is_not_due) {
  const auto never = Never(events);
  for (int i = 0; i < 1'000; ++i) events.Run_Pending_Events();
}

TEST_F(MessageLoop, Passes_last_at_least_their_time) {
  const Time before = events.Now();
  for (int i = 0; i < 3'000; ++i) events.Pass(10us);
  EXPECT_GE(events.Now() - before, 29ms);  // the last, unfinished millisecond is not slept
}

TEST_F(MessageLoop, Passes_dispatch_messages_too) {
  Post(Some_Message);
  for (int i = 0; i < 300; ++i) events.Pass(10us);
  EXPECT_EQ(window.Count(Some_Message), 1);
}

TEST_F(MessageLoop, The_first_pass_of_a_wait_looks_for_messages) {
  events.Run_Pending_Events();
  Post(Some_Message);
  events.Pass(Time{0});
  EXPECT_EQ(window.Count(Some_Message), 1);
}

TEST_F(MessageLoop, What_another_thread_sends_ends_a_wait) {
  const auto never = Never(events);
  std::thread other([&] { ::SendMessageW(window.Handle(), Some_Message, 0, 0); });
  while (window.Count(Some_Message) == 0) events.Wait_For_Events();
  other.join();
}

TEST_F(MessageLoop, A_timer_that_such_a_message_makes_ticks_in_time) {
  const auto never = Never(events);
  std::unique_ptr<Timer> timer;
  int ticks = 0;
  At(Some_Message, [&] {
    timer = events.Make_Timer(20ms, [&] { ++ticks; });
    timer->Enable(true);
  });
  std::thread other([&] { ::SendMessageW(window.Handle(), Some_Message, 0, 0); });
  while (ticks == 0) events.Wait_For_Events();
  other.join();
}

TEST_F(MessageLoop, A_message_ends_a_wait) {
  const auto never = Never(events);
  std::thread other([&] { Post(Some_Message); });
  while (window.Count(Some_Message) == 0) events.Wait_For_Events();
  other.join();
}

TEST_F(MessageLoop, What_is_always_due_does_not_keep_messages_from_their_turn) {
  struct Busy final : EventSource {
    std::optional<Time> Next_Due() const override { return Time{0}; }
    void Serve(Time) override {}
  } busy;
  events.Add_Source(busy);
  Post(Some_Message);
  events.Wait_For_Events();
  EXPECT_EQ(window.Count(Some_Message), 1);
  events.Remove_Source(busy);
}

TEST_F(MessageLoop, A_wake_from_another_thread_ends_a_wait_for_nothing) {
  std::thread other([&] { events.Wake(); });
  events.Wait_For_Events();
  other.join();
}

TEST_F(MessageLoop, A_wake_before_the_wait_ends_it_even_with_a_yield_between) {
  const auto never = Never(events);
  events.Wake();
  events.Run_Pending_Events();
  events.Wait_For_Events();
}

TEST_F(MessageLoop, Many_wakes_end_one_wait) {
  int ticks = 0;
  const auto timer = events.Make_Timer(20ms, [&] { ++ticks; });
  timer->Enable(true);
  for (int i = 0; i < 10; ++i) events.Wake();
  events.Wait_For_Events();
  EXPECT_EQ(ticks, 0);
  events.Wait_For_Events();
  EXPECT_EQ(ticks, 1);
}

}  // namespace
}  // namespace quillspeech::tests
