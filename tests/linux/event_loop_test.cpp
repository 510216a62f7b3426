#include "platform/linux/event_loop.hpp"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/time.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <thread>

#include "tests/linux/event_loop_fixture.hpp"

namespace quillspeech {
namespace {

using namespace std::chrono_literals;
using linux::EventLoop;
using tests::Never;
using Time = EventLoop::Time;

TEST(SteadyClock, Time_begins_at_0_and_goes_on) {
  const EventLoop events;
  const Time first = events.Now();
  EXPECT_GE(first, Time{0});
  while (events.Now() == first) {
  }
  EXPECT_GT(events.Now(), first);
}

TEST(SteadyClock, A_wait_lasts_until_a_timer_is_due_and_lets_it_tick) {
  EventLoop events;
  int ticks = 0;
  const auto timer = events.Make_Timer(20ms, [&] { ++ticks; });
  const Time before = events.Now();
  timer->Enable(true);
  events.Wait_For_Events();
  EXPECT_EQ(ticks, 1);
  EXPECT_GE(events.Now() - before, 20ms);
}

TEST(SteadyClock, A_yield_runs_no_tick_that_is_not_due) {
  EventLoop events;
  const auto never = Never(events);
  for (int i = 0; i < 1'000; ++i) events.Run_Pending_Events();
}

TEST(SteadyClock, Passes_last_at_least_their_time) {
  EventLoop events;
  const Time before = events.Now();
  for (int i = 0; i < 3'000; ++i) events.Pass(10us);
  EXPECT_GE(events.Now() - before, 29ms);  // the last, unfinished millisecond is not slept
}

TEST(SteadyClock, Waits_leave_the_processor_alone) {
  EventLoop events;
  int ticks = 0;
  const auto timer = events.Make_Timer(5ms, [&] { ++ticks; });
  timer->Enable(true);
  int waits = 0;
  for (; ticks < 20; ++waits) events.Wait_For_Events();
  EXPECT_EQ(waits, 20);
}

TEST(Wake, A_wake_from_another_thread_ends_a_wait_for_nothing) {
  EventLoop events;
  std::thread other([&] { events.Wake(); });
  events.Wait_For_Events();
  other.join();
}

TEST(Wake, What_was_handed_over_before_the_wake_is_seen_after_the_wait) {
  EventLoop events;
  const auto never = Never(events);
  std::atomic<int> handed = 0;
  std::thread other([&] {
    for (int i = 1; i <= 100; ++i) {
      handed = i;
      events.Wake();
    }
  });
  while (handed < 100) events.Wait_For_Events();
  other.join();
}

TEST(Wake, A_wake_before_the_wait_ends_it_even_with_a_yield_between) {
  EventLoop events;
  const auto never = Never(events);
  events.Wake();
  events.Run_Pending_Events();
  events.Wait_For_Events();
}

TEST(Wake, Many_wakes_end_one_wait) {
  EventLoop events;
  int ticks = 0;
  const auto timer = events.Make_Timer(20ms, [&] { ++ticks; });
  timer->Enable(true);
  for (int i = 0; i < 10; ++i) events.Wake();
  events.Wait_For_Events();
  EXPECT_EQ(ticks, 0);
  events.Wait_For_Events();
  EXPECT_EQ(ticks, 1);
}

TEST(Wake, The_error_number_stays_as_it_was) {
  EventLoop events;
  errno = EDOM;
  events.Wake();
  EXPECT_EQ(errno, EDOM);
}

// Sends this process an alarm every so often while it stands.
class Alarms {
 public:
  Alarms(std::chrono::microseconds every, void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    ::sigaction(SIGALRM, &action, &old_);
    Set(every);
  }
  ~Alarms() {
    Set(0us);
    ::sigaction(SIGALRM, &old_, nullptr);
  }
  Alarms(const Alarms&) = delete;
  Alarms& operator=(const Alarms&) = delete;

 private:
  static void Set(std::chrono::microseconds every) {
    itimerval interval{};
    interval.it_interval.tv_usec = interval.it_value.tv_usec = every.count();
    ::setitimer(ITIMER_REAL, &interval, nullptr);
  }
  struct sigaction old_ {};
};

std::atomic<int> alarms = 0;
std::atomic<EventLoop*> woken_by_alarm = nullptr;

TEST(Signals, A_signal_does_not_cut_a_wait_short) {
  EventLoop events;
  int ticks = 0;
  alarms = 0;
  const auto timer = events.Make_Timer(30ms, [&] { ++ticks; });
  timer->Enable(true);
  const Alarms every(2ms, [](int) { ++alarms; });
  events.Wait_For_Events();
  EXPECT_EQ(ticks, 1);
  EXPECT_GT(alarms, 0);
}

TEST(Signals, A_signal_handler_can_wake_the_loop) {
  EventLoop events;
  const auto never = Never(events);
  woken_by_alarm = &events;
  const Alarms every(2ms, [](int) { woken_by_alarm.load()->Wake(); });
  events.Wait_For_Events();
}

}  // namespace
}  // namespace quillspeech
