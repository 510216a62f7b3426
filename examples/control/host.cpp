// A program that hosts the Quillspeech control:
//
//   control_host [--language F.SAY] [--engine F.EGN] [--wave F.wav] [--screenshot F.bmp]
//
// With a WAV file it recognises that and prints the ranked words. With a screenshot it saves a
// picture of its window and ends.
#include <windows.h>
//
#include <ole2.h>
#include <shellapi.h>

#include <map>
#include <string>

#include "main_window.hpp"
#include "window_picture.hpp"

namespace example {
namespace {

using Options = std::map<std::wstring, std::wstring>;

// "--name value" pairs.
Options Command_Line() {
  Options options;
  int count = 0;
  wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  for (int i = 1; i + 1 < count; i += 2) options[arguments[i]] = arguments[i + 1];
  LocalFree(arguments);
  return options;
}

void Print(const std::wstring& text) {
  const int length = static_cast<int>(text.size());
  std::string bytes(text.size() * 3, '\0');
  bytes.resize(static_cast<std::size_t>(
      WideCharToMultiByte(CP_UTF8, 0, text.c_str(), length, bytes.data(),
                          static_cast<int>(bytes.size()), nullptr, nullptr)));
  DWORD written = 0;
  WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), bytes.data(), static_cast<DWORD>(bytes.size()),
            &written, nullptr);
}

void Run_Waiting_Messages(DWORD milliseconds) {
  const DWORD end = GetTickCount() + milliseconds;
  for (DWORD now = GetTickCount(); now < end; now = GetTickCount()) {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, end - now, QS_ALLINPUT);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  }
}

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
    MessageBoxW(nullptr, failure.description.c_str(), L"Quillspeech example", MB_ICONERROR);
  }
  OleUninitialize();
  return status;
}
