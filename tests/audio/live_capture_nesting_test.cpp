// Captures that begin inside the wait of another.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/audio/live_capture_fixture.hpp"

namespace quillspeech {
namespace {

using namespace tests;

// Only the starter and the clock run.
struct Nested : LiveCapture {
  Nested() {
    events.On_Tick(FormTimer::Timer3, [] {});
  }
  Nested& Dead() {
    card.faults["wave_in_open"] = Wave_No_Driver;
    return *this;
  }
};

TEST(NestedCapture, A_capture_that_times_out_inside_a_capture_takes_its_place) {
  Nested test;
  test.session.settings.Speech_sampling_time_in_ms = 1100;
  test.session.recorder.Capture_Seconds = 1;
  test.Stop_At(1'500ms);
  Start_Recording(test.session);
  // Begun at 0 s and, after a tick of the clock and 100 ms, at 1.1 s.
  EXPECT_EQ(test.card.calls, Set_Up + Taken_Down + Set_Up + Taken_Down +
                                 (Calls{"wave_in_unprepare_header", "wave_in_unprepare_header"}));
  EXPECT_EQ(test.session.flags.Settings_Ready_Count, 4);
  EXPECT_EQ(test.session.recorder.Last_Recorded_Index, 8'819);
}

TEST(NestedCapture, When_a_buffer_completes_every_call_that_waits_returns) {
  Nested test;
  test.card.faults["wave_in_start"] = Wave_Device_In_Use;
  test.events.At(5s, [&] { test.card.faults.clear(); });
  bool returned = false;
  test.events.On_Tick(FormTimer::Timer1, [&] {
    if (!returned) Timer1_Timer(test.session);
  });
  Start_Recording(test.session);
  returned = true;
  const std::int64_t recordings = test.Times("wave_in_open");
  EXPECT_EQ(recordings, 6);  // 1.1 s after one another, the last at 5.5 s
  EXPECT_EQ(test.events.Now(), 5'500ms + 1'005'805us);
  EXPECT_EQ(test.Times("wave_in_close"), recordings - 1);
  EXPECT_EQ(test.Times("wave_in_unprepare_header"), recordings - 1 + recordings);
}

TEST(NestedCapture, With_a_dead_device_1000_captures_in_a_row_keep_the_stack_flat) {
  Nested test;
  test.Dead();
  int deepest = 0;
  const char* highest = nullptr;
  std::ptrdiff_t stack = 0;
  test.events.On_Tick(FormTimer::Timer5, [&] {
    const auto* const here = static_cast<const char*>(__builtin_frame_address(0));
    if (!highest) highest = here;
    stack = std::max(stack, highest - here);
    deepest = std::max(deepest, test.events.Depth());
    Timer5_Timer(test.session);
    if (test.session.flags.Settings_Ready_Count == 1'003) test.Stop();
  });
  Start_Recording(test.session);
  EXPECT_EQ(deepest, 1);
  EXPECT_LT(stack, 1'000);
  EXPECT_EQ(test.events.Now(), 1'000 * 1'100ms);
  EXPECT_EQ(test.Times("wave_in_open"), 1'001);
  EXPECT_EQ(test.Times("wave_in_close"), 1'001);
  EXPECT_EQ(test.Times("wave_in_unprepare_header"), 2 * 1'001);  // by each stop, by each return
}

TEST(NestedCapture, A_device_that_comes_back_is_recorded_from) {
  Nested test;
  test.Dead();
  test.events.At(20s, [&] { test.card.faults.clear(); });
  Start_Recording(test.session);
  EXPECT_EQ(test.session.sample.Wave_Header.bytes_recorded, 22'178U);
  EXPECT_EQ(test.Byte(22'177), 140);
}

TEST(NestedCapture, The_next_one_without_a_sampling_time_ends_the_wait_below) {
  Nested test;
  test.Dead();
  test.events.At(500ms, [&] { test.session.settings.Speech_sampling_time_in_ms = 0; });
  Start_Recording(test.session);
  EXPECT_EQ(test.events.Now(), 1'100ms);
  EXPECT_TRUE(test.Showed("No sampling time", "Quillspeech User Error", BoxIcon::Stop));
  EXPECT_EQ(test.Times("wave_in_unprepare_header"), 2);  // by the stop, by the one return
}

TEST(NestedCapture, The_next_one_without_a_device_ends_the_wait_below) {
  Nested test;
  test.Dead();
  test.events.At(500ms, [&] { test.card.present = false; });
  Start_Recording(test.session);
  EXPECT_EQ(test.events.Now(), 1'100ms);
  EXPECT_EQ(test.boxes.shown.size(), 1U);
  EXPECT_EQ(test.session.recorder.Recording_Active, 1);
}

TEST(NestedCapture, The_next_one_that_fails_recovers_and_ends_the_wait_below) {
  Nested test;
  test.Dead();
  test.session.settings.Always_Restart_on_Error = "YES";
  test.events.At(500ms, [&] { test.session.flags.Settings_Ready_Count = 32'767; });
  Start_Recording(test.session);
  EXPECT_EQ(test.events.Now(), 1'100ms);
  EXPECT_EQ(test.boxes.shown.size(), 1U);
  EXPECT_TRUE(test.Is_On(FormTimer::Timer5));
}

TEST(NestedCapture, Each_one_yields_before_it_waits) {
  Nested test;
  test.Dead();
  test.Stop_At(2'500ms);
  Start_Recording(test.session);
  EXPECT_EQ(test.Times("wave_in_open"), 3);
  EXPECT_EQ(test.events.yields, 3);
}

TEST(NestedCapture, One_that_begins_in_a_deeper_yield_ends_before_the_work_around_it_goes_on) {
  Nested test;
  Calls order;
  test.events.At(300ms, [&] {
    test.events.Enable(FormTimer::Timer5, true);
    for (int i = 0; i < 30'000; ++i) test.events.Pass(10us);
    order.push_back("passes, " + std::to_string(test.session.sample.Wave_Header.bytes_recorded));
  });
  test.events.On_Tick(FormTimer::Timer1, [] {});
  Start_Recording(test.session);
  order.emplace_back("returned");
  EXPECT_EQ(order, (Calls{"passes, 22178", "returned"}));
  EXPECT_EQ(test.Times("wave_in_open"), 2);
  EXPECT_EQ(test.Times("wave_in_unprepare_header"), 3);
}

TEST(NestedCapture, A_wait_that_is_left_by_a_failure_waits_for_nobody_any_more) {
  Nested test;
  test.events.At(300ms, [] { Fail(Failure::Device_Failure); });
  Start_Recording(test.session);
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{57});
  EXPECT_EQ(test.session.recorder.Waiting_Depth, 0);
  EXPECT_EQ(test.session.recorder.Calls_Waiting, 0);
}

TEST(NestedCapture, A_failure_ends_the_last_call_and_its_recovery_lets_the_others_return) {
  Nested test;
  test.Dead();
  test.session.settings.Always_Restart_on_Error = "YES";
  test.events.At(2'500ms, [] { Fail(Failure::Device_Failure); });
  Start_Recording(test.session);
  const Calls dead = {"wave_in_get_dev_caps", "wave_in_open"};
  EXPECT_EQ(test.card.calls, dead + Taken_Down + dead + Taken_Down + dead + Taken_Down +
                                 (Calls{"wave_in_unprepare_header", "wave_in_unprepare_header"}));
  EXPECT_EQ(test.events.Now(), 2'500ms);
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{57});
  EXPECT_EQ(test.boxes.shown.size(), 1U);
  EXPECT_EQ(test.calls, Calls{"Stop_And_Recover"});
  EXPECT_EQ(test.session.recorder.Waiting_Depth, 0);
  EXPECT_EQ(test.session.recorder.Calls_Waiting, 0);
}

TEST(NestedCapture, A_stop_and_a_start_inside_the_wait_leave_the_next_capture_to_the_starter) {
  Nested test;
  test.events.At(300ms, [&] {
    test.Stop();
    test.session.settings.Stop_everything_now = "NO";
    test.events.Enable(FormTimer::Timer5, true);
  });
  Start_Recording(test.session);
  EXPECT_EQ(test.events.Now(), 300ms);
  EXPECT_TRUE(test.Is_On(FormTimer::Timer5));
  EXPECT_EQ(test.Times("wave_in_open"), 1);
}

}  // namespace
}  // namespace quillspeech
