#include "platform/headless/event_loop.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillspeech {
namespace {

using namespace std::chrono_literals;
using headless::EventLoop;
using Time = EventLoop::Time;

TEST(VirtualClock, Time_stands_still_while_nothing_waits) {
  EventLoop events;
  for (int i = 0; i < 1'000; ++i) events.Run_Pending_Events();
  EXPECT_EQ(events.Now(), 0ms);
}

TEST(VirtualClock, A_wait_goes_straight_to_what_is_due_next) {
  EventLoop events;
  const auto timer = events.Make_Timer(24h, [] {});
  timer->Enable(true);
  events.Wait_For_Events();
  EXPECT_EQ(events.Now(), 24h);
}

TEST(VirtualClock, A_wait_takes_no_time_when_something_is_due_now) {
  EventLoop events;
  int runs = 0;
  events.At(0ms, [&] { ++runs; });
  events.Wait_For_Events();
  EXPECT_EQ(events.Now(), 0ms);
  EXPECT_EQ(runs, 1);
}

TEST(VirtualClock, A_wait_for_nothing_is_refused) {
  EventLoop events;
  EXPECT_THROW(events.Wait_For_Events(), std::logic_error);
}

TEST(VirtualClock, At_runs_the_action_once_at_its_moment) {
  EventLoop events;
  std::vector<Time> runs;
  events.At(30ms, [&] { runs.push_back(events.Now()); });
  events.Run_For(1s);
  EXPECT_EQ(runs, (std::vector<Time>{30ms}));
}

TEST(VirtualClock, At_is_exact_from_a_moment_between_two_milliseconds) {
  EventLoop events;
  std::vector<Time> runs;
  events.Run_For(1'500us);
  events.At(3ms, [&] { runs.push_back(events.Now()); });
  events.Run_For(10ms);
  EXPECT_EQ(runs, (std::vector<Time>{3ms}));
}

TEST(VirtualClock, At_a_moment_that_is_past_runs_at_the_next_yield) {
  EventLoop events;
  int runs = 0;
  events.Run_For(10ms);
  events.At(3ms, [&] { ++runs; });
  EXPECT_EQ(runs, 0);
  events.Run_Pending_Events();
  events.Run_Pending_Events();
  EXPECT_EQ(runs, 1);
}

TEST(VirtualClock, Actions_run_in_the_order_of_their_moments_among_the_timers) {
  EventLoop events;
  std::string log;
  const auto timer = events.Make_Timer(20ms, [&] { log += 't'; });
  timer->Enable(true);
  events.At(30ms, [&] { log += 'c'; });
  events.At(10ms, [&] { log += 'a'; });
  events.At(15ms, [&] { log += 'b'; });
  events.Run_For(30ms);
  EXPECT_EQ(log, "abtc");
}

TEST(VirtualClock, An_action_can_wait_and_ask_for_others) {
  EventLoop events;
  std::string log;
  events.At(10ms, [&] {
    log += 'a';
    events.At(20ms, [&] { log += 'b'; });
    events.Wait_For_Events();
    log += 'c';
  });
  events.Run_For(100ms);
  EXPECT_EQ(log, "abc");
}

TEST(VirtualClock, Run_For_ends_exactly_then_and_runs_what_is_due_at_its_end) {
  EventLoop events;
  int ticks = 0;
  const auto timer = events.Make_Timer(10ms, [&] { ++ticks; });
  timer->Enable(true);
  events.Run_For(20ms);
  EXPECT_EQ(events.Now(), 20ms);
  EXPECT_EQ(ticks, 2);
  events.Run_For(9ms);
  EXPECT_EQ(events.Now(), 29ms);
  EXPECT_EQ(ticks, 2);
}

TEST(VirtualClock, A_wait_inside_a_tick_may_go_past_the_end_of_Run_For) {
  EventLoop events;
  bool has_waited = false;
  events.At(10ms, [&] {
    while (events.Now() < 50ms) events.Wait_For_Events();
    has_waited = true;
  });
  events.At(50ms, [] {});
  events.Run_For(20ms);
  EXPECT_TRUE(has_waited);
  EXPECT_EQ(events.Now(), 50ms);
}

TEST(VirtualClock, A_yield_that_does_not_wait_is_counted_and_told) {
  EventLoop events;
  int told = 0;
  int depth = 0;
  events.At_Yield = [&] {
    ++told;
    depth = events.Depth();
  };
  events.At(5ms, [] {});
  events.Wait_For_Events();
  EXPECT_EQ(events.yields, 0);
  events.Run_Pending_Events();
  events.Pass(10us);
  EXPECT_EQ(events.yields, 2);
  EXPECT_EQ(told, 2);
  EXPECT_EQ(depth, 1);
}

TEST(Horizon, A_wait_for_what_lies_beyond_stops_there_and_calls) {
  EventLoop events;
  int calls = 0;
  bool has_run = false;
  events.At(30ms, [&] { has_run = true; });
  events.horizon = 20ms;
  events.At_Horizon = [&] {
    ++calls;
    EXPECT_EQ(events.Now(), 20ms);
    events.horizon = 40ms;
  };
  while (!has_run) events.Wait_For_Events();
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(events.Now(), 30ms);
}

TEST(Horizon, What_is_due_at_the_horizon_itself_runs_without_a_call) {
  EventLoop events;
  bool has_run = false;
  events.At(20ms, [&] { has_run = true; });
  events.horizon = 20ms;
  events.At_Horizon = [] { FAIL(); };
  events.Wait_For_Events();
  EXPECT_TRUE(has_run);
}

TEST(Horizon, A_wait_for_nothing_comes_to_the_horizon) {
  EventLoop events;
  int calls = 0;
  events.horizon = 20ms;
  events.At_Horizon = [&] { ++calls; };
  events.Wait_For_Events();
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(events.Now(), 20ms);
}

TEST(Horizon, What_the_call_makes_due_runs_in_that_wait) {
  EventLoop events;
  bool has_run = false;
  events.horizon = 20ms;
  events.At_Horizon = [&] { events.At(20ms, [&] { has_run = true; }); };
  events.Wait_For_Events();
  EXPECT_TRUE(has_run);
}

TEST(Horizon, A_call_that_throws_ends_the_wait) {
  EventLoop events;
  events.horizon = 20ms;
  events.At_Horizon = [] { throw std::runtime_error("enough"); };
  EXPECT_THROW(events.Wait_For_Events(), std::runtime_error);
  EXPECT_EQ(events.Depth(), 0);
}

TEST(Horizon, Passes_and_Run_For_stop_there_too) {
  EventLoop events;
  int calls = 0;
  events.horizon = 5ms;
  events.At_Horizon = [&] {
    ++calls;
    EXPECT_EQ(events.Now(), *events.horizon);
    *events.horizon += 5ms;
  };
  events.Pass(7ms);
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(events.Now(), 7ms);
  events.Run_For(6ms);
  EXPECT_EQ(calls, 2);
  EXPECT_EQ(events.Now(), 13ms);
}

TEST(Horizon, Without_a_call_a_wait_that_comes_to_it_is_refused) {
  EventLoop events;
  events.At(30ms, [] {});
  events.horizon = 20ms;
  EXPECT_THROW(events.Wait_For_Events(), std::logic_error);
  EXPECT_EQ(events.Now(), 20ms);
}

TEST(Horizon, One_that_is_moved_back_does_not_turn_time_back) {
  EventLoop events;
  events.Run_For(30ms);
  events.horizon = 20ms;
  events.At_Horizon = [&] { events.horizon.reset(); };
  events.At(40ms, [] {});
  events.Wait_For_Events();
  EXPECT_EQ(events.Now(), 30ms);
}

}  // namespace
}  // namespace quillspeech
