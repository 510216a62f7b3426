#include "cli/live_lines.hpp"

#include <unistd.h>

#include <array>
#include <cerrno>

namespace quillspeech::cli {

// While one of these lives the descriptor is watched, unless it has ended.
class LiveLines::Watch {
 public:
  explicit Watch(LiveLines& lines) : lines_(lines) {
    if (lines_.waits_++ > 0 || lines_.has_ended_) return;
    lines_.events_.Watch(lines_.input_, [&kept = lines_] { kept.Read(); });
  }
  ~Watch() {
    if (--lines_.waits_ == 0) lines_.events_.Unwatch(lines_.input_);
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
  std::array<char, 4096> bytes;
  const auto count = ::read(input_, bytes.data(), bytes.size());
  if (count > 0) return lines_.Add({bytes.data(), static_cast<std::size_t>(count)});
  if (count < 0 && (errno == EINTR || errno == EAGAIN)) return;
  has_ended_ = true;
  lines_.Close();
  events_.Unwatch(input_);
}

}  // namespace quillspeech::cli
