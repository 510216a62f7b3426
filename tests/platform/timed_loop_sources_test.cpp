#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/headless/event_loop.hpp"
#include "platform/timed_loop.hpp"
#include "tests/platform/hand_clock.hpp"

namespace quillspeech {
namespace {

using namespace std::chrono_literals;
using headless::EventLoop;
using tests::HandClock;
using Time = EventLoop::Time;

// A source that is due at one moment and notes when it is served.
struct Source final : EventSource {
  std::optional<Time> Next_Due() const override { return due; }
  void Serve(Time now) override {
    served.push_back(now);
    if (due && *due <= now) due.reset();
    if (then) then();
  }

  std::optional<Time> due;
  std::vector<Time> served;
  std::function<void()> then;
};

TEST(Sources, A_source_is_served_at_every_yield) {
  EventLoop events;
  Source source;
  events.Add_Source(source);
  events.Run_Pending_Events();
  events.Run_Pending_Events();
  events.Pass(10us);
  EXPECT_EQ(source.served.size(), 3u);
}

TEST(Sources, A_wait_ends_when_a_source_is_due) {
  EventLoop events;
  Source source;
  source.due = 1'234us;
  events.Add_Source(source);
  EXPECT_EQ(events.Next_Due(), 1'234us);
  events.Wait_For_Events();
  EXPECT_EQ(source.served, (std::vector<Time>{1'234us}));
}

TEST(Sources, Sources_are_served_before_timers_tick) {
  EventLoop events;
  std::string log;
  Source source;
  source.due = 10ms;
  source.then = [&] { log += 's'; };
  const auto timer = events.Make_Timer(10ms, [&] { log += 't'; });
  timer->Enable(true);
  events.Add_Source(source);
  events.Wait_For_Events();
  EXPECT_EQ(log, "st");
}

TEST(Sources, A_source_can_be_removed_while_sources_are_served) {
  EventLoop events;
  Source first;
  Source second;
  first.then = [&] {
    events.Remove_Source(first);
    events.Remove_Source(second);
  };
  events.Add_Source(first);
  events.Add_Source(second);
  events.Run_Pending_Events();
  events.Run_Pending_Events();
  EXPECT_EQ(first.served.size(), 1u);
  EXPECT_EQ(second.served.size(), 0u);
}

TEST(Sources, A_source_that_is_added_while_sources_are_served_has_its_turn_at_the_next_yield) {
  EventLoop events;
  Source first;
  Source second;
  first.then = [&] {
    if (first.served.size() == 1) events.Add_Source(second);
  };
  events.Add_Source(first);
  events.Run_Pending_Events();
  EXPECT_EQ(second.served.size(), 0u);
  events.Run_Pending_Events();
  EXPECT_EQ(second.served.size(), 1u);
}

TEST(Sources, A_source_behind_one_that_takes_its_time_is_told_the_time_as_it_is_then) {
  EventLoop events;
  const auto timer = events.Make_Timer(10ms, [] {});
  timer->Enable(true);
  Source first;
  Source second;
  first.then = [&] {
    if (events.Depth() == 1) events.Wait_For_Events();
  };
  events.Add_Source(first);
  events.Add_Source(second);
  events.Run_Pending_Events();
  EXPECT_EQ(second.served, (std::vector<Time>{10ms, 10ms}));
}

TEST(Passes, Fifteen_thousand_passes_of_10_us_take_150_ms) {
  EventLoop events;
  for (int i = 0; i < 15'000; ++i) events.Pass(10us);
  EXPECT_EQ(events.Now(), 150ms);
  EXPECT_EQ(events.yields, 15'000);
}

TEST(Passes, They_run_what_is_due_meanwhile_at_its_time) {
  EventLoop events;
  std::vector<Time> ticks;
  const auto timer = events.Make_Timer(50ms, [&] { ticks.push_back(events.Now()); });
  timer->Enable(true);
  for (int i = 0; i < 15'000; ++i) events.Pass(10us);
  EXPECT_EQ(ticks, (std::vector<Time>{50ms, 100ms, 150ms}));
}

TEST(Passes, Their_time_is_not_cut_short_by_what_is_due_between) {
  EventLoop events;
  Source often;
  often.then = [&] {
    if (!often.due) often.due = events.Now() + 130us;
  };
  often.due = 130us;
  events.Add_Source(often);
  for (int i = 0; i < 15'000; ++i) events.Pass(10us);
  EXPECT_EQ(events.Now(), 150ms);
  EXPECT_GE(often.served.size(), 150'000u / 130u);
}

TEST(Passes, A_pass_of_a_millisecond_or_more_sleeps_for_itself) {
  for (const Time least : {Time(1ms), Time(2ms), Time(70ms)}) {
    EventLoop events;
    events.Pass(least);
    EXPECT_EQ(events.Now(), least);
  }
}

TEST(Passes, Passes_inside_a_tick_of_a_pass_take_their_own_time) {
  EventLoop events;
  std::unique_ptr<Timer> timer;
  timer = events.Make_Timer(5ms, [&] {
    timer->Enable(false);
    const Time before = events.Now();
    for (int i = 0; i < 1'000; ++i) events.Pass(10us);
    EXPECT_GE(events.Now() - before, 10ms);
  });
  timer->Enable(true);
  for (int i = 0; i < 1'000; ++i) events.Pass(10us);
  EXPECT_GE(events.Now(), 14ms);
}

TEST(Passes, Time_that_went_by_otherwise_counts_for_no_later_pass) {
  EventLoop events;
  for (int i = 0; i < 1'000; ++i) events.Pass(10us);
  events.Run_For(1s);
  const Time before = events.Now();
  for (int i = 0; i < 1'000; ++i) events.Pass(10us);
  EXPECT_EQ(events.Now() - before, 10ms);
}

TEST(Passes, Passes_that_take_longer_by_themselves_do_not_sleep) {
  HandClock events;
  Source busy;
  busy.then = [&] { events.now += 50us; };
  events.Add_Source(busy);
  for (int i = 0; i < 1'000; ++i) events.Pass(10us);
  EXPECT_EQ(events.Now(), 50ms);
}

TEST(Passes, A_sleep_that_took_too_long_is_made_up_for_by_the_passes_behind_it) {
  HandClock events;
  events.oversleeps = 2'300us;
  for (int i = 0; i < 1'500; ++i) events.Pass(100us);
  EXPECT_GE(events.Now(), 150ms);
  EXPECT_LE(events.Now(), 153ms);
}

TEST(Passes, What_a_sleep_took_too_long_counts_for_no_other_wait) {
  HandClock events;
  events.oversleeps = 2'300us;
  for (int i = 0; i < 10; ++i) events.Pass(100us);
  events.now += 1ms;
  const Time before = events.Now();
  for (int i = 0; i < 10; ++i) events.Pass(100us);
  EXPECT_GE(events.Now() - before, 1ms);
}

TEST(Passes, No_more_than_20_ms_are_made_up_for) {
  HandClock events;
  events.oversleeps = 1s;
  for (int i = 0; i < 10; ++i) events.Pass(100us);
  EXPECT_GE(events.Now(), 1s);
  const Time before = events.Now();
  for (int i = 0; i < 10; ++i) events.Pass(100us);
  EXPECT_GE(events.Now() - before, 1ms);
}

TEST(Depth, Each_kind_of_yield_counts_once_while_it_is_on_the_stack) {
  EventLoop events;
  Source source;
  std::vector<int> depths;
  source.then = [&] { depths.push_back(events.Depth()); };
  source.due = 1ms;
  events.Add_Source(source);
  EXPECT_EQ(events.Depth(), 0);
  events.Run_Pending_Events();
  events.Wait_For_Events();
  events.Pass(10us);
  events.Pass(1ms);
  EXPECT_EQ(depths, (std::vector<int>{1, 1, 1, 1}));
  EXPECT_EQ(events.Depth(), 0);
}

}  // namespace
}  // namespace quillspeech
