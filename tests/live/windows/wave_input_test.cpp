// Recording from a device behind Windows' own calls.
#include "platform/windows/wave_input.hpp"

#include <algorithm>
#include <vector>

#include "platform/windows/sound_devices.hpp"
#include "tests/live/device_fixture.hpp"

namespace quillspeech::tests {
namespace {

constexpr std::uint8_t Untouched = 77;  // no device records it in a silent room

class WaveInput : public DeviceTest {
 protected:
  // Opens the device for so many bytes and lets it run.
  void Begin(windows::WaveInput& device, const WaveFormat& format, std::size_t count) {
    bytes.assign(count, Untouched);
    header = {};
    header.data = bytes.data();
    header.buffer_length = static_cast<std::uint32_t>(count);
    ASSERT_EQ(device.Open(handle, format), Wave_Ok);
    ASSERT_EQ(device.Prepare_Header(handle, header), Wave_Ok);
    ASSERT_EQ(device.Add_Buffer(handle, header), Wave_Ok);
    ASSERT_EQ(device.Start(handle), Wave_Ok);
  }
  void End(windows::WaveInput& device) {
    EXPECT_EQ(device.Reset(handle), Wave_Ok);
    EXPECT_EQ(device.Unprepare_Header(handle, header), Wave_Ok);
    EXPECT_EQ(device.Close(handle), Wave_Ok);
  }
  bool Is_Done() const { return (header.flags & Header_Done) != 0; }
  // From the end of what was recorded on.
  bool Is_Rest_Untouched() const {
    return std::all_of(bytes.begin() + header.bytes_recorded, bytes.end(),
                       [](std::uint8_t byte) { return byte == Untouched; });
  }
  bool Is_Head_Silence() const {
    return std::all_of(bytes.begin(), bytes.begin() + header.bytes_recorded,
                       [](std::uint8_t byte) { return byte >= 126 && byte <= 130; });
  }

  windows::WaveInput input{events};
  WaveHandle handle = 0;
  std::vector<std::uint8_t> bytes;
  WaveHeader header;
};

TEST_F(WaveInput, A_header_is_done_when_it_is_full_at_every_rate) {
  for (const std::uint32_t rate : {8'000U, 11'025U, 22'050U, 44'100U}) {
    Begin(input, {1, 1, rate, rate, 1, 8}, rate / 5);
    EXPECT_FALSE(Is_Done());
    EXPECT_TRUE(Await([&] { return Is_Done(); })) << rate;
    EXPECT_EQ(header.bytes_recorded, bytes.size());
    EXPECT_TRUE(Is_Head_Silence()) << rate;
    End(input);
  }
}

TEST_F(WaveInput, It_takes_the_time_that_the_sound_lasts) {
  Begin(input, Mono_22050, 2'205);
  ASSERT_TRUE(Await([&] { return Is_Done(); }));  // the device's own start is over
  End(input);
  const EventLoop::Time begun = events.Now();
  Begin(input, Mono_22050, 22'050);
  ASSERT_TRUE(Await([&] { return Is_Done(); }));
  EXPECT_GE(events.Now() - begun, 900ms);  // the server's clock is not ours
  EXPECT_LE(events.Now() - begun, 3s);
  End(input);
}

TEST_F(WaveInput, Cells_that_are_not_reached_stay_and_a_reset_gives_the_header_back) {
  Begin(input, Mono_22050, 220'500);
  ASSERT_TRUE(Await([&] { return header.bytes_recorded > 5'000; }));
  EXPECT_LT(header.bytes_recorded, bytes.size());
  EXPECT_TRUE(Is_Head_Silence());
  EXPECT_TRUE(Is_Rest_Untouched());
  EXPECT_FALSE(Is_Done());
  EXPECT_EQ(input.Unprepare_Header(handle, header), Wave_Still_Playing);
  EXPECT_EQ(input.Close(handle), Wave_Still_Playing);
  EXPECT_EQ(input.Reset(handle), Wave_Ok);
  EXPECT_TRUE(Is_Done());
  const EventLoop::Time later = events.Now() + 200ms;
  EXPECT_TRUE(Await([&] { return events.Now() > later; }));
  EXPECT_TRUE(Is_Rest_Untouched());
  End(input);
}

TEST_F(WaveInput, Between_yields_nothing_is_written) {
  Begin(input, Mono_22050, 8'000);
  ::Sleep(600);
  EXPECT_EQ(header.bytes_recorded, 0U);
  EXPECT_TRUE(Is_Rest_Untouched());
  EXPECT_TRUE(Await([&] { return Is_Done(); }));
  EXPECT_TRUE(Is_Head_Silence());
  End(input);
}

TEST_F(WaveInput, A_header_without_a_buffer_is_done_all_the_same) {
  Begin(input, Mono_22050, 4'000);
  header.data = nullptr;
  EXPECT_TRUE(Await([&] { return Is_Done(); }));
  header.bytes_recorded = 0;
  EXPECT_TRUE(Is_Rest_Untouched());
  End(input);
}

TEST_F(WaveInput, What_comes_after_a_stop_is_not_recorded) {
  Begin(input, Mono_22050, 220'500);
  ASSERT_TRUE(Await([&] { return header.bytes_recorded > 0; }));
  EXPECT_EQ(input.Stop(handle), Wave_Ok);
  const std::uint32_t recorded = header.bytes_recorded;
  const EventLoop::Time later = events.Now() + 200ms;
  EXPECT_TRUE(Await([&] { return events.Now() > later; }));
  EXPECT_EQ(header.bytes_recorded, recorded);
  EXPECT_EQ(input.Start(handle), Wave_Ok);
  EXPECT_TRUE(Await([&] { return header.bytes_recorded > recorded; }));
  End(input);
}

TEST_F(WaveInput, An_input_is_found_by_its_name_and_its_number) {
  const auto devices = windows::Sound_Devices();
  ASSERT_FALSE(devices.empty());
  for (const std::string& name : {devices.front().name, std::to_string(devices.front().index)}) {
    windows::WaveInput named(events, name);
    EXPECT_EQ(named.Get_Device_Capabilities(0), Wave_Ok) << name;
    Begin(named, Mono_22050, 2'000);
    EXPECT_TRUE(Await([&] { return Is_Done(); })) << name;
    End(named);
  }
}

TEST_F(WaveInput, One_device_can_be_recorded_from_twice_at_once) {
  windows::WaveInput other(events);
  Begin(input, Mono_22050, 4'000);
  {
    const InputEar ear(Default_Input());
    EXPECT_TRUE(Await([&] { return Is_Done(); }));
  }
  End(input);
}

TEST_F(WaveInput, Opened_again_soon_it_hears_at_once) {
  Begin(input, Mono_22050, 4'000);
  ASSERT_TRUE(Await([&] { return Is_Done(); }));
  End(input);
  const EventLoop::Time begun = events.Now();
  Begin(input, Mono_22050, 100);
  EXPECT_TRUE(Await([&] { return Is_Done(); }));
  EXPECT_LE(events.Now() - begun, 500ms);
  End(input);
}

TEST_F(WaveInput, Left_closed_it_lets_the_device_go_after_a_while) {
  Begin(input, Mono_22050, 1'000);
  ASSERT_TRUE(Await([&] { return Is_Done(); }));
  End(input);
  EXPECT_TRUE(input.Next_Due());
  EXPECT_TRUE(Await([&] { return !input.Next_Due(); }));
  Begin(input, Mono_22050, 1'000);
  EXPECT_TRUE(Await([&] { return Is_Done(); }));
  End(input);
}

TEST_F(WaveInput, A_hundred_openings_are_as_good_as_one) {
  for (int i = 0; i < 100; ++i) {
    Begin(input, Mono_22050, 100);
    End(input);
  }
  Begin(input, Mono_22050, 2'000);
  EXPECT_TRUE(Await([&] { return Is_Done(); }));
  End(input);
}

}  // namespace
}  // namespace quillspeech::tests
