#include "tests/support/plain_spectrum.hpp"

#include <cmath>

#include "base/checked.hpp"
#include "base/logarithm.hpp"
#include "base/sine_cosine.hpp"

namespace quillspeech::tests {
namespace {

using Index = std::size_t;

double Theta(int a, int b, int N) { return (((a - 1) * 6.284) * (b - 1)) / N; }

void First_Transform(int N, PlainSpectrum& out) {
  const std::vector<double>& R = out.Autocorrelation;
  std::vector<double> Cos_Running_Sum(R.size());
  std::vector<double> Sin_Running_Sum(R.size());
  for (int n = 1; n < N; ++n) {
    for (int m = 1; m <= N; ++m) {
      const auto [s, c] = Sine_And_Cosine(Theta(n, m, N));
      const auto at = static_cast<Index>(m);
      Cos_Running_Sum[at] = Cos_Running_Sum[at - 1] + R[at] * c;
      Sin_Running_Sum[at] = Sin_Running_Sum[at - 1] + -R[at] * s;
    }
    out.Spectrum_Real[static_cast<Index>(n)] = Cos_Running_Sum.back();
    out.Spectrum_Imag[static_cast<Index>(n)] = Sin_Running_Sum.back();
  }
}

void Second_Transform(int N, PlainSpectrum& out) {
  std::vector<double> Second_Real_Running_Sum(out.Autocorrelation.size());
  std::vector<double> Second_Imag_Running_Sum(out.Autocorrelation.size());
  for (int k = 1; k < N; ++k) {
    for (int m = 1; m <= N; ++m) {
      const auto at = static_cast<Index>(m);
      const double re = out.Spectrum_Real[at];
      const double im = out.Spectrum_Imag[at];
      const SineAndCosine a = Sine_And_Cosine(Theta(k, m, N));
      Second_Real_Running_Sum[at] = Second_Real_Running_Sum[at - 1] + (re * a.cosine + im * a.sine);
      const SineAndCosine b = Sine_And_Cosine(Theta(k, m, N));
      Second_Imag_Running_Sum[at] =
          Second_Imag_Running_Sum[at - 1] + (-re * b.sine - im * b.cosine);
    }
    out.Second_Real[static_cast<Index>(k)] = Second_Real_Running_Sum.back();
    out.Second_Imag[static_cast<Index>(k)] = Second_Imag_Running_Sum.back();
  }
}

void Curve(int N, PlainSpectrum& out) {
  const double ln_10 = Natural_Logarithm(10);
  for (Index i = 1; i < static_cast<Index>(N); ++i) {
    const double re = out.Second_Real[i];
    const double im = out.Second_Imag[i];
    out.Magnitude[i] = std::sqrt(re * re + im * im);
    if (out.Magnitude[i] > 0)
      out.Magnitude_dB[i] = 20 * Natural_Logarithm(out.Magnitude[i]) / ln_10;
  }
}

void Valleys_And_Peaks(int N, PlainSpectrum& out) {
  for (int n = 1; n < N; ++n) {
    const auto i = static_cast<Index>(n);
    const double below = out.Magnitude_dB[i - 1];
    const double here = out.Magnitude_dB[i];
    const double above = out.Magnitude_dB[i + 1];
    if (here < below && here < above) {
      out.Valley_dB.push_back(here);
      out.Valley_Bin.push_back(n);
    }
    if (here > below && here > above) {
      out.Peak_dB.push_back(here);
      out.Peak_Bin.push_back(n);
    }
  }
}

}  // namespace

std::vector<double> Plain_Autocorrelation(const std::int16_t* centred, std::int64_t length,
                                          int level) {
  std::vector<double> R;
  for (int lag = 0; lag <= level; ++lag) {
    Checked32 sum;
    for (std::int64_t j = 1; j < length - 1; ++j) sum += centred[j] * centred[j + lag];
    R.push_back(static_cast<double>(sum) / level);
  }
  return R;
}

PlainSpectrum Plain_Spectrum(const std::int16_t* centred, std::int64_t length, int level) {
  PlainSpectrum out;
  out.Autocorrelation = Plain_Autocorrelation(centred, length, level);
  for (std::vector<double>* table : {&out.Spectrum_Real, &out.Spectrum_Imag, &out.Second_Real,
                                     &out.Second_Imag, &out.Magnitude, &out.Magnitude_dB}) {
    table->assign(out.Autocorrelation.size(), 0.0);
  }
  First_Transform(level, out);
  Second_Transform(level, out);
  Curve(level, out);
  Valleys_And_Peaks(level, out);
  return out;
}

}  // namespace quillspeech::tests
