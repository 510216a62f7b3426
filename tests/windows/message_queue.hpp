// The message queue of the test's own thread, the loop of a host on it, and a window of a host's.
#pragma once

#include <functional>
#include <map>

#include "platform/windows/windows_api.hpp"

namespace quillspeech::tests {

// Takes everything out of the queue, WM_QUIT too, and does nothing with it.
inline void Forget_Messages() {
  MSG message;
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
  }
}

// Hands on what is in the queue, as a host does.
inline void Dispatch_Messages() {
  MSG message;
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) ::DispatchMessageW(&message);
}

// A host's own message loop, for as long as the condition holds, and for ten seconds at most. Gives
// whether the condition ended it.
inline bool Run_Host_While(const std::function<bool()>& goes_on) {
  constexpr UINT Longest_In_Ms = 10'000;
  const UINT_PTR limit = ::SetTimer(nullptr, 0, Longest_In_Ms, nullptr);
  bool in_time = true;
  while (in_time && goes_on()) {
    MSG message;
    if (::GetMessageW(&message, nullptr, 0, 0) <= 0) break;
    in_time = !(message.message == WM_TIMER && message.hwnd == nullptr && message.wParam == limit);
    ::DispatchMessageW(&message);
  }
  ::KillTimer(nullptr, limit);
  return in_time;
}

// A window that counts what it gets.
class TestWindow {
 public:
  TestWindow()
      : window_(::CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 10, 10, HWND_MESSAGE, nullptr,
                                  nullptr, nullptr)) {
    ::SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    old_ = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
  }
  ~TestWindow() { ::DestroyWindow(window_); }
  TestWindow(const TestWindow&) = delete;
  TestWindow& operator=(const TestWindow&) = delete;

  HWND Handle() const { return window_; }
  int Count(UINT message) const {
    const auto found = counts_.find(message);
    return found == counts_.end() ? 0 : found->second;
  }

  std::function<void(UINT)> at_message;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM longer) {
    auto* const self = reinterpret_cast<TestWindow*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    ++self->counts_[message];
    if (self->at_message) self->at_message(message);
    return ::CallWindowProcW(self->old_, window, message, wide, longer);
  }

  HWND window_;
  WNDPROC old_ = nullptr;
  std::map<UINT, int> counts_;
};

}  // namespace quillspeech::tests
