#include "base/sine_cosine.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <random>

#include "base/angle_table.hpp"

namespace quillspeech {
namespace {

using Long = __float128;  // 113 bits, in software

struct LongPair {
  Long sine;
  Long cosine;
};

// 1, -1 / 3!, 1 / 5! and so on, and the same from 1, -1 / 2!, 1 / 4! on. With what they leave out,
// angles up to pi / 4 keep 80 bits.
struct Series {
  static constexpr int Terms = 12;
  Long sine[Terms];
  Long cosine[Terms];

  Series() {
    Long factor = 1;
    for (int i = 0; i < Terms; ++i) {
      cosine[i] = factor;
      sine[i] = factor /= 2 * i + 1;
      factor /= -(2 * i + 2);
    }
  }
};

Long Sum_Of(const Long (&factors)[Series::Terms], Long square) {
  Long sum = 0;
  for (int i = Series::Terms; i-- > 0;) sum = sum * square + factors[i];
  return sum;
}

// By Taylor's series after taking off quarter circles, with pi / 2 to 212 bits.
LongPair Long_Sine_And_Cosine(double angle) {
  const double quarters = std::nearbyint(angle * 0x1.45f306dc9c883p-1);
  Long x = angle;
  for (const double part : {0x1.921fb54442d18p+0, 0x1.1a62633145c07p-54, -0x1.f1976b7ed8fbcp-110,
                            0x1.4cf98e804177dp-164}) {
    x -= static_cast<Long>(quarters) * part;
  }
  static const Series series;
  const Long sine = x * Sum_Of(series.sine, x * x);
  const Long cosine = Sum_Of(series.cosine, x * x);
  switch (static_cast<int>(quarters) & 3) {
    case 0:
      return {sine, cosine};
    case 1:
      return {cosine, -sine};
    case 2:
      return {-sine, -cosine};
    default:
      return {-cosine, sine};
  }
}

// How far off in units of the last place of the nearest double.
double Units_Off(double value, Long exact) {
  const double nearest = static_cast<double>(exact);
  if (nearest == 0) return value == 0 ? 0 : HUGE_VAL;
  const Long unit = std::ldexp(1.0, std::ilogb(nearest) - 52);
  return std::abs(static_cast<double>((value - exact) / unit));
}

double Units_Off_At(double angle) {
  const auto [sine, cosine] = Sine_And_Cosine(angle);
  const LongPair exact = Long_Sine_And_Cosine(angle);
  return std::max(Units_Off(sine, exact.sine), Units_Off(cosine, exact.cosine));
}

constexpr double Bound = 0.502;

double Worst_Of_Level(int level, int stride) {
  double worst = 0;
  for (int cell = 0; cell < (level - 1) * level; cell += stride) {
    const int bin = cell / level + 1;
    const int term = cell % level + 1;
    worst = std::max(worst, Units_Off_At(Transform_Angle(bin, term, level)));
  }
  return worst;
}

TEST(SineAndCosine, Known_angles_have_their_values) {
  struct Known {
    double angle, sine, cosine;
  };
  // Round ones, those nearest to a whole number of quarters, and those whose sine lies nearest to
  // the middle of two doubles.
  const Known cases[] = {
      {0.0, 0x0.0p+0, 0x1.0000000000000p+0},
      {0.5, 0x1.eaee8744b05f0p-2, 0x1.c1528065b7d50p-1},
      {1.0, 0x1.aed548f090ceep-1, 0x1.14a280fb5068cp-1},
      {6.284, 0x1.ab22351028f10p-11, 0x1.fffff4dd535aap-1},
      {-2.5, -0x1.326af0dcfcab1p-1, -0x1.9a2f7ef858b7dp-1},
      {10000.0, -0x1.38f2fa75d9289p-2, -0x1.e780e88ec4409p-1},
      {20000.0, 0x1.29f9e81f1259bp-1, 0x1.a05bb5b890b51p-1},
      {0x1.6c6cbc45dc8dep+5, 0x1.0000000000000p+0, -0x1.6d61b58c99c43p-61},
      {0x1.6c6cbc45dc8dep+6, -0x1.6d61b58c99c43p-60, -0x1.0000000000000p+0},
      {0x1.6c6cbc45dc8dep+9, 0x1.6d61b58c99c43p-57, 0x1.0000000000000p+0},
      {0x1.77a87e212679ap+11, 0x1.e40976bf2ebd6p-1, -0x1.4dc7970abccadp-2},
      {0x1.fa8595feda661p+9, 0x1.fc518ee252220p-1, 0x1.ea4dc07f0f742p-4},
      {0x1.4643e963dc487p+4, 0x1.ffc9c011c937bp-1, 0x1.d756e8070e039p-6},
      {0x1.d70df5c28f5c2p+9, -0x1.7115b891d3a73p-2, 0x1.dd95eff4205e3p-1},
      {0x1.080dbdf8f4730p+11, 0x1.ea62136106b71p-1, 0x1.266762ec0b516p-2},
      {0x1.14b6467381d7dp+10, 0x1.b0e0d52e770f3p-1, 0x1.116c6b6eee7d3p-1},
  };
  for (const Known& known : cases) {
    SCOPED_TRACE(known.angle);
    const LongPair exact = Long_Sine_And_Cosine(known.angle);
    EXPECT_EQ(static_cast<double>(exact.sine), known.sine);
    EXPECT_EQ(static_cast<double>(exact.cosine), known.cosine);
    EXPECT_LE(Units_Off_At(known.angle), Bound);
  }
}

TEST(SineAndCosine, Every_angle_of_the_usual_levels_is_nearly_rounded_best) {
  for (const int level : {80, 100, 128, 256}) EXPECT_LE(Worst_Of_Level(level, 1), Bound) << level;
}

TEST(SineAndCosine, One_angle_in_5_of_level_1200_is_nearly_rounded_best) {
  EXPECT_LE(Worst_Of_Level(1200, 5), Bound);
}

TEST(SineAndCosine, Angles_taken_blindly_from_both_sides_of_0_are_nearly_rounded_best) {
  std::mt19937 random(1);
  double worst = 0;
  for (int i = 0; i < 20000; ++i) {
    const double angle = (static_cast<double>(random()) - 2147483648.0) / 2147483648.0 * 20000;
    worst = std::max({worst, Units_Off_At(angle), Units_Off_At(angle / 5000)});
  }
  EXPECT_LE(worst, Bound);
}

TEST(SineAndCosine, Angles_beside_a_whole_number_of_quarters_are_nearly_rounded_best) {
  double worst = 0;
  for (int quarters = -12700; quarters <= 12700; quarters += 3) {
    const double angle = quarters * 0x1.921fb54442d18p+0;
    for (const double near : {std::nextafter(angle, -1e9), angle, std::nextafter(angle, 1e9)}) {
      worst = std::max(worst, Units_Off_At(near));
    }
  }
  EXPECT_LE(worst, Bound);
}

TEST(SineAndCosine, Tiny_angles_are_nearly_rounded_best) {
  double worst = 0;
  for (double angle = 1; angle > 1e-200; angle *= 0.37) {
    worst = std::max(worst, Units_Off_At(angle));
  }
  EXPECT_LE(worst, Bound);
}

TEST(SineAndCosine, Every_build_gives_the_same_bits) {
  std::uint64_t hash = 0xcbf29ce484222325;
  const auto take = [&hash](double value) {
    hash = (hash ^ std::bit_cast<std::uint64_t>(value)) * 0x100000001b3;
  };
  for (int i = -100000; i <= 100000; ++i) {
    const auto [sine, cosine] = Sine_And_Cosine(i * 0.1999);
    take(sine);
    take(cosine);
  }
  EXPECT_EQ(hash, 0xeffddbd6f8fe1741u);
}

}  // namespace
}  // namespace quillspeech
