// The numbers of a slice as they are defined, without any haste: what the fast ones must equal bit
// by bit.
#pragma once

#include <cstdint>
#include <vector>

namespace quillspeech::tests {

// Tables run from 0 to the level, lists from 0.
struct PlainSpectrum {
  std::vector<double> Autocorrelation;
  std::vector<double> Spectrum_Real;
  std::vector<double> Spectrum_Imag;
  std::vector<double> Second_Real;
  std::vector<double> Second_Imag;
  std::vector<double> Magnitude;
  std::vector<double> Magnitude_dB;
  std::vector<double> Valley_dB;
  std::vector<std::int32_t> Valley_Bin;
  std::vector<double> Peak_dB;
  std::vector<std::int32_t> Peak_Bin;
};

// By lag from 0 to level; failure 6 when a running sum leaves 32 bits. Samples as Autocorrelate
// takes them.
std::vector<double> Plain_Autocorrelation(const std::int16_t* centred, std::int64_t length,
                                          int level);

// All of it. Every sine and cosine is computed where its sum asks for it.
PlainSpectrum Plain_Spectrum(const std::int16_t* centred, std::int64_t length, int level);

}  // namespace quillspeech::tests
