// A person at the keyboard of the example program, which runs already: starts the recognition,
// stops it while it listens, and closes the window.
#include <windows.h>

#include <cstdio>
#include <functional>
#include <string>

namespace {

std::wstring Text_Of(HWND window) {
  wchar_t text[200] = L"";
  GetWindowTextW(window, text, 200);
  return text;
}

BOOL CALLBACK Take_Status(HWND window, LPARAM found) {
  const std::wstring text = Text_Of(window);
  if (text.starts_with(L"Status: ")) *reinterpret_cast<std::wstring*>(found) = text;
  return TRUE;
}

bool Shows_Status(HWND window, const std::wstring& status) {
  std::wstring line;
  EnumChildWindows(window, Take_Status, reinterpret_cast<LPARAM>(&line));
  return line.starts_with(L"Status: " + status);
}

bool Lists_Event(HWND window, const std::wstring& event) {
  HWND list = FindWindowExW(window, nullptr, L"LISTBOX", nullptr);
  const auto count = SendMessageW(list, LB_GETCOUNT, 0, 0);
  for (LRESULT i = 0; i < count; ++i) {
    wchar_t line[200] = L"";
    SendMessageW(list, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(line));
    if (std::wstring(line).find(event) != std::wstring::npos) return true;
  }
  return false;
}

bool Comes_To_Be(const std::function<bool()>& is_so) {
  constexpr DWORD Patience_In_Ms = 20'000;
  for (const DWORD begun = GetTickCount(); GetTickCount() - begun < Patience_In_Ms; Sleep(20)) {
    if (is_so()) return true;
  }
  return false;
}

bool Tell(bool is_so, const char* what) {
  std::printf(is_so ? "%s\n" : "not %s\n", what);
  std::fflush(stdout);
  return is_so;
}

void Press_Alt_With(HWND window, wchar_t letter) {
  constexpr LPARAM Alt_Is_Down = 1 << 29;
  PostMessageW(window, WM_SYSCHAR, letter, Alt_Is_Down);
}

bool Run() {
  HWND window = nullptr;
  const auto is_there = [&] {
    window = FindWindowW(L"QuillspeechExample", nullptr);
    return Shows_Status(window, L"at rest");
  };
  if (!Tell(Comes_To_Be(is_there), "at rest")) return false;
  Press_Alt_With(window, L's');
  bool is_well = Tell(Comes_To_Be([&] { return Shows_Status(window, L"Alert"); }), "listening");
  Press_Alt_With(window, L't');
  is_well &=
      Tell(Comes_To_Be([&] { return Lists_Event(window, L"StopRecognitionActivity"); }), "stopped");
  PostMessageW(window, WM_CLOSE, 0, 0);
  return is_well;
}

}  // namespace

int main() { return Run() ? 0 : 1; }
