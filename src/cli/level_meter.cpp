#include "cli/level_meter.hpp"

#include <algorithm>
#include <cstdlib>

#include "analysis/sample_head.hpp"
#include "analysis/word_scan.hpp"
#include "audio/live_capture.hpp"

namespace quillspeech::cli {

namespace {

constexpr auto Silence = static_cast<std::uint8_t>(Silent_Byte);

}  // namespace

Level Level_Of(std::span<const std::uint8_t> sound) {
  Level level;
  if (sound.empty()) return level;
  std::int64_t sum = 0;
  for (const std::uint8_t byte : sound) {
    const int distance = std::abs(byte - Silence);
    level.peak = std::max(level.peak, distance);
    sum += distance;
  }
  level.mean = static_cast<double>(sum) / static_cast<double>(sound.size());
  return level;
}

LevelMeter::LevelMeter(Session& session)
    : session_(session),
      window_(static_cast<std::size_t>(Promised_Samples(session.settings).Raw()), Silence) {}

void LevelMeter::Hear(std::span<const std::uint8_t> sound) {
  sound = sound.last(std::min(sound.size(), window_.size()));
  const auto kept =
      std::shift_left(window_.begin(), window_.end(), static_cast<std::ptrdiff_t>(sound.size()));
  std::copy(sound.begin(), sound.end(), kept);
}

Scan LevelMeter::Scan_With(int limit) {
  Sample& sample = session_.sample;
  WordTables& words = session_.words;
  const auto length = static_cast<std::int64_t>(window_.size());
  Clear_Analysis(session_);
  sample.Speech_Sample_Bytes.Resize(length - 1);
  std::copy(window_.begin(), window_.end(), sample.Speech_Sample_Bytes.Write_Range(0, length - 1));
  sample.Wave_Header_Buffer_Length = length;
  if (!Make_Sample_Tables(session_)) return {limit, 0, 0};
  Take_Sample_Grid(sample, words, words.Sample_Span);
  Find_Hits(words, {ForwardHits::By_Amplitude, limit, limit});
  Find_Gaps(words.scan, words.Sample_Span);
  const std::int64_t hits = words.scan.Forward_Hit_Count + words.scan.Backward_Hit_Count;
  return {limit, hits, Count_Words(words.scan)};
}

}  // namespace quillspeech::cli
