// Slices for the tests of the spectral analysis.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

namespace quillspeech::tests {

// Centred samples with just the cells that a slice of that length and level may read.
struct CentredSamples {
  std::int64_t length = 0;
  int level = 0;
  std::vector<std::int16_t> cells;

  CentredSamples(std::int64_t length_, int level_)
      : length(length_),
        level(level_),
        cells(static_cast<std::size_t>(std::max<std::int64_t>(2, length - 1 + level))) {}

  std::int64_t Own() const { return std::max<std::int64_t>(length - 2, 0); }
  std::int16_t& At(std::int64_t index) { return cells[static_cast<std::size_t>(index)]; }
};

inline CentredSamples Silence(std::int64_t length, int level) { return {length, level}; }

inline CentredSamples Constant(int value, std::int64_t length, int level) {
  CentredSamples samples(length, level);
  for (std::int64_t i = 1; i <= samples.Own(); ++i)
    samples.At(i) = static_cast<std::int16_t>(value);
  return samples;
}

inline CentredSamples Tone(double hertz, double amplitude, std::int64_t length, int level) {
  CentredSamples samples(length, level);
  for (std::int64_t i = 1; i <= samples.Own(); ++i) {
    const double phase = 2 * 3.141592653589793 * hertz * static_cast<double>(i) / 22050;
    samples.At(i) = static_cast<std::int16_t>(std::lround(amplitude * std::sin(phase)));
  }
  return samples;
}

inline CentredSamples Noise(unsigned seed, std::int64_t length, int level) {
  CentredSamples samples(length, level);
  std::mt19937 random(seed);
  for (std::int64_t i = 1; i <= samples.Own(); ++i) {
    samples.At(i) = static_cast<std::int16_t>(static_cast<int>(random() % 256) - 128);
  }
  return samples;
}

// Noise whose later cells were left by a slice before it.
inline CentredSamples Noise_After_Noise(unsigned seed, std::int64_t length, int level) {
  CentredSamples samples(length, level);
  std::mt19937 random(seed);
  for (auto& cell : samples.cells) {
    cell = static_cast<std::int16_t>(static_cast<int>(random() % 256) - 128);
  }
  return samples;
}

// The greatest swings there are, from one end to the other at random.
inline CentredSamples Extreme(unsigned seed, std::int64_t length, int level) {
  CentredSamples samples(length, level);
  std::mt19937 random(seed);
  for (auto& cell : samples.cells)
    cell = random() % 2 == 0 ? std::int16_t{-128} : std::int16_t{127};
  return samples;
}

}  // namespace quillspeech::tests
