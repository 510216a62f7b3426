#include "cli/live_input.hpp"

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace quillspeech::cli {

class LiveInput::System {
 public:
  System(backend::EventLoop& loop, int number) : events(loop), descriptor(number) {}

  backend::EventLoop& events;
  int descriptor;
};

LiveInput::LiveInput(backend::EventLoop& events, int descriptor)
    : system_(std::make_unique<System>(events, descriptor)) {}

LiveInput::~LiveInput() = default;

void LiveInput::Watch(std::function<void()> ready) {
  system_->events.Watch(system_->descriptor, std::move(ready));
}

void LiveInput::Unwatch() { system_->events.Unwatch(system_->descriptor); }

std::optional<std::string> LiveInput::Read() {
  std::string bytes(65'536, '\0');
  const auto count = ::read(system_->descriptor, bytes.data(), bytes.size());
  if (count == 0 || (count < 0 && errno != EINTR && errno != EAGAIN)) return std::nullopt;
  bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
  return bytes;
}

}  // namespace quillspeech::cli
