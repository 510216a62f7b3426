// Takes pictures of the control as a container shows it: pictures FOLDER
//
// face_run.bmp and face_design.bmp, and page_1.bmp to page_8.bmp out of the system's property
// frame.
#include "platform/windows/windows_api.hpp"
//
#include <commctrl.h>
#include <prsht.h>
#include <shellapi.h>

#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <thread>

#include "examples/control/window_picture.hpp"
#include "tests/hosts/atl_host.hpp"
#include "tests/hosts/small_container.hpp"

namespace quillspeech::tests {
namespace {

using activex::ComPtr;

void Save(HWND window, const std::wstring& file) {
  if (!example::Save_Picture(window, file)) throw std::runtime_error("a picture cannot be written");
}

// A frame whose inside has the size of the control, with a little around it.
HWND Make_Frame() {
  WNDCLASSW kind = {};
  kind.lpfnWndProc = DefWindowProcW;
  kind.hInstance = GetModuleHandleW(nullptr);
  kind.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  kind.lpszClassName = L"QuillspeechPictures";
  RegisterClassW(&kind);
  HDC screen = GetDC(nullptr);
  const int dots = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  HWND frame = CreateWindowExW(0, kind.lpszClassName, L"Frame", WS_POPUP | WS_CLIPCHILDREN, 40, 40,
                               MulDiv(3336, dots, 1440), MulDiv(1884, dots, 1440), nullptr, nullptr,
                               kind.hInstance, nullptr);
  ShowWindow(frame, SW_SHOWNORMAL);
  return frame;
}

void Picture_Face(HWND frame, bool user_mode, const std::wstring& file) {
  const SmallContainer container(frame, user_mode);
  Run_Messages(400);
  Save(frame, file);
}

BOOL CALLBACK Note_Dialog(HWND window, LPARAM found) {
  wchar_t kind[32] = L"";
  GetClassNameW(window, kind, 32);
  if (std::wstring(kind) == L"#32770" && IsWindowVisible(window)) {
    *reinterpret_cast<HWND*>(found) = window;
  }
  return TRUE;
}

// The dialog of that thread, once it is shown; null when it does not come.
HWND Dialog_Of(DWORD thread) {
  HWND dialog = nullptr;
  for (int tries = 0; tries < 200 && !dialog; ++tries) {
    Sleep(50);
    EnumThreadWindows(thread, Note_Dialog, reinterpret_cast<LPARAM>(&dialog));
  }
  return dialog;
}

// Turns the pages of the frame while it is shown modally.
void Turn_Pages(DWORD thread, unsigned pages, const std::wstring& folder) {
  HWND sheet = Dialog_Of(thread);
  if (!sheet) return;
  for (unsigned page = 0; page < pages; ++page) {
    SendMessageW(sheet, PSM_SETCURSEL, page, 0);
    Sleep(400);
    example::Save_Picture(sheet, folder + L"\\page_" + std::to_wstring(page + 1) + L".bmp");
  }
  PostMessageW(sheet, PSM_PRESSBUTTON, PSBTN_CANCEL, 0);
}

void Picture_Pages(HWND frame, const std::wstring& folder) {
  const SmallContainer container(frame, false);
  const auto specify = container.Control().As<ISpecifyPropertyPages>(IID_ISpecifyPropertyPages);
  CAUUID pages = {};
  if (!specify || FAILED(specify->GetPages(&pages))) throw std::runtime_error("no property pages");
  std::thread person(Turn_Pages, GetCurrentThreadId(), pages.cElems, folder);
  IUnknown* selected = container.Control().Get();
  const HRESULT shown = OleCreatePropertyFrame(frame, 10, 10, L"Quillspeech", 1, &selected,
                                               pages.cElems, pages.pElems, 0, 0, nullptr);
  person.join();
  CoTaskMemFree(pages.pElems);
  if (FAILED(shown)) throw std::runtime_error("the property frame does not come up");
}

void Run(const std::wstring& folder) {
  HWND frame = Make_Frame();
  Picture_Face(frame, true, folder + L"\\face_run.bmp");
  Picture_Face(frame, false, folder + L"\\face_design.bmp");
  Picture_Pages(frame, folder);
  DestroyWindow(frame);
}

}  // namespace
}  // namespace quillspeech::tests

int main() {
  int count = 0;
  wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
  if (count != 2) return 2;
  OleInitialize(nullptr);
  int status = 0;
  try {
    quillspeech::tests::Run(arguments[1]);
  } catch (const std::exception& failure) {
    std::printf("failed: %s\n", failure.what());
    status = 1;
  }
  OleUninitialize();
  return status;
}
