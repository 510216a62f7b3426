// An event loop on the steady clock. A wait sleeps in the kernel until a timer or a source is due,
// a watched descriptor has something to say, or somebody wakes it.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

#include "platform/timed_loop.hpp"

namespace quillspeech::linux {

class EventLoop final : public TimedLoop {
 public:
  EventLoop();  // throws std::system_error when the process has no descriptor left
  ~EventLoop() override;

  Time Now() const override;

  // Runs the handler on the loop's thread, at the next yield or wait, whenever the descriptor is
  // readable or hung up, again and again until the handler reads or unwatches it. Yields that come
  // within a millisecond look only once. A second handler takes the first one's place.
  void Watch(int descriptor, std::function<void()> ready);
  // To be called before the descriptor is closed; from inside a handler too.
  void Unwatch(int descriptor);

  // Ends the wait that is under way, or else the next one. From any thread, and from a signal
  // handler.
  void Wake() noexcept;

 private:
  class Descriptors;

  void Sleep_Until(std::optional<Time> moment) override;

  std::chrono::steady_clock::time_point made_ = std::chrono::steady_clock::now();
  std::unique_ptr<Descriptors> descriptors_;
};

}  // namespace quillspeech::linux
