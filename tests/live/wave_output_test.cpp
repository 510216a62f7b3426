// An echo on a real device.
#include "tests/live/device_fixture.hpp"

namespace quillspeech::tests {
namespace {

class WaveOutput : public DeviceTest {
 protected:
  WaveOutput() {
    bytes = Tone(400_Hz, Amplitude(90), Bytes(22'050));
    EXPECT_EQ(output.Open(handle, Mono_22050), Wave_Ok);
    header.data = bytes.data();
    header.buffer_length = static_cast<std::uint32_t>(bytes.size());
    EXPECT_EQ(output.Prepare_Header(handle, header), Wave_Ok);
  }
  ~WaveOutput() override { output.Close(handle); }

  bool Is_Done() const { return (header.flags & Header_Done) != 0; }

  Output output = Default_Output();
  WaveHandle handle = 0;
  Sound bytes;
  WaveHeader header;
};

TEST_F(WaveOutput, A_header_is_done_after_its_length_and_never_before) {
  const EventLoop::Time begun = events.Now();
  ASSERT_EQ(output.Write(handle, header), Wave_Ok);
  EXPECT_FALSE(Is_Done());
  EXPECT_EQ(output.Unprepare_Header(handle, header), Wave_Still_Playing);
  EXPECT_TRUE(Await([&] { return Is_Done(); }));
  const EventLoop::Time took = events.Now() - begun;
  EXPECT_GE(took, 950ms);  // the server's clock is not ours
  EXPECT_LE(took, 4s);
  EXPECT_EQ(output.Unprepare_Header(handle, header), Wave_Ok);
}

TEST_F(WaveOutput, What_it_plays_is_heard) {
  InputEar ear(Default_Input());
  ASSERT_TRUE(Await([&] {
    ear.Listen();
    return ear.Blocks() > 0;
  }));
  ASSERT_EQ(output.Write(handle, header), Wave_Ok);
  EXPECT_TRUE(Await([&] {
    ear.Listen();
    return ear.Loud() >= 18;
  }));
  EXPECT_TRUE(Await([&] {
    ear.Listen();
    return ear.Silent_Since() >= 20;
  }));
  EXPECT_NEAR(ear.Loud(), 20, 2);
}

TEST_F(WaveOutput, A_closed_output_can_be_opened_again) {
  ASSERT_EQ(output.Close(handle), Wave_Ok);
  ASSERT_EQ(output.Open(handle, Mono_11025), Wave_Ok);
  ASSERT_EQ(output.Prepare_Header(handle, header), Wave_Ok);
  ASSERT_EQ(output.Write(handle, header), Wave_Ok);
  EXPECT_TRUE(Await([&] { return Is_Done(); }));
}

TEST_F(WaveOutput, Formats_that_it_says_it_can_play_it_plays) {
  for (const WaveFormat& format : {Mono_22050, Mono_11025, Pcm(2, 16, 44'100)}) {
    ASSERT_TRUE(output.Can_Play(format)) << format.samples_per_second;
    ASSERT_EQ(output.Close(handle), Wave_Ok);
    ASSERT_EQ(output.Open(handle, format), Wave_Ok) << format.samples_per_second;
    ASSERT_EQ(output.Prepare_Header(handle, header), Wave_Ok);
    ASSERT_EQ(output.Write(handle, header), Wave_Ok);
    EXPECT_TRUE(Await([&] { return Is_Done(); })) << format.samples_per_second;
    EXPECT_EQ(output.Unprepare_Header(handle, header), Wave_Ok);
  }
}

}  // namespace
}  // namespace quillspeech::tests
