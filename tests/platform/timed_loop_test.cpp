#include "platform/timed_loop.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "platform/headless/event_loop.hpp"
#include "tests/platform/hand_clock.hpp"

namespace quillspeech {
namespace {

using namespace std::chrono_literals;
using headless::EventLoop;
using tests::HandClock;
using Time = EventLoop::Time;

TEST(Timers, The_form_timers_have_their_intervals_and_are_off) {
  const std::vector<std::pair<FormTimer, Time>> intervals = {{FormTimer::Timer1, 1s},
                                                             {FormTimer::Timer2, 1s},
                                                             {FormTimer::Timer3, 5ms},
                                                             {FormTimer::Timer4, 1s},
                                                             {FormTimer::Timer5, 100ms}};
  for (const auto& [timer, interval] : intervals) {
    EventLoop events;
    EXPECT_FALSE(events.Is_Enabled(timer));
    EXPECT_EQ(events.Next_Due(), std::nullopt);
    events.Enable(timer, true);
    EXPECT_TRUE(events.Is_Enabled(timer));
    EXPECT_EQ(events.Next_Due(), interval);
  }
}

TEST(Timers, A_timer_without_a_tick_does_nothing) {
  EventLoop events;
  events.Enable(FormTimer::Timer3, true);
  events.Run_For(20ms);
  EXPECT_EQ(events.Next_Due(), 25ms);
}

TEST(Timers, A_timer_that_is_on_ticks_each_interval) {
  EventLoop events;
  std::vector<Time> ticks;
  const auto timer = events.Make_Timer(10ms, [&] { ticks.push_back(events.Now()); });
  timer->Enable(true);
  events.Run_For(35ms);
  EXPECT_EQ(ticks, (std::vector<Time>{10ms, 20ms, 30ms}));
}

TEST(Timers, A_tick_runs_only_at_a_yield) {
  HandClock events;
  int ticks = 0;
  const auto timer = events.Make_Timer(10ms, [&] { ++ticks; });
  timer->Enable(true);
  events.now = 10ms;
  EXPECT_TRUE(timer->Is_Enabled());
  EXPECT_EQ(events.Next_Due(), 10ms);
  EXPECT_EQ(ticks, 0);
  events.Run_Pending_Events();
  EXPECT_EQ(ticks, 1);
}

TEST(Timers, A_yield_before_the_interval_has_passed_runs_no_tick) {
  EventLoop events;
  int ticks = 0;
  const auto timer = events.Make_Timer(10ms, [&] { ++ticks; });
  timer->Enable(true);
  events.Run_For(9'999us);
  events.Run_Pending_Events();
  EXPECT_EQ(ticks, 0);
  events.Run_For(1us);
  EXPECT_EQ(ticks, 1);
}

TEST(Timers, Switching_off_takes_effect_at_once_even_for_what_is_due) {
  HandClock events;
  int ticks = 0;
  const auto second = events.Make_Timer(10ms, [&] { ++ticks; });
  const auto first = events.Make_Timer(9ms, [&] { second->Enable(false); });
  first->Enable(true);
  second->Enable(true);
  events.now = 10ms;
  events.Run_Pending_Events();
  EXPECT_EQ(ticks, 0);
  EXPECT_FALSE(second->Is_Enabled());
}

TEST(Timers, Putting_off_takes_effect_at_once_even_for_what_is_due) {
  HandClock events;
  int ticks = 0;
  const auto second = events.Make_Timer(10ms, [&] { ++ticks; });
  const auto first = events.Make_Timer(9ms, [&] { second->Set_Interval(10ms); });
  first->Enable(true);
  second->Enable(true);
  events.now = 10ms;
  events.Run_Pending_Events();
  EXPECT_EQ(ticks, 0);
  EXPECT_EQ(events.Next_Due(), 19ms);
}

TEST(Timers, Switching_on_what_is_on_changes_nothing) {
  EventLoop events;
  std::vector<Time> ticks;
  const auto timer = events.Make_Timer(10ms, [&] { ticks.push_back(events.Now()); });
  timer->Enable(true);
  events.Run_For(7ms);
  timer->Enable(true);
  events.Run_For(5ms);
  EXPECT_EQ(ticks, (std::vector<Time>{10ms}));
}

TEST(Timers, Off_and_on_again_starts_the_interval_anew) {
  EventLoop events;
  std::vector<Time> ticks;
  const auto timer = events.Make_Timer(10ms, [&] { ticks.push_back(events.Now()); });
  timer->Enable(true);
  events.Run_For(7ms);
  timer->Enable(false);
  timer->Enable(true);
  events.Run_For(11ms);
  EXPECT_EQ(ticks, (std::vector<Time>{17ms}));
}

TEST(Timers, A_new_interval_starts_now) {
  EventLoop events;
  std::vector<Time> ticks;
  const auto timer = events.Make_Timer(10ms, [&] { ticks.push_back(events.Now()); });
  timer->Enable(true);
  events.Run_For(7ms);
  timer->Set_Interval(4ms);
  events.Run_For(9ms);
  EXPECT_EQ(ticks, (std::vector<Time>{11ms, 15ms}));
}

TEST(Timers, An_interval_of_0_or_less_never_ticks_and_stays_switched_on) {
  for (const auto interval : {0ms, -1ms}) {
    EventLoop events;
    int ticks = 0;
    const auto timer = events.Make_Timer(interval, [&] { ++ticks; });
    timer->Enable(true);
    EXPECT_TRUE(timer->Is_Enabled());
    EXPECT_EQ(events.Next_Due(), std::nullopt);
    events.Run_For(1s);
    EXPECT_EQ(ticks, 0);
    timer->Set_Interval(100ms);
    events.Run_For(150ms);
    EXPECT_EQ(ticks, 1);
  }
}

TEST(Timers, A_timer_that_is_long_overdue_ticks_once_a_yield_and_does_not_catch_up) {
  HandClock events;
  int ticks = 0;
  const auto timer = events.Make_Timer(10ms, [&] { ++ticks; });
  timer->Enable(true);
  events.now = 95ms;
  events.Run_Pending_Events();
  EXPECT_EQ(ticks, 1);
  events.Run_Pending_Events();
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(events.Next_Due(), 105ms);
}

TEST(Timers, What_is_due_longest_ticks_first) {
  HandClock events;
  std::string order;
  const auto a = events.Make_Timer(30ms, [&] { order += 'a'; });
  const auto b = events.Make_Timer(20ms, [&] { order += 'b'; });
  const auto c = events.Make_Timer(25ms, [&] { order += 'c'; });
  for (Timer* const timer : {a.get(), b.get(), c.get()}) timer->Enable(true);
  events.now = 30ms;
  events.Run_Pending_Events();
  EXPECT_EQ(order, "bca");
}

TEST(Timers, Timers_that_are_due_together_tick_in_the_order_of_their_making) {
  EventLoop events;
  std::string order;
  const auto a = events.Make_Timer(20ms, [&] { order += 'a'; });
  const auto b = events.Make_Timer(10ms, [&] { order += 'b'; });
  b->Enable(true);
  a->Enable(true);
  events.Run_For(20ms);
  EXPECT_EQ(order, "bab");
}

TEST(Timers, A_nested_yield_runs_nested_ticks_of_the_same_timer_too) {
  EventLoop events;
  std::string log;
  const auto timer = events.Make_Timer(10ms, [&] {
    log += '(';
    if (events.Depth() < 3) events.Wait_For_Events();
    log += ')';
  });
  timer->Enable(true);
  events.Wait_For_Events();
  EXPECT_EQ(log, "((()))");
  EXPECT_EQ(events.Now(), 30ms);
  EXPECT_EQ(events.Depth(), 0);
}

TEST(Timers, What_a_nested_yield_has_run_does_not_run_again_outside) {
  EventLoop events;
  std::string log;
  const auto first = events.Make_Timer(10ms, [&] {
    log += "a";
    events.Run_Pending_Events();
    log += "z";
  });
  const auto second = events.Make_Timer(10ms, [&] { log += "b"; });
  first->Enable(true);
  second->Enable(true);
  events.Wait_For_Events();
  EXPECT_EQ(log, "abz");
}

TEST(Timers, A_timer_can_be_destroyed_in_its_own_tick) {
  EventLoop events;
  int ticks = 0;
  std::unique_ptr<Timer> timer;
  const std::string text = "what the tick holds outlives the timer";
  timer = events.Make_Timer(10ms, [&, text] {
    timer.reset();
    EXPECT_EQ(text, "what the tick holds outlives the timer");
    ++ticks;
  });
  timer->Enable(true);
  events.Run_For(100ms);
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(events.Next_Due(), std::nullopt);
}

TEST(Timers, A_timer_that_is_destroyed_while_it_is_due_does_not_tick) {
  EventLoop events;
  int ticks = 0;
  std::unique_ptr<Timer> second;
  const auto first = events.Make_Timer(10ms, [&] { second.reset(); });
  second = events.Make_Timer(10ms, [&] { ++ticks; });
  first->Enable(true);
  second->Enable(true);
  events.Run_For(50ms);
  EXPECT_EQ(ticks, 0);
}

TEST(Timers, Destroying_a_timer_lets_go_of_what_its_tick_holds) {
  EventLoop events;
  const auto held = std::make_shared<int>(1);
  auto timer = events.Make_Timer(10ms, [held] { FAIL(); });
  EXPECT_EQ(held.use_count(), 2);
  timer.reset();
  EXPECT_EQ(held.use_count(), 1);
}

TEST(Timers, A_tick_can_make_timers) {
  EventLoop events;
  std::vector<std::unique_ptr<Timer>> made;
  std::vector<Time> ticks;
  const auto timer = events.Make_Timer(10ms, [&] {
    for (int i = 0; i < 100; ++i) {
      made.push_back(events.Make_Timer(5ms, [&] { ticks.push_back(events.Now()); }));
      made.back()->Enable(true);
    }
  });
  timer->Enable(true);
  events.Run_For(19ms);
  EXPECT_EQ(ticks, std::vector<Time>(100, 15ms));
}

TEST(Timers, A_tick_can_give_its_timer_another_tick) {
  EventLoop events;
  std::string log;
  events.On_Tick(FormTimer::Timer3, [&] {
    events.On_Tick(FormTimer::Timer3, [&] { log += 'b'; });
    log += 'a';
  });
  events.Enable(FormTimer::Timer3, true);
  events.Run_For(15ms);
  EXPECT_EQ(log, "abb");
}

TEST(Timers, A_tick_keeps_its_own_state) {
  EventLoop events;
  std::vector<int> counts;
  const auto timer =
      events.Make_Timer(10ms, [&counts, count = 0]() mutable { counts.push_back(++count); });
  timer->Enable(true);
  events.Run_For(30ms);
  EXPECT_EQ(counts, (std::vector<int>{1, 2, 3}));
}

TEST(Timers, A_tick_that_throws_leaves_the_loop_whole) {
  EventLoop events;
  int ticks = 0;
  const auto first = events.Make_Timer(10ms, [] { throw std::runtime_error("tick"); });
  const auto second = events.Make_Timer(10ms, [&] { ++ticks; });
  first->Enable(true);
  second->Enable(true);
  EXPECT_THROW(events.Wait_For_Events(), std::runtime_error);
  EXPECT_EQ(events.Depth(), 0);
  EXPECT_EQ(ticks, 0);
  events.Run_Pending_Events();
  EXPECT_EQ(ticks, 1);
}

TEST(Timers, All_of_them_can_be_stopped_at_once) {
  HandClock clock;
  int ticks = 0;
  const auto timer = clock.Make_Timer(std::chrono::milliseconds(10), [&] { ++ticks; });
  timer->Enable(true);
  clock.Enable(FormTimer::Timer5, true);
  clock.Stop_Timers();
  EXPECT_FALSE(timer->Is_Enabled());
  EXPECT_FALSE(clock.Form_Timer(FormTimer::Timer5).Is_Enabled());
  clock.now += std::chrono::seconds(1);
  clock.Run_Pending_Events();
  EXPECT_EQ(ticks, 0);
}

}  // namespace
}  // namespace quillspeech
