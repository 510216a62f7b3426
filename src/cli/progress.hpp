// A line that tells how far a long batch is, for people who watch.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>

#include "cli/console.hpp"

namespace quillspeech::cli {

// Shows nothing unless errors go to a terminal, results do not, and there are many files or nobody
// knows how many. Not for several threads at once.
class Progress {
 public:
  Progress(Console& console, std::optional<std::size_t> total);
  ~Progress() { Clear(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void One_More();
  void Clear();  // before a line of another goes there

 private:
  Console& console_;
  std::optional<std::size_t> total_;
  bool is_wanted_;
  bool is_shown_ = false;
  std::size_t done_ = 0;
  std::chrono::steady_clock::time_point last_;
};

}  // namespace quillspeech::cli
