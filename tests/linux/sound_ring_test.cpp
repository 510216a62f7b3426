#include "platform/linux/sound_ring.hpp"

#include <gtest/gtest.h>

#include <numeric>
#include <thread>
#include <vector>

namespace quillspeech::tests {
namespace {

using Bytes = std::vector<std::uint8_t>;

class SoundRing : public testing::Test {
 protected:
  SoundRing() { ring.Make(5); }

  void Put(const Bytes& bytes) { ring.Put(bytes.data(), bytes.size()); }
  Bytes Take(std::size_t most) {
    Bytes taken(most);
    taken.resize(ring.Take(taken.data(), most));
    return taken;
  }

  linux::SoundRing ring;
};

TEST_F(SoundRing, What_was_put_is_taken_in_its_order_and_once) {
  Put({1, 2});
  Put({3});
  EXPECT_EQ(Take(2), (Bytes{1, 2}));
  EXPECT_EQ(Take(2), Bytes{3});
  EXPECT_EQ(Take(2), Bytes{});
}

TEST_F(SoundRing, A_stretch_across_the_end_is_put_and_taken_whole) {
  Put({1, 2, 3});
  EXPECT_EQ(Take(3), (Bytes{1, 2, 3}));
  Put({4, 5, 6, 7});
  EXPECT_EQ(Take(4), (Bytes{4, 5, 6, 7}));
}

TEST_F(SoundRing, What_finds_it_full_is_lost_and_the_oldest_stays) {
  Put({1, 2, 3});
  Put({4, 5, 6, 7});
  Put({8});
  EXPECT_EQ(Take(9), (Bytes{1, 2, 3, 4, 5}));
  Put({9});
  EXPECT_EQ(Take(9), Bytes{9});
}

TEST_F(SoundRing, Across_the_end_a_full_ring_loses_the_newest_too) {
  Put({1, 2, 3, 4});
  Take(3);
  Put({5, 6, 7, 8, 9});
  EXPECT_EQ(Take(9), (Bytes{4, 5, 6, 7, 8}));
}

TEST_F(SoundRing, A_drop_forgets_what_is_in_it_and_not_what_comes) {
  Put({1, 2, 3, 4, 5});
  ring.Drop();
  EXPECT_EQ(Take(9), Bytes{});
  Put({6, 7, 8, 9, 10});
  EXPECT_EQ(Take(9), (Bytes{6, 7, 8, 9, 10}));
}

TEST_F(SoundRing, Made_anew_it_is_empty_and_has_the_new_room) {
  Put({1, 2, 3});
  ring.Make(2);
  EXPECT_EQ(Take(9), Bytes{});
  Put({4, 5, 6});
  EXPECT_EQ(Take(9), (Bytes{4, 5}));
}

TEST(SoundRingWithoutRoom, It_takes_nothing_in_and_gives_nothing) {
  linux::SoundRing ring;
  std::uint8_t byte = 7;
  ring.Put(&byte, 1);
  ring.Drop();
  EXPECT_EQ(ring.Take(&byte, 1), 0U);
}

TEST(SoundRingBetweenThreads, One_puts_while_the_other_takes_and_nothing_is_torn) {
  constexpr std::size_t Total = 200'000;
  linux::SoundRing ring;
  ring.Make(Total);  // so that nothing is lost
  Bytes said(Total);
  std::iota(said.begin(), said.end(), std::uint8_t{0});
  std::thread putter([&] {
    for (std::size_t i = 0; i < Total; i += 100) ring.Put(said.data() + i, 100);
  });
  Bytes heard(Total);
  for (std::size_t got = 0; got < Total;) got += ring.Take(heard.data() + got, Total - got);
  putter.join();
  EXPECT_EQ(heard, said);
}

}  // namespace
}  // namespace quillspeech::tests
