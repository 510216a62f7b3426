#include "cli/live_lines.hpp"

namespace quillspeech::cli {

// While one of these lives the descriptor is watched, unless it has ended.
class LiveLines::Watch {
 public:
  explicit Watch(LiveLines& lines) : lines_(lines) {
    if (lines_.waits_++ > 0 || lines_.has_ended_) return;
    lines_.input_.Watch([&kept = lines_] { kept.Read(); });
  }
  ~Watch() {
    if (--lines_.waits_ == 0) lines_.input_.Unwatch();
  }
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;

 private:
  LiveLines& lines_;
};

std::optional<std::string> LiveLines::Next(const std::function<bool()>& is_over) {
  const Watch watch(*this);
  for (;;) {
    if (auto line = lines_.Next()) return std::move(line->text);
    if (has_ended_ || is_over()) return std::nullopt;
    events_.Wait_For_Events();
  }
}

void LiveLines::Read() {
  if (const auto bytes = input_.Read()) return lines_.Add(*bytes);
  has_ended_ = true;
  lines_.Close();
  input_.Unwatch();
}

}  // namespace quillspeech::cli
