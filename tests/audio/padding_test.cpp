#include "audio/padding.hpp"

#include <gtest/gtest.h>

#include <vector>

#include "tests/support/failures.hpp"
#include "tests/support/wave_builder.hpp"

namespace quillspeech {
namespace {

// A store that holds `count` bytes of 1, 2, 3 ... in that format.
Sample Sample_Of(std::int64_t count, const WaveFormat& format) {
  Sample sample;
  sample.Wave_Format = format;
  sample.Speech_Sample_Bytes.Resize(count - 1);
  for (std::int64_t i = 0; i < count; ++i) {
    sample.Speech_Sample_Bytes.Put(i, static_cast<std::uint8_t>(i + 1));
  }
  sample.Samples_Per_Capture = count;
  sample.Wave_Header_Buffer_Length = count;
  return sample;
}

std::vector<int> Bytes_Of(const Sample& sample) {
  std::vector<int> bytes;
  for (std::int64_t i = 0; i < sample.Speech_Sample_Bytes.Count(); ++i) {
    bytes.push_back(sample.Speech_Sample_Bytes[i]);
  }
  return bytes;
}

using Values = std::vector<int>;

TEST(PadWithSilence, Halves_of_silence_surround_the_sound_the_odd_byte_behind) {
  Sample sample = Sample_Of(3, tests::Pcm(1, 8, 8000));
  Pad_With_Silence(sample, 1);  // 8 bytes
  EXPECT_EQ(Bytes_Of(sample), (Values{128, 128, 1, 2, 3, 128, 128, 128}));
  EXPECT_EQ(sample.Samples_Per_Capture, 8);
  EXPECT_EQ(sample.Wave_Header_Buffer_Length, 8);
  EXPECT_EQ(sample.Wave_Header.data, sample.Speech_Sample_Bytes.Read_Range(0, 7));
}

TEST(PadWithSilence, Blocks_are_never_split) {
  Sample sample = Sample_Of(4, tests::Pcm(2, 16, 4000));
  Pad_With_Silence(sample, 1);  // 16 bytes, 12 of silence: one block in front and two behind
  EXPECT_EQ(Bytes_Of(sample),
            (Values{128, 128, 128, 128, 1, 2, 3, 4, 128, 128, 128, 128, 128, 128, 128, 128}));
}

TEST(PadWithSilence, The_whole_is_cut_to_blocks) {
  Sample sample = Sample_Of(8, tests::Pcm(2, 16, 11025));
  Pad_With_Silence(sample, 15);  // 661 bytes and a half
  EXPECT_EQ(sample.Samples_Per_Capture, 660);
  EXPECT_EQ(sample.Wave_Header_Buffer_Length, 660);
  EXPECT_EQ(sample.Speech_Sample_Bytes.Count(), 660);
}

TEST(PadWithSilence, The_byte_rate_of_the_file_counts) {
  Sample sample = Sample_Of(100, tests::Pcm(1, 8, 11025));
  Pad_With_Silence(sample, 7000);
  EXPECT_EQ(sample.Samples_Per_Capture, 77175);
}

TEST(PadWithSilence, A_sound_that_is_as_long_or_longer_stays) {
  for (const std::int64_t count : {8, 9}) {
    Sample sample = Sample_Of(count, tests::Pcm(1, 8, 8000));
    const auto before = Bytes_Of(sample);
    Pad_With_Silence(sample, 1);
    EXPECT_EQ(Bytes_Of(sample), before);
    EXPECT_EQ(sample.Samples_Per_Capture, count);
  }
}

TEST(PadWithSilence, Bytes_that_the_file_lacks_give_way_to_silence) {
  Sample sample = Sample_Of(6, tests::Pcm(1, 8, 8000));
  sample.Samples_Per_Capture = 2;  // the data chunk claims six bytes and has two
  Pad_With_Silence(sample, 1);
  EXPECT_EQ(Bytes_Of(sample), (Values{128, 128, 128, 1, 2, 128, 128, 128}));
}

TEST(PadWithSilence, A_result_beyond_32_bits_is_an_overflow_that_takes_no_memory) {
  Sample sample = Sample_Of(3, tests::Pcm(1, 8, 8000));
  EXPECT_EQ(tests::Failure_Of([&] { Pad_With_Silence(sample, 268'435'456); }), 6);  // 2^31
  EXPECT_EQ(Bytes_Of(sample), (Values{1, 2, 3}));
  EXPECT_EQ(sample.Samples_Per_Capture, 3);
  EXPECT_EQ(sample.Wave_Header_Buffer_Length, 3);
}

}  // namespace
}  // namespace quillspeech
