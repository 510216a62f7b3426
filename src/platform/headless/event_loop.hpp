// An event loop on a virtual clock. Nothing sleeps: time moves only when a wait has nothing due,
// and then straight to what comes next, so that the same run always goes the same way.
#pragma once

#include <chrono>
#include <functional>
#include <list>
#include <memory>
#include <optional>

#include "platform/timed_loop.hpp"

namespace quillspeech::headless {

class EventLoop final : public TimedLoop {
 public:
  Time Now() const override { return now_; }

  // Waits, as often as it takes, until that much time has passed. A wait inside a tick may go past
  // the end, a recording until its buffer is full.
  void Run_For(Time duration);

  // Runs the action at that moment, or at the next yield when that is past, as a timer's tick.
  void At(std::chrono::milliseconds moment, std::function<void()> action);

  // Time does not move past the horizon: a wait that comes to it calls At_Horizon, which moves the
  // horizon, makes something due, or throws; without At_Horizon such a wait throws. Without a
  // horizon, time is free.
  std::optional<Time> horizon;
  std::function<void()> At_Horizon;

  std::function<void()> At_Yield;  // runs at each yield when set
  int yields = 0;                  // that did not wait

 private:
  void Sleep_Until(std::optional<Time> moment) override;
  void On_Yield() override;

  Time now_{0};
  std::list<std::unique_ptr<Timer>> moments_;  // that are still to come
};

}  // namespace quillspeech::headless
