// The windows of a thread that lie in no other window.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "platform/windows/windows_api.hpp"

namespace quillspeech::tests {

// The one in front first.
inline std::vector<HWND> Windows_Of(DWORD thread) {
  std::vector<HWND> windows;
  const auto note = [](HWND window, LPARAM all) WINAPI -> BOOL {
    reinterpret_cast<std::vector<HWND>*>(all)->push_back(window);
    return TRUE;
  };
  EnumThreadWindows(thread, note, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

inline std::wstring Class_Of(HWND window) {
  wchar_t name[128] = {};
  return {name, static_cast<std::size_t>(GetClassNameW(window, name, 128))};
}

// One of the system's own dialogs.
inline bool Is_Dialog(HWND window) { return Class_Of(window) == L"#32770"; }

// That of the calling thread which is up; null: there is none.
inline HWND Dialog_That_Is_Up() {
  const std::vector<HWND> windows = Windows_Of(GetCurrentThreadId());
  const auto found = std::ranges::find_if(
      windows, [](HWND window) { return Is_Dialog(window) && IsWindowVisible(window); });
  return found == windows.end() ? nullptr : *found;
}

}  // namespace quillspeech::tests
