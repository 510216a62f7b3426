#include "base/dynamic_table.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "tests/support/failures.hpp"

namespace quillspeech {
namespace {

using tests::Failure_Of;

TEST(DynamicTable, A_new_table_has_no_element) {
  const DynamicTable<int> table;
  EXPECT_EQ(table.Count(), 0);
  EXPECT_EQ(Failure_Of([&] { (void)table[0]; }), 9);
}

TEST(DynamicTable, Growing_keeps_the_contents_and_shows_0_above) {
  DynamicTable<int> table;
  table.Resize(2);
  table.Put(2, 7);
  table.Resize(5000);
  EXPECT_EQ(table[2], 7);
  EXPECT_EQ(table[3], 0);
  EXPECT_EQ(table[5000], 0);
}

TEST(DynamicTable, Shrinking_forgets_what_lies_above_the_bound) {
  DynamicTable<int> table;
  table.Resize(10);
  for (int i = 0; i <= 10; ++i) table.Put(i, i + 1);
  table.Resize(4);
  EXPECT_EQ(Failure_Of([&] { (void)table[5]; }), 9);
  table.Resize(10);
  EXPECT_EQ(table[4], 5);
  for (int i = 5; i <= 10; ++i) EXPECT_EQ(table[i], 0) << i;
}

TEST(DynamicTable, Clearing_forgets_everything) {
  DynamicTable<int> table;
  table.Resize(3);
  table.Put(1, 9);
  table.Clear();
  EXPECT_EQ(table.Count(), 0);
  table.Resize(3);
  EXPECT_EQ(table[1], 0);
}

TEST(DynamicTable, An_index_outside_the_bounds_fails_with_9) {
  DynamicTable<int> table;
  table.Resize(3);
  EXPECT_EQ(Failure_Of([&] { table.Put(4, 1); }), 9);
  EXPECT_EQ(Failure_Of([&] { table.Put(-1, 1); }), 9);
  EXPECT_EQ(Failure_Of([&] { table.Resize(-1); }), 9);
  EXPECT_EQ(Failure_Of([&] { table.Read_Range(0, 4); }), 9);
  EXPECT_EQ(Failure_Of([&] { table.Write_Range(-1, 2); }), 9);
  EXPECT_EQ(Failure_Of([&] { table.Read_Range(2, 0); }), 9);
}

TEST(DynamicTable, A_bound_that_the_machine_cannot_address_fails_with_7_and_changes_nothing) {
  constexpr std::int64_t Most_Bytes = std::numeric_limits<std::ptrdiff_t>::max();
  for (const std::int64_t upper :
       {Most_Bytes / 8, Most_Bytes - 1, Most_Bytes, std::numeric_limits<std::int64_t>::max()}) {
    DynamicTable<double> table;
    table.Resize(3);
    table.Put(3, 7);
    EXPECT_EQ(Failure_Of([&] { table.Resize(upper); }), 7) << upper;
    EXPECT_EQ(table.Count(), 4);
    EXPECT_EQ(table[3], 7);
  }
}

TEST(DynamicTable, A_bound_that_finds_no_memory_fails_with_7_and_changes_nothing) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer ends a program that asks for so much";
#endif
  DynamicTable<double> table;
  table.Resize(3);
  table.Put(3, 7);
  constexpr std::int64_t Most_Cells = std::numeric_limits<std::ptrdiff_t>::max() / 8;
  EXPECT_EQ(Failure_Of([&] { table.Resize(Most_Cells - 1); }), 7);
  EXPECT_EQ(table.Count(), 4);
  EXPECT_EQ(table[3], 7);
}

TEST(DynamicTable, A_range_may_be_empty) {
  DynamicTable<int> table;
  table.Resize(3);
  EXPECT_EQ(Failure_Of([&] { table.Read_Range(2, 1); }), 0);
  EXPECT_EQ(Failure_Of([&] { table.Write_Range(0, -1); }), 0);
}

TEST(DynamicTable, What_is_written_through_a_range_is_forgotten_like_the_rest) {
  DynamicTable<int> table;
  table.Resize(9);
  int* cells = table.Write_Range(3, 6);
  for (int i = 0; i < 4; ++i) cells[i] = 8;
  table.Resize(4);
  table.Resize(9);
  EXPECT_EQ(table[4], 8);
  EXPECT_EQ(table[5], 0);
  EXPECT_EQ(table[6], 0);
}

TEST(DynamicTable, Any_mix_of_changes_reads_like_a_plain_array) {
  std::mt19937 random(7);
  DynamicTable<int> table;
  std::vector<int> plain;
  for (int step = 0; step < 3000; ++step) {
    const auto choice = random() % 10;
    if (choice == 0) {
      table.Clear();
      plain.clear();
    } else if (choice < 4) {
      const auto upper = random() % 60;
      table.Resize(upper);
      plain.resize(upper + 1);
    } else if (!plain.empty()) {
      const auto index = random() % plain.size();
      table.Put(static_cast<std::int64_t>(index), step);
      plain[index] = step;
    }
    ASSERT_EQ(table.Count(), static_cast<std::int64_t>(plain.size()));
    for (std::size_t i = 0; i < plain.size(); ++i) {
      ASSERT_EQ(table[static_cast<std::int64_t>(i)], plain[i]) << step;
    }
  }
}

}  // namespace
}  // namespace quillspeech
