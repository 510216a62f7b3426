// A capture's device that opens and closes every few seconds.
#include "platform/linux/wave_input.hpp"

#include <array>
#include <cstdio>
#include <string>
#include <vector>

#include "tests/live/device_fixture.hpp"

namespace quillspeech::tests {
namespace {

class WaveInput : public DeviceTest {
 protected:
  // The server's number of the stream and its rate; empty while there is none.
  static std::string Stream() {
    return Said_By("pactl list short source-outputs | awk '{print $1, $(NF-0)}'");
  }
  static std::string Said_By(const std::string& command) {
    std::string said;
    FILE* const pipe = ::popen(command.c_str(), "r");
    if (!pipe) return said;
    std::array<char, 256> part;
    while (std::fgets(part.data(), part.size(), pipe)) said += part.data();
    ::pclose(pipe);
    return said;
  }
  // Records a tenth of a second.
  void Record(const WaveFormat& format) {
    WaveHandle handle = 0;
    ASSERT_EQ(input.Open(handle, format), Wave_Ok);
    std::vector<std::uint8_t> bytes(format.samples_per_second / 10);
    WaveHeader header;
    header.data = bytes.data();
    header.buffer_length = static_cast<std::uint32_t>(bytes.size());
    ASSERT_EQ(input.Prepare_Header(handle, header), Wave_Ok);
    ASSERT_EQ(input.Add_Buffer(handle, header), Wave_Ok);
    ASSERT_EQ(input.Start(handle), Wave_Ok);
    ASSERT_TRUE(Await([&] { return (header.flags & Header_Done) != 0; }));
    EXPECT_EQ(header.bytes_recorded, bytes.size());
    ASSERT_EQ(input.Unprepare_Header(handle, header), Wave_Ok);
    ASSERT_EQ(input.Close(handle), Wave_Ok);
  }

  linux::WaveInput input{events, audio, ""};
};

TEST_F(WaveInput, Opened_again_soon_it_goes_on_with_the_same_stream) {
  Record(Mono_22050);
  const std::string first = Stream();
  EXPECT_NE(first, "");
  Record(Mono_22050);
  EXPECT_EQ(Stream(), first);
}

TEST_F(WaveInput, Another_rate_is_another_stream) {
  Record(Mono_22050);
  const std::string first = Stream();
  Record(Mono_11025);
  EXPECT_NE(Stream(), first);
  EXPECT_NE(Stream(), "");
}

TEST_F(WaveInput, Left_closed_it_lets_the_device_go_after_a_while) {
  Record(Mono_22050);
  EXPECT_NE(Stream(), "");
  EXPECT_TRUE(Await([] { return Stream().empty(); }));
  Record(Mono_22050);
}

TEST_F(WaveInput, A_device_that_is_not_there_is_not_found) {
  linux::WaveInput none(events, audio, "no such device");
  EXPECT_EQ(none.Get_Device_Capabilities(0), Wave_Bad_Device);
  EXPECT_EQ(input.Get_Device_Capabilities(0), Wave_Ok);
}

}  // namespace
}  // namespace quillspeech::tests
