#include "base/upper_bits.hpp"

#include <gtest/gtest.h>

#include <cmath>

namespace quillspeech {
namespace {

TEST(UpperBits, A_number_of_26_bits_is_its_own_upper_half) {
  for (const double number : {0.0, 1.0, -3.5, 0x1.ffffff8p0, 0x1.ffffff8p-30}) {
    EXPECT_EQ(Upper_26_Bits(number), number);
  }
}

TEST(UpperBits, Lower_bits_are_cut_off_towards_0) {
  EXPECT_EQ(Upper_26_Bits(0x1.ffffffcp0), 0x1.ffffff8p0);
  EXPECT_EQ(Upper_26_Bits(0x1.fffffffffffffp0), 0x1.ffffff8p0);
  EXPECT_EQ(Upper_26_Bits(-0x1.fffffffffffffp7), -0x1.ffffff8p7);
}

TEST(UpperBits, A_product_of_upper_halves_is_exact) {
  for (const double a : {1.0 / 3, 0x1.fffffffffffffp0, 12345.678}) {
    for (const double b : {1.0 / 7, 0x1.fffffffffffffp0, -9.87e-5}) {
      const double product = Upper_26_Bits(a) * Upper_26_Bits(b);
      EXPECT_EQ(std::fma(Upper_26_Bits(a), Upper_26_Bits(b), -product), 0) << a << " " << b;
    }
  }
}

}  // namespace
}  // namespace quillspeech
