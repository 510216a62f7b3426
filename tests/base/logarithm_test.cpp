#include "base/logarithm.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

namespace quillspeech {
namespace {

using Long = __float128;  // 113 bits, in software

// By the series of (x - 1) / (x + 1), with ln 2 to 159 bits.
Long Long_Logarithm(double x) {
  int exponent = 0;
  double m = std::frexp(x, &exponent);
  if (m < 0x1.6a09e667f3bcdp-1) {
    m *= 2;
    --exponent;
  }
  const Long s = (static_cast<Long>(m) - 1) / (static_cast<Long>(m) + 1);
  Long sum = 0;
  Long power = s;
  for (int n = 1; n < 60; n += 2, power *= s * s) sum += 2 * power / n;
  for (const double part : {0x1.62e42fefa39efp-1, 0x1.abc9e3b39803fp-56, 0x1.7b57a079a1934p-111}) {
    sum += static_cast<Long>(exponent) * part;
  }
  return sum;
}

double Units_Off_At(double x) {
  const Long exact = Long_Logarithm(x);
  const double nearest = static_cast<double>(exact);
  if (nearest == 0) return Natural_Logarithm(x) == 0 ? 0 : HUGE_VAL;
  const Long unit = std::ldexp(1.0, std::ilogb(nearest) - 52);
  return std::abs(static_cast<double>((Natural_Logarithm(x) - exact) / unit));
}

constexpr double Bound = 0.54;
constexpr std::uint64_t Bits_Of_Infinity = 0x7ff0000000000000;

double Of_Bits(std::uint64_t bits) { return std::bit_cast<double>(bits); }

TEST(NaturalLogarithm, Known_numbers_have_their_logarithms) {
  struct Known {
    double x, logarithm;
  };
  const Known cases[] = {
      {1, 0},
      {2, 0x1.62e42fefa39efp-1},
      {0.5, -0x1.62e42fefa39efp-1},
      {10, 0x1.26bb1bbb55516p+1},
      {128, 0x1.3687a9f1af2b1p+2},
      {16384, 0x1.3687a9f1af2b1p+3},
      {1e6, 0x1.ba18a998fffa0p+3},
      {0.7, -0x1.6d3c324e13f50p-2},
      {1.41421356, 0x1.62e42fd2cf8f6p-2},
      {0x1.fffffffffffffp-1, -0x1p-53},
      {0x1.0000000000001p+0, 0x1.fffffffffffffp-53},
      {0x1p-1074, -0x1.74385446d71c3p+9},
      {0x1p-1022, -0x1.6232bdd7abcd2p+9},
      {0x1.fffffffffffffp+1023, 0x1.62e42fefa39efp+9},
  };
  for (const Known& known : cases) {
    SCOPED_TRACE(known.x);
    EXPECT_EQ(static_cast<double>(Long_Logarithm(known.x)), known.logarithm);
    EXPECT_EQ(Natural_Logarithm(known.x), known.logarithm);
  }
}

TEST(NaturalLogarithm, The_constant_is_the_logarithm_of_10) {
  EXPECT_EQ(Natural_Logarithm_Of_10, Natural_Logarithm(10));
}

TEST(NaturalLogarithm, Numbers_of_every_size_are_nearly_rounded_best) {
  std::mt19937_64 random(1);
  double worst = 0;
  for (int i = 0; i < 30000; ++i) {
    worst = std::max(worst, Units_Off_At(Of_Bits(1 + random() % (Bits_Of_Infinity - 1))));
  }
  EXPECT_LE(worst, Bound);
}

TEST(NaturalLogarithm, Numbers_around_1_are_nearly_rounded_best) {
  std::mt19937 random(2);
  double worst = 0;
  for (int i = 0; i < 30000; ++i) {
    const double part = static_cast<double>(random()) / 4294967296.0;
    worst = std::max({worst, Units_Off_At(0.6 + part), Units_Off_At(1 + part * 1e-3),
                      Units_Off_At(1 - part * 1e-9)});
  }
  EXPECT_LE(worst, Bound);
}

TEST(NaturalLogarithm, Numbers_below_the_smallest_normal_one_are_nearly_rounded_best) {
  double worst = 0;
  for (std::uint64_t bits = 1; bits < 0x0010000000000000; bits += bits / 16 + 1) {
    worst = std::max(worst, Units_Off_At(Of_Bits(bits)));
  }
  EXPECT_LE(worst, Bound);
}

TEST(NaturalLogarithm, The_logarithm_never_falls_from_a_number_to_its_greater_neighbour) {
  std::mt19937_64 random(3);
  for (int i = 0; i < 200000; ++i) {
    const std::uint64_t any = 1 + random() % (Bits_Of_Infinity - 2);
    const std::uint64_t near_1 = 0x3fe0000000000000 + random() % 0x0020000000000000;
    for (const std::uint64_t bits : {any, near_1}) {
      ASSERT_LE(Natural_Logarithm(Of_Bits(bits)), Natural_Logarithm(Of_Bits(bits + 1))) << bits;
    }
  }
}

TEST(NaturalLogarithm, The_logarithm_does_not_fall_where_the_exponent_changes) {
  for (int exponent = -1022; exponent < 1023; ++exponent) {
    for (const double seam : {0x1.6a09ep+0, 0x1.6a09e667f3bcdp+0, 1.0}) {
      const double x = std::ldexp(seam, exponent);
      const double below = Natural_Logarithm(std::nextafter(x, 0));
      const double above = Natural_Logarithm(std::nextafter(x, HUGE_VAL));
      ASSERT_LE(below, Natural_Logarithm(x));
      ASSERT_LE(Natural_Logarithm(x), above);
    }
  }
}

TEST(NaturalLogarithm, Every_build_gives_the_same_bits) {
  std::uint64_t hash = 0xcbf29ce484222325;
  for (std::uint64_t bits = 1; bits < Bits_Of_Infinity; bits += 0x00001e3779b97f4a) {
    const double logarithm = Natural_Logarithm(Of_Bits(bits));
    hash = (hash ^ std::bit_cast<std::uint64_t>(logarithm)) * 0x100000001b3;
  }
  EXPECT_EQ(hash, 0x7fa5461af6c8fdf8u);
}

}  // namespace
}  // namespace quillspeech
