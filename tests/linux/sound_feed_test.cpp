#include "platform/linux/sound_feed.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace quillspeech::tests {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr WaveFormat Mono_8{1, 1, 22'050, 22'050, 1, 8};
constexpr WaveFormat Stereo_16{1, 2, 22'050, 88'200, 4, 16};

class SoundFeed : public testing::Test {
 protected:
  // What the device gets, on a buffer that holds something else.
  Bytes Filled(std::size_t blocks, std::size_t block_bytes = 1) {
    Bytes buffer(blocks * block_bytes, 99);
    has_more = feed.Fill(buffer.data(), blocks);
    return buffer;
  }

  linux::SoundFeed feed;
  bool has_more = false;
};

TEST_F(SoundFeed, It_gives_piece_after_piece_and_says_so_as_long_as_something_is_left) {
  feed.Begin(Mono_8, {1, 2, 3}, false);
  EXPECT_EQ(Filled(2), (Bytes{1, 2}));
  EXPECT_TRUE(has_more);
  EXPECT_EQ(Filled(1), Bytes{3});
  EXPECT_FALSE(has_more);
}

TEST_F(SoundFeed, Behind_the_end_comes_silence) {
  feed.Begin(Mono_8, {1, 2}, false);
  EXPECT_EQ(Filled(4), (Bytes{1, 2, 128, 128}));
  EXPECT_FALSE(has_more);
  EXPECT_EQ(Filled(2), (Bytes{128, 128}));
}

TEST_F(SoundFeed, At_16_bits_silence_is_0_and_a_block_holds_both_channels) {
  feed.Begin(Stereo_16, {1, 2, 3, 4}, false);
  EXPECT_EQ(Filled(2, 4), (Bytes{1, 2, 3, 4, 0, 0, 0, 0}));
}

TEST_F(SoundFeed, A_loop_begins_again_as_often_as_the_buffer_holds_it_and_has_no_end) {
  feed.Begin(Mono_8, {1, 2, 3}, true);
  EXPECT_EQ(Filled(7), (Bytes{1, 2, 3, 1, 2, 3, 1}));
  EXPECT_TRUE(has_more);
  EXPECT_EQ(Filled(2), (Bytes{2, 3}));
  EXPECT_TRUE(has_more);
}

TEST_F(SoundFeed, A_loop_of_nothing_ends) {
  feed.Begin(Mono_8, {}, true);
  EXPECT_EQ(Filled(2), (Bytes{128, 128}));
  EXPECT_FALSE(has_more);
}

TEST_F(SoundFeed, The_next_sound_begins_at_its_head_and_no_longer_loops) {
  feed.Begin(Mono_8, {1, 2, 3}, true);
  Filled(2);
  feed.Begin(Mono_8, {7, 8}, false);
  EXPECT_EQ(Filled(3), (Bytes{7, 8, 128}));
  EXPECT_FALSE(has_more);
}

}  // namespace
}  // namespace quillspeech::tests
