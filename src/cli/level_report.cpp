#include "cli/level_report.hpp"

#include <algorithm>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "cli/report_text.hpp"

namespace quillspeech::cli {
namespace {

using Json = nlohmann::ordered_json;

std::string Figures(const LevelReading& reading) {
  char text[96];
  std::snprintf(text, sizeof text, "%7.1f s  peak %3d  mean %5.1f",
                static_cast<double>(reading.at_ms) / 1'000, reading.level.peak, reading.level.mean);
  return text;
}

bool Is_Speech_To_Pump(const Scan& pump) { return pump.hits >= LevelMeter::Pump_Hits; }

std::string Scans(const LevelReading& reading) {
  std::string text = "  pump " + std::to_string(reading.pump.hits) +
                     (Is_Speech_To_Pump(reading.pump) ? " speech" : " quiet ") +
                     "  sensitivity:hits/words";
  for (const Scan& scan : reading.sensitivities) {
    text += "  " + std::to_string(scan.limit) + ":" + std::to_string(scan.hits) + "/" +
            std::to_string(scan.words);
  }
  return text;
}

Json Scan_Json(const Scan& scan) {
  return {{"limit", scan.limit}, {"hits", scan.hits}, {"words", scan.words}};
}

}  // namespace

LevelReading Read_Level(LevelMeter& meter, std::int64_t at_ms, Level level) {
  LevelReading reading{at_ms, level, meter.Scan_With(LevelMeter::Pump_Limit), {}};
  for (const int limit : {2, 3, 5, 8, 12, 20}) {
    reading.sensitivities.push_back(meter.Scan_With(limit));
  }
  return reading;
}

std::string Level_Line(const LevelReading& reading) { return Figures(reading) + Scans(reading); }

std::string Level_Bar(const LevelReading& reading, bool colour) {
  constexpr int Cells = 16;
  constexpr int Loudest = 128;
  constexpr int Clipping = 126;
  const int filled = (reading.level.peak * Cells + Loudest - 1) / Loudest;
  const int mean = std::min(static_cast<int>(reading.level.mean * Cells / Loudest), filled);
  std::string bar = std::string(static_cast<std::size_t>(mean), '#') +
                    std::string(static_cast<std::size_t>(filled - mean), '=');
  bar.resize(Cells, ' ');
  const Ink ink = reading.level.peak >= Clipping ? Ink::Red : Ink::Green;
  char peak[16];
  std::snprintf(peak, sizeof peak, "] %3d ", reading.level.peak);
  return "[" + Inked(bar, ink, colour) + peak + Scans(reading);
}

std::string Level_Json(const LevelReading& reading) {
  Json sensitivities = Json::array();
  for (const Scan& scan : reading.sensitivities) sensitivities.push_back(Scan_Json(scan));
  const Json line = {{"at_ms", reading.at_ms},
                     {"peak", reading.level.peak},
                     {"mean", reading.level.mean},
                     {"pump", Scan_Json(reading.pump)},
                     {"is_speech", Is_Speech_To_Pump(reading.pump)},
                     {"sensitivities", std::move(sensitivities)}};
  return line.dump();
}

}  // namespace quillspeech::cli
