// The word scan of one capture of 7 seconds.
#include <benchmark/benchmark.h>

#include "analysis/word_scan.hpp"
#include "bench/speech_like.hpp"

namespace quillspeech::bench {
namespace {

void Word_Scan(benchmark::State& state) {
  constexpr std::int64_t Capture_Bytes = 154'350;
  const auto sound = Speech_Like(Capture_Bytes);
  Sample sample;
  sample.Samples_Per_Capture = Capture_Bytes;
  sample.Speech_Sample_Bytes.Resize(Capture_Bytes - 1);
  std::copy(sound.begin(), sound.end(),
            sample.Speech_Sample_Bytes.Write_Range(0, Capture_Bytes - 1));
  WordTables words;
  words.Centred_Samples.Resize(Capture_Bytes);
  words.Decimated_Samples.Resize(Capture_Bytes);
  words.Reversed_Decimated_Samples.Resize(Capture_Bytes);
  words.Word_Start.Resize(Capture_Bytes);
  words.Word_End.Resize(Capture_Bytes);
  for (auto _ : state) {
    Clear_Scan(words.scan);
    Resize_Scan(words.scan, Capture_Bytes / 10);
    Take_Sample_Grid(sample, words, Capture_Bytes - 1);
    Find_Hits(words, {ForwardHits::By_Change, 3, 3});
    Find_Gaps(words.scan, Capture_Bytes);
    Bound_Words(words.scan, Capture_Bytes, {words.Word_Start, words.Word_End});
    benchmark::DoNotOptimize(Count_Words(words.scan));
  }
  state.counters["words"] = static_cast<double>(Count_Words(words.scan));
}
BENCHMARK(Word_Scan)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quillspeech::bench
