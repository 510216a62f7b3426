// A line that tells how far a long batch is, for people who watch.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>

#include "cli/console.hpp"

namespace quillspeech::cli {

// Shows nothing unless errors go to a terminal and the batch has lasted a second. Not for several
// threads at once.
class Progress {
 public:
  using Time = std::chrono::steady_clock::time_point;
  using Clock = std::function<Time()>;

  // `total` is missing when nobody knows how many files there will be.
  Progress(Console& console, std::optional<std::size_t> total,
           Clock clock = std::chrono::steady_clock::now);
  ~Progress() { Clear(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void One_More();
  void Clear();  // before lines of others go to the same terminal; the next file shows it again

 private:
  Console& console_;
  std::optional<std::size_t> total_;
  Clock clock_;
  bool is_shown_ = false;
  std::size_t done_ = 0;
  Time next_;  // when the line is due
};

}  // namespace quillspeech::cli
