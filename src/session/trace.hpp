// What a run tells beyond its results: for logs, JSON and tests. The recogniser writes it, and no
// result of its own depends on it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace quillspeech {

// One call of Analyse_Slice or Analyse_File_Slice.
struct SliceTrace {
  std::int16_t word = 0;  // the three word counters at the call
  std::int16_t deep = 0;
  std::int16_t too_deep = 0;
  std::int32_t first = 0;  // bounds in the store, as the caller passed them
  std::int32_t last = 0;
  std::optional<std::int16_t> category;  // none: left before a count, or dropped as noise
};

struct Trace {
  bool Keep_Slices = false;  // whether the calls below are to be kept
  std::vector<SliceTrace> slices;

  // The numbers of the run-time failures that were trapped, in order: the first ones only, so that
  // a session that never ends does not grow by them.
  static constexpr std::size_t Most_Failures = 1'000;
  std::vector<int> failures;
  int Last_Failure = 0;  // the latest, also beyond those; 0: there was none
  void Note_Failure(int number) {
    Last_Failure = number;
    if (failures.size() < Most_Failures) failures.push_back(number);
  }
};

}  // namespace quillspeech
