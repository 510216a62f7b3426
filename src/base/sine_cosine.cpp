#include "base/sine_cosine.hpp"

#include <bit>
#include <cstddef>
#include <cstdint>

#include "base/upper_bits.hpp"

namespace quillspeech {
namespace {

// pi / 64 is the sum of these four. The first three have 33 bits, so that a step number below
// 2^20 times each of them is exact.
constexpr double Step_1 = 0x1.921fb544p-5;
constexpr double Step_2 = 0x1.0b4611a6p-39;
constexpr double Step_3 = 0x1.3198a2e0p-74;
constexpr double Step_4 = 0x1.b839a252049c1p-109;
constexpr double Steps_Per_Radian = 0x1.45f306dc9c883p+4;  // 64 / pi
constexpr std::size_t Steps_Per_Quarter = 32;

// Added to a small double it rounds it to a whole number, which then stands in the low bits.
constexpr double Whole_Number_Shift = 0x1.8p52;

// A number as head + tail: 26 bits in the head, the nearest double to the rest in the tail.
struct Split {
  double head;
  double tail;
};

// The sine of i * pi / 64.
constexpr Split Quarter_Circle[Steps_Per_Quarter + 1] = {
    {0.0, 0.0},
    {0x1.91f65fp-5, 0x1.0dd813e6ed42fp-33},
    {0x1.917a6cp-4, -0x1.eb25ea0f138c7p-31},
    {0x1.2c8107p-3, -0x1.719ec5dd9ffebp-31},
    {0x1.8f8b84p-3, -0x1.cb2cfaa4da337p-30},
    {0x1.f19f978p-3, 0x1.90af8d57a4222p-30},
    {0x1.294063p-2, -0x1.2a60fa574a369p-30},
    {0x1.58f9a78p-2, -0x1.2a701180f7ee0p-29},
    {0x1.87de2a8p-2, -0x1.51569d2e59dbap-30},
    {0x1.b5d1008p-2, 0x1.e15cc02b66c59p-30},
    {0x1.e2b5d38p-2, 0x1.bd8ec78362475p-36},
    {0x1.0738798p-1, 0x1.22ffed9697fafp-29},
    {0x1.1c73b38p-1, 0x1.ae68c86c9774ap-29},
    {0x1.30ff80p-1, -0x1.8f47e58f7e631p-28},
    {0x1.44cf328p-1, -0x1.7b7114f3fc4afp-28},
    {0x1.57d6938p-1, -0x1.b989b02eae413p-28},
    {0x1.6a09e68p-1, -0x1.80c4336f74d05p-29},
    {0x1.7b5df2p-1, 0x1.3557d76f0ac85p-28},
    {0x1.8bc8068p-1, 0x1.8a8ba05a743dap-28},
    {0x1.9b3e048p-1, -0x1.8f17e98771434p-34},
    {0x1.a9b6628p-1, 0x1.0ea1a3033ec62p-29},
    {0x1.b728348p-1, -0x1.7348e1378d3e6p-28},
    {0x1.c38b2fp-1, 0x1.80bdb0d23e9d1p-29},
    {0x1.ced7af8p-1, -0x1.e19c46879edafp-28},
    {0x1.d906bdp-1, -0x1.9ae573aea067cp-30},
    {0x1.e212108p-1, -0x1.84bc8da0298eep-28},
    {0x1.e9f4158p-1, -0x1.39d225a27d387p-29},
    {0x1.f0a7ef8p-1, 0x1.c9186b952c7aep-28},
    {0x1.f6297dp-1, -0x1.1469faa77a357p-34},
    {0x1.fa7558p-1, -0x1.eeb5d2bd05465p-30},
    {0x1.fd88dap-1, 0x1.e89292cf04139p-28},
    {0x1.ff621ep-1, 0x1.bcb6bef1d421fp-28},
    {1.0, 0.0},
};

struct Sum {
  double high;
  double low;
};

// high + low is a + b, exactly.
Sum Exact_Sum(double a, double b) {
  const double high = a + b;
  const double b_in = high - a;
  return {high, (a - (high - b_in)) + (b - b_in)};
}

// An angle less the nearest whole number of steps; |rest| <= pi / 128.
struct Reduced {
  std::uint32_t step;  // modulo 2^32
  Sum rest;
};

Reduced Reduce(double angle) {
  const double shifted = angle * Steps_Per_Radian + Whole_Number_Shift;
  const double steps = shifted - Whole_Number_Shift;
  const Sum first = Exact_Sum(angle - steps * Step_1, -(steps * Step_2));
  const Sum second = Exact_Sum(first.high, -(steps * Step_3));
  const double low = (first.low + second.low) - steps * Step_4;
  const double high = second.high + low;
  return {static_cast<std::uint32_t>(std::bit_cast<std::uint64_t>(shifted)),
          {high, (second.high - high) + low}};
}

}  // namespace

SineAndCosine Sine_And_Cosine(double angle) noexcept {
  const Reduced reduced = Reduce(angle);
  const double rest = reduced.rest.high;
  const double head = Upper_26_Bits(rest);
  const double tail = rest - head;

  // Of the rest: its sine is rest + sine_less_rest, its cosine 1 - one_less_cosine.
  const double square = rest * rest;
  const double cube_terms =
      -1.0 / 6 + square * (1.0 / 120 + square * (-1.0 / 5040 + square * (1.0 / 362880)));
  const double sine_less_rest = rest * square * cube_terms + reduced.rest.low;
  const double one_less_cosine =
      square * (0.5 + square * (-1.0 / 24 + square * (1.0 / 720 - square * (1.0 / 40320))));

  // Of the step, and then of both by the addition theorems, the two great terms summed exactly.
  const std::size_t step = reduced.step % Steps_Per_Quarter;
  const Split S = Quarter_Circle[step];
  const Split C = Quarter_Circle[Steps_Per_Quarter - step];
  const double s = S.head + S.tail;
  const double c = C.head + C.tail;
  const Sum sine = Exact_Sum(S.head, C.head * head);
  const Sum cosine = Exact_Sum(C.head, -(S.head * head));
  const double sine_low = ((sine.low + S.tail) + (C.head * tail + C.tail * rest)) +
                          (c * sine_less_rest - s * one_less_cosine);
  const double cosine_low = ((cosine.low + C.tail) - (S.head * tail + S.tail * rest)) -
                            (s * sine_less_rest + c * one_less_cosine);

  // Turned into its quarter of the circle; a cosine is the sine of one quarter more.
  constexpr double Sign[4] = {1, 1, -1, -1};
  const double of_first_quarter[2] = {sine.high + sine_low, cosine.high + cosine_low};
  const std::size_t quarter = reduced.step / Steps_Per_Quarter % 4;
  const std::size_t next = (quarter + 1) % 4;
  return {Sign[quarter] * of_first_quarter[quarter % 2], Sign[next] * of_first_quarter[next % 2]};
}

}  // namespace quillspeech
