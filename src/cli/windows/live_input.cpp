#include "cli/live_input.hpp"

#include <utility>

#include "cli/windows/input_reader.hpp"

namespace quillspeech::cli {

// Nothing is read before it is watched: till then the input may be somebody else's.
class LiveInput::System final : public EventSource {
 public:
  System(backend::EventLoop& loop, int descriptor) : events_(loop), descriptor_(descriptor) {}

  void Watch(std::function<void()> ready) {
    if (!ready_) events_.Add_Source(*this);
    ready_ = std::make_shared<const std::function<void()>>(std::move(ready));
    if (!reader_) reader_.emplace(descriptor_);
    reader_->At_Arrival([&events = events_] { events.Wake(); });
  }
  void Unwatch() {
    if (!ready_) return;
    ready_.reset();
    reader_->At_Arrival(nullptr);
    events_.Remove_Source(*this);
  }
  std::optional<std::string> Read() { return reader_ ? reader_->Take() : std::string(); }

  std::optional<EventLoop::Time> Next_Due() const override {
    if (!ready_ || !reader_->Is_Ready()) return std::nullopt;
    return EventLoop::Time{0};
  }
  void Serve(EventLoop::Time) override {
    const auto ready = ready_;  // it may unwatch
    if (ready && reader_->Is_Ready()) (*ready)();
  }

 private:
  using Handler = std::shared_ptr<const std::function<void()>>;

  backend::EventLoop& events_;
  int descriptor_;
  Handler ready_;
  std::optional<InputReader> reader_;
};

LiveInput::LiveInput(backend::EventLoop& events, int descriptor)
    : system_(std::make_unique<System>(events, descriptor)) {}

LiveInput::~LiveInput() = default;

void LiveInput::Watch(std::function<void()> ready) { system_->Watch(std::move(ready)); }

void LiveInput::Unwatch() { system_->Unwatch(); }

std::optional<std::string> LiveInput::Read() { return system_->Read(); }

}  // namespace quillspeech::cli
