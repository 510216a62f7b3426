#include "platform/windows/event_loop.hpp"

#include <algorithm>
#include <cstdint>
#include <system_error>
#include <utility>

namespace quillspeech::windows {

namespace {

using std::chrono::milliseconds;

constexpr UINT_PTR Tick_Timer = 1;
constexpr EventLoop::Time Time_Between_Looks{1'000};  // of passes
constexpr EventLoop::Time Tick_While_Waiting{50'000};

[[noreturn]] void Throw_Last_Error(const char* call) {
  throw std::system_error(static_cast<int>(::GetLastError()), std::system_category(), call);
}

// The time in whole milliseconds, rounded up and held within the two.
UINT Held_Within(EventLoop::Time time, UINT least, UINT most) {
  const std::int64_t whole = std::chrono::ceil<milliseconds>(time).count();
  return static_cast<UINT>(
      std::clamp<std::int64_t>(whole, std::int64_t{least}, std::int64_t{most}));
}

}  // namespace

EventLoop::EventLoop() : class_(L"Quillspeech.EventLoop", &EventLoop::Window_Procedure) {
  Make_Window();
}

EventLoop::~EventLoop() { Drop_Window(); }

EventLoop::Time EventLoop::Now() const {
  return std::chrono::duration_cast<Time>(std::chrono::steady_clock::now() - made_);
}

void EventLoop::Make_Window() {
  const HWND window = ::CreateWindowExW(0, class_.Name(), L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                        This_Module(), nullptr);
  if (window == nullptr) Throw_Last_Error("CreateWindowEx");
  window_ = window;
  thread_ = ::GetCurrentThreadId();
  if (!is_resting_) Listen(true);
}

// A window that does not listen finds no loop.
void EventLoop::Listen(bool on) {
  ::SetWindowLongPtrW(window_, GWLP_USERDATA, on ? reinterpret_cast<LONG_PTR>(this) : 0);
}

// Only its own thread may destroy a window. Another can see to it that the window runs none of our
// code any more, and ask it to go.
void EventLoop::Drop_Window() {
  if (thread_ == ::GetCurrentThreadId()) {
    ::DestroyWindow(window_);
  } else {
    Listen(false);
    ::SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&::DefWindowProcW));
    ::PostMessageW(window_, WM_CLOSE, 0, 0);
  }
}

void EventLoop::Rest() {
  is_to_rest_ = true;
  if (Depth() == 0) On_Outermost_End();
}

void EventLoop::On_Outermost_End() noexcept {
  if (!is_to_rest_) return;
  Drop_Tick();
  Listen(false);
  is_resting_ = true;
}

void EventLoop::Resume() {
  is_to_rest_ = false;
  is_resting_ = false;
  Listen(true);
  On_New_Due();
}

void EventLoop::Move_To_This_Thread() {
  if (thread_ == ::GetCurrentThreadId()) return;
  Drop_Window();
  Make_Window();
  tick_.reset();
  is_quitting_ = false;
  On_New_Due();
}

LRESULT CALLBACK EventLoop::Window_Procedure(HWND window, UINT message, WPARAM wide,
                                             LPARAM longer) {
  auto* const loop = reinterpret_cast<EventLoop*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  if (loop == nullptr || message != WM_TIMER || wide != Tick_Timer) {
    return ::DefWindowProcW(window, message, wide, longer);
  }
  try {
    loop->Tick_In_Hosts_Loop();
  } catch (...) {  // nobody is there to take it
  }
  return 0;
}

void EventLoop::Tick_In_Hosts_Loop() {
  is_in_host_loop_ = true;
  Drop_Tick();
  Tick();
}

int EventLoop::Add_Filter(Filter filter) {
  filters_[++last_filter_] = std::make_shared<const Filter>(std::move(filter));
  return last_filter_;
}

void EventLoop::Remove_Filter(int filter) { filters_.erase(filter); }

bool EventLoop::Is_Filtered(MSG& message) {
  const auto filters = filters_;
  return std::any_of(filters.begin(), filters.end(), [&](const auto& one) {
    return filters_.contains(one.first) && (*one.second)(message);
  });
}

// False when all there was is what the loop sends itself. Where there was nothing, another thread
// may have sent a message, which was dealt with on the way. A thread that is told to quit keeps
// that message at the end of its queue.
bool EventLoop::Dispatch_Messages() {
  constexpr int Most_At_Once = 100;  // a window may ask to be painted for ever
  is_in_host_loop_ = false;
  last_look_ = Now();
  bool was_ours = false;
  bool was_other = false;
  for (int i = 0; i < Most_At_Once; ++i) {
    MSG message;
    if (!::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      is_quitting_ = false;
      break;
    }
    if (message.message == WM_QUIT) {
      Meet_Quit(static_cast<int>(message.wParam));
      return true;
    }
    (Dispatch(message) ? was_other : was_ours) = true;
    if (wait_holds_ && !(*wait_holds_)()) return true;
  }
  return was_other || !was_ours;
}

bool EventLoop::Dispatch(MSG& message) {
  if (message.hwnd == window_) {
    if (message.message == WM_NULL) return false;
    if (message.message == WM_TIMER && message.wParam == Tick_Timer) {
      Set_Tick(Now() + Tick_While_Waiting);  // the yield itself runs what is due
      return false;
    }
  } else if (Is_Filtered(message)) {
    return true;
  }
  if (::CallMsgFilterW(&message, MSGF_USER)) return true;
  ::TranslateMessage(&message);
  ::DispatchMessageW(&message);
  return true;
}

void EventLoop::Meet_Quit(int exit_code) {
  ::PostQuitMessage(exit_code);
  if (std::exchange(is_quitting_, true)) return;
  const auto tell = At_Quit;
  if (tell) tell();
}

void EventLoop::Wake() noexcept {
  if (!is_woken_.exchange(true)) ::PostMessageW(window_, WM_NULL, 0, 0);
}

void EventLoop::Set_Tick(Time moment) {
  const UINT wait = Held_Within(moment - Now(), USER_TIMER_MINIMUM, USER_TIMER_MAXIMUM);
  if (::SetTimer(window_, Tick_Timer, wait, nullptr) != 0) tick_ = moment;
}

void EventLoop::Drop_Tick() {
  ::KillTimer(window_, Tick_Timer);
  tick_.reset();
}

// A timer that comes too early finds nothing due, and is set again: that costs less than to set it
// at each change. A wait of ours minds the time itself; there the timer is only to find out that a
// message or a tick has entered a loop of the host's.
void EventLoop::On_New_Due() {
  const auto due = Next_Due();
  if (!due || is_resting_) return;
  const bool is_ours = Depth() > 0 && !is_in_host_loop_;
  if (!tick_ || (!is_ours && *due < *tick_)) {
    Set_Tick(is_ours ? std::max(*due, Now() + Tick_While_Waiting) : *due);
  }
}

void EventLoop::On_Yield() { Dispatch_Messages(); }

void EventLoop::On_Pass() {
  if (Now() - last_look_ >= Time_Between_Looks) Dispatch_Messages();
}

// Ticks come no closer than the system's own timers bring them: a wake-up costs more than most
// ticks do.
void EventLoop::Wait_For_Events() {
  constexpr Time Shortest_Wait{milliseconds(USER_TIMER_MINIMUM)};
  const auto due = Next_Due();
  if (due && *due <= Now()) {
    Run_Pending_Events();
  } else {
    wait_until_ = wait_ended_ + Shortest_Wait;
    TimedLoop::Wait_For_Events();
  }
  wait_ended_ = Now();
}

class EventLoop::Condition {
 public:
  Condition(EventLoop& loop, const std::function<bool()>& holds)
      : loop_(loop), outer_(std::exchange(loop.wait_holds_, &holds)) {}
  ~Condition() { loop_.wait_holds_ = outer_; }
  Condition(const Condition&) = delete;
  Condition& operator=(const Condition&) = delete;

 private:
  EventLoop& loop_;
  const std::function<bool()>* outer_;
};

void EventLoop::Wait_For_Events_While(const std::function<bool()>& holds) {
  const Condition condition(*this, holds);
  Wait_For_Events();
}

void EventLoop::Pass(Time least) { TimedLoop::Pass(is_quitting_ ? Time{0} : least); }

// A wait that nothing ended has seen that there are no messages. Whatever came may have changed
// what is waited for. Whoever waits on although the thread is told to quit is not to take a whole
// core.
void EventLoop::Sleep_Until(std::optional<Time> moment) {
  const Time earliest = std::exchange(wait_until_, Time(0));
  const auto due = Next_Due();
  for (;;) {
    if (is_woken_.exchange(false)) return;
    if (is_quitting_) ::Sleep(1);
    const DWORD wait =
        moment ? Held_Within(std::max(*moment, earliest) - Now(), 0, INFINITE - 1) : INFINITE;
    const DWORD ended =
        ::MsgWaitForMultipleObjectsEx(0, nullptr, wait, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    if (ended == WAIT_TIMEOUT || Dispatch_Messages() || Next_Due() != due) return;
  }
}

}  // namespace quillspeech::windows
