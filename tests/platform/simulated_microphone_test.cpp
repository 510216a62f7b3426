#include "platform/headless/microphone.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <vector>

#include "tests/platform/sound_card_fixture.hpp"

namespace quillspeech {
namespace {

using namespace std::chrono_literals;
using tests::Card;
using tests::Is_Done;
using tests::Part;
using tests::Pcm;
using tests::Ramp;
using tests::Untouched;
using Bytes = std::vector<std::uint8_t>;

// At 20,000 bytes a second a byte takes 50 us.

TEST(SimulatedMicrophone, The_buffer_fills_as_time_goes_and_cells_ahead_stay_untouched) {
  Card c;
  c.Record(1'000);
  c.events.Run_For(10ms);
  c.events.Run_Pending_Events();
  EXPECT_EQ(Part(c.buffer, 0, 200), Bytes(200, 128));
  EXPECT_EQ(Part(c.buffer, 200, 800), Bytes(800, Untouched));
  EXPECT_EQ(c.header.bytes_recorded, 200u);
  EXPECT_FALSE(Is_Done(c.header));
}

TEST(SimulatedMicrophone, A_byte_is_there_when_its_time_has_passed_and_not_before) {
  Card c;
  c.Record(1'000);
  c.events.Run_For(99us);
  c.events.Run_Pending_Events();
  EXPECT_EQ(c.header.bytes_recorded, 1u);
  c.events.Run_For(1us);
  c.events.Run_Pending_Events();
  EXPECT_EQ(c.header.bytes_recorded, 2u);
}

TEST(SimulatedMicrophone, The_device_touches_the_buffer_only_at_yields) {
  Card c;
  c.Record(1'000);
  c.events.Run_For(10ms);
  EXPECT_EQ(c.buffer, Bytes(1'000, Untouched));
  c.input.Stop(c.handle);
  c.input.Reset(c.handle);
  EXPECT_EQ(c.buffer, Bytes(1'000, Untouched));
}

TEST(SimulatedMicrophone, A_wait_ends_exactly_when_the_buffer_is_full) {
  struct Case {
    std::uint32_t length;
    std::uint32_t rate;
    EventLoop::Time full;
  };
  // 22,178 bytes at 22,050 a second: the default second with its level.
  for (const Case& one : std::vector<Case>{{1'000, 20'000, 50ms},
                                           {22'178, 22'050, 1'005'805us},
                                           {1, 22'050, 46us},
                                           {0, 8'000, 0us}}) {
    Card c;
    c.Record(one.length, one.rate);
    c.events.Wait_For_Events();
    EXPECT_EQ(c.events.Now(), one.full);
    EXPECT_TRUE(Is_Done(c.header));
    EXPECT_EQ(c.header.flags, Header_Done | Header_Prepared);
    EXPECT_EQ(c.header.bytes_recorded, one.length);
  }
}

TEST(SimulatedMicrophone, The_header_is_done_before_timers_tick) {
  Card c;
  bool was_done = false;
  c.events.At(50ms, [&] { was_done = Is_Done(c.header); });
  c.Record(1'000);
  c.Wait_Until_Done();
  EXPECT_TRUE(was_done);
}

TEST(SimulatedMicrophone, A_full_buffer_is_not_written_past_its_end) {
  Card c;
  c.Record(1'000);
  c.header.buffer_length = 600;
  c.events.Run_For(1s);
  EXPECT_EQ(Part(c.buffer, 0, 600), Bytes(600, 128));
  EXPECT_EQ(Part(c.buffer, 600, 400), Bytes(400, Untouched));
  EXPECT_EQ(c.header.bytes_recorded, 600u);
}

TEST(SimulatedMicrophone, A_clip_of_the_recordings_rate_arrives_byte_for_byte_with_its_zeros) {
  Card c;
  const Bytes clip = Ramp(500);  // begins with a 0
  c.card.Play_Into_Microphone(clip, 20'000, 5ms);
  c.Record(1'000);
  c.Wait_Until_Done();
  EXPECT_EQ(Part(c.buffer, 0, 100), Bytes(100, 128));
  EXPECT_EQ(Part(c.buffer, 100, 500), clip);
  EXPECT_EQ(Part(c.buffer, 600, 400), Bytes(400, 128));
}

TEST(SimulatedMicrophone, A_clip_comes_out_the_same_however_often_the_loop_yields) {
  const Bytes clip = Ramp(900);
  std::vector<Bytes> heard;
  for (const auto interval : {1ms, 7ms, 1000ms}) {
    for (const std::uint32_t rate : {22'050u, 8'000u}) {
      Card c;
      const auto timer = c.events.Make_Timer(interval, [] {});
      timer->Enable(true);
      c.card.Play_Into_Microphone(clip, rate, 3'333us);
      c.Record(2'500, 22'050);
      c.Wait_Until_Done();
      heard.push_back(c.buffer);
    }
  }
  EXPECT_EQ(heard[0], heard[2]);
  EXPECT_EQ(heard[0], heard[4]);
  EXPECT_EQ(heard[1], heard[3]);
  EXPECT_EQ(heard[1], heard[5]);
  EXPECT_NE(heard[0], heard[1]);
}

TEST(SimulatedMicrophone, A_clip_goes_on_from_one_recording_to_the_next) {
  Card c;
  const Bytes clip = Ramp(2'000);
  c.card.Play_Into_Microphone(clip, 20'000, 0ms);
  c.Record(1'000);
  c.Wait_Until_Done();
  EXPECT_EQ(c.buffer, Part(clip, 0, 1'000));
  c.input.Stop(c.handle);
  c.input.Close(c.handle);
  c.events.Run_For(10ms);
  c.Record(500);
  c.Wait_Until_Done();
  EXPECT_EQ(c.buffer, Part(clip, 1'200, 500));
}

TEST(SimulatedMicrophone, A_clip_that_began_before_the_recording_is_heard_from_its_middle) {
  Card c;
  const Bytes clip = Ramp(1'000);
  c.events.Run_For(10ms);
  c.card.Play_Into_Microphone(clip, 20'000, 0ms);
  c.Record(900);
  c.Wait_Until_Done();
  EXPECT_EQ(Part(c.buffer, 0, 800), Part(clip, 200, 800));
  EXPECT_EQ(Part(c.buffer, 800, 100), Bytes(100, 128));
}

TEST(SimulatedMicrophone, A_clip_of_another_rate_is_resampled_along_straight_lines) {
  Card c;
  c.card.Play_Into_Microphone({100, 200, 0}, 10'000, 0ms);
  c.Record(8);
  c.Wait_Until_Done();
  EXPECT_EQ(c.buffer, (Bytes{100, 150, 200, 100, 0, 0, 128, 128}));
  Card slow;
  slow.card.Play_Into_Microphone({10, 20, 30, 40, 50, 60}, 40'000, 0ms);
  slow.Record(4);
  slow.Wait_Until_Done();
  EXPECT_EQ(slow.buffer, (Bytes{10, 30, 50, 128}));
}

TEST(SimulatedMicrophone, Clips_at_the_same_time_are_added_up_and_held_within_a_byte) {
  Card c;
  c.card.Play_Into_Microphone({138, 250, 10, 250}, 20'000, 0ms);
  c.card.Play_Into_Microphone({118, 250, 10, 250}, 20'000, 0ms);
  c.card.Play_Into_Microphone({138, 128, 128, 6}, 20'000, 0ms);
  c.Record(5);
  c.Wait_Until_Done();
  EXPECT_EQ(c.buffer, (Bytes{138, 255, 0, 250, 128}));
}

TEST(SimulatedMicrophone, A_clip_of_no_rate_or_length_is_not_heard) {
  Card c;
  c.card.Play_Into_Microphone({1, 2, 3}, 0, 0ms);
  c.card.Play_Into_Microphone({}, 20'000, 0ms);
  c.Record(5);
  c.Wait_Until_Done();
  EXPECT_EQ(c.buffer, Bytes(5, 128));
}

TEST(SimulatedMicrophone, A_clip_is_let_go_when_it_ended_more_than_a_second_ago) {
  headless::EventLoop events;
  headless::CardCalls calls;
  headless::SimulatedWaveInput input(events, calls);
  events.Add_Source(input);
  input.microphone.Play(Ramp(2'000), 20'000, 500ms);
  input.microphone.Play(Ramp(2'000), 20'000, 700ms);
  for (const auto& [moment, clips] : {std::pair{1'600ms, 2U}, {1'601ms, 1U}, {1'801ms, 0U}}) {
    events.Run_For(moment - events.Now());
    events.Run_Pending_Events();
    EXPECT_EQ(input.microphone.Clip_Count(), clips) << moment.count();
  }
}

TEST(SimulatedMicrophone, A_header_without_data_is_counted_and_not_written) {
  Card c;
  c.Record(1'000);
  c.header.data = nullptr;
  c.Wait_Until_Done();
  EXPECT_EQ(c.events.Now(), 50ms);
  EXPECT_EQ(c.header.bytes_recorded, 1'000u);
  EXPECT_EQ(c.buffer, Bytes(1'000, Untouched));
}

TEST(SimulatedMicrophone, A_store_that_takes_the_buffers_place_gets_what_is_due_from_then_on) {
  Card c;
  Bytes other(1'000, Untouched);
  const Bytes clip = Ramp(1'000);
  c.card.Play_Into_Microphone(clip, 20'000, 0ms);
  c.Record(1'000);
  c.events.At(10ms, [&] { c.header.data = other.data(); });
  c.Wait_Until_Done();
  EXPECT_EQ(Part(c.buffer, 0, 200), Part(clip, 0, 200));
  EXPECT_EQ(Part(c.buffer, 200, 800), Bytes(800, Untouched));
  EXPECT_EQ(Part(other, 0, 200), Bytes(200, Untouched));
  EXPECT_EQ(Part(other, 200, 800), Part(clip, 200, 800));
}

}  // namespace
}  // namespace quillspeech
