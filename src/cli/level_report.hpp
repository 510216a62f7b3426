// The level meter as its user sees it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "cli/level_meter.hpp"

namespace quillspeech::cli {

struct LevelReading {
  std::int64_t at_ms = 0;  // the end of the stretch that the level is of
  Level level;
  Scan pump;
  std::vector<Scan> sensitivities;  // with the limits 2, 3, 5, 8, 12 and 20
};

LevelReading Read_Level(LevelMeter& meter, std::int64_t at_ms, Level level);

// Without line ends.
std::string Level_Line(const LevelReading& reading);
std::string Level_Bar(const LevelReading& reading, bool colour);  // for a line written over
std::string Level_Json(const LevelReading& reading);

}  // namespace quillspeech::cli
