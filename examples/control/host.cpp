// A program that hosts the Quillspeech control:
//
//   control_host [--language F.SAY] [--engine F.EGN] [--wave F.wav] [--screenshot F.bmp]
//
// With a WAV file it recognises that and prints the ranked words. With a screenshot it saves a
// picture of its window and ends. What it cannot do it tells on the standard error output, or in a
// box where there is none, and ends with 1.
#include <windows.h>
//
#include <ole2.h>
#include <shellapi.h>

#include <map>
#include <string>
#include <vector>

#include "main_window.hpp"
#include "window_picture.hpp"

namespace example {
namespace {

using Options = std::map<std::wstring, std::wstring>;

// "--name value" pairs.
Options Command_Line() {
  Options options;
  for (const wchar_t* name : {L"--language", L"--engine", L"--wave", L"--screenshot"}) {
    options[name];
  }
  int count = 0;
  wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  const std::vector<std::wstring> given(arguments, arguments + count);
  LocalFree(arguments);
  for (std::size_t i = 1; i < given.size(); i += 2) {
    const auto option = options.find(given[i]);
    if (option == options.end()) throw CallFailed{E_INVALIDARG, L"unknown option " + given[i]};
    if (i + 1 == given.size()) throw CallFailed{E_INVALIDARG, given[i] + L" wants a file"};
    option->second = given[i + 1];
  }
  return options;
}

// False when nobody takes it.
bool Print(const std::wstring& text, DWORD stream = STD_OUTPUT_HANDLE) {
  const int length = static_cast<int>(text.size());
  std::string bytes(text.size() * 3, '\0');
  bytes.resize(static_cast<std::size_t>(
      WideCharToMultiByte(CP_UTF8, 0, text.c_str(), length, bytes.data(),
                          static_cast<int>(bytes.size()), nullptr, nullptr)));
  DWORD written = 0;
  return WriteFile(GetStdHandle(stream), bytes.data(), static_cast<DWORD>(bytes.size()), &written,
                   nullptr) != 0;
}

void Complain(const std::wstring& text) {
  if (Print(text + L"\n", STD_ERROR_HANDLE)) return;
  MessageBoxW(nullptr, text.c_str(), L"Quillspeech example", MB_ICONERROR);
}

void Run_Waiting_Messages(DWORD milliseconds) {
  const DWORD end = GetTickCount() + milliseconds;
  for (DWORD now = GetTickCount(); now < end; now = GetTickCount()) {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, end - now, QS_ALLINPUT);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      if (message.message == WM_QUIT) {  // for the loop that comes next
        PostQuitMessage(static_cast<int>(message.wParam));
        return;
      }
      DispatchMessageW(&message);
    }
  }
}

// While the control waits inside a call, as it does when it records, the messages go through a loop
// of its own, which asks this hook first. So the keys work meanwhile: Tab, Alt with a letter.
class KeysWhileItWaits {
 public:
  explicit KeysWhileItWaits(HWND window)
      : hook_(SetWindowsHookExW(WH_MSGFILTER, Procedure, nullptr, GetCurrentThreadId())) {
    window_ = window;
  }
  ~KeysWhileItWaits() { UnhookWindowsHookEx(hook_); }
  KeysWhileItWaits(const KeysWhileItWaits&) = delete;
  KeysWhileItWaits& operator=(const KeysWhileItWaits&) = delete;

 private:
  static LRESULT CALLBACK Procedure(int code, WPARAM wide, LPARAM longer) {
    if (code == MSGF_USER && IsDialogMessageW(window_, reinterpret_cast<MSG*>(longer))) return 1;
    return CallNextHookEx(nullptr, code, wide, longer);
  }

  static inline HWND window_ = nullptr;  // a hook is told nothing else
  HHOOK hook_;
};

// Until the window is closed.
void Run_Messages(HWND window) {
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (IsDialogMessageW(window, &message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

int Run(Options options) {
  MainWindow main(options[L"--language"], options[L"--engine"]);
  const KeysWhileItWaits keys(main.Window());
  ShowWindow(main.Window(), SW_SHOWNORMAL);
  UpdateWindow(main.Window());
  if (const std::wstring& wave = options[L"--wave"]; !wave.empty()) {
    int place = 0;
    for (const RankedWord& word : main.Recognise(wave)) {
      Print(std::to_wstring(++place) + L"  " + word.text + L"  " +
            std::to_wstring(word.percentage) + L" %\n");
    }
    if (place == 0) Print(L"(no word)\n");
  }
  if (const std::wstring& picture = options[L"--screenshot"]; !picture.empty()) {
    Run_Waiting_Messages(500);
    return Save_Picture(main.Window(), picture) ? 0 : 1;
  }
  Run_Messages(main.Window());
  return 0;
}

}  // namespace
}  // namespace example

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  OleInitialize(nullptr);
  int status = 1;
  try {
    status = example::Run(example::Command_Line());
  } catch (const example::CallFailed& failure) {
    example::Complain(failure.description);
  }
  OleUninitialize();
  return status;
}
