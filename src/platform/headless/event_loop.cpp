#include "platform/headless/event_loop.hpp"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace quillspeech::headless {

void EventLoop::On_Yield() {
  ++yields;
  if (At_Yield) At_Yield();
}

void EventLoop::Sleep_Until(std::optional<Time> moment) {
  if (horizon && (!moment || *moment > *horizon)) {
    now_ = std::max(now_, *horizon);
    if (!At_Horizon) throw std::logic_error("a wait has come to the horizon");
    return At_Horizon();
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
      Sleep_Until(end);
    }
  }
}

void EventLoop::At(std::chrono::milliseconds moment, std::function<void()> action) {
  const auto place = moments_.emplace(moments_.end());
  *place = Make_Moment(moment, [this, place, action = std::move(action)] {
    moments_.erase(place);
    action();
  });
}

}  // namespace quillspeech::headless
