#include "platform/headless/event_loop.hpp"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace quillspeech::headless {

void EventLoop::Run_Pending_Events() {
  ++yields;
  if (At_Yield) At_Yield();
  TimedLoop::Run_Pending_Events();
}

void EventLoop::Sleep_Until(std::optional<Time> moment) {
  if (horizon && (!moment || *moment > *horizon)) {
    now_ = std::max(now_, *horizon);
    if (At_Horizon) return At_Horizon();
  }
  if (!moment) throw std::logic_error("a wait for nothing would never end");
  now_ = std::max(now_, *moment);
}

void EventLoop::Run_For(Time duration) {
  const Time end = now_ + duration;
  while (now_ < end) {
    const auto due = Next_Due();
    if (due && *due <= end) {
      Wait_For_Events();
    } else {
      now_ = end;
    }
  }
}

void EventLoop::At(std::chrono::milliseconds moment, std::function<void()> action) {
  std::unique_ptr<Timer>& timer = moments_.emplace_back();
  const auto interval = moment - std::chrono::duration_cast<std::chrono::milliseconds>(now_);
  timer = Make_Timer(interval, [&timer, action = std::move(action)] {
    timer->Enable(false);
    action();
  });
  timer->Enable(true);
}

}  // namespace quillspeech::headless
