#include "audio/echo.hpp"

#include <gtest/gtest.h>

#include "tests/audio/live_capture_fixture.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech {
namespace {

using namespace tests;

const Calls Playing = {"wave_out_open", "wave_out_prepare_header", "wave_out_write",
                       "wave_out_unprepare_header", "wave_out_close"};

// A sample of 4,000 bytes that count from 1 to 250 over and over, at 4,000 a second.
struct Echo : LiveSession {
  Echo() {
    auto& store = session.sample.Speech_Sample_Bytes;
    store.Resize(3'999);
    for (std::int64_t i = 0; i < 4'000; ++i) store.Put(i, Sample_Byte(i));
    session.sample.Wave_Format = Pcm(1, 8, 4'000);
  }
  static std::uint8_t Sample_Byte(std::int64_t i) { return static_cast<std::uint8_t>(1 + i % 250); }
  const std::vector<std::uint8_t>& Heard() const { return card.played.at(0).bytes; }
};

TEST(PlayEcho, The_buffer_is_as_long_as_the_sample_up_to_the_end_of_the_word) {
  Echo test;
  Play_Echo(test.session, 500, 3'000);
  ASSERT_EQ(test.card.played.size(), 1U);
  EXPECT_EQ(test.Heard().size(), 3'000U);
  EXPECT_EQ(test.session.recorder.Echo_Sample_Bytes.Count(), 3'001);
  EXPECT_EQ(test.session.sample.Wave_Header_Buffer_Length, 3'000);
}

TEST(PlayEcho, The_word_stands_at_the_head_and_zeros_follow_it) {
  Echo test;
  Play_Echo(test.session, 500, 3'000);
  const auto& heard = test.Heard();
  EXPECT_EQ(heard[0], 0);
  for (std::size_t k = 1; k <= 2'474; ++k) {
    ASSERT_EQ(heard[k], Echo::Sample_Byte(500 + static_cast<std::int64_t>(k))) << k;
  }
  for (std::size_t k = 2'475; k < heard.size(); ++k) ASSERT_EQ(heard[k], 0) << k;
}

TEST(PlayEcho, A_word_of_26_bytes_or_less_is_a_buffer_of_zeros) {
  for (const int length : {27, 26, 25, 1, 0, -400}) {
    Echo test;
    Play_Echo(test.session, 500, 500 + length);
    const auto& heard = test.Heard();
    EXPECT_EQ(heard.size(), static_cast<std::size_t>(500 + length));
    EXPECT_EQ(std::count(heard.begin(), heard.end(), 0), 500 + length - (length > 26 ? 1 : 0))
        << length;
  }
}

TEST(PlayEcho, It_has_the_format_of_the_last_capture_or_file_and_lasts_as_long_as_the_buffer) {
  Echo test;
  Play_Echo(test.session, 500, 3'000);
  EXPECT_EQ(test.card.played.at(0).format.samples_per_second, 4'000U);
  EXPECT_EQ(test.events.Now(), 750ms);
  EXPECT_EQ(test.card.calls, Playing);
}

TEST(PlayEcho, An_echo_begins_with_a_buffer_of_zeros) {
  Echo test;
  Play_Echo(test.session, 500, 3'000);
  Play_Echo(test.session, 2'000, 3'000);
  EXPECT_EQ(test.card.played.at(1).bytes[974], Echo::Sample_Byte(2'974));
  EXPECT_EQ(test.card.played.at(1).bytes[975], 0);
}

TEST(PlayEcho, A_stopped_session_plays_nothing) {
  Echo test;
  test.session.settings.Stop_everything_now = "YES";
  test.session.recorder.Recording_Active = 1;
  Play_Echo(test.session, 500, 3'000);
  EXPECT_TRUE(test.card.calls.empty());
  EXPECT_EQ(test.session.recorder.Recording_Active, 1);
}

TEST(PlayEcho, It_stops_the_recording_first) {
  Echo test;
  test.session.recorder.Recording_Active = 1;
  Play_Echo(test.session, 500, 3'000);
  EXPECT_EQ(test.card.calls, Taken_Down + Playing);
  EXPECT_EQ(test.session.recorder.Recording_Active, 0);
}

TEST(PlayEcho, A_device_that_cannot_be_opened_is_skipped_in_silence) {
  Echo test;
  test.card.faults["wave_out_open"] = Wave_Device_In_Use;
  Play_Echo(test.session, 500, 3'000);
  EXPECT_EQ(test.card.calls, Calls{"wave_out_open"});
  EXPECT_TRUE(test.boxes.shown.empty());
  EXPECT_EQ(test.events.Now(), 0s);
  EXPECT_EQ(test.events.yields, 0);
  EXPECT_EQ(test.session.sample.Wave_Header_Buffer_Length, 3'000);
}

TEST(PlayEcho, Errors_of_the_other_calls_are_ignored_and_without_a_sound_it_only_yields_once) {
  for (const auto& [failing, lasts] : {std::pair{"wave_out_prepare_header", 0ms},
                                       {"wave_out_write", 0ms},
                                       {"wave_out_unprepare_header", 750ms},
                                       {"wave_out_close", 750ms}}) {
    Echo test;
    test.card.faults[failing] = Wave_Bad_Handle;
    Play_Echo(test.session, 500, 3'000);
    EXPECT_EQ(test.card.calls, Playing) << failing;
    EXPECT_TRUE(test.boxes.shown.empty()) << failing;
    EXPECT_EQ(test.events.Now(), lasts) << failing;
    EXPECT_EQ(test.events.yields, 1) << failing;
  }
}

TEST(PlayEcho, A_negative_end_is_failure_9_and_nothing_is_played) {
  Echo test;
  Play_Echo(test.session, 500, 3'000);
  test.card.calls.clear();
  EXPECT_EQ(Failure_Of([&] { Play_Echo(test.session, 0, -1); }), 9);
  EXPECT_TRUE(test.card.calls.empty());
  EXPECT_EQ(test.session.sample.Wave_Header.data, nullptr);
}

TEST(PlayEcho, Bytes_outside_the_store_are_failure_9) {
  for (const auto& [first, last] : {std::pair{500, 4'026}, {4'000, 4'100}, {-2, 300}}) {
    Echo test;
    EXPECT_EQ(Failure_Of([&] { Play_Echo(test.session, first, last); }), 9) << first;
    EXPECT_TRUE(test.card.calls.empty()) << first;
  }
  Echo test;
  EXPECT_EQ(Failure_Of([&] { Play_Echo(test.session, 500, 4'025); }), 0);
}

TEST(PlayEcho, Timers_run_inside_it) {
  Echo test;
  int ticks = 0;
  test.events.On_Tick(FormTimer::Timer5, [&] { ++ticks; });
  test.events.Enable(FormTimer::Timer5, true);
  Play_Echo(test.session, 500, 3'500);
  EXPECT_EQ(ticks, 8);  // one every 100 ms, in 875 ms
}

TEST(PlayEcho, A_failure_of_a_tick_inside_it_gives_the_output_back) {
  Echo test;
  test.events.At(100ms, [] { Fail(Failure::Device_Failure); });
  EXPECT_EQ(Failure_Of([&] { Play_Echo(test.session, 500, 3'000); }), 57);
  EXPECT_EQ(test.card.calls, Playing);
}

TEST(PlayEcho, A_stop_during_it_lets_the_sound_end) {
  Echo test;
  test.Stop_At(500ms);
  Play_Echo(test.session, 500, 3'000);
  EXPECT_EQ(test.events.Now(), 750ms);
  EXPECT_EQ(test.card.calls, Playing);
  EXPECT_EQ(test.session.settings.Stop_everything_now, "YES");
}

TEST(PlayEcho, A_capture_that_begins_during_it_takes_the_header_over) {
  Echo test;
  test.session.settings.Speech_sampling_time_in_ms = 5'000;
  test.session.settings.Set_Recording_Frequency = 4'000;
  test.events.On_Tick(FormTimer::Timer1, [] {});
  test.events.On_Tick(FormTimer::Timer3, [] {});
  test.events.Enable(FormTimer::Timer5, true);
  Play_Echo(test.session, 500, 3'000);
  EXPECT_EQ(test.session.sample.Wave_Header_Buffer_Length, 20'128);
  EXPECT_EQ(test.card.calls.back(), "wave_out_close");
  EXPECT_EQ(test.session.recorder.Waiting_Depth, 0);
}

// An echo of 22.5 s, in which a capture of half a second begins at 0.1 s: its full buffer is what
// ends the wait, since both have one header.
struct EchoThatIsCut : Echo {
  EchoThatIsCut() {
    session.sample.Speech_Sample_Bytes.Clear();
    session.sample.Speech_Sample_Bytes.Resize(90'000);
    session.settings.Speech_sampling_time_in_ms = 500;
    session.settings.Set_Recording_Frequency = 4'000;
    events.On_Tick(FormTimer::Timer1, [] {});
    events.On_Tick(FormTimer::Timer3, [] {});
    events.Enable(FormTimer::Timer5, true);
    Play_Echo(session, 500, 90'000);
    card.calls.clear();
  }
};

TEST(EchoThatIsCut, It_ends_with_the_capture_and_the_next_echo_plays) {
  EchoThatIsCut test;
  EXPECT_EQ(test.events.Now(), 632ms);
  Play_Echo(test.session, 500, 2'000);
  EXPECT_EQ(test.card.calls, Taken_Down + Playing);
  EXPECT_EQ(test.card.played.size(), 2U);
  EXPECT_EQ(test.events.Now(), 632ms + 500ms);
}

TEST(EchoThatIsCut, The_moment_when_it_would_have_ended_is_nothing_to_a_later_capture) {
  EchoThatIsCut test;
  test.session.settings.Speech_sampling_time_in_ms = 30'000;
  Start_Recording(test.session);
  EXPECT_EQ(test.session.sample.Wave_Header.bytes_recorded, 120'128U);
  EXPECT_EQ(test.events.Now(), 632ms + 30'032ms);
}

}  // namespace
}  // namespace quillspeech
