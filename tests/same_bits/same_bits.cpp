// Prints what the recogniser computes, down to the last bit. Two builds compute alike when they
// print alike; tests/same_bits/compare holds them side by side.
#include <bit>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "analysis/spectrum.hpp"
#include "base/logarithm.hpp"
#include "base/rounding.hpp"
#include "base/sine_cosine.hpp"
#include "core/operations.hpp"
#include "core/settings_table.hpp"
#include "tests/support/test_session.hpp"
#include "tests/support/wave_builder.hpp"

namespace quillspeech::tests {
namespace {

// A sum over bits that depends on every one of them and on their order.
class BitSum {
 public:
  void Add(std::uint64_t bits) { sum_ = (sum_ ^ bits) * 0x100000001b3 + (sum_ >> 29); }
  void Add(double value) { Add(std::bit_cast<std::uint64_t>(value)); }
  void Print(const char* what, int level) const {
    std::printf("%s %d: %08x%08x\n", what, level, static_cast<unsigned>(sum_ >> 32),
                static_cast<unsigned>(sum_));
  }

 private:
  std::uint64_t sum_ = 0xcbf29ce484222325;
};

// Whole numbers evenly spread, the same ones everywhere.
class Numbers {
 public:
  std::uint32_t Next() { return state_ = state_ * 1664525 + 1013904223; }
  double Fraction() { return static_cast<double>(Next()) / 0x1p32; }

 private:
  std::uint32_t state_ = 1;
};

void Print_Functions() {
  Numbers numbers;
  BitSum circles, logarithms, roundings;
  for (int i = 0; i < 200'000; ++i) {
    const SineAndCosine pair = Sine_And_Cosine((numbers.Fraction() - 0.5) * 16'000);
    circles.Add(pair.sine);
    circles.Add(pair.cosine);
    logarithms.Add(Natural_Logarithm(numbers.Fraction() * 1e9 + 1e-12));
    roundings.Add(Round((numbers.Fraction() - 0.5) * 100'000));
    roundings.Add(Round(static_cast<double>(i) / 2));
  }
  circles.Print("sines and cosines", 0);
  logarithms.Print("logarithms", 0);
  roundings.Print("roundings", 0);
}

// Something like a vowel with its overtones, a breath of noise, and silence between. Only our own
// sine goes into it.
Sound Speech(std::int64_t bytes) {
  Numbers numbers;
  Sound sound;
  for (std::int64_t i = 0; i < bytes; ++i) {
    const std::int64_t beat = i % 9'000;
    const double at = static_cast<double>(i % 100'000) * 0.03;
    double value = 0;
    if (beat > 1'500 && beat < 5'000) {
      value = 60 * Sine_And_Cosine(at).sine + 25 * Sine_And_Cosine(at * 3.1).sine +
              20 * (numbers.Fraction() - 0.5);
    } else if (beat >= 5'000 && beat < 6'200) {
      value = 150 * (numbers.Fraction() - 0.5);
    }
    sound.push_back(static_cast<std::uint8_t>(128 + Round(value)));
  }
  return sound;
}

void Print_Curves() {
  const Sound sound = Speech(6'000);
  std::vector<std::int16_t> centred(sound.size());
  for (std::size_t i = 0; i < sound.size(); ++i) {
    centred[i] = static_cast<std::int16_t>(sound[i] - 128);
  }
  constexpr std::int64_t Slice_Bytes = 500;
  for (const int level : {1, 2, 80, 100, 128, 256, 1200}) {
    const AngleTable angles(level);
    SpectrumTable lags, magnitude, decibels;
    std::int32_t bins_in_use = 0;
    BitSum sum;
    for (std::size_t first = 0; first + 2'000 < centred.size(); first += 400) {
      Autocorrelate(centred.data() + first, Slice_Bytes, level, lags);
      Compute_Curve(lags, angles, magnitude, decibels, bins_in_use);
      for (int i = 0; i <= level; ++i) {
        sum.Add(lags[i]);
        sum.Add(magnitude[i]);
        sum.Add(decibels[i]);
      }
    }
    sum.Print("curves of level", level);
  }
}

void Print_Run(const char* slice_bytes) {
  TestSession test;
  Session& session = test.session;
  Prepare_Session(session);
  session.settings.Enable_Artificial_Intelligence = "NO";
  session.settings.Open_this_Wave_File = "speech.wav";
  session.trace.Keep_Slices = true;
  Set_Setting(session, "Sample_processing_resolution", slice_bytes);
  test.riff_files.files["speech.wav"] = Wave().Data(Speech(120'000));
  Open_Specified_Wave_File_And_Process(session);

  std::printf("a run by slices of %s bytes: %s, %d boxes, %d failures\n", slice_bytes,
              session.flags.Operation_Status.c_str(), static_cast<int>(test.boxes.shown.size()),
              static_cast<int>(session.trace.failures.size()));
  for (const SliceTrace& slice : session.trace.slices) {
    std::printf("%d.%d.%d %d-%d:%d ", slice.word, slice.deep, slice.too_deep, slice.first,
                slice.last, slice.category.value_or(-1));
  }
  std::printf("\n%s\n", session.filter.Voice_Magic_Elements.c_str());
}

}  // namespace
}  // namespace quillspeech::tests

int main() {
  using namespace quillspeech::tests;
  Print_Functions();
  Print_Curves();
  for (const char* slice_bytes : {"500", "250", "1111"}) Print_Run(slice_bytes);
}
