#include "platform/pcm.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "tests/support/wave_builder.hpp"

namespace quillspeech {
namespace {

using tests::Pcm;
using tests::Wave;
using Bytes = std::vector<std::uint8_t>;

Bytes Sixteen_Bits(const std::vector<int>& values) {
  Bytes bytes;
  for (const int value : values) {
    bytes.push_back(static_cast<std::uint8_t>(value & 0xFF));
    bytes.push_back(static_cast<std::uint8_t>((value >> 8) & 0xFF));
  }
  return bytes;
}

Bytes Mono_Of(const WaveFormat& format, const Bytes& data) {
  const auto sound = Mono_From_Wave(Wave().Format(format).Data(data).File());
  EXPECT_TRUE(sound.has_value());
  return sound ? sound->bytes : Bytes{};
}

TEST(MonoFromWave, Mono_of_8_bits_is_taken_byte_for_byte_with_its_rate) {
  Bytes all(256);
  for (std::size_t i = 0; i < all.size(); ++i) all[i] = static_cast<std::uint8_t>(i);
  for (const std::uint32_t rate : {8'000u, 22'050u, 44'100u}) {
    const auto sound = Mono_From_Wave(Wave().Format(Pcm(1, 8, rate)).Data(all).File());
    ASSERT_TRUE(sound);
    EXPECT_EQ(sound->bytes, all);
    EXPECT_EQ(sound->rate, rate);
  }
}

TEST(MonoFromWave, Mono_of_16_bits_is_rounded_to_the_nearest_of_8) {
  struct Case {
    int value;
    std::uint8_t byte;
  };
  for (const Case& one : std::vector<Case>{{0, 128},
                                           {127, 128},
                                           {128, 129},
                                           {-128, 128},
                                           {-129, 127},
                                           {256, 129},
                                           {-256, 127},
                                           {32'767, 255},
                                           {32'600, 255},
                                           {-32'768, 0},
                                           {-32'641, 0},
                                           {-32'640, 1}}) {
    EXPECT_EQ(Mono_Of(Pcm(1, 16), Sixteen_Bits({one.value})), Bytes{one.byte}) << one.value;
  }
}

TEST(MonoFromWave, Two_channels_of_8_bits_give_their_mean) {
  EXPECT_EQ(Mono_Of(Pcm(2, 8), {100, 200, 0, 0, 255, 255, 128, 129}), (Bytes{150, 0, 255, 129}));
}

TEST(MonoFromWave, Two_channels_of_16_bits_give_their_mean) {
  EXPECT_EQ(
      Mono_Of(Pcm(2, 16), Sixteen_Bits({1000, -1000, 32'767, 32'767, -32'768, -32'768, 512, 0})),
      (Bytes{128, 255, 0, 129}));
}

TEST(MonoFromWave, A_frame_that_is_cut_off_is_left_out) {
  EXPECT_EQ(Mono_Of(Pcm(2, 16), {0, 0, 0, 0, 0, 64, 0}), Bytes{128});
}

TEST(MonoFromWave, A_data_chunk_that_claims_more_than_there_is_gives_what_is_there) {
  const auto file = Wave().Data({1, 2, 3, 4}).Claiming(0x7FFF'0000).Riff_Claiming(0x7FFF'FFFF);
  const auto sound = Mono_From_Wave(file.File());
  ASSERT_TRUE(sound);
  EXPECT_EQ(sound->bytes, (Bytes{1, 2, 3, 4}));
}

TEST(MonoFromWave, Chunks_around_the_sound_are_passed_over) {
  const auto file = Wave().Chunk("LIST", {1, 2, 3}).Format().Chunk("fact", {4}).Data({5, 6});
  const auto sound = Mono_From_Wave(file.File());
  ASSERT_TRUE(sound);
  EXPECT_EQ(sound->bytes, (Bytes{5, 6}));
}

TEST(MonoFromWave, An_empty_data_chunk_is_a_sound_of_no_length) {
  const auto sound = Mono_From_Wave(Wave().Data({}).File());
  ASSERT_TRUE(sound);
  EXPECT_TRUE(sound->bytes.empty());
}

TEST(MonoFromWave, Formats_that_are_not_PCM_of_8_or_16_bits_in_1_or_2_channels_give_nothing) {
  WaveFormat compressed = Pcm();
  compressed.format_tag = 2;
  for (const WaveFormat& format :
       {compressed, Pcm(3, 8), Pcm(0, 8), Pcm(1, 24), Pcm(1, 4), Pcm(1, 32), Pcm(1, 8, 0)}) {
    EXPECT_FALSE(Mono_From_Wave(Wave().Format(format).Data({1, 2, 3, 4}).File()));
  }
}

TEST(MonoFromWave, What_is_no_WAV_file_gives_nothing) {
  EXPECT_FALSE(Mono_From_Wave(Bytes{}));
  EXPECT_FALSE(Mono_From_Wave(Bytes(1'000, 128)));
  EXPECT_FALSE(Mono_From_Wave(Wave().Data({1}).Form("AVI ").File()));
  EXPECT_FALSE(Mono_From_Wave(Wave().Without_Format().Data({1}).File()));
  EXPECT_FALSE(Mono_From_Wave(Wave().Format().File()));
  EXPECT_FALSE(Mono_From_Wave(Wave().Without_Format().Chunk("fmt ", {1, 0}).Data({1}).File()));
}

TEST(MonoFromWave, A_file_that_is_cut_anywhere_before_its_sound_gives_nothing) {
  const Bytes whole = Wave().Data({7}).File();
  constexpr std::size_t Sound_Begins = 44;
  ASSERT_EQ(whole[Sound_Begins], 7);
  for (std::size_t length = 0; length < Sound_Begins; ++length) {
    EXPECT_FALSE(Mono_From_Wave(std::span(whole).first(length))) << length;
  }
}

}  // namespace
}  // namespace quillspeech
