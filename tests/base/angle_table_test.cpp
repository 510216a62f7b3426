#include "base/angle_table.hpp"

#include <gtest/gtest.h>

#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <thread>
#include <vector>

#include "base/sine_cosine.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech {
namespace {

std::uint64_t Bits(double value) { return std::bit_cast<std::uint64_t>(value); }

// The number of the failure when that level is asked for, 0 when there is a table.
int Ending_Of(int level) {
  return tests::Failure_Of([level] { AngleTables().For_Level(level); });
}

TEST(TransformAngle, Is_computed_from_left_to_right) {
  // The bin's part is rounded before the term comes in: another order differs in the last bit.
  int differ = 0;
  for (int bin = 1; bin < 128; ++bin) {
    for (int term = 1; term <= 128; ++term) {
      volatile double angle = (bin - 1) * 6.284;
      angle = angle * (term - 1);
      angle = angle / 128;
      ASSERT_EQ(Transform_Angle(bin, term, 128), angle);
      differ += angle != (bin - 1) * ((term - 1) * 6.284) / 128;
    }
  }
  EXPECT_GT(differ, 0);
}

TEST(TransformAngle, The_bin_comes_before_the_term) {
  // 3 * 6.284 = 18.852 and 18.852 * 5, against 5 * 6.284 = 31.42 and 31.42 * 3.
  EXPECT_EQ(Transform_Angle(4, 6, 128), 0x1.790a3d70a3d71p-1);
  EXPECT_EQ(Transform_Angle(6, 4, 128), 0x1.790a3d70a3d70p-1);
}

TEST(TransformAngle, Has_6_284_for_the_full_circle) {
  EXPECT_EQ(Transform_Angle(2, 129, 128), 6.284);
  EXPECT_EQ(Transform_Angle(1, 77, 128), 0);
  EXPECT_EQ(Transform_Angle(77, 1, 128), 0);
}

TEST(AngleTable, Holds_the_cosine_and_the_sine_of_every_angle) {
  for (const int level : {2, 33, 34, 80, 128, 1200}) {
    const AngleTable table(level);
    ASSERT_EQ(table.Level(), level);
    for (int bin = 1; bin < level; bin += 1 + level / 50) {
      for (int term = 1; term <= level; ++term) {
        const auto place = static_cast<std::size_t>((bin - 1) % AngleTable::Bins_In_Panel);
        const auto& row = table.Panel((bin - 1) / AngleTable::Bins_In_Panel)[term - 1];
        const auto [sine, cosine] = Sine_And_Cosine(Transform_Angle(bin, term, level));
        ASSERT_EQ(Bits(row.cosine[place]), Bits(cosine)) << level << " " << bin << " " << term;
        ASSERT_EQ(Bits(row.sine[place]), Bits(sine)) << level << " " << bin << " " << term;
      }
    }
  }
}

TEST(AngleTable, Fills_whole_panels_with_0) {
  const AngleTable table(35);  // 34 bins: two of them in the second panel
  ASSERT_EQ(table.Panels(), 2);
  for (std::size_t term = 0; term < 35; ++term) {
    for (std::size_t place = 2; place < 32; ++place) {
      ASSERT_EQ(table.Panel(1)[term].cosine[place], 0);
      ASSERT_EQ(table.Panel(1)[term].sine[place], 0);
    }
  }
}

TEST(AngleTable, Counts_its_panels) {
  const int cases[][2] = {{1, 0}, {2, 1}, {33, 1}, {34, 2}, {128, 4}, {1200, 38}};
  for (const auto& [level, panels] : cases) EXPECT_EQ(AngleTable(level).Panels(), panels) << level;
}

TEST(AngleTable, Rows_begin_at_a_cache_line) {
  const AngleTable table(40);
  EXPECT_EQ(reinterpret_cast<std::uintptr_t>(table.Panel(0)) % 64, 0u);
}

TEST(AngleTables, A_level_outside_1_to_1200_is_failure_9) {
  EXPECT_EQ(Ending_Of(0), 9);
  EXPECT_EQ(Ending_Of(-1), 9);
  EXPECT_EQ(Ending_Of(1201), 9);
  EXPECT_EQ(Ending_Of(1), 0);
  EXPECT_EQ(Ending_Of(1200), 0);
}

TEST(AngleTables, A_level_asked_for_again_comes_from_the_same_table) {
  AngleTables tables;
  const auto first = tables.For_Level(128);
  const auto other = tables.For_Level(80);
  EXPECT_EQ(tables.For_Level(128), first);
  EXPECT_EQ(tables.For_Level(80), other);
  EXPECT_EQ(first->Level(), 128);
  EXPECT_EQ(other->Level(), 80);
}

TEST(AngleTables, The_four_levels_asked_for_last_are_kept_and_older_ones_let_go) {
  AngleTables tables;
  const std::weak_ptr<const AngleTable> oldest = tables.For_Level(10);
  const std::weak_ptr<const AngleTable> used_again = tables.For_Level(11);
  tables.For_Level(12);
  tables.For_Level(13);
  EXPECT_FALSE(oldest.expired());
  tables.For_Level(11);
  tables.For_Level(14);
  EXPECT_TRUE(oldest.expired());
  EXPECT_FALSE(used_again.expired());
}

TEST(AngleTables, A_large_level_lets_go_of_another_large_one_and_of_no_small_one) {
  AngleTables tables;
  const std::weak_ptr<const AngleTable> large = tables.For_Level(1200);
  const std::weak_ptr<const AngleTable> small = tables.For_Level(128);
  EXPECT_FALSE(large.expired());
  const std::weak_ptr<const AngleTable> other_large = tables.For_Level(1000);
  EXPECT_TRUE(large.expired());
  EXPECT_FALSE(small.expired());
  tables.For_Level(128);
  EXPECT_FALSE(other_large.expired());
  EXPECT_LE(AngleTable(1200).Bytes(), AngleTables::Most_Bytes_Kept);
}

TEST(AngleTables, A_table_in_use_outlives_the_keeping) {
  AngleTables tables;
  const std::shared_ptr<const AngleTable> held = tables.For_Level(10);
  EXPECT_EQ(held.use_count(), 2);
  for (int level = 11; level < 20; ++level) tables.For_Level(level);
  EXPECT_EQ(held.use_count(), 1);
  EXPECT_EQ(held->Level(), 10);
  EXPECT_NE(tables.For_Level(10), held);
}

TEST(AngleTables, Threads_that_ask_at_once_share_one_table) {
  AngleTables tables;
  std::vector<std::shared_ptr<const AngleTable>> got(4);
  std::vector<std::thread> threads;
  for (auto& table : got) threads.emplace_back([&] { table = tables.For_Level(128); });
  for (std::thread& thread : threads) thread.join();
  ASSERT_NE(got[0], nullptr);
  EXPECT_EQ(got[0]->Level(), 128);
  for (const auto& table : got) EXPECT_EQ(table, got[0]);
}

}  // namespace
}  // namespace quillspeech
