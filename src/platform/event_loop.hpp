// The port for yielding to pending events and for the timers that run only there.
#pragma once

#include <cstdint>

namespace quillspeech {

// The timers of the hidden window that drives a live session.
enum class FormTimer { Timer1, Timer2, Timer3, Timer4, Timer5 };
inline constexpr int Form_Timer_Count = 5;

class EventLoop {
 public:
  virtual ~EventLoop() = default;

  // Runs what is pending and returns; handlers may call back into the session.
  virtual void Run_Pending_Events() = 0;

  // Switching takes effect at once.
  virtual void Enable(FormTimer timer, bool on) = 0;
  virtual bool Is_Enabled(FormTimer timer) const = 0;
};

}  // namespace quillspeech
