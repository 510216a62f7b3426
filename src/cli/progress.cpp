#include "cli/progress.hpp"

#include <utility>

namespace quillspeech::cli {

namespace {

constexpr auto Long_Work = std::chrono::seconds(1);
constexpr auto Pause = std::chrono::milliseconds(100);

}  // namespace

Progress::Progress(Console& console, std::optional<std::size_t> total, Clock clock)
    : console_(console), total_(total), clock_(std::move(clock)), next_(clock_() + Long_Work) {}

void Progress::One_More() {
  ++done_;
  if (!console_.err_is_terminal) return;
  const Time now = clock_();
  if (now < next_) return;
  next_ = now + Pause;
  console_.err << "\r" << done_;
  if (total_) console_.err << " of " << *total_;
  console_.err << " files" << std::flush;
  is_shown_ = true;
}

void Progress::Clear() {
  if (!is_shown_) return;
  console_.err << "\r\x1b[K" << std::flush;
  is_shown_ = false;
  next_ = Time::min();
}

}  // namespace quillspeech::cli
