// Samples for benchmarks: loud, with overtones and noise, the same ones in every run.
#pragma once

#include <cstdint>
#include <vector>

#include "base/rounding.hpp"
#include "base/sine_cosine.hpp"

namespace quillspeech::bench {

// 8-bit sound of that many bytes, 128 being silence: words of about a third of a second, and
// pauses as long.
inline std::vector<std::uint8_t> Speech_Like(std::int64_t bytes) {
  constexpr std::int64_t Beat_Bytes = 15'000;
  std::vector<std::uint8_t> sound;
  std::uint32_t noise = 1;
  for (std::int64_t i = 0; i < bytes; ++i) {
    noise = noise * 1664525 + 1013904223;
    const double angle = static_cast<double>(i % 200'000) * 0.035;
    const double loudness = i % Beat_Bytes < Beat_Bytes / 2 ? 1 : 0;
    const double value = 55 * Sine_And_Cosine(angle).sine + 30 * Sine_And_Cosine(angle * 4.7).sine +
                         static_cast<double>(noise >> 28);
    sound.push_back(static_cast<std::uint8_t>(128 + Round(loudness * value)));
  }
  return sound;
}

}  // namespace quillspeech::bench
