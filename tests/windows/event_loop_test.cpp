#include "platform/windows/event_loop.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
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
  HWND window = nullptr;
  {
    const EventLoop other;
    window = other.Window();
    EXPECT_NE(window, events.Window());
  }
  EXPECT_FALSE(::IsWindow(window));
  EXPECT_TRUE(::IsWindow(events.Window()));
}

TEST_F(MessageLoop, A_yield_dispatches_what_waits_in_the_queue_in_its_order) {
  std::vector<WPARAM> got;
  events.On_Message(Some_Message, [&](WPARAM wide, LPARAM) { got.push_back(wide); });
  for (const WPARAM wide : {1u, 2u, 3u}) Post(Some_Message, wide);
  EXPECT_TRUE(got.empty());
  events.Run_Pending_Events();
  EXPECT_EQ(got, (std::vector<WPARAM>{1, 2, 3}));
}

TEST_F(MessageLoop, Windows_of_others_get_theirs) {
  const TestWindow window;
  ::PostMessageW(window.Handle(), Some_Message, 7, 0);
  events.Run_Pending_Events();
  EXPECT_EQ(window.Count(Some_Message), 1);
}

TEST_F(MessageLoop, A_queue_that_fills_itself_does_not_hold_a_yield) {
  int rounds = 0;
  events.On_Message(Some_Message, [&](WPARAM, LPARAM) {
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
  events.On_Message(Some_Message, [&](WPARAM, LPARAM) {
    log += '(';
    events.Run_Pending_Events();
    log += ')';
  });
  events.On_Message(Other_Message, [&](WPARAM, LPARAM) { log += 'x'; });
  Post(Some_Message);
  Post(Other_Message);
  events.Run_Pending_Events();
  EXPECT_EQ(log, "(x)");
  EXPECT_EQ(events.Depth(), 0);
}

TEST_F(MessageLoop, The_last_handler_of_a_message_has_it_and_an_empty_one_ends_it) {
  std::string log;
  events.On_Message(Some_Message, [&](WPARAM, LPARAM) { log += 'a'; });
  events.On_Message(Some_Message, [&](WPARAM, LPARAM) {
    log += 'b';
    events.On_Message(Some_Message, {});
    log += 'c';
  });
  Post(Some_Message);
  Post(Some_Message);
  events.Run_Pending_Events();
  EXPECT_EQ(log, "bc");
}

TEST_F(MessageLoop, What_a_handler_throws_comes_out_of_the_yield) {
  events.On_Message(Some_Message, [](WPARAM, LPARAM) { throw std::runtime_error("no"); });
  Post(Some_Message);
  EXPECT_THROW(events.Run_Pending_Events(), std::runtime_error);
  EXPECT_EQ(events.Depth(), 0);
}

TEST_F(MessageLoop, What_a_handler_throws_in_a_loop_of_the_hosts_is_lost) {
  events.On_Message(Some_Message, [](WPARAM, LPARAM) { throw std::runtime_error("no"); });
  EXPECT_EQ(::SendMessageW(events.Window(), Some_Message, 0, 0), 0);
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
  bool came = false;
  events.On_Message(Some_Message, [&](WPARAM, LPARAM) { came = true; });
  Post(Some_Message);
  for (int i = 0; i < 300; ++i) events.Pass(10us);
  EXPECT_TRUE(came);
}

TEST_F(MessageLoop, A_message_ends_a_wait) {
  const auto never = Never(events);
  bool came = false;
  events.On_Message(Some_Message, [&](WPARAM, LPARAM) { came = true; });
  std::thread other([&] { ::PostMessageW(events.Window(), Some_Message, 0, 0); });
  while (!came) events.Wait_For_Events();
  other.join();
}

TEST_F(MessageLoop, What_is_always_due_does_not_keep_messages_from_their_turn) {
  struct Busy final : EventSource {
    std::optional<Time> Next_Due() const override { return Time{0}; }
    void Serve(Time) override {}
  } busy;
  events.Add_Source(busy);
  bool came = false;
  events.On_Message(Some_Message, [&](WPARAM, LPARAM) { came = true; });
  Post(Some_Message);
  events.Wait_For_Events();
  EXPECT_TRUE(came);
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
