// The thread's windows that take no input while one of them waits for its answer.
#pragma once

#include <vector>

#include "platform/windows/windows_api.hpp"

namespace quillspeech::windows {

// A window may wait behind several others, and takes input again when the last of them has let it
// go, in whatever order they do. Each counts itself at the window.
class WaitingWindows {
 public:
  WaitingWindows() = default;
  ~WaitingWindows() { Let_Go(); }
  WaitingWindows(const WaitingWindows&) = delete;
  WaitingWindows& operator=(const WaitingWindows&) = delete;

  // All that show but this one; those that somebody else has disabled are left alone.
  void Hold_All_But(HWND window);
  void Let_Go();

 private:
  static BOOL CALLBACK Note(HWND window, LPARAM waiting);

  HWND spared_ = nullptr;
  std::vector<HWND> held_;
};

// What is active as it begins is so again behind it, unless another window that takes input is.
class FrontWindow {
 public:
  FrontWindow() : window_(GetActiveWindow()) {}
  ~FrontWindow();
  FrontWindow(const FrontWindow&) = delete;
  FrontWindow& operator=(const FrontWindow&) = delete;

 private:
  HWND window_;
};

// The same as long as one of the system's own boxes is up, which disables its owner itself.
class BoxTime {
 public:
  explicit BoxTime(HWND owner);
  BoxTime(const BoxTime&) = delete;
  BoxTime& operator=(const BoxTime&) = delete;

 private:
  FrontWindow front_;  // comes back when the others have
  WaitingWindows others_;
};

}  // namespace quillspeech::windows
