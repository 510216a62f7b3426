// The port for yielding to pending events and for the timers that run only there.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace quillspeech {

// The timers of the hidden window that drives a live session.
enum class FormTimer { Timer1, Timer2, Timer3, Timer4, Timer5 };
inline constexpr int Form_Timer_Count = 5;

// An interval and a switch; at first off. Switching takes effect at once. A tick runs only at a
// yield, and nested yields run nested ticks, of the same timer too. Destroying it ends it, also
// from inside its own tick.
class Timer {
 public:
  virtual ~Timer() = default;

  // Switching on starts the interval; switching on what is on changes nothing.
  virtual void Enable(bool on) = 0;
  virtual bool Is_Enabled() const = 0;
  // Starts the interval anew. One of 0 or less never ticks, switched on or not.
  virtual void Set_Interval(std::chrono::milliseconds interval) = 0;
};

class EventLoop {
 public:
  using Time = std::chrono::microseconds;  // since the loop was made

  virtual ~EventLoop() = default;

  virtual Time Now() const = 0;

  // A yield: runs what is due now, each timer at most once, and returns. What it runs may call back
  // into the session, and yield again.
  virtual void Run_Pending_Events() = 0;
  // Sleeps until something is due, then runs it as a yield does.
  virtual void Wait_For_Events() = 0;
  // A yield as one pass of a wait: many passes take `least` each at the least, whatever the
  // machine, and sleep where they run ahead of that.
  virtual void Pass(Time least) = 0;
  // How many of the three calls above are on the stack.
  virtual int Depth() const = 0;

  virtual std::unique_ptr<Timer> Make_Timer(std::chrono::milliseconds interval,
                                            std::function<void()> tick) = 0;

  // The five timers of the hidden window: 1,000, 1,000, 5, 1,000 and 100 ms, without a tick until
  // one is given.
  virtual Timer& Form_Timer(FormTimer timer) = 0;
  virtual void On_Tick(FormTimer timer, std::function<void()> tick) = 0;

  void Enable(FormTimer timer, bool on) { Form_Timer(timer).Enable(on); }
  bool Is_Enabled(FormTimer timer) { return Form_Timer(timer).Is_Enabled(); }
};

}  // namespace quillspeech
