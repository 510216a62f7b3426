#include "platform/timed_loop.hpp"

#include <algorithm>
#include <utility>

namespace quillspeech {

struct TimedLoop::TimerState {
  std::chrono::milliseconds interval;
  std::shared_ptr<const std::function<void()>> tick;
  bool enabled = false;
  bool ended = false;
  Time due{0};

  bool Can_Tick() const { return enabled && !ended && interval.count() > 0; }
};

class TimedLoop::LoopTimer final : public Timer {
 public:
  LoopTimer(TimedLoop& loop, std::shared_ptr<TimerState> state)
      : loop_(loop), state_(std::move(state)) {}
  ~LoopTimer() override {
    state_->ended = true;
    state_->tick.reset();  // what it holds must not wait for the next yield
  }
  LoopTimer(const LoopTimer&) = delete;
  LoopTimer& operator=(const LoopTimer&) = delete;

  void Enable(bool on) override {
    if (on && !state_->enabled) state_->due = loop_.Now() + state_->interval;
    state_->enabled = on;
    if (on) loop_.On_New_Due();
  }
  bool Is_Enabled() const override { return state_->enabled; }
  void Set_Interval(std::chrono::milliseconds interval) override {
    state_->interval = interval;
    state_->due = loop_.Now() + interval;
    loop_.On_New_Due();
  }

  TimerState& State() { return *state_; }

 private:
  TimedLoop& loop_;
  std::shared_ptr<TimerState> state_;
};

class TimedLoop::Nesting {
 public:
  explicit Nesting(TimedLoop& loop) : loop_(loop) { ++loop_.depth_; }
  ~Nesting() {
    if (--loop_.depth_ == 0) loop_.On_Outermost_End();
  }
  Nesting(const Nesting&) = delete;
  Nesting& operator=(const Nesting&) = delete;

 private:
  TimedLoop& loop_;
};

TimedLoop::TimedLoop() {
  constexpr std::array<int, Form_Timer_Count> Intervals_In_Ms = {1000, 1000, 5, 1000, 100};
  for (std::size_t i = 0; i < form_timers_.size(); ++i) {
    form_timers_[i] = TimedLoop::Make_Timer(std::chrono::milliseconds(Intervals_In_Ms[i]), [] {});
  }
}

TimedLoop::~TimedLoop() = default;

std::unique_ptr<Timer> TimedLoop::Make_Timer(std::chrono::milliseconds interval,
                                             std::function<void()> tick) {
  Forget_Ended_Timers();  // also in a host that makes and ends many and never yields
  auto state = std::make_shared<TimerState>();
  state->interval = interval;
  state->tick = std::make_shared<std::function<void()>>(std::move(tick));
  timers_.push_back(state);
  return std::make_unique<LoopTimer>(*this, std::move(state));
}

void TimedLoop::Stop_Timers() {
  for (const auto& timer : timers_) timer->enabled = false;
}

std::unique_ptr<Timer> TimedLoop::Make_Moment(Time moment, std::function<void()> tick) {
  auto timer = Make_Timer(std::chrono::milliseconds(1), std::move(tick));
  timer->Enable(true);
  timers_.back()->due = moment;
  On_New_Due();
  return timer;
}

Timer& TimedLoop::Form_Timer(FormTimer timer) {
  return *form_timers_[static_cast<std::size_t>(timer)];
}

void TimedLoop::On_Tick(FormTimer timer, std::function<void()> tick) {
  static_cast<LoopTimer&>(Form_Timer(timer)).State().tick =
      std::make_shared<std::function<void()>>(std::move(tick));
}

void TimedLoop::Add_Source(EventSource& source) {
  sources_.push_back(&source);
  On_New_Due();
}

void TimedLoop::Remove_Source(EventSource& source) { std::erase(sources_, &source); }

std::optional<EventLoop::Time> TimedLoop::Next_Due() const {
  std::optional<Time> next;
  const auto take = [&](Time due) { next = next ? std::min(*next, due) : due; };
  for (const auto& timer : timers_) {
    if (timer->Can_Tick()) take(timer->due);
  }
  for (const EventSource* const source : sources_) {
    if (const auto due = source->Next_Due()) take(*due);
  }
  return next;
}

void TimedLoop::Run_What_Is_Due() {
  Serve_Sources();
  Run_Due_Timers();
  On_New_Due();
}

void TimedLoop::Tick() {
  const Nesting nesting(*this);
  Run_What_Is_Due();
}

void TimedLoop::Run_Pending_Events() {
  const Nesting nesting(*this);
  On_Yield();
  Run_What_Is_Due();
}

void TimedLoop::Wait_For_Events() {
  const Nesting nesting(*this);
  const auto due = Next_Due();
  if (!due || *due > Now()) Sleep_Until(due);
  Run_What_Is_Due();
}

// A sleep that ends early, since something is due, goes on after that.
void TimedLoop::Pass(Time least) {
  constexpr Time Between_Passes{50};
  constexpr Time Shortest_Sleep{1'000};  // below it a machine's own sleep takes longer than asked
  const Nesting nesting(*this);
  const Time now = Now();
  const bool goes_on = now - pass_ended_ <= Between_Passes;  // the same wait
  const Time until = Start_Of_Pass(now, goes_on) + least;
  passes_until_ = until;
  const auto yield = [&] {
    goes_on ? On_Pass() : On_Yield();
    Run_What_Is_Due();
  };
  if (until - now < Shortest_Sleep) {
    yield();
  } else {
    do {
      const auto due = Next_Due();
      if (!due || *due > Now()) Sleep_Until(due ? std::min(*due, until) : until);
      yield();
    } while (Now() < until);
  }
  pass_ended_ = Now();
}

// A sleep that took longer than it was to take is made up for by the passes of the same wait.
EventLoop::Time TimedLoop::Start_Of_Pass(Time now, bool goes_on) const {
  constexpr Time Most_Made_Up{20'000};
  if (goes_on && now - passes_until_ <= Most_Made_Up) return passes_until_;
  return std::max(passes_until_, now);
}

// Serving may take time, so each source is told the time anew.
void TimedLoop::Serve_Sources() {
  const auto sources = sources_;
  for (EventSource* const source : sources) {
    const bool is_here = std::find(sources_.begin(), sources_.end(), source) != sources_.end();
    if (is_here) source->Serve(Now());
  }
}

void TimedLoop::Forget_Ended_Timers() {
  std::erase_if(timers_, [](const auto& timer) { return timer->ended; });
}

// Each timer that is due at the start ticks once, the longest due first, unless a tick before it
// switched it off or put it off.
void TimedLoop::Run_Due_Timers() {
  Forget_Ended_Timers();
  const Time now = Now();
  std::vector<std::shared_ptr<TimerState>> due;
  for (const auto& timer : timers_) {
    if (timer->Can_Tick() && timer->due <= now) due.push_back(timer);
  }
  std::stable_sort(due.begin(), due.end(),
                   [](const auto& a, const auto& b) { return a->due < b->due; });
  for (const auto& timer : due) {
    if (!timer->Can_Tick() || timer->due > now) continue;
    timer->due = Now() + timer->interval;
    On_New_Due();
    const auto tick = timer->tick;  // a tick may give its timer another, or end it
    (*tick)();
  }
}

}  // namespace quillspeech
