// An event loop on any clock: the timers, and the devices that have something to do as time goes.
// A backend brings the clock and the sleep.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <vector>

#include "platform/event_loop.hpp"

namespace quillspeech {

// Something beside timers that happens on the loop: a sound device, a stream of requests.
class EventSource {
 public:
  virtual ~EventSource() = default;

  // When it wants to be served next; nothing when it waits for nothing.
  virtual std::optional<EventLoop::Time> Next_Due() const = 0;
  // Called at every yield, due or not. Afterwards it is due later than now, or not at all.
  virtual void Serve(EventLoop::Time now) = 0;
};

class TimedLoop : public EventLoop {
 public:
  TimedLoop();
  ~TimedLoop() override;
  TimedLoop(const TimedLoop&) = delete;
  TimedLoop& operator=(const TimedLoop&) = delete;

  void Run_Pending_Events() override;
  void Wait_For_Events() override;
  void Pass(Time least) override;
  int Depth() const override { return depth_; }
  std::unique_ptr<Timer> Make_Timer(std::chrono::milliseconds interval,
                                    std::function<void()> tick) override;
  Timer& Form_Timer(FormTimer timer) override;
  void On_Tick(FormTimer timer, std::function<void()> tick) override;

  // The source must outlive the loop or be removed; it may be removed from inside a Serve.
  void Add_Source(EventSource& source);
  void Remove_Source(EventSource& source);

  // To be called by a source that has become due outside of a yield, so that the loop looks in
  // time.
  void Schedule() { On_New_Due(); }

  // Switches every timer off.
  void Stop_Timers();

  // The earliest moment at which a timer or a source is due; nothing when none ever is.
  std::optional<Time> Next_Due() const;

 protected:
  // Sleeps until that moment, or without end; may return early when something woke it.
  virtual void Sleep_Until(std::optional<Time> moment) = 0;
  // Called at the head of each yield, but not when a wait ends.
  virtual void On_Yield() {}
  // Called in its place where the yield is a pass that follows another at once: there may be
  // thousands a second.
  virtual void On_Pass() { On_Yield(); }
  // Called when a timer or a source may have become due earlier than before: also ahead of each
  // tick, which may hold the loop for long, and behind each run of what was due.
  virtual void On_New_Due() {}
  // Called when the outermost of nested calls ends: nothing of the loop is on the stack any more.
  virtual void On_Outermost_End() noexcept {}

  // Runs what is due as a yield does, without On_Yield: for a tick that comes from outside.
  void Tick();

  // A timer that is on and due at that moment, whatever its fraction of a millisecond. It is to be
  // switched off or destroyed by its tick.
  std::unique_ptr<Timer> Make_Moment(Time moment, std::function<void()> tick);

 private:
  class LoopTimer;
  struct TimerState;
  class Nesting;

  void Run_What_Is_Due();
  Time Start_Of_Pass(Time now, bool goes_on) const;
  void Serve_Sources();
  void Run_Due_Timers();
  void Forget_Ended_Timers();

  std::vector<std::shared_ptr<TimerState>> timers_;
  std::array<std::unique_ptr<Timer>, Form_Timer_Count> form_timers_;
  std::vector<EventSource*> sources_;
  Time passes_until_{0};  // before this the passes so far have not taken their time
  Time pass_ended_{0};    // the last one
  int depth_ = 0;
};

}  // namespace quillspeech
