#include "platform/timed_loop.hpp"

#include <algorithm>
#include <utility>

namespace quillspeech {

struct TimedLoop::TimerState {
  std::chrono::milliseconds interval;
  std::function<void()> tick;
  bool enabled = false;
  bool ended = false;
  Time due{0};

  bool Can_Tick() const { return enabled && !ended && interval.count() > 0; }
};

class TimedLoop::LoopTimer final : public Timer {
 public:
  LoopTimer(const TimedLoop& loop, std::shared_ptr<TimerState> state)
      : loop_(loop), state_(std::move(state)) {}
  ~LoopTimer() override { state_->ended = true; }
  LoopTimer(const LoopTimer&) = delete;
  LoopTimer& operator=(const LoopTimer&) = delete;

  void Enable(bool on) override {
    if (on && !state_->enabled) state_->due = loop_.Now() + state_->interval;
    state_->enabled = on;
  }
  bool Is_Enabled() const override { return state_->enabled; }
  void Set_Interval(std::chrono::milliseconds interval) override {
    state_->interval = interval;
    state_->due = loop_.Now() + interval;
  }

  TimerState& State() { return *state_; }

 private:
  const TimedLoop& loop_;
  std::shared_ptr<TimerState> state_;
};

class TimedLoop::Nesting {
 public:
  explicit Nesting(int& depth) : depth_(depth) { ++depth_; }
  ~Nesting() { --depth_; }
  Nesting(const Nesting&) = delete;
  Nesting& operator=(const Nesting&) = delete;

 private:
  int& depth_;
};

TimedLoop::TimedLoop() {
  constexpr std::array<int, Form_Timer_Count> Intervals_In_Ms = {1000, 1000, 5, 1000, 100};
  for (std::size_t i = 0; i < form_timers_.size(); ++i) {
    form_timers_[i] = Make_Timer(std::chrono::milliseconds(Intervals_In_Ms[i]), [] {});
  }
}

TimedLoop::~TimedLoop() = default;

std::unique_ptr<Timer> TimedLoop::Make_Timer(std::chrono::milliseconds interval,
                                             std::function<void()> tick) {
  auto state = std::make_shared<TimerState>();
  state->interval = interval;
  state->tick = std::move(tick);
  timers_.push_back(state);
  return std::make_unique<LoopTimer>(*this, std::move(state));
}

Timer& TimedLoop::Form_Timer(FormTimer timer) {
  return *form_timers_[static_cast<std::size_t>(timer)];
}

void TimedLoop::On_Tick(FormTimer timer, std::function<void()> tick) {
  static_cast<LoopTimer&>(Form_Timer(timer)).State().tick = std::move(tick);
}

void TimedLoop::Add_Source(EventSource& source) { sources_.push_back(&source); }

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

void TimedLoop::Run_Pending_Events() {
  const Nesting nesting(depth_);
  Serve_Sources();
  Run_Due_Timers();
}

void TimedLoop::Wait_For_Events() {
  const Nesting nesting(depth_);
  const auto due = Next_Due();
  if (!due || *due > Now()) Sleep_Until(due);
  Serve_Sources();
  Run_Due_Timers();
}

void TimedLoop::Pass(Time least) {
  constexpr Time Shortest_Sleep{1'000};  // below it a machine's own sleep takes longer than asked
  pass_credit_ += least;
  if (pass_credit_ >= Shortest_Sleep) {
    Time until = Now() + std::exchange(pass_credit_, Time{0});
    if (const auto due = Next_Due()) until = std::min(until, *due);
    if (until > Now()) Sleep_Until(until);
  }
  Run_Pending_Events();
}

void TimedLoop::Serve_Sources() {
  const auto sources = sources_;
  const Time now = Now();
  for (EventSource* const source : sources) {
    if (std::find(sources_.begin(), sources_.end(), source) != sources_.end()) source->Serve(now);
  }
}

// Each timer that is due at the start ticks once, the longest due first, unless a tick before it
// switched it off or put it off.
void TimedLoop::Run_Due_Timers() {
  std::erase_if(timers_, [](const auto& timer) { return timer->ended; });
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
    const auto tick = timer->tick;  // a tick may give its timer another
    tick();
  }
}

}  // namespace quillspeech
