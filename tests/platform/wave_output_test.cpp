#include "platform/wave_output.hpp"

#include <gtest/gtest.h>

#include <cstdint>

#include "platform/headless/wave_output.hpp"
#include "tests/support/wave_builder.hpp"

namespace quillspeech {
namespace {

using tests::Pcm;

TEST(CommonFormat, Channels_are_1_or_2_and_bits_8_or_16) {
  for (int channels = 0; channels <= 9; ++channels) {
    for (int bits = 0; bits <= 64; ++bits) {
      const bool common = (channels == 1 || channels == 2) && (bits == 8 || bits == 16);
      EXPECT_EQ(Is_Common_Format(Pcm(channels, bits)), common) << channels << " of " << bits;
    }
  }
}

TEST(CommonFormat, Rates_run_from_4000_to_192000) {
  for (const std::uint32_t rate : {4'000u, 8'000u, 11'025u, 22'050u, 44'100u, 48'000u, 192'000u}) {
    EXPECT_TRUE(Is_Common_Format(Pcm(1, 8, rate))) << rate;
    EXPECT_TRUE(Is_Common_Format(Pcm(2, 16, rate))) << rate;
  }
  for (const std::uint32_t rate : {0u, 1u, 3'999u, 192'001u, 0x80000000u, 0xFFFFFFFFu}) {
    EXPECT_FALSE(Is_Common_Format(Pcm(1, 8, rate))) << rate;
    EXPECT_FALSE(Is_Common_Format(Pcm(2, 16, rate))) << rate;
  }
}

TEST(CommonFormat, The_only_tag_is_that_of_PCM) {
  WaveFormat format = Pcm();
  for (int tag = 0; tag <= 0xFFFF; ++tag) {
    format.format_tag = static_cast<std::uint16_t>(tag);
    EXPECT_EQ(Is_Common_Format(format), tag == 1) << tag;
  }
}

TEST(CommonFormat, The_block_alignment_is_that_of_the_channels_and_bits) {
  for (const WaveFormat& shape : {Pcm(1, 8), Pcm(2, 8), Pcm(1, 16), Pcm(2, 16)}) {
    for (int alignment = 0; alignment <= 8; ++alignment) {
      WaveFormat format = shape;
      format.block_alignment = static_cast<std::uint16_t>(alignment);
      format.average_bytes_per_second = format.samples_per_second * format.block_alignment;
      EXPECT_EQ(Is_Common_Format(format), alignment == shape.block_alignment) << alignment;
    }
  }
}

TEST(CommonFormat, The_byte_rate_is_that_of_the_samples_and_blocks) {
  for (const std::uint32_t byte_rate : {0u, 22'050u, 88'199u, 88'201u, 176'400u}) {
    WaveFormat format = Pcm(2, 16, 22'050);
    ASSERT_EQ(format.average_bytes_per_second, 88'200u);
    format.average_bytes_per_second = byte_rate;
    EXPECT_FALSE(Is_Common_Format(format)) << byte_rate;
  }
}

TEST(WaveOutputWithoutDevices, Plays_the_common_formats_unless_it_is_told_to_be_absent) {
  headless::WaveOutput output;
  EXPECT_TRUE(output.Can_Play(Pcm()));
  EXPECT_FALSE(output.Can_Play(Pcm(3, 8)));
  output.present = false;
  EXPECT_FALSE(output.Can_Play(Pcm()));
}

}  // namespace
}  // namespace quillspeech
