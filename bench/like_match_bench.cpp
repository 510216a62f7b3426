// The pattern test: on what language files hold, and on the worst that can be written.
#include <benchmark/benchmark.h>

#include <string>

#include "recognition/like_match.hpp"

namespace quillspeech::bench {
namespace {

void Like_Match_Usual(benchmark::State& state) {
  const std::string text = "aAAAkgHfthjjsoaaAAkgHunmle";
  const char* const patterns[] = {"s*as*", "aAA*fthjjs*le", "[a-e]A*k?H*", "*oa*oa*oa*", "oa"};
  std::size_t next = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(Like_Match(text, patterns[next]));
    next = (next + 1) % std::size(patterns);
  }
}
BENCHMARK(Like_Match_Usual);

// Each doubling of both lengths takes four times as long, and not more.
void Like_Match_Worst(benchmark::State& state) {
  const auto length = static_cast<std::size_t>(state.range(0));
  std::string pattern;
  while (pattern.size() < length / 2) pattern += "*a";
  pattern += '*' + std::string(length / 2, '?') + 'b' + '*';
  const std::string text(length, 'a');
  for (auto _ : state) benchmark::DoNotOptimize(Like_Match(text, pattern));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(Like_Match_Worst)->RangeMultiplier(2)->Range(64, 1024)->Complexity();

}  // namespace
}  // namespace quillspeech::bench
