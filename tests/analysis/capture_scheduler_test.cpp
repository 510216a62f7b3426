// The timers of the hidden window, and the cycle of captures that they drive.
#include "analysis/capture_scheduler.hpp"

#include <gtest/gtest.h>

#include "tests/support/failures.hpp"
#include "tests/support/live_session.hpp"
#include "tests/support/sample_builder.hpp"

namespace quillspeech {
namespace {

using namespace tests;

TEST(CaptureClock, It_re_arms_the_capture_when_the_sampling_time_has_passed) {
  for (const auto& [ms, ticks] :
       {std::pair{3000, 3}, {3001, 4}, {2999, 3}, {1000, 1}, {1, 1}, {0, 1}, {7000, 7}}) {
    LiveSession test;
    test.session.settings.Speech_sampling_time_in_ms = ms;
    test.events.Enable(FormTimer::Timer1, true);
    for (int tick = 1; tick <= ticks; ++tick) {
      EXPECT_FALSE(test.Is_On(FormTimer::Timer5)) << ms;
      EXPECT_TRUE(test.Is_On(FormTimer::Timer1)) << ms;
      EXPECT_EQ(test.session.recorder.Capture_Seconds, tick - 1) << ms;
      Timer1_Timer(test.session);
    }
    EXPECT_TRUE(test.Is_On(FormTimer::Timer5)) << ms;
    EXPECT_FALSE(test.Is_On(FormTimer::Timer1)) << ms;
    EXPECT_EQ(test.session.recorder.Capture_Seconds, 0) << ms;
  }
}

TEST(CaptureClock, While_a_sample_is_processed_it_counts_on_and_re_arms_nothing) {
  LiveSession test;
  test.session.settings.Speech_sampling_time_in_ms = 2000;
  test.session.flags.Analysis_Running = 1;
  for (int tick = 0; tick < 5; ++tick) Timer1_Timer(test.session);
  EXPECT_FALSE(test.Is_On(FormTimer::Timer5));
  EXPECT_EQ(test.session.recorder.Capture_Seconds, 5);
  test.session.flags.Analysis_Running = 0;
  Timer1_Timer(test.session);
  EXPECT_TRUE(test.Is_On(FormTimer::Timer5));
}

TEST(CaptureClock, A_time_in_ms_past_32_bits_is_an_overflow_at_the_tick) {
  for (const auto& [seconds, failure] : {std::pair{2'147'482, 0}, {2'147'483, 6}}) {
    for (const int running : {0, 1}) {
      LiveSession test;
      test.session.flags.Analysis_Running = running;
      test.session.recorder.Capture_Seconds = seconds;
      test.events.Enable(FormTimer::Timer1, true);
      EXPECT_EQ(Failure_Of([&] { test.events.Run_For(1s); }), failure) << seconds;
      EXPECT_EQ(test.Is_On(FormTimer::Timer5), failure == 0 && running == 0) << seconds;
    }
  }
}

// How often the pump's timer ticks in a second, its buffer being too short for a look.
int Pump_Ticks(int delay) {
  LiveSession test;
  int ticks = 0;
  test.session.settings.Voice_Capture_Delay = delay;
  test.events.On_Tick(FormTimer::Timer3, [&] {
    ++ticks;
    Timer3_Timer(test.session);
  });
  test.events.Enable(FormTimer::Timer3, true);
  test.events.Run_For(1s);
  return ticks;
}

TEST(PumpTrigger, The_first_tick_makes_the_capture_delay_its_interval) {
  EXPECT_EQ(Pump_Ticks(5), 200);
  EXPECT_EQ(Pump_Ticks(1), 996);
  EXPECT_EQ(Pump_Ticks(100), 10);  // after 5 ms, and from there every 100 ms
}

TEST(PumpTrigger, A_delay_of_0_or_less_stops_it_after_the_first_tick) {
  EXPECT_EQ(Pump_Ticks(0), 1);
  EXPECT_EQ(Pump_Ticks(-1), 1);
}

TEST(PumpTrigger, While_the_capture_is_busy_only_the_interval_is_set) {
  LiveSession test;
  test.session.flags.Capture_Busy = 1;
  Timer3_Timer(test.session);
  EXPECT_EQ(test.session.flags.Operation_Status, "");
  test.session.flags.Capture_Busy = 0;
  Timer3_Timer(test.session);
  EXPECT_EQ(test.session.flags.Operation_Status, "Alert");
}

TEST(CaptureStarter, It_starts_a_recording_and_goes_off) {
  LiveSession test;
  test.session.settings.Speech_sampling_time_in_ms = 500;
  test.events.Enable(FormTimer::Timer5, true);
  test.events.Run_For(200ms);
  EXPECT_FALSE(test.Is_On(FormTimer::Timer5));
  EXPECT_EQ(test.session.sample.Wave_Header.bytes_recorded, 11'025U + 128U);
}

TEST(OtherTimers, They_do_nothing) {
  LiveSession test;
  test.events.Enable(FormTimer::Timer2, true);
  test.events.Enable(FormTimer::Timer4, true);
  test.events.Run_For(5s);
  EXPECT_TRUE(test.card.calls.empty());
  EXPECT_EQ(test.session.flags.Operation_Status, "");
  EXPECT_EQ(test.session.recorder.Capture_Seconds, 0);
}

TEST(WaitPasses, It_yields_as_often_as_it_is_told) {
  for (const auto& [count, yields] :
       {std::pair{0, 0}, {-1, 0}, {-2147483647, 0}, {1, 1}, {2, 2}, {1000, 1000}}) {
    headless::EventLoop events;
    Checked32 passes = count;
    Wait_Passes(events, passes);
    EXPECT_EQ(events.yields, yields);
    EXPECT_EQ(passes, count);
  }
}

TEST(WaitPasses, How_often_is_settled_when_it_begins) {
  headless::EventLoop events;
  Checked32 passes = 10;
  events.At_Yield = [&] { passes = 500; };
  Wait_Passes(events, passes);
  EXPECT_EQ(events.yields, 10);
}

TEST(WaitPasses, The_default_of_15000_lasts_a_second_and_a_half) {
  headless::EventLoop events;
  Settings settings;
  Wait_Passes(events, settings.Voice_Processing_Delay);
  EXPECT_EQ(settings.Voice_Processing_Delay, 15'000);
  EXPECT_EQ(events.Now(), 1'500ms);
}

// A session from its first tick on.
struct Cycle : LiveSession {
  explicit Cycle(int ms) {
    session.settings.Speech_sampling_time_in_ms = ms;
    session.flags.Session_Started = 1;
    events.Enable(FormTimer::Timer5, true);
  }
};

TEST(CaptureCycle, A_silent_capture_is_replaced_after_three_ticks_of_the_clock) {
  Cycle test(3000);
  test.events.Run_For(10s);
  // Each begins 3.1 s after the one before: at 0.1, 3.2, 6.3 and 9.4 s.
  EXPECT_EQ(test.Times("wave_in_open"), 4);
  EXPECT_EQ(test.session.flags.Operation_Status, "Alert");
  EXPECT_TRUE(test.boxes.shown.empty());
}

// The statuses that a look every millisecond sees, in order.
Calls Statuses(Cycle& test, EventLoop::Time duration) {
  Calls statuses;
  const auto watch = test.events.Make_Timer(1ms, [&] {
    const std::string& status = test.session.flags.Operation_Status;
    if (statuses.empty() || statuses.back() != status) statuses.push_back(status);
  });
  watch->Enable(true);
  test.events.Run_For(duration);
  return statuses;
}

TEST(CaptureCycle, Fewer_than_50_hits_are_not_heard_of) {
  for (const auto& [grid_samples, heard] : {std::pair{47, false}, {48, true}}) {
    Cycle test(3000);
    test.card.Play_Into_Microphone(Level(150, Bytes(grid_samples * 25)), 22'050, 1s);
    const Calls statuses = Statuses(test, 10s);
    EXPECT_EQ(statuses.size() > 2, heard) << grid_samples;
    if (!heard) {
      EXPECT_EQ(statuses, (Calls{"", "Alert"}));
      EXPECT_EQ(test.Times("wave_in_open"), 4);
    }
  }
}

TEST(CaptureCycle, A_spoken_word_is_processed_and_the_next_capture_begins) {
  Cycle test(2000);
  test.session.trace.Keep_Slices = true;
  test.card.Play_Into_Microphone(Words({4000}, Bytes(5000)), 22'050, 100ms);
  Calls statuses = Statuses(test, 1'500ms);
  EXPECT_FALSE(test.session.trace.slices.empty());
  EXPECT_GE(test.Times("wave_in_open"), 2);
  EXPECT_EQ(statuses, (Calls{"", "Alert", "Speechdetected", "Finish", "Alert"}));
}

// Whether the recording still runs at the first yield of the first slice.
bool Records_At_First_Slice(Cycle& test) {
  test.card.Play_Into_Microphone(Words({4000}, Bytes(5000)), 22'050, 100ms);
  int active = -1;
  test.events.At_Yield = [&] {
    if (active < 0 && test.session.flags.Operation_Status == "Starting Processing" &&
        test.card.played.empty() == (test.session.settings.Speech_echo_feature == "NO")) {
      active = test.session.recorder.Recording_Active.Raw();
    }
  };
  test.events.Run_For(2s);
  test.events.At_Yield = nullptr;
  EXPECT_GE(active, 0);
  return active == 1;
}

TEST(CaptureCycle, Without_an_echo_the_recording_runs_on_until_the_first_slice) {
  Cycle test(2000);
  EXPECT_TRUE(Records_At_First_Slice(test));
  EXPECT_TRUE(test.card.played.empty());
}

TEST(CaptureCycle, An_echo_stops_the_recording_and_is_played_before_the_word_is_analysed) {
  Cycle test(2000);
  test.session.settings.Speech_echo_feature = "YES";
  EXPECT_FALSE(Records_At_First_Slice(test));
  ASSERT_FALSE(test.card.played.empty());
  EXPECT_EQ(test.card.played[0].format.samples_per_second, 22'050U);
}

TEST(CaptureCycle, A_stop_brings_every_timer_to_rest_and_frees_both_flags) {
  for (const auto moment : {50ms, 150ms, 1'000ms, 3'150ms, 3'300ms}) {
    Cycle test(3000);
    test.Stop_At(moment);
    test.events.Run_For(5s);
    for (const FormTimer timer : {FormTimer::Timer1, FormTimer::Timer3, FormTimer::Timer5}) {
      EXPECT_FALSE(test.Is_On(timer)) << moment.count();
    }
    EXPECT_EQ(test.session.flags.Capture_Busy, 0) << moment.count();
    EXPECT_EQ(test.session.flags.Analysis_Running, 0) << moment.count();
    EXPECT_EQ(test.session.recorder.Recording_Active, 0) << moment.count();
    EXPECT_EQ(test.session.recorder.Waiting_Depth, 0) << moment.count();
  }
}

TEST(CaptureCycle, Stopped_by_the_setting_alone_the_timers_tick_on_and_nothing_begins) {
  Cycle test(3000);
  test.session.settings.Stop_everything_now = "YES";
  test.events.Enable(FormTimer::Timer3, true);
  test.events.Run_For(1s);
  EXPECT_TRUE(test.card.calls.empty());
  EXPECT_TRUE(test.Is_On(FormTimer::Timer5));
  EXPECT_TRUE(test.Is_On(FormTimer::Timer3));
  EXPECT_EQ(test.session.flags.Operation_Status, "");
}

}  // namespace
}  // namespace quillspeech
