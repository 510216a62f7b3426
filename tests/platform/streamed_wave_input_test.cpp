#include "platform/streamed_wave_input.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <utility>
#include <vector>

#include "tests/platform/hand_clock.hpp"

namespace quillspeech {
namespace {

using namespace std::chrono_literals;

constexpr WaveFormat Mono_22050{1, 1, 22'050, 22'050, 1, 8};
constexpr WaveFormat Mono_11025{1, 1, 11'025, 11'025, 1, 8};

// What a test puts into it, it has recorded.
struct HandStream final : RecordingStream {
  WaveResult Get_Device_Capabilities(int) override { return answer; }
  WaveResult Open(const WaveFormat& asked) override {
    if (answer != Wave_Ok) return answer;
    ++openings;
    is_open = true;
    format = asked;
    return Wave_Ok;
  }
  void Close() override { is_open = false; }
  bool Is_Running(const WaveFormat& asked) const override {
    return is_open && asked.samples_per_second == format.samples_per_second;
  }
  std::size_t Take(std::uint8_t* to, std::size_t most) override {
    const std::size_t count = std::min(most, bytes.size());
    std::copy_n(bytes.begin(), count, to);
    bytes.erase(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count));
    return count;
  }
  void Drop() override { bytes.clear(); }

  WaveResult answer = Wave_Ok;
  int openings = 0;
  bool is_open = false;
  WaveFormat format;
  std::vector<std::uint8_t> bytes;
};

class StreamedInput : public testing::Test {
 protected:
  struct Buffer {
    explicit Buffer(std::size_t size) : bytes(size) {
      header.data = bytes.data();
      header.buffer_length = static_cast<std::uint32_t>(size);
    }
    bool Is_Done() const { return (header.flags & Header_Done) != 0; }

    std::vector<std::uint8_t> bytes;
    WaveHeader header;
  };

  void Open(const WaveFormat& format = Mono_22050) {
    ASSERT_EQ(input.Open(handle, format), Wave_Ok);
  }
  void Add(Buffer& buffer) {
    ASSERT_EQ(input.Prepare_Header(handle, buffer.header), Wave_Ok);
    ASSERT_EQ(input.Add_Buffer(handle, buffer.header), Wave_Ok);
  }
  void Close() {
    input.Reset(handle);
    ASSERT_EQ(input.Close(handle), Wave_Ok);
  }
  // The device brings that sound, and the loop looks.
  void Record(std::vector<std::uint8_t> bytes) {
    stream.bytes.insert(stream.bytes.end(), bytes.begin(), bytes.end());
    clock.Run_Pending_Events();
  }

  tests::HandClock clock;
  std::unique_ptr<HandStream> owned = std::make_unique<HandStream>();
  HandStream& stream = *owned;
  StreamedWaveInput input{clock, std::move(owned)};
  WaveHandle handle = 0;
};

TEST_F(StreamedInput, Sound_fills_the_headers_in_their_order) {
  Open();
  Buffer first(3);
  Buffer second(2);
  Add(first);
  Add(second);
  input.Start(handle);
  Record({1, 2, 3, 4});
  EXPECT_EQ(first.bytes, (std::vector<std::uint8_t>{1, 2, 3}));
  EXPECT_TRUE(first.Is_Done());
  EXPECT_EQ(second.header.bytes_recorded, 1U);
  EXPECT_FALSE(second.Is_Done());
  Record({5});
  EXPECT_EQ(second.bytes, (std::vector<std::uint8_t>{4, 5}));
  EXPECT_TRUE(second.Is_Done());
}

TEST_F(StreamedInput, A_header_may_be_longer_than_what_is_copied_at_once) {
  Open();
  Buffer buffer(10'000);
  Add(buffer);
  input.Start(handle);
  Record(std::vector<std::uint8_t>(10'000, 9));
  EXPECT_TRUE(buffer.Is_Done());
  EXPECT_EQ(buffer.bytes, std::vector<std::uint8_t>(10'000, 9));
}

TEST_F(StreamedInput, What_came_before_the_start_is_not_recorded) {
  Open();
  Buffer buffer(2);
  Add(buffer);
  stream.bytes = {1, 2};
  input.Start(handle);
  Record({3, 4});
  EXPECT_EQ(buffer.bytes, (std::vector<std::uint8_t>{3, 4}));
}

TEST_F(StreamedInput, What_comes_while_it_is_stopped_is_not_recorded) {
  Open();
  Buffer buffer(3);
  Add(buffer);
  input.Start(handle);
  Record({1});
  input.Stop(handle);
  Record({2});
  input.Start(handle);
  Record({3, 4});
  EXPECT_EQ(buffer.bytes, (std::vector<std::uint8_t>{1, 3, 4}));
}

TEST_F(StreamedInput, What_came_since_the_last_look_is_recorded_by_the_stop) {
  Open();
  Buffer buffer(3);
  Add(buffer);
  input.Start(handle);
  Record({1});
  stream.bytes = {2};
  input.Stop(handle);
  EXPECT_EQ(buffer.bytes, (std::vector<std::uint8_t>{1, 2, 0}));
  EXPECT_EQ(buffer.header.bytes_recorded, 2U);
  EXPECT_FALSE(buffer.Is_Done());
}

TEST_F(StreamedInput, A_second_stop_records_nothing) {
  Open();
  Buffer buffer(3);
  Add(buffer);
  input.Start(handle);
  input.Stop(handle);
  stream.bytes = {1};
  input.Stop(handle);
  EXPECT_EQ(buffer.header.bytes_recorded, 0U);
}

TEST_F(StreamedInput, A_reset_gives_the_headers_back_as_they_stand) {
  Open();
  Buffer buffer(4);
  Add(buffer);
  input.Start(handle);
  Record({1});
  EXPECT_EQ(input.Close(handle), Wave_Still_Playing);
  input.Reset(handle);
  EXPECT_TRUE(buffer.Is_Done());
  EXPECT_EQ(buffer.header.bytes_recorded, 1U);
  EXPECT_EQ(input.Close(handle), Wave_Ok);
}

TEST_F(StreamedInput, A_header_without_a_buffer_is_filled_all_the_same) {
  Open();
  Buffer buffer(2);
  buffer.header.data = nullptr;
  Add(buffer);
  input.Start(handle);
  Record({1, 2});
  EXPECT_TRUE(buffer.Is_Done());
  EXPECT_EQ(buffer.bytes, std::vector<std::uint8_t>(2));
}

TEST_F(StreamedInput, Opened_again_soon_it_goes_on_with_the_same_stream) {
  Open();
  Close();
  clock.now += 2s;
  clock.Run_Pending_Events();
  Open();
  EXPECT_EQ(stream.openings, 1);
}

TEST_F(StreamedInput, Another_rate_is_another_opening) {
  Open(Mono_22050);
  Close();
  Open(Mono_11025);
  EXPECT_EQ(stream.openings, 2);
}

TEST_F(StreamedInput, Left_closed_it_lets_the_device_go_after_three_seconds) {
  Open();
  Close();
  EXPECT_EQ(input.Next_Due(), clock.now + 3s);
  clock.now += 3s - 1us;
  clock.Run_Pending_Events();
  EXPECT_TRUE(stream.is_open);
  clock.now += 1us;
  clock.Run_Pending_Events();
  EXPECT_FALSE(stream.is_open);
  EXPECT_FALSE(input.Next_Due());
}

TEST_F(StreamedInput, A_device_that_went_away_is_opened_anew) {
  Open();
  Close();
  stream.is_open = false;
  Open();
  EXPECT_EQ(stream.openings, 2);
}

TEST_F(StreamedInput, A_refused_opening_leaves_no_line_open) {
  stream.answer = Wave_Bad_Device;
  EXPECT_EQ(input.Open(handle, Mono_22050), Wave_Bad_Device);
  stream.answer = Wave_Ok;
  Open();
}

TEST_F(StreamedInput, Which_formats_there_are_is_for_the_device_to_say) {
  constexpr WaveFormat Fast_Stereo{1, 2, 384'000, 2'304'000, 6, 24};
  stream.answer = Wave_Bad_Format;
  EXPECT_EQ(input.Open(handle, Fast_Stereo), Wave_Bad_Format);
  stream.answer = Wave_Ok;
  EXPECT_EQ(input.Open(handle, Fast_Stereo), Wave_Ok);
  EXPECT_EQ(stream.format, Fast_Stereo);
}

TEST_F(StreamedInput, A_format_without_a_byte_rate_is_none) {
  EXPECT_EQ(input.Open(handle, {1, 1, 22'050, 0, 1, 8}), Wave_Bad_Format);
  EXPECT_EQ(stream.openings, 0);
}

TEST_F(StreamedInput, It_is_due_when_the_first_header_can_be_full) {
  Open();
  Buffer buffer(22'050);
  Add(buffer);
  EXPECT_FALSE(input.Next_Due());
  input.Start(handle);
  EXPECT_EQ(input.Next_Due(), clock.now + 1s);
  clock.now += 500ms;
  Record(std::vector<std::uint8_t>(11'025));
  EXPECT_EQ(input.Next_Due(), clock.now + 500ms);
}

TEST_F(StreamedInput, It_looks_no_oftener_than_every_hundredth_of_a_second) {
  Open();
  Buffer buffer(1);
  Add(buffer);
  input.Start(handle);
  EXPECT_EQ(input.Next_Due(), clock.now + 10ms);
}

}  // namespace
}  // namespace quillspeech
