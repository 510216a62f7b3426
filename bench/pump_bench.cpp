// One look of the pump at a capture of 7 seconds: at one that stays quiet, and at one with speech.
#include <benchmark/benchmark.h>

#include <algorithm>

#include "analysis/capture_scheduler.hpp"
#include "bench/speech_like.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech::bench {
namespace {

void Put_Capture(Session& session, const std::vector<std::uint8_t>& sound) {
  const auto length = static_cast<std::int64_t>(sound.size());
  const std::int64_t level = session.settings.Digital_Signal_Processing_Level;
  auto& store = session.sample.Speech_Sample_Bytes;
  store.Resize(length + level);
  std::copy(sound.begin(), sound.end(), store.Write_Range(0, length + level));
  session.sample.Samples_Per_Capture = length;
  session.sample.Wave_Header_Buffer_Length = length + level;
}

// What follows a detection is not the pump's: a stop in its one pass of waiting keeps the
// processing out.
void Look(benchmark::State& state, const std::vector<std::uint8_t>& sound) {
  tests::TestSession test;
  Session& session = test.session;
  session.settings.Voice_Processing_Delay = 1;
  test.events.At_Yield = [&] { session.settings.Stop_everything_now = "YES"; };
  Put_Capture(session, sound);
  for (auto _ : state) {
    session.settings.Stop_everything_now = "NO";
    Run_Pump(session);
  }
  const WordScanTables& scan = session.words.scan;
  state.counters["hits"] = static_cast<double>(scan.Forward_Hit_Count + scan.Backward_Hit_Count);
  state.counters["words"] = static_cast<double>(session.words.Probable_no_of_words_recognized);
}

constexpr std::int64_t Capture_Bytes = 154'350;

void Pump_Silent(benchmark::State& state) {
  Look(state, std::vector<std::uint8_t>(Capture_Bytes, 128));
}
BENCHMARK(Pump_Silent)->Unit(benchmark::kMicrosecond);

void Pump_Speech(benchmark::State& state) { Look(state, Speech_Like(Capture_Bytes)); }
BENCHMARK(Pump_Speech)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quillspeech::bench
