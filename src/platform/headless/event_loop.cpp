#include "platform/headless/event_loop.hpp"

namespace quillspeech::headless {

void EventLoop::Run_Pending_Events() {
  ++yields;
  if (At_Yield) At_Yield();
}

void EventLoop::Enable(FormTimer timer, bool on) { enabled_[static_cast<std::size_t>(timer)] = on; }

bool EventLoop::Is_Enabled(FormTimer timer) const {
  return enabled_[static_cast<std::size_t>(timer)];
}

}  // namespace quillspeech::headless
