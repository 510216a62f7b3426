#include "platform/headless/sound_card.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tests/platform/sound_card_fixture.hpp"

namespace quillspeech {
namespace {

using namespace std::chrono_literals;
using tests::Card;
using tests::Is_Done;
using tests::Pcm;

TEST(SoundCard, Without_a_device_capabilities_and_opening_are_answered_2) {
  Card c;
  c.card.present = false;
  EXPECT_EQ(c.input.Get_Device_Capabilities(0), Wave_Bad_Device);
  EXPECT_EQ(c.input.Open(c.handle, Pcm()), Wave_Bad_Device);
  EXPECT_EQ(c.output.Open(c.handle, Pcm()), Wave_Bad_Device);
  EXPECT_FALSE(c.output.Can_Play(Pcm()));
  c.card.present = true;
  EXPECT_TRUE(c.output.Can_Play(Pcm()));
  EXPECT_FALSE(c.output.Can_Play(Pcm(3, 8)));
}

// Every call by its name, on a card whose devices are both open and stopped.
struct NamedCall {
  std::string name;
  std::function<WaveResult(Card&, WaveHandle in, WaveHandle out)> call;
};
const std::vector<NamedCall>& Named_Calls() {
  static const std::vector<NamedCall> calls = {
      {"wave_in_get_dev_caps",
       [](Card& c, auto, auto) { return c.input.Get_Device_Capabilities(0); }},
      {"wave_in_prepare_header",
       [](Card& c, auto in, auto) { return c.input.Prepare_Header(in, c.header); }},
      {"wave_in_add_buffer",
       [](Card& c, auto in, auto) { return c.input.Add_Buffer(in, c.header); }},
      {"wave_in_start", [](Card& c, auto in, auto) { return c.input.Start(in); }},
      {"wave_in_stop", [](Card& c, auto in, auto) { return c.input.Stop(in); }},
      {"wave_in_reset", [](Card& c, auto in, auto) { return c.input.Reset(in); }},
      {"wave_in_unprepare_header",
       [](Card& c, auto in, auto) { return c.input.Unprepare_Header(in, c.header); }},
      {"wave_in_close", [](Card& c, auto in, auto) { return c.input.Close(in); }},
      {"wave_in_open", [](Card& c, auto, auto) { return c.input.Open(c.handle, Pcm()); }},
      {"wave_out_prepare_header",
       [](Card& c, auto, auto out) { return c.output.Prepare_Header(out, c.header); }},
      {"wave_out_write",
       [](Card& c, auto, auto out) {
         const WaveResult result = c.output.Write(out, c.header);
         c.events.Run_For(1s);
         return result;
       }},
      {"wave_out_unprepare_header",
       [](Card& c, auto, auto out) { return c.output.Unprepare_Header(out, c.header); }},
      {"wave_out_close", [](Card& c, auto, auto out) { return c.output.Close(out); }},
      {"wave_out_open", [](Card& c, auto, auto) { return c.output.Open(c.handle, Pcm()); }},
  };
  return calls;
}

TEST(SoundCard, Every_call_is_noted_by_its_name_and_succeeds_in_this_order) {
  Card c;
  WaveHandle in = 0;
  WaveHandle out = 0;
  c.input.Open(in, Pcm());
  c.output.Open(out, Pcm());
  c.Point_At_Buffer(10);
  c.card.calls.clear();
  std::vector<std::string> expected;
  for (const auto& [name, call] : Named_Calls()) {
    EXPECT_EQ(call(c, in, out), Wave_Ok) << name;
    expected.push_back(name);
  }
  EXPECT_EQ(c.card.calls, expected);
}

TEST(SoundCard, A_fault_answers_its_call_as_long_as_it_stands_and_the_call_has_no_effect) {
  for (const auto& [name, call] : Named_Calls()) {
    Card c;
    WaveHandle in = 0;
    WaveHandle out = 0;
    c.input.Open(in, Pcm());
    c.output.Open(out, Pcm());
    c.Point_At_Buffer(10);
    c.card.faults[name] = 1'234;
    for (const auto& each : Named_Calls()) {
      if (each.name == name) break;
      each.call(c, in, out);
    }
    const auto flags = c.header.flags;
    const auto handle = c.handle;
    EXPECT_EQ(call(c, in, out), 1'234u) << name;
    EXPECT_EQ(call(c, in, out), 1'234u) << name;
    EXPECT_EQ(c.header.flags, flags) << name;
    EXPECT_EQ(c.handle, handle) << name;
    c.card.faults.erase(name);
    EXPECT_EQ(call(c, in, out), Wave_Ok) << name;
  }
}

TEST(SoundCard, A_fault_of_0_is_a_device_that_says_yes_and_does_nothing) {
  Card c;
  c.card.faults["wave_in_start"] = Wave_Ok;
  c.Record(10);
  EXPECT_EQ(c.events.Next_Due(), std::nullopt);
  c.events.Run_For(1min);
  EXPECT_FALSE(Is_Done(c.header));
}

TEST(SoundCard, Nothing_is_kept_when_it_is_told_so) {
  Card c;
  c.card.keep_calls = false;
  c.card.keep_played = false;
  for (int i = 0; i < 10; ++i) {
    c.Point_At_Buffer(10);
    c.output.Open(c.handle, Pcm());
    c.output.Prepare_Header(c.handle, c.header);
    c.output.Write(c.handle, c.header);
    c.Wait_Until_Done();
    EXPECT_EQ(c.output.Close(c.handle), Wave_Ok);
  }
  EXPECT_TRUE(c.card.calls.empty());
  EXPECT_TRUE(c.card.played.empty());
}

TEST(SoundCard, It_leaves_the_loop_when_it_goes) {
  headless::EventLoop events;
  {
    headless::SoundCard card(events);
    events.Run_Pending_Events();
  }
  events.Run_Pending_Events();
  EXPECT_EQ(events.Next_Due(), std::nullopt);
}

}  // namespace
}  // namespace quillspeech
