#include "platform/headless/simulated_wave_output.hpp"

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
using tests::Pcm;
using tests::Untouched;
using Bytes = std::vector<std::uint8_t>;

// Opens, prepares and writes a buffer of that length.
void Play(Card& c, std::uint32_t length, const WaveFormat& format) {
  c.Point_At_Buffer(length);
  EXPECT_EQ(c.output.Open(c.handle, format), Wave_Ok);
  EXPECT_EQ(c.output.Prepare_Header(c.handle, c.header), Wave_Ok);
  EXPECT_EQ(c.output.Write(c.handle, c.header), Wave_Ok);
}

TEST(SimulatedOutput, The_header_is_done_when_its_bytes_have_been_played) {
  struct Case {
    std::uint32_t length;
    WaveFormat format;
    EventLoop::Time ends;
  };
  for (const Case& one : std::vector<Case>{
           {22'050, Pcm(), 1s}, {22'050, Pcm(2, 16), 250ms}, {1, Pcm(), 46us}, {0, Pcm(), 0s}}) {
    Card c;
    Play(c, one.length, one.format);
    EXPECT_EQ(c.header.flags, Header_Prepared | Header_In_Queue);
    c.events.Wait_For_Events();
    EXPECT_EQ(c.events.Now(), one.ends);
    EXPECT_EQ(c.header.flags, Header_Prepared | Header_Done);
  }
}

TEST(SimulatedOutput, What_was_played_is_noted_with_its_format_and_time) {
  Card c;
  c.events.Run_For(5ms);
  Play(c, 3, Pcm(1, 8, 8'000));
  ASSERT_EQ(c.card.played.size(), 1u);
  EXPECT_EQ(c.card.played[0].bytes, Bytes(3, Untouched));
  EXPECT_EQ(c.card.played[0].format.samples_per_second, 8'000u);
  EXPECT_EQ(c.card.played[0].at, 5ms);
}

TEST(SimulatedOutput, A_header_without_data_takes_its_time_and_plays_nothing) {
  Card c;
  c.output.Open(c.handle, Pcm(1, 8, 20'000));
  c.header.buffer_length = 1'000;
  c.output.Prepare_Header(c.handle, c.header);
  c.output.Write(c.handle, c.header);
  c.Wait_Until_Done();
  EXPECT_EQ(c.events.Now(), 50ms);
  EXPECT_TRUE(c.card.played[0].bytes.empty());
}

TEST(SimulatedOutput, A_second_header_is_played_behind_the_first) {
  Card c;
  Play(c, 1'000, Pcm(1, 8, 20'000));
  WaveHeader second = c.header;
  second.flags = Header_Prepared;
  EXPECT_EQ(c.output.Write(c.handle, second), Wave_Ok);
  c.Wait_Until_Done();
  EXPECT_FALSE(Is_Done(second));
  c.events.Wait_For_Events();
  EXPECT_TRUE(Is_Done(second));
  EXPECT_EQ(c.events.Now(), 100ms);
  EXPECT_EQ(c.card.played[1].at, 50ms);
}

TEST(SimulatedOutput, Its_answers_are_those_of_a_device) {
  Card c;
  EXPECT_EQ(c.output.Prepare_Header(c.handle, c.header), Wave_Bad_Handle);
  EXPECT_EQ(c.output.Write(c.handle, c.header), Wave_Bad_Handle);
  EXPECT_EQ(c.output.Unprepare_Header(c.handle, c.header), Wave_Bad_Handle);
  EXPECT_EQ(c.output.Close(c.handle), Wave_Bad_Handle);
  EXPECT_EQ(c.output.Open(c.handle, WaveFormat{}), Wave_Bad_Format);
  EXPECT_EQ(c.output.Open(c.handle, Pcm()), Wave_Ok);
  EXPECT_EQ(c.output.Open(c.handle, Pcm()), Wave_Device_In_Use);
  EXPECT_EQ(c.output.Write(c.handle, c.header), Wave_Unprepared);
  EXPECT_TRUE(c.card.played.empty());
  c.Point_At_Buffer(10);
  EXPECT_EQ(c.output.Prepare_Header(c.handle, c.header), Wave_Ok);
  EXPECT_EQ(c.output.Write(c.handle, c.header), Wave_Ok);
  EXPECT_EQ(c.output.Write(c.handle, c.header), Wave_Still_Playing);
  EXPECT_EQ(c.output.Unprepare_Header(c.handle, c.header), Wave_Still_Playing);
  EXPECT_EQ(c.card.played.size(), 1u);
}

TEST(SimulatedOutput, A_close_cuts_the_sound_and_leaves_its_header_unmarked) {
  Card c;
  Play(c, 1'000, Pcm(1, 8, 20'000));
  EXPECT_EQ(c.output.Close(c.handle + 1), Wave_Bad_Handle);
  EXPECT_EQ(c.events.Next_Due(), 50ms);
  EXPECT_EQ(c.output.Close(c.handle), Wave_Ok);
  EXPECT_EQ(c.events.Next_Due(), std::nullopt);
  c.events.Run_For(1s);
  EXPECT_EQ(c.header.flags, Header_Prepared | Header_In_Queue);
  EXPECT_EQ(c.output.Open(c.handle, Pcm()), Wave_Ok);
}

}  // namespace
}  // namespace quillspeech
