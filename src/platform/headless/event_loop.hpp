// An event loop without events of its own: what tests and batch runs put on it happens at a yield.
#pragma once

#include <array>
#include <functional>

#include "platform/event_loop.hpp"

namespace quillspeech::headless {

class EventLoop final : public quillspeech::EventLoop {
 public:
  void Run_Pending_Events() override;
  void Enable(FormTimer timer, bool on) override;
  bool Is_Enabled(FormTimer timer) const override;

  std::function<void()> At_Yield;  // runs at each yield when set
  int yields = 0;

 private:
  std::array<bool, Form_Timer_Count> enabled_{};
};

}  // namespace quillspeech::headless
