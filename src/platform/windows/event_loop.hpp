// An event loop on a thread's message queue. A yield dispatches what waits in the queue, a wait
// sleeps in it, and while a loop of the host's or of a dialog box runs, a timer of the hidden
// window brings the ticks.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "platform/timed_loop.hpp"
#include "platform/windows/form_classes.hpp"
#include "platform/windows/windows_api.hpp"

namespace quillspeech::windows {

// Belongs to one thread: the one that made it, or moved it last.
class EventLoop final : public TimedLoop {
 public:
  using Filter = std::function<bool(MSG&)>;

  EventLoop();  // throws std::system_error when there can be no window
  ~EventLoop() override;

  Time Now() const override;
  // Nothing that is due keeps the messages from their turn. Ticks come at most every 10 ms.
  void Wait_For_Events() override;
  // The same, and once it holds no more no further message is taken: it is the business of whoever
  // waits outside.
  void Wait_For_Events_While(const std::function<bool()>& holds);
  // Takes no time once the thread is told to quit.
  void Pass(Time least) override;

  // A window that never shows and that nobody finds by looking, for the ticks. It stays the same
  // until the loop moves to another thread.
  HWND Window() const { return window_; }

  // Each message that a yield or a wait takes from the queue, unless it is for the hidden window,
  // goes through the filters, the oldest first; one that answers true has dealt with it. The number
  // that it gives names the filter. Filters may be added and removed by a filter.
  int Add_Filter(Filter filter);
  void Remove_Filter(int filter);

  // Whether the thread has been told to quit: a yield or a wait has met WM_QUIT, and put it back
  // for the host's loop. Until that takes it, no wait blocks for longer than a moment.
  bool Is_Quitting() const { return is_quitting_; }
  // Called once each time the thread is told to quit.
  std::function<void()> At_Quit;

  // Ends the wait that is under way, or else the next one. From any thread, as long as the loop
  // does not move meanwhile.
  void Wake() noexcept;

  // From the end of the outermost yield or wait on, at once when there is none, no tick comes until
  // it resumes. What the timers are, they stay.
  void Rest();
  void Resume();
  // From any thread: once this is so, the loop's own thread touches nothing of it.
  bool Is_Resting() const { return is_resting_; }

  // Makes the calling thread the loop's own, with a window of its own. The loop rests, or the other
  // thread has ended.
  void Move_To_This_Thread();

 private:
  class Condition;

  static LRESULT CALLBACK Window_Procedure(HWND window, UINT message, WPARAM wide, LPARAM longer);

  void Make_Window();
  void Drop_Window();
  void Listen(bool on);
  void Tick_In_Hosts_Loop();
  bool Dispatch_Messages();
  bool Dispatch(MSG& message);
  bool Is_Filtered(MSG& message);
  void Meet_Quit(int exit_code);
  void Set_Tick(Time moment);
  void Drop_Tick();

  void Sleep_Until(std::optional<Time> moment) override;
  void On_Yield() override;
  void On_Pass() override;
  void On_New_Due() override;
  void On_Outermost_End() noexcept override;

  std::chrono::steady_clock::time_point made_ = std::chrono::steady_clock::now();
  WindowClass class_;
  HWND window_ = nullptr;
  DWORD thread_ = 0;
  std::map<int, std::shared_ptr<const Filter>> filters_;
  int last_filter_ = 0;
  std::optional<Time> tick_;  // when the window's timer comes
  Time last_look_{0};
  Time wait_ended_{0};
  Time wait_until_{0};  // of the wait that begins, whatever is due before
  const std::function<bool()>* wait_holds_ = nullptr;  // of the innermost wait that has one
  bool is_in_host_loop_ = false;                       // the last tick came by one
  bool is_quitting_ = false;
  bool is_to_rest_ = false;
  std::atomic<bool> is_resting_ = false;
  std::atomic<bool> is_woken_ = false;
};

}  // namespace quillspeech::windows
