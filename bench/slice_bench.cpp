// The numbers of one slice of 500 bytes at level 128, fast and plain.
#include <benchmark/benchmark.h>

#include "analysis/spectrum.hpp"
#include "bench/speech_like.hpp"
#include "tests/support/plain_spectrum.hpp"

namespace quillspeech::bench {
namespace {

constexpr int Level = 128;
constexpr std::int64_t Slice_Bytes = 500;

// Centred samples from index 1 on, with the lags past the slice's end.
std::vector<std::int16_t> Slice_Samples() {
  std::vector<std::int16_t> centred{0};
  for (const std::uint8_t byte : Speech_Like(Slice_Bytes + Level)) {
    centred.push_back(static_cast<std::int16_t>(byte - 128));
  }
  return centred;
}

void Slice(benchmark::State& state) {
  const auto centred = Slice_Samples();
  const AngleTable angles(Level);
  SpectrumTable lags, magnitude, decibels, valley, peak;
  BinTable valley_bin, peak_bin;
  std::int32_t bins_in_use = 0;
  for (auto _ : state) {
    Autocorrelate(centred.data(), Slice_Bytes, Level, lags);
    Compute_Curve(lags, angles, magnitude, decibels, bins_in_use);
    benchmark::DoNotOptimize(Find_Valleys(decibels, Level, valley, valley_bin));
    benchmark::DoNotOptimize(Find_Peaks(decibels, Level, peak, peak_bin));
  }
}
BENCHMARK(Slice)->Unit(benchmark::kMicrosecond);

void Slice_Plain(benchmark::State& state) {
  const auto centred = Slice_Samples();
  for (auto _ : state) {
    benchmark::DoNotOptimize(tests::Plain_Spectrum(centred.data(), Slice_Bytes, Level));
  }
}
BENCHMARK(Slice_Plain)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quillspeech::bench
