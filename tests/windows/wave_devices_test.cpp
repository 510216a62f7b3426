// The wave ports where there is no such device, and before anything is open.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>

#include "platform/windows/sound_cues.hpp"
#include "platform/windows/sound_devices.hpp"
#include "platform/windows/wave_input.hpp"
#include "platform/windows/wave_output.hpp"
#include "tests/support/temporary_folder.hpp"
#include "tests/support/wave_builder.hpp"

namespace quillspeech::tests {
namespace {

constexpr WaveFormat Mono{1, 1, 22'050, 22'050, 1, 8};
constexpr WaveHandle No_Handle = 0;

class WaveDevices : public testing::Test {
 protected:
  windows::EventLoop events;
  windows::WaveInput input{events};
  windows::WaveOutput output{events};
  std::array<std::uint8_t, 10> bytes{};
  WaveHeader header{bytes.data(), 10};
};

TEST_F(WaveDevices, A_number_that_no_device_has_is_a_bad_device) {
  constexpr int Beyond = 99;
  EXPECT_EQ(input.Get_Device_Capabilities(Beyond), Wave_Bad_Device);
  const bool has_first = ::waveInGetNumDevs() > 0;
  EXPECT_EQ(input.Get_Device_Capabilities(0), has_first ? Wave_Ok : Wave_Bad_Device);
}

TEST_F(WaveDevices, A_name_that_no_device_has_is_a_bad_device) {
  windows::WaveInput named(events, "no such device");
  EXPECT_EQ(named.Get_Device_Capabilities(0), Wave_Bad_Device);
  WaveHandle handle = No_Handle;
  EXPECT_EQ(named.Open(handle, Mono), Wave_Bad_Device);
  EXPECT_EQ(handle, No_Handle);
  EXPECT_EQ(named.Open(handle, Mono), Wave_Bad_Device);  // and it is not held by the first time
  EXPECT_FALSE(windows::Find_Input("no such device"));
  EXPECT_FALSE(windows::Find_Input("99"));
}

TEST_F(WaveDevices, An_input_without_a_device_is_refused_and_does_not_wait) {
  if (::waveInGetNumDevs() > 0) GTEST_SKIP() << "this machine has an input";
  WaveHandle handle = No_Handle;
  EXPECT_NE(input.Open(handle, Mono), Wave_Ok);
  EXPECT_EQ(handle, No_Handle);
}

TEST_F(WaveDevices, An_output_without_a_device_plays_nothing_and_does_not_wait) {
  if (::waveOutGetNumDevs() > 0) GTEST_SKIP() << "this machine has an output";
  EXPECT_FALSE(output.Can_Play(Mono));
  WaveHandle handle = No_Handle;
  EXPECT_NE(output.Open(handle, Mono), Wave_Ok);
  EXPECT_EQ(handle, No_Handle);
}

TEST_F(WaveDevices, What_is_not_open_takes_no_calls) {
  EXPECT_EQ(input.Prepare_Header(No_Handle, header), Wave_Bad_Handle);
  EXPECT_EQ(input.Add_Buffer(No_Handle, header), Wave_Bad_Handle);
  EXPECT_EQ(input.Start(No_Handle), Wave_Bad_Handle);
  EXPECT_EQ(input.Stop(No_Handle), Wave_Bad_Handle);
  EXPECT_EQ(input.Reset(No_Handle), Wave_Bad_Handle);
  EXPECT_EQ(input.Unprepare_Header(No_Handle, header), Wave_Bad_Handle);
  EXPECT_EQ(input.Close(No_Handle), Wave_Bad_Handle);
  EXPECT_EQ(output.Prepare_Header(No_Handle, header), Wave_Bad_Handle);
  EXPECT_EQ(output.Write(No_Handle, header), Wave_Bad_Handle);
  EXPECT_EQ(output.Unprepare_Header(No_Handle, header), Wave_Bad_Handle);
  EXPECT_EQ(output.Close(No_Handle), Wave_Bad_Handle);
}

TEST_F(WaveDevices, A_format_without_a_byte_rate_is_refused) {
  WaveHandle handle = No_Handle;
  EXPECT_EQ(input.Open(handle, {1, 1, 22'050, 0, 1, 8}), Wave_Bad_Format);
  EXPECT_EQ(output.Open(handle, {1, 1, 22'050, 0, 1, 8}), Wave_Bad_Format);
}

TEST_F(WaveDevices, A_format_without_channels_is_refused) {
  WaveHandle handle = No_Handle;
  EXPECT_NE(input.Open(handle, {1, 0, 22'050, 22'050, 1, 8}), Wave_Ok);
  EXPECT_NE(output.Open(handle, {1, 0, 22'050, 22'050, 1, 8}), Wave_Ok);
}

TEST_F(WaveDevices, A_device_that_records_and_plays_nothing_is_never_due) {
  EXPECT_FALSE(input.Next_Due());
  EXPECT_FALSE(output.Next_Due());
  events.Run_Pending_Events();
}

TEST(SoundCues, A_file_that_is_not_there_is_no_cue) {
  windows::SoundCues cues;
  cues.Play("C:\\no such folder\\none.wav", CueMode::Loop);
  EXPECT_FALSE(cues.Is_Sounding());
  cues.Play("", CueMode::Once);
  EXPECT_FALSE(cues.Is_Sounding());
}

TEST(SoundCues, A_name_that_is_empty_or_holds_a_nul_stops_nothing) {
  const TemporaryFolder folder;
  const std::string file = folder.Put("cue.wav", Wave().Data(Silence(Bytes(220'500))).File());
  windows::SoundCues cues;
  cues.Play(file, CueMode::Once);
  if (!cues.Is_Sounding()) GTEST_SKIP() << "nothing sounds here";
  cues.Play("", CueMode::Once);
  EXPECT_TRUE(cues.Is_Sounding());
  cues.Play(file + std::string("\0.wav", 5), CueMode::Once);
  EXPECT_TRUE(cues.Is_Sounding());
  cues.Purge();
  EXPECT_FALSE(cues.Is_Sounding());
}

TEST(SoundCues, A_purge_where_nothing_sounds_does_nothing) {
  windows::SoundCues cues;
  cues.Purge();
  EXPECT_FALSE(cues.Is_Sounding());
}

}  // namespace
}  // namespace quillspeech::tests
