#include "base/bounded_table.hpp"

#include <gtest/gtest.h>

#include <cstdint>

#include "tests/support/failures.hpp"

namespace quillspeech {
namespace {

using tests::Failure_Of;

TEST(BoundedTable, Indices_run_from_0_to_the_upper_bound) {
  BoundedTable<int, 100> table;
  table[0] = 1;
  table[100] = 2;
  EXPECT_EQ(table[0], 1);
  EXPECT_EQ(table[100], 2);
  EXPECT_EQ(table.Count, 101);
}

TEST(BoundedTable, An_index_outside_the_bounds_fails_with_9) {
  BoundedTable<int, 100> table;
  const auto& read_only = table;
  EXPECT_EQ(Failure_Of([&] { table[101] = 1; }), 9);
  EXPECT_EQ(Failure_Of([&] { table[-1] = 1; }), 9);
  EXPECT_EQ(Failure_Of([&] { (void)read_only[101]; }), 9);
}

TEST(BoundedTable, A_new_table_holds_empty_values) {
  const BoundedTable<double, 1200> numbers;
  for (std::int64_t i = 0; i <= 1200; ++i) ASSERT_EQ(numbers[i], 0);
}

TEST(BoundedTable, Filling_reaches_every_element) {
  BoundedTable<int, 3> table;
  table.Fill(5);
  for (std::int64_t i = 0; i <= 3; ++i) EXPECT_EQ(table[i], 5);
}

}  // namespace
}  // namespace quillspeech
