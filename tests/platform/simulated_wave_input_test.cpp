#include "platform/headless/simulated_wave_input.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <optional>
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

TEST(SimulatedInput, Nothing_is_recorded_before_the_start) {
  Card c;
  c.Point_At_Buffer(100);
  c.input.Open(c.handle, Pcm(1, 8, 20'000));
  c.input.Prepare_Header(c.handle, c.header);
  c.input.Add_Buffer(c.handle, c.header);
  EXPECT_EQ(c.events.Next_Due(), std::nullopt);
  c.events.Run_For(1s);
  c.events.Run_Pending_Events();
  EXPECT_EQ(c.header.bytes_recorded, 0u);
  EXPECT_EQ(c.header.flags, Header_In_Queue | Header_Prepared);
}

TEST(SimulatedInput, A_stop_keeps_what_is_recorded_and_a_start_goes_on_behind_it) {
  Card c;
  c.Record(1'000);
  c.events.At(10ms, [&] { c.input.Stop(c.handle); });
  c.events.Run_For(1s);
  EXPECT_EQ(c.header.bytes_recorded, 200u);
  EXPECT_FALSE(Is_Done(c.header));
  EXPECT_EQ(c.events.Next_Due(), std::nullopt);
  c.input.Start(c.handle);
  c.Wait_Until_Done();
  EXPECT_EQ(c.events.Now(), 1'040ms);
  EXPECT_EQ(c.buffer, Bytes(1'000, 128));
}

TEST(SimulatedInput, A_start_of_what_is_started_changes_nothing) {
  Card c;
  c.events.At(10ms, [&] { EXPECT_EQ(c.input.Start(c.handle), Wave_Ok); });
  c.Record(1'000, 22'050);  // 220 and a half bytes by then
  c.Wait_Until_Done();
  EXPECT_EQ(c.events.Now(), 45'352us);
}

TEST(SimulatedInput, After_a_reset_it_waits_for_a_start) {
  Card c;
  c.Record(1'000);
  c.input.Reset(c.handle);
  EXPECT_EQ(c.input.Add_Buffer(c.handle, c.header), Wave_Ok);
  EXPECT_EQ(c.events.Next_Due(), std::nullopt);
  c.input.Start(c.handle);
  EXPECT_EQ(c.events.Next_Due(), 50ms);
}

TEST(SimulatedInput, After_a_close_it_waits_for_a_start) {
  Card c;
  c.Record(1'000);
  c.Wait_Until_Done();
  EXPECT_EQ(c.input.Close(c.handle), Wave_Ok);
  EXPECT_EQ(c.input.Open(c.handle, Pcm(1, 8, 20'000)), Wave_Ok);
  EXPECT_EQ(c.input.Add_Buffer(c.handle, c.header), Wave_Ok);
  EXPECT_EQ(c.events.Next_Due(), std::nullopt);
  c.input.Start(c.handle);
  EXPECT_EQ(c.events.Next_Due(), 100ms);
}

TEST(SimulatedInput, A_reset_gives_the_header_back_done_with_what_is_recorded) {
  Card c;
  c.Record(1'000);
  c.events.At(10ms, [&] { EXPECT_EQ(c.input.Reset(c.handle), Wave_Ok); });
  c.Wait_Until_Done();
  EXPECT_EQ(c.events.Now(), 10ms);
  EXPECT_EQ(c.header.flags, Header_Done | Header_Prepared);
  EXPECT_EQ(c.header.bytes_recorded, 200u);
  EXPECT_EQ(c.events.Next_Due(), std::nullopt);
}

TEST(SimulatedInput, Headers_in_the_queue_are_filled_one_after_the_other_without_a_gap) {
  Card c;
  const Bytes clip = Ramp(300);
  Bytes second(200, Untouched);
  WaveHeader next;
  next.data = second.data();
  next.buffer_length = 200;
  c.card.Play_Into_Microphone(clip, 20'000, 0ms);
  c.Record(100);
  c.input.Prepare_Header(c.handle, next);
  c.input.Add_Buffer(c.handle, next);
  c.Wait_Until_Done();
  EXPECT_EQ(c.events.Now(), 5ms);
  EXPECT_FALSE(Is_Done(next));
  c.events.Wait_For_Events();
  EXPECT_EQ(c.events.Now(), 15ms);
  EXPECT_EQ(c.buffer, Part(clip, 0, 100));
  EXPECT_EQ(second, Part(clip, 100, 200));
}

TEST(SimulatedInput, What_is_heard_while_no_header_waits_is_lost) {
  Card c;
  const Bytes clip = Ramp(400);
  c.card.Play_Into_Microphone(clip, 20'000, 0ms);
  c.Record(100);
  c.events.Run_For(10ms);
  c.header.data = c.buffer.data();
  EXPECT_EQ(c.input.Add_Buffer(c.handle, c.header), Wave_Ok);
  EXPECT_FALSE(Is_Done(c.header));
  EXPECT_EQ(c.header.bytes_recorded, 0u);
  c.Wait_Until_Done();
  EXPECT_EQ(c.events.Now(), 15ms);
  EXPECT_EQ(c.buffer, Part(clip, 200, 100));
}

TEST(SimulatedInput, Calls_under_a_handle_that_names_nothing_are_answered_5) {
  Card c;
  c.header.flags = Header_Prepared;
  EXPECT_EQ(c.input.Close(0), Wave_Bad_Handle);
  c.input.Open(c.handle, Pcm());
  for (const WaveHandle wrong : {WaveHandle{0}, c.handle + 1}) {
    EXPECT_EQ(c.input.Prepare_Header(wrong, c.header), Wave_Bad_Handle);
    EXPECT_EQ(c.input.Add_Buffer(wrong, c.header), Wave_Bad_Handle);
    EXPECT_EQ(c.input.Start(wrong), Wave_Bad_Handle);
    EXPECT_EQ(c.input.Stop(wrong), Wave_Bad_Handle);
    EXPECT_EQ(c.input.Reset(wrong), Wave_Bad_Handle);
    EXPECT_EQ(c.input.Unprepare_Header(wrong, c.header), Wave_Bad_Handle);
    EXPECT_EQ(c.input.Close(wrong), Wave_Bad_Handle);
  }
  EXPECT_EQ(c.input.Close(c.handle), Wave_Ok);
  EXPECT_EQ(c.input.Start(c.handle), Wave_Bad_Handle);
}

TEST(SimulatedInput, A_header_must_be_prepared_before_it_is_added) {
  Card c;
  c.Point_At_Buffer(10);
  c.input.Open(c.handle, Pcm());
  EXPECT_EQ(c.input.Add_Buffer(c.handle, c.header), Wave_Unprepared);
  EXPECT_EQ(c.header.flags, 0u);
  EXPECT_EQ(c.input.Prepare_Header(c.handle, c.header), Wave_Ok);
  EXPECT_EQ(c.header.flags, Header_Prepared);
  EXPECT_EQ(c.input.Unprepare_Header(c.handle, c.header), Wave_Ok);
  EXPECT_EQ(c.header.flags, 0u);
  EXPECT_EQ(c.input.Add_Buffer(c.handle, c.header), Wave_Unprepared);
}

TEST(SimulatedInput, While_a_header_is_in_the_queue_it_is_33_to_add_unprepare_or_close) {
  Card c;
  c.Record(1'000);
  EXPECT_EQ(c.input.Add_Buffer(c.handle, c.header), Wave_Still_Playing);
  EXPECT_EQ(c.input.Unprepare_Header(c.handle, c.header), Wave_Still_Playing);
  EXPECT_EQ(c.input.Close(c.handle), Wave_Still_Playing);
  c.Wait_Until_Done();
  EXPECT_EQ(c.input.Unprepare_Header(c.handle, c.header), Wave_Ok);
  EXPECT_EQ(c.header.flags, Header_Done);
  EXPECT_EQ(c.input.Close(c.handle), Wave_Ok);
}

TEST(SimulatedInput, Adding_a_header_makes_it_no_longer_done) {
  Card c;
  c.Record(10);
  c.Wait_Until_Done();
  EXPECT_EQ(c.input.Add_Buffer(c.handle, c.header), Wave_Ok);
  EXPECT_EQ(c.header.flags, Header_Prepared | Header_In_Queue);
}

TEST(SimulatedInput, A_device_that_is_open_is_in_use) {
  Card c;
  WaveHandle second = 99;
  c.input.Open(c.handle, Pcm());
  EXPECT_EQ(c.input.Open(second, Pcm()), Wave_Device_In_Use);
  EXPECT_EQ(second, 99u);
  c.input.Close(c.handle);
  EXPECT_EQ(c.input.Open(second, Pcm()), Wave_Ok);
  EXPECT_NE(second, c.handle);
}

TEST(SimulatedInput, It_records_common_formats_of_8_bits_and_1_channel_only) {
  Card c;
  for (const WaveFormat& format :
       {Pcm(2, 8), Pcm(1, 16), Pcm(1, 8, 3'999), Pcm(1, 8, 192'001), WaveFormat{}}) {
    EXPECT_EQ(c.input.Open(c.handle, format), Wave_Bad_Format);
  }
  EXPECT_EQ(c.input.Open(c.handle, Pcm(1, 8, 4'000)), Wave_Ok);
}

TEST(SimulatedInput, There_is_one_device_and_its_number_is_0) {
  Card c;
  EXPECT_EQ(c.input.Get_Device_Capabilities(0), Wave_Ok);
  EXPECT_EQ(c.input.Get_Device_Capabilities(-1), Wave_Bad_Device);
  EXPECT_EQ(c.input.Get_Device_Capabilities(1), Wave_Bad_Device);
}

}  // namespace
}  // namespace quillspeech
