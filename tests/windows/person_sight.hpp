// What a person sees of windows that belong to another thread.
#pragma once

#include <string>
#include <vector>

#include "tests/windows/thread_windows.hpp"

namespace quillspeech::tests {

inline constexpr DWORD Longest_Wait = 10'000;  // in ms

// Until it gives something, looked at every few ms.
template <class Look>
auto Await(Look&& look) {
  const DWORD begun = GetTickCount();
  for (;;) {
    const auto found = look();
    if (found || GetTickCount() - begun > Longest_Wait) return found;
    Sleep(2);
  }
}

// What the window answers; 0 when it does not in time.
LRESULT Ask(HWND window, UINT message, WPARAM wide = 0, LPARAM longer = 0);
std::string Shown(HWND window);
bool Is_Form(HWND window);

std::vector<HWND> Children(HWND parent);
std::vector<HWND> All_Inside(HWND parent);           // however deep
HWND Inside(HWND parent, const std::wstring& kind);  // the first of that class; null: none
HWND Edit_Part(HWND window);                         // of a combo box, or else the window itself

// With its text and, of a dialog, those in it.
std::string Told_By(HWND window);
[[noreturn]] void Fail_At(const std::string& wanted, HWND front);

}  // namespace quillspeech::tests
