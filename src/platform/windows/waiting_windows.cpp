#include "platform/windows/waiting_windows.hpp"

#include <cstdint>
#include <utility>

namespace quillspeech::windows {
namespace {

constexpr const wchar_t* Count_Name = L"Quillspeech.Waiting";

std::intptr_t Count_At(HWND window) {
  return reinterpret_cast<std::intptr_t>(GetPropW(window, Count_Name));
}

void Set_Count(HWND window, std::intptr_t count) {
  if (count > 0) {
    SetPropW(window, Count_Name, reinterpret_cast<HANDLE>(count));
  } else {
    RemovePropW(window, Count_Name);
  }
}

bool Takes_Input(HWND window) {
  return window && IsWindowVisible(window) && IsWindowEnabled(window);
}

}  // namespace

void WaitingWindows::Hold_All_But(HWND window) {
  spared_ = window;
  EnumThreadWindows(GetCurrentThreadId(), &WaitingWindows::Note, reinterpret_cast<LPARAM>(this));
  for (const HWND one : held_) EnableWindow(one, FALSE);
}

BOOL CALLBACK WaitingWindows::Note(HWND window, LPARAM waiting) {
  auto& self = *reinterpret_cast<WaitingWindows*>(waiting);
  const std::intptr_t count = Count_At(window);
  if (window != self.spared_ && IsWindowVisible(window) && (count > 0 || IsWindowEnabled(window))) {
    Set_Count(window, count + 1);
    self.held_.push_back(window);
  }
  return TRUE;
}

void WaitingWindows::Let_Go() {
  for (const HWND window : std::exchange(held_, {})) {
    if (!IsWindow(window)) continue;
    const std::intptr_t count = Count_At(window);
    Set_Count(window, count - 1);
    if (count <= 1) EnableWindow(window, TRUE);
  }
}

FrontWindow::~FrontWindow() {
  if (!Takes_Input(GetActiveWindow()) && Takes_Input(window_)) SetActiveWindow(window_);
}

BoxTime::BoxTime(HWND owner) {
  others_.Hold_All_But(owner ? GetAncestor(owner, GA_ROOT) : nullptr);
}

}  // namespace quillspeech::windows
