// A line of text and behind it a pattern: Like_Match against the test that reads like the
// definition.
#include <algorithm>

#include "base/run_time_failure.hpp"
#include "fuzz/fuzz_target.hpp"
#include "recognition/like_match.hpp"
#include "tests/support/failures.hpp"
#include "tests/support/plain_language_scan.hpp"

namespace quillspeech::fuzz {
namespace {

constexpr std::size_t Longest = 300;  // of text and pattern, so that the plain test keeps up

void Compare(const std::string& text, const std::string& pattern) {
  bool plain = false;
  const int failure = tests::Failure_Of([&] { plain = tests::Plain_Like_Match(text, pattern); });
  Require(failure == 0 || failure == RunTimeFailure(Failure::Bad_Pattern).Number(),
          "the failure is that of a bad pattern");
  bool fits = false;
  Require(tests::Failure_Of([&] { fits = Like_Match(text, pattern); }) == failure,
          "what is bad to the definition is so to Like_Match, and nothing else");
  Require(fits == plain, "the definition and Like_Match agree");
}

}  // namespace
}  // namespace quillspeech::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quillspeech::fuzz;
  const LineAndFile input(data, std::min<std::size_t>(size, 2 * Longest));
  Compare(input.line.substr(0, Longest),
          std::string(input.file.begin(), input.file.end()).substr(0, Longest));
  return 0;
}
