#include "analysis/spectrum.hpp"

#ifdef __SSE2__
#include <immintrin.h>
#endif

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

#include "base/logarithm.hpp"
#include "base/run_time_failure.hpp"

namespace quillspeech {
namespace {

// One transform's bins from bin 1 on, with room for whole panels.
struct alignas(64) ComplexBins {
  double real[Largest_Level + AngleTable::Bins_In_Panel];
  double imag[Largest_Level + AngleTable::Bins_In_Panel];
};

// Samples in pairs of 16-bit numbers, each pair in 32 bits.
struct Pairs {
  const std::int32_t* leading;  // (x[0], x[1]), (x[2], x[3]) and so on, for every term
  const std::int32_t* lagging;  // (x[0], x[1]), (x[1], x[2]) and so on, for every term and lag
  std::int64_t terms;
};

// The largest number of lags that any kernel takes at a time.
constexpr int Most_Lags_At_A_Time = 9 * 16;

// The inner loops for one vector width. Two lanes are written so that every machine has them; wider
// ones are for x86 alone, in 32 bits too.
struct Kernel {
  void (*Sum_Products)(const Pairs& pairs, int lags, std::int32_t* sums);
  void (*Transform)(const AngleTable& angles, const double* R, ComplexBins& first,
                    ComplexBins& second);
  void (*To_Decibels)(const double* magnitude, int bins, double* decibels);
};

namespace two_lanes {
#define TARGET
#define VECTOR_BYTES 16
#define LAG_VECTORS 5
#ifdef __SSE2__
#define ADD_PRODUCTS_OF_PAIRS(sum, a, b) ((sum) + (Words)_mm_madd_epi16((__m128i)(a), (__m128i)(b)))
#else
#define ADD_PRODUCTS_OF_PAIRS(sum, a, b) \
  ((sum) + ((a) << 16 >> 16) * ((b) << 16 >> 16) + ((a) >> 16) * ((b) >> 16))
#endif
#include "analysis/spectrum_kernel.inc"
}  // namespace two_lanes

#ifdef __SSE2__
namespace four_lanes {
#define TARGET [[gnu::target("avx2")]]
#define VECTOR_BYTES 32
#define LAG_VECTORS 9
#define ADD_PRODUCTS_OF_PAIRS(sum, a, b) \
  ((sum) + (Words)_mm256_madd_epi16((__m256i)(a), (__m256i)(b)))
#include "analysis/spectrum_kernel.inc"
}  // namespace four_lanes

namespace eight_lanes {
#define TARGET [[gnu::target("avx512f,avx512dq,avx512vl,avx512vnni")]]
#define VECTOR_BYTES 64
#define LAG_VECTORS 9
#define ADD_PRODUCTS_OF_PAIRS(sum, a, b) \
  (Words) _mm512_dpwssd_epi32((__m512i)(sum), (__m512i)(a), (__m512i)(b))
#include "analysis/spectrum_kernel.inc"
}  // namespace eight_lanes
#endif

const Kernel& Kernel_Of([[maybe_unused]] VectorWidth width) {
#ifdef __SSE2__
  const VectorWidth usable = std::min(width, Widest_Vectors());
  if (usable == VectorWidth::Eight) return eight_lanes::All;
  if (usable == VectorWidth::Four) return four_lanes::All;
#endif
  return two_lanes::All;
}

// A product of two samples is at most 16,384, so sums of so few terms stay within 32 bits.
constexpr std::int64_t Surely_Fitting_Terms =
    std::numeric_limits<std::int32_t>::max() / (128 * 128);

// The sum of one lag of any number of terms, with every step of it checked.
std::int32_t Checked_Sum(const std::int16_t* x, std::int64_t terms, int lag) {
  std::int64_t sum = 0;
  for (std::int64_t j = 0; j < terms; ++j) {
    sum += std::int64_t{x[j]} * x[j + lag];
    if (sum != static_cast<std::int32_t>(sum)) Fail(Failure::Overflow);
  }
  return static_cast<std::int32_t>(sum);
}

std::int32_t Pair(std::int16_t first, std::int16_t second) {
  return (first & 0xffff) | (second * 65536);
}

// The sums of lags 0 to lags - 1; none of them leaves 32 bits. The kernel reads up to
// Most_Lags_At_A_Time on both sides of the leading samples, and twice that beyond the lagging
// ones: zeros stand there.
void Sum_Lags(const Kernel& kernel, const std::int16_t* x, std::int64_t terms, int lags,
              std::int32_t* sums) {
  constexpr std::int64_t Room = Most_Lags_At_A_Time;
  const std::int64_t samples = terms + lags - 1;
  const auto cells = std::make_unique_for_overwrite<std::int32_t[]>(
      static_cast<std::size_t>(Room + terms / 2 + 1 + Room + samples + 2 * Room));
  std::int32_t* leading = std::fill_n(cells.get(), Room, 0);
  std::int32_t* pair = leading;
  for (std::int64_t j = 0; j + 1 < terms; j += 2) *pair++ = Pair(x[j], x[j + 1]);
  if (terms % 2 != 0) *pair++ = Pair(x[terms - 1], 0);
  std::int32_t* lagging = std::fill_n(pair, Room, 0);
  for (std::int64_t j = 0; j + 1 < samples; ++j) lagging[j] = Pair(x[j], x[j + 1]);
  lagging[samples - 1] = Pair(x[samples - 1], 0);
  std::fill_n(lagging + samples, 2 * Room, 0);
  kernel.Sum_Products({leading, lagging, terms}, lags, sums);
}

// Writes every bin to the next free place and moves on when it was one: no jump to guess.
template <class Is_Turn>
int Find_Turns(const double* curve, int level, double* values, std::int32_t* bins,
               Is_Turn is_turn) {
  std::int32_t found[Largest_Level + 1];
  int count = 0;
  for (int bin = 1; bin < level; ++bin) {
    found[count] = bin;
    count += is_turn(curve[bin], curve[bin - 1]) & is_turn(curve[bin], curve[bin + 1]);
  }
  for (int i = 0; i < count; ++i) {
    bins[i] = found[i];  // NOLINT(clang-analyzer-core.uninitialized.Assign): all were written
    values[i] = curve[found[i]];
  }
  return count;
}

}  // namespace

VectorWidth Widest_Vectors() noexcept {
#ifdef __SSE2__
  if (__builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512vl") &&
      __builtin_cpu_supports("avx512vnni")) {
    return VectorWidth::Eight;
  }
  if (__builtin_cpu_supports("avx2")) return VectorWidth::Four;
#endif
  return VectorWidth::Two;
}

void Autocorrelate(const std::int16_t* centred, std::int64_t length, int level,
                   SpectrumTable& Autocorrelation, VectorWidth width) {
  const std::int16_t* x = centred + 1;
  const std::int64_t terms = std::max<std::int64_t>(length - 2, 0);
  if (terms == 0 || terms > Surely_Fitting_Terms) {
    for (int lag = 0; lag <= level; ++lag) {
      const double sum = Checked_Sum(x, terms, lag);
      Autocorrelation[lag] = sum / level;
    }
    return;
  }
  const int lags = std::min(level, Largest_Level) + 1;
  std::int32_t sums[Largest_Level + Most_Lags_At_A_Time];
  Sum_Lags(Kernel_Of(width), x, terms, lags, sums);
  for (int lag = 0; lag < lags; ++lag) {
    Autocorrelation[lag] = static_cast<double>(sums[lag]) / level;
  }
  if (level > Largest_Level) Fail(Failure::Subscript_Out_Of_Range);
}

void Compute_Curve(const SpectrumTable& Autocorrelation, const AngleTable& angles,
                   SpectrumTable& Magnitude, SpectrumTable& Magnitude_dB, std::int32_t& bins_in_use,
                   VectorWidth width) {
  const Kernel& kernel = Kernel_Of(width);
  const int level = angles.Level();
  const int bins = level - 1;
  ComplexBins first;
  ComplexBins second;
  kernel.Transform(angles, Autocorrelation.Data() + 1, first, second);

  double* magnitude = Magnitude.Data() + 1;
  for (int i = 0; i < bins; ++i) {
    magnitude[i] = std::sqrt(second.real[i] * second.real[i] + second.imag[i] * second.imag[i]);
  }
  kernel.To_Decibels(magnitude, bins, Magnitude_dB.Data() + 1);
  bins_in_use = level;
}

void Clear_Curve(SpectrumTable& Magnitude, SpectrumTable& Magnitude_dB, std::int32_t& bins_in_use) {
  std::fill_n(Magnitude.Data(), bins_in_use, 0.0);
  std::fill_n(Magnitude_dB.Data(), bins_in_use, 0.0);
  bins_in_use = 0;
}

int Find_Valleys(const SpectrumTable& Magnitude_dB, int level, SpectrumTable& Valley_dB,
                 BinTable& Valley_Bin) {
  return Find_Turns(Magnitude_dB.Data(), level, Valley_dB.Data(), Valley_Bin.Data(),
                    [](double value, double neighbour) -> int { return value < neighbour; });
}

int Find_Peaks(const SpectrumTable& Magnitude_dB, int level, SpectrumTable& Peak_dB,
               BinTable& Peak_Bin) {
  return Find_Turns(Magnitude_dB.Data(), level, Peak_dB.Data(), Peak_Bin.Data(),
                    [](double value, double neighbour) -> int { return value > neighbour; });
}

void Clear_Valleys(SpectrumTable& Valley_dB, BinTable& Valley_Bin) {
  for (std::int64_t i = 0; i < BinTable::Count && Valley_Bin[i] != 0; ++i) {
    Valley_dB[i] = 0;
    Valley_Bin[i] = 0;
  }
}

}  // namespace quillspeech
