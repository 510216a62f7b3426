#include "audio/live_capture.hpp"

#include <gtest/gtest.h>

#include <tuple>

#include "tests/audio/live_capture_fixture.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech {
namespace {

using namespace tests;

TEST(PromisedSamples, Are_the_sampling_time_in_samples_a_half_to_the_even_number) {
  using Row = std::tuple<int, int, int>;  // ms, samples a second, samples
  for (const auto& [ms, rate, samples] :
       {Row{7000, 22050, 154350}, Row{1000, 22050, 22050}, Row{1, 22500, 22}, Row{1, 23500, 24},
        Row{1, 22501, 23}, Row{7000, 0, 0}, Row{2147483, 1000, 2147483}, Row{-1, 1500, -2}}) {
    Settings settings;
    settings.Speech_sampling_time_in_ms = ms;
    settings.Set_Recording_Frequency = rate;
    EXPECT_EQ(Promised_Samples(settings), samples) << ms << " at " << rate;
  }
}

TEST(PromisedSamples, A_product_past_32_bits_is_an_overflow) {
  Settings settings;
  settings.Set_Recording_Frequency = 22050;
  settings.Speech_sampling_time_in_ms = 97391;
  EXPECT_EQ(Failure_Of([&] { Promised_Samples(settings); }), 0);
  settings.Speech_sampling_time_in_ms = 97392;
  EXPECT_EQ(Failure_Of([&] { Promised_Samples(settings); }), 6);
}

TEST(StartRecording, A_stopped_session_records_nothing) {
  LiveCapture test;
  test.session.settings.Stop_everything_now = "YES";
  test.events.Enable(FormTimer::Timer5, true);
  Start_Recording(test.session);
  EXPECT_TRUE(test.card.calls.empty());
  EXPECT_TRUE(test.Is_On(FormTimer::Timer5));
  EXPECT_EQ(test.session.flags.Settings_Ready_Count, 2);
}

TEST(StartRecording, One_second_is_a_buffer_of_22178_bytes_and_the_call_lasts_until_it_is_full) {
  LiveCapture test;
  test.Without_Timers();
  Start_Recording(test.session);
  const Sample& sample = test.session.sample;
  EXPECT_EQ(sample.Samples_Per_Capture, 22'050);
  EXPECT_EQ(sample.Wave_Header_Buffer_Length, 22'178);
  EXPECT_EQ(sample.Wave_Header.buffer_length, 22'178U);
  EXPECT_EQ(sample.Wave_Header.bytes_recorded, 22'178U);
  EXPECT_EQ(sample.Speech_Sample_Bytes.Count(), 22'179);
  EXPECT_EQ(test.Byte(0), 140);
  EXPECT_EQ(test.Byte(22'177), 140);
  EXPECT_EQ(test.Byte(22'178), 0);  // the cell behind the buffer
  EXPECT_EQ(test.events.Now(), 1'005'805us);
}

TEST(StartRecording, The_device_is_asked_for_8_bit_mono_at_the_frequency) {
  LiveCapture test;
  test.Without_Timers().session.settings.Set_Recording_Frequency = 11'025;
  Start_Recording(test.session);
  const WaveFormat& format = test.session.sample.Wave_Format;
  EXPECT_EQ(format.format_tag, 1);
  EXPECT_EQ(format.channels, 1);
  EXPECT_EQ(format.samples_per_second, 11'025U);
  EXPECT_EQ(format.average_bytes_per_second, 11'025U);
  EXPECT_EQ(format.block_alignment, 1);
  EXPECT_EQ(format.bits_per_sample, 8);
  EXPECT_EQ(test.session.recorder.Recording_Bits, 8);
  EXPECT_EQ(test.session.recorder.Recording_Channels, 1);
}

TEST(StartRecording, The_header_is_unprepared_at_the_end_and_the_device_stays_open) {
  LiveCapture test;
  test.Without_Timers();
  Start_Recording(test.session);
  EXPECT_EQ(test.card.calls, Set_Up + Calls{"wave_in_unprepare_header"});
  EXPECT_EQ(test.session.recorder.Recording_Active, 1);
  EXPECT_EQ(test.session.recorder.Recording_Stopped, 0);
}

TEST(StartRecording, A_full_buffer_leaves_the_device_open_until_the_next_stop) {
  LiveCapture test;
  test.Without_Timers();
  Start_Recording(test.session);
  test.card.calls.clear();
  Stop_Recording(test.session);
  EXPECT_EQ(test.card.calls, Taken_Down);
  EXPECT_EQ(test.session.recorder.Last_Recorded_Index, 22'177);
}

TEST(StartRecording, While_it_waits_it_is_active_and_cells_that_are_not_reached_yet_hold_0) {
  LiveCapture test;
  test.Without_Timers();
  int looks = 0;
  test.events.At(500ms, [&] {
    ++looks;
    EXPECT_EQ(test.session.recorder.Recording_Active, 1);
    EXPECT_EQ(test.session.recorder.Recording_Stopped, 0);
    EXPECT_EQ(test.Byte(11'024), 140);
    EXPECT_EQ(test.Byte(11'025), 0);
  });
  Start_Recording(test.session);
  EXPECT_EQ(looks, 1);
}

TEST(StartRecording, Each_recording_begins_with_a_buffer_of_zeros) {
  LiveCapture test;
  test.Without_Timers();
  Start_Recording(test.session);
  test.events.At(1'200ms, [&] { EXPECT_EQ(test.Byte(20'000), 0); });
  Start_Recording(test.session);
  EXPECT_EQ(test.Byte(20'000), 140);
}

TEST(StartRecording, The_starter_goes_off_and_the_clock_and_the_pump_go_on) {
  LiveCapture test;
  test.Without_Timers().events.Enable(FormTimer::Timer5, true);
  Start_Recording(test.session);
  EXPECT_FALSE(test.Is_On(FormTimer::Timer5));
  EXPECT_TRUE(test.Is_On(FormTimer::Timer3));
  EXPECT_TRUE(test.Is_On(FormTimer::Timer1));
}

TEST(StartRecording, The_starter_goes_off_behind_the_stop_of_a_recording_that_runs) {
  LiveCapture test;
  test.Without_Timers().session.settings.I_want_Status_Animation = "YES";
  test.session.recorder.Recording_Active = 1;
  test.events.Enable(FormTimer::Timer5, true);
  std::vector<std::pair<int, bool>> shown;  // image, starter on
  test.session.operations.Show_Status_Image = [&](Session&, int image) {
    shown.emplace_back(image, test.Is_On(FormTimer::Timer5));
  };
  Start_Recording(test.session);
  EXPECT_EQ(shown, (std::vector{std::pair{2, true}, {1, false}}));
}

TEST(StartRecording, While_a_sample_is_processed_the_pump_stays_off) {
  LiveCapture test;
  test.Without_Timers().session.flags.Capture_Busy = 1;
  Start_Recording(test.session);
  EXPECT_FALSE(test.Is_On(FormTimer::Timer3));
  EXPECT_TRUE(test.Is_On(FormTimer::Timer1));
}

// The moment of the pump's first tick, in ms. Its interval was 40 before.
std::int64_t First_Pump_Tick(int delay, int busy = 0) {
  LiveCapture test;
  test.Without_Timers();
  test.session.settings.Voice_Capture_Delay = delay;
  test.session.flags.Capture_Busy = busy;
  std::int64_t first = 0;
  test.events.On_Tick(FormTimer::Timer3, [&] {
    if (first == 0) first = test.events.Now().count() / 1000;
  });
  test.events.Form_Timer(FormTimer::Timer3).Set_Interval(40ms);
  if (busy) test.events.Enable(FormTimer::Timer3, true);
  Start_Recording(test.session);
  return first;
}

TEST(StartRecording, A_capture_delay_above_5_ms_becomes_the_interval_of_the_pump) {
  EXPECT_EQ(First_Pump_Tick(6), 6);
  EXPECT_EQ(First_Pump_Tick(300), 300);
}

TEST(StartRecording, A_capture_delay_of_5_ms_or_less_leaves_the_interval_alone) {
  for (const int delay : {5, 4, 1, 0, -1}) EXPECT_EQ(First_Pump_Tick(delay), 40) << delay;
}

TEST(StartRecording, While_a_sample_is_processed_the_interval_of_the_pump_stays) {
  EXPECT_EQ(First_Pump_Tick(300, 1), 40);
}

TEST(StartRecording, It_counts_as_a_setting_that_is_ready) {
  LiveCapture test;
  test.Without_Timers();
  Start_Recording(test.session);
  EXPECT_EQ(test.session.flags.Settings_Ready_Count, 3);
}

TEST(StartRecording, The_start_cue_is_played_once_and_not_waited_for) {
  LiveCapture test;
  test.Without_Timers();
  Start_Recording(test.session);
  EXPECT_EQ(test.cues.calls, Calls{"play start.wav"});
}

TEST(StartRecording, The_start_cue_sounds_before_anything_is_set_up) {
  LiveCapture test;
  test.Without_Timers().session.settings.Set_Recording_Frequency = 0;
  int cues = 0;
  test.cues.At_Call = [&](const std::string&, int) {
    ++cues;
    EXPECT_EQ(test.session.flags.Settings_Ready_Count, 3);
    EXPECT_EQ(test.session.recorder.Recording_Active, 0);
    EXPECT_EQ(test.session.settings.Set_Recording_Frequency, 0);
  };
  Start_Recording(test.session);
  EXPECT_EQ(cues, 1);
}

TEST(StartRecording, Without_a_start_cue_nothing_is_played) {
  LiveCapture test;
  test.Without_Timers().session.settings.Play_this_file_for_Start.clear();
  Start_Recording(test.session);
  EXPECT_TRUE(test.cues.calls.empty());
}

TEST(StartRecording, The_status_shows_listening_when_it_is_animated) {
  for (const auto& [animation, images] :
       {std::pair{"YES", Calls{"Show_Status_Image 1"}}, {"NO", Calls{}}, {"yes", Calls{}}}) {
    LiveCapture test;
    test.Without_Timers().session.settings.I_want_Status_Animation = animation;
    Start_Recording(test.session);
    EXPECT_EQ(test.calls, images) << animation;
  }
}

TEST(StartRecording, The_status_shows_listening_behind_the_opening_and_before_the_buffer_is_made) {
  LiveCapture test;
  test.Without_Timers().session.settings.I_want_Status_Animation = "YES";
  int shown = 0;
  test.session.operations.Show_Status_Image = [&](Session& session, int) {
    ++shown;
    EXPECT_EQ(test.card.calls, (Calls{"wave_in_get_dev_caps", "wave_in_open"}));
    EXPECT_EQ(session.sample.Speech_Sample_Bytes.Count(), 0);
  };
  Start_Recording(test.session);
  EXPECT_EQ(shown, 1);
}

TEST(StartRecording, A_frequency_of_0_promises_nothing_at_first_and_then_is_the_default) {
  LiveCapture test;
  test.Without_Timers().session.settings.Set_Recording_Frequency = 0;
  Start_Recording(test.session);
  EXPECT_EQ(test.session.sample.Samples_Per_Capture, 0);
  EXPECT_EQ(test.session.sample.Wave_Header_Buffer_Length, 128);
  EXPECT_EQ(test.session.sample.Wave_Format.samples_per_second, 22'050U);
  EXPECT_EQ(test.session.settings.Set_Recording_Frequency, 22'050);
  Start_Recording(test.session);
  EXPECT_EQ(test.session.sample.Samples_Per_Capture, 22'050);
  EXPECT_EQ(test.session.sample.Wave_Header_Buffer_Length, 22'178);
}

TEST(StartRecording, A_recording_that_runs_is_stopped_and_its_buffer_given_up) {
  LiveCapture test;
  test.Without_Timers();
  bool again = false;
  test.events.At(400ms, [&] {
    test.events.Run_Pending_Events();
    Start_Recording(test.session);
    again = true;
    EXPECT_EQ(test.Byte(0), 0);
  });
  Start_Recording(test.session);
  EXPECT_TRUE(again);
  EXPECT_EQ(test.card.calls, Set_Up + Taken_Down + Set_Up +
                                 (Calls{"wave_in_unprepare_header", "wave_in_unprepare_header"}));
  EXPECT_EQ(test.session.recorder.Last_Recorded_Index, 8'819);  // of the one that was stopped
  EXPECT_EQ(test.events.Now(), 1'405'805us);
}

}  // namespace
}  // namespace quillspeech
