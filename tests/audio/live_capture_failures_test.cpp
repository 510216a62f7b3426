#include <gtest/gtest.h>

#include "tests/audio/live_capture_fixture.hpp"

namespace quillspeech {
namespace {

using namespace tests;

TEST(StartRecordingFails, Without_a_sampling_time_there_is_a_box_and_no_recording) {
  LiveCapture test;
  test.session.settings.Speech_sampling_time_in_ms = 0;
  test.events.Enable(FormTimer::Timer5, true);
  Start_Recording(test.session);
  EXPECT_TRUE(test.Showed("No sampling time", "Quillspeech User Error", BoxIcon::Stop));
  EXPECT_TRUE(test.card.calls.empty());
  EXPECT_TRUE(test.cues.calls.empty());
  EXPECT_EQ(test.session.flags.Settings_Ready_Count, 2);
  EXPECT_EQ(test.session.recorder.Recording_Active, 0);
  for (const FormTimer timer : {FormTimer::Timer1, FormTimer::Timer3, FormTimer::Timer5}) {
    EXPECT_FALSE(test.Is_On(timer));
  }
}

TEST(StartRecordingFails, Without_a_device_there_is_a_box_and_the_recording_stays_active) {
  LiveCapture test;
  test.card.faults["wave_in_get_dev_caps"] = Wave_No_Driver;
  Start_Recording(test.session);
  EXPECT_TRUE(test.Showed("ACCESS DENIED.Please install your Sound Card properly", "Quillspeech",
                          BoxIcon::None));
  EXPECT_EQ(test.card.calls, Calls{"wave_in_get_dev_caps"});
  EXPECT_EQ(test.session.recorder.Recording_Active, 1);
  EXPECT_EQ(test.session.recorder.Recording_Stopped, 0);
  EXPECT_EQ(test.session.flags.Settings_Ready_Count, 3);
  EXPECT_EQ(test.cues.calls, Calls{"play start.wav"});
  EXPECT_FALSE(test.Is_On(FormTimer::Timer1));
  EXPECT_FALSE(test.Is_On(FormTimer::Timer3));
  EXPECT_TRUE(test.calls.empty());
}

TEST(StartRecordingFails, A_link_of_the_chain_that_fails_is_not_reported_and_ends_the_chain) {
  for (std::size_t links = 2; links <= Set_Up.size(); ++links) {
    const std::string& failing = Set_Up[links - 1];
    LiveCapture test;
    test.Without_Timers();
    test.card.faults[failing] = Wave_Device_In_Use;
    test.Stop_At(300ms);
    Start_Recording(test.session);
    const Calls made(Set_Up.begin(), Set_Up.begin() + static_cast<std::ptrdiff_t>(links));
    EXPECT_EQ(test.card.calls, made + Taken_Down + Calls{"wave_in_unprepare_header"}) << failing;
    EXPECT_TRUE(test.boxes.shown.empty()) << failing;
    EXPECT_TRUE(test.calls.empty()) << failing;
    EXPECT_EQ(test.Byte(0), 0) << failing;
  }
}

TEST(StartRecordingFails, The_format_that_was_asked_for_stands_though_the_device_does_not_open) {
  LiveCapture test;
  test.Without_Timers().session.settings.Set_Recording_Frequency = 11'025;
  test.card.faults["wave_in_open"] = Wave_Bad_Format;
  test.Stop_At(300ms);
  Start_Recording(test.session);
  EXPECT_EQ(test.session.sample.Wave_Format.samples_per_second, 11'025U);
  EXPECT_EQ(test.session.sample.Wave_Format.bits_per_sample, 8);
}

TEST(StartRecordingFails, A_chain_that_fails_arms_the_timers_all_the_same_and_waits) {
  for (std::size_t link = 1; link < Set_Up.size(); ++link) {
    LiveCapture test;
    test.Without_Timers();
    test.card.faults[Set_Up[link]] = Wave_Device_In_Use;
    int looks = 0;
    test.events.At(30s, [&] {
      ++looks;
      EXPECT_TRUE(test.Is_On(FormTimer::Timer1));
      EXPECT_TRUE(test.Is_On(FormTimer::Timer3));
      test.Stop();
    });
    Start_Recording(test.session);
    EXPECT_EQ(looks, 1);
    EXPECT_EQ(test.events.Now(), 30s);
  }
}

TEST(StartRecordingFails, A_buffer_still_marked_done_by_the_last_stop_ends_the_wait_at_once) {
  LiveCapture test;
  test.Without_Timers();
  test.Stop_At(300ms);
  Start_Recording(test.session);
  test.session.settings.Stop_everything_now = "NO";
  test.card.faults["wave_in_open"] = Wave_Device_In_Use;
  const int yields = test.events.yields;
  Start_Recording(test.session);
  EXPECT_EQ(test.events.Now(), 300ms);
  EXPECT_EQ(test.events.yields, yields + 1);
}

// A run-time failure of the start: box, then recovery.
void Expect_Start_Failure(LiveCapture& test, int number) {
  std::size_t boxes = 0;
  test.session.operations.Stop_And_Recover = [&](Session&) { boxes += test.boxes.shown.size(); };
  Start_Recording(test.session);
  EXPECT_TRUE(test.Showed("Problems Starting Recording, Check Your Settings and Sound Card",
                          "Quillspeech RECORDING ERROR(Rare)", BoxIcon::Stop));
  EXPECT_EQ(boxes, 1U);  // one recovery, behind the box
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{number});
}

TEST(StartRecordingFails, A_product_past_32_bits_fails_before_the_cue) {
  LiveCapture test;
  test.session.settings.Speech_sampling_time_in_ms = 97'392;
  Expect_Start_Failure(test, 6);
  EXPECT_TRUE(test.cues.calls.empty());
  EXPECT_EQ(test.session.flags.Settings_Ready_Count, 2);
}

TEST(StartRecordingFails, More_than_32767_ready_settings_are_an_overflow) {
  LiveCapture test;
  test.session.flags.Settings_Ready_Count = 32'767;
  Expect_Start_Failure(test, 6);
  EXPECT_EQ(test.session.flags.Settings_Ready_Count, 32'767);
  EXPECT_EQ(test.session.recorder.Recording_Active, 0);
  EXPECT_TRUE(test.cues.calls.empty());
}

TEST(StartRecordingFails, A_negative_length_is_no_buffer_and_no_device_points_at_the_old_one) {
  LiveCapture test;
  test.Without_Timers();
  Start_Recording(test.session);
  test.events.Enable(FormTimer::Timer1, false);
  test.session.settings.Speech_sampling_time_in_ms = -1000;
  Expect_Start_Failure(test, 9);
  EXPECT_EQ(test.session.sample.Wave_Header.data, nullptr);
  EXPECT_FALSE(test.Is_On(FormTimer::Timer1));
}

TEST(StartRecordingFails, A_running_one_that_cannot_be_stopped_is_not_active_any_more) {
  LiveCapture test;
  test.session.recorder.Recording_Active = 1;
  test.session.sample.Wave_Header.bytes_recorded = 0xFFFFFFFF;  // the stop fails
  test.session.operations.Stop_And_Recover = Operations::Nothing;
  test.session.settings.Speech_sampling_time_in_ms = 0;
  Start_Recording(test.session);
  EXPECT_EQ(test.boxes.shown.size(), 2U);
  EXPECT_EQ(test.session.recorder.Recording_Active, 0);
}

TEST(StartRecordingFails, With_a_restart_on_errors_a_failure_arms_the_next_capture) {
  LiveCapture test;
  test.session.settings.Always_Restart_on_Error = "YES";
  test.session.flags.Settings_Ready_Count = 32'767;
  Start_Recording(test.session);
  EXPECT_EQ(test.calls, Calls{"Stop_And_Recover"});
  EXPECT_TRUE(test.Is_On(FormTimer::Timer5));
}

}  // namespace
}  // namespace quillspeech
