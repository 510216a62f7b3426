// Forms on real windows, and the hands of a person: posted messages.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "platform/windows/event_loop.hpp"
#include "platform/windows/form_view.hpp"
#include "platform/windows/text.hpp"
#include "tests/platform/form_fixture.hpp"
#include "tests/windows/message_queue.hpp"

namespace quillspeech::tests {

// A host's window, not registered for anything but showing.
class HostWindow {
 public:
  HostWindow()
      : window_(CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE | SS_NOTIFY,
                                10, 10, 500, 400, nullptr, nullptr, nullptr, nullptr)) {}
  ~HostWindow() { Destroy(); }
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;

  void Destroy() {
    if (window_) DestroyWindow(std::exchange(window_, nullptr));
  }
  HWND Window() const { return window_; }
  std::intptr_t Handle() const { return reinterpret_cast<std::intptr_t>(window_); }

 private:
  HWND window_;
};

// The shift key of this thread's keyboard, held down.
class HeldShift {
 public:
  HeldShift() { Set(0x80); }
  ~HeldShift() { Set(0); }
  HeldShift(const HeldShift&) = delete;
  HeldShift& operator=(const HeldShift&) = delete;

 private:
  static void Set(BYTE state) {
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    keys[VK_SHIFT] = state;
    SetKeyboardState(keys);
  }
};

inline RECT Place_On_Screen(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  return place;
}

// The child window whose text that is, however deep.
inline HWND Child_With_Text(HWND parent, const std::string& text) {
  struct Search {
    std::wstring text;
    HWND found = nullptr;
  } search{windows::Wide(text)};
  const auto look = [](HWND window, LPARAM parameter) WINAPI -> BOOL {
    auto& wanted = *reinterpret_cast<Search*>(parameter);
    wchar_t shown[256] = {};
    SendMessageW(window, WM_GETTEXT, 256, reinterpret_cast<LPARAM>(shown));
    if (wanted.text == shown) wanted.found = window;
    return wanted.found == nullptr;
  };
  EnumChildWindows(parent, look, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

inline std::string Text_Of(HWND window) {
  wchar_t text[1024] = {};
  SendMessageW(window, WM_GETTEXT, 1024, reinterpret_cast<LPARAM>(text));
  return windows::Narrow(text);
}

struct FormScreen : FormTest {
  HWND Window() const { return reinterpret_cast<HWND>(views.Window_Of(*form)); }
  HWND Control(const std::string& text) const { return Child_With_Text(Window(), text); }

  void Show() {
    views.Show(*form, Modality::None);
    Run();
  }
  // Everything that waits in the queue.
  void Run() {
    for (int i = 0; i < 20; ++i) loop.Run_Pending_Events();
  }

  static void Press_Mouse(HWND window, int x = 5, int y = 5) {
    PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    PostMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
  }
  static void Press(HWND window, WPARAM key) {
    PostMessageW(window, WM_KEYDOWN, key, 1);
    PostMessageW(window, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
  }
  static void Type(HWND window, const std::string& text) {
    for (const char letter : text) {
      PostMessageW(window, WM_CHAR, static_cast<unsigned char>(letter), 1);
    }
  }
  void Later(std::function<void()> action) {
    const int delay = 50;
    later.push_back(loop.Make_Timer(std::chrono::milliseconds(delay), std::move(action)));
    later.back()->Enable(true);
  }

  windows::EventLoop loop;
  windows::FormViews views{loop, 96};
  std::vector<std::unique_ptr<Timer>> later;
};

}  // namespace quillspeech::tests
