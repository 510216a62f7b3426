#include "base/checked.hpp"

#include <gtest/gtest.h>

#include <cstdint>

#include "tests/support/failures.hpp"

namespace quillspeech {
namespace {

using tests::Failure_Of;

TEST(Checked, A_new_field_holds_0) {
  EXPECT_EQ(CheckedByte(), 0);
  EXPECT_EQ(Checked16(), 0);
  EXPECT_EQ(Checked32(), 0);
}

TEST(Checked, A_16_bit_field_takes_its_bounds_and_fails_with_6_beyond_them) {
  Checked16 field;
  EXPECT_EQ(Failure_Of([&] { field = 32767; }), 0);
  EXPECT_EQ(Failure_Of([&] { field = 32768; }), 6);
  EXPECT_EQ(Failure_Of([&] { field = -32768; }), 0);
  EXPECT_EQ(Failure_Of([&] { field = -32769; }), 6);
}

TEST(Checked, A_byte_field_takes_0_to_255) {
  CheckedByte field;
  EXPECT_EQ(Failure_Of([&] { field = 255; }), 0);
  EXPECT_EQ(Failure_Of([&] { field = 256; }), 6);
  EXPECT_EQ(Failure_Of([&] { field = -1; }), 6);
}

TEST(Checked, A_32_bit_field_fails_with_6_beyond_its_bounds) {
  Checked32 field;
  EXPECT_EQ(Failure_Of([&] { field = std::int64_t{2147483647}; }), 0);
  EXPECT_EQ(Failure_Of([&] { field = std::int64_t{2147483648}; }), 6);
  EXPECT_EQ(Failure_Of([&] { field = std::int64_t{-2147483649}; }), 6);
}

TEST(Checked, A_failed_store_leaves_the_old_value) {
  Checked16 field = 7;
  EXPECT_EQ(Failure_Of([&] { field = 40000; }), 6);
  EXPECT_EQ(field, 7);
}

TEST(Checked, Counting_past_the_bound_fails_with_6) {
  Checked16 field = 32767;
  EXPECT_EQ(Failure_Of([&] { ++field; }), 6);
  field = -32768;
  EXPECT_EQ(Failure_Of([&] { --field; }), 6);
  EXPECT_EQ(Failure_Of([&] { field -= 1; }), 6);
}

TEST(Checked, A_product_is_exact_until_it_is_stored) {
  const Checked32 factor = 2147483647;
  Checked32 field;
  field = factor * 2 - factor;
  EXPECT_EQ(field, 2147483647);
  EXPECT_EQ(Failure_Of([&] { field = factor * 2; }), 6);
}

TEST(Checked, The_flags_of_hosts_are_0_and_all_bits_set) {
  EXPECT_EQ(False, 0);
  EXPECT_EQ(static_cast<std::uint16_t>(True), 0xFFFF);
}

}  // namespace
}  // namespace quillspeech
