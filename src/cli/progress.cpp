#include "cli/progress.hpp"

namespace quillspeech::cli {

namespace {

constexpr std::size_t Many_Files = 20;
constexpr auto Pause = std::chrono::milliseconds(100);

}  // namespace

Progress::Progress(Console& console, std::optional<std::size_t> total)
    : console_(console),
      total_(total),
      is_wanted_(console.err_is_terminal && !console.out_is_terminal &&
                 total.value_or(Many_Files) >= Many_Files),
      last_(std::chrono::steady_clock::now()) {}

void Progress::One_More() {
  ++done_;
  const auto now = std::chrono::steady_clock::now();
  if (!is_wanted_ || now - last_ < Pause) return;
  last_ = now;
  console_.err << "\r" << done_;
  if (total_) console_.err << " of " << *total_;
  console_.err << " files" << std::flush;
  is_shown_ = true;
}

void Progress::Clear() {
  if (!is_shown_) return;
  console_.err << "\r\x1b[K" << std::flush;
  is_shown_ = false;
}

}  // namespace quillspeech::cli
