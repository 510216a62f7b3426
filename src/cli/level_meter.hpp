// How loud an input is, and what the recogniser's own scan makes of it.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "session/session.hpp"

namespace quillspeech::cli {

// Distances of 8-bit sound from silence, 0 to 128.
struct Level {
  int peak = 0;
  double mean = 0;
};
Level Level_Of(std::span<const std::uint8_t> sound);

// What a scan of the window finds with that limit.
struct Scan {
  int limit = 0;
  std::int64_t hits = 0;  // forward and backward together
  std::int64_t words = 0;
};

// Keeps as much of the newest sound as a capture of the session has. What is not heard yet is
// silence.
class LevelMeter {
 public:
  static constexpr int Pump_Limit = 5;
  static constexpr std::int64_t Pump_Hits = 50;  // from there on the pump takes it for speech

  explicit LevelMeter(Session& session);

  void Hear(std::span<const std::uint8_t> sound);
  // The scan as the pump makes it (Pump_Limit), and the processing with a Noise_Sensitivity.
  Scan Scan_With(int limit);

 private:
  Session& session_;
  std::vector<std::uint8_t> window_;
};

}  // namespace quillspeech::cli
