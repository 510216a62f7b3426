#include "tests/hosts/atl_host.hpp"

#include <chrono>
#include <stdexcept>
#include <utility>

namespace quillspeech::tests {
namespace {

template <class Function>
Function* Find(HMODULE module, const char* name) {
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

HWND Make_Frame() {
  WNDCLASSW kind = {};
  kind.lpfnWndProc = DefWindowProcW;
  kind.hInstance = GetModuleHandleW(nullptr);
  kind.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
  kind.lpszClassName = L"QuillspeechTestFrame";
  RegisterClassW(&kind);
  HWND frame = CreateWindowExW(0, kind.lpszClassName, L"Frame", WS_POPUP, 40, 40, 480, 320, nullptr,
                               nullptr, kind.hInstance, nullptr);
  ShowWindow(frame, SW_SHOWNOACTIVATE);  // an active one goes slowly where no window manager is
  return frame;
}

BOOL CALLBACK Close_Unless_It(HWND window, LPARAM but) {
  if (reinterpret_cast<HWND>(but) != window && IsWindowVisible(window)) {
    PostMessageW(window, WM_CLOSE, 0, 0);
  }
  return TRUE;
}

}  // namespace

PersonWhoCloses::PersonWhoCloses(HWND but)
    : thread_([this, but, thread = GetCurrentThreadId()] {
        while (!done_) {
          EnumThreadWindows(thread, Close_Unless_It, reinterpret_cast<LPARAM>(but));
          std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
      }) {}

PersonWhoCloses::~PersonWhoCloses() {
  done_ = true;
  thread_.join();
}

AtlHost::AtlHost(const std::string& version) {
  HMODULE atl = LoadLibraryA(("atl" + version + ".dll").c_str());
  auto* const init = Find<BOOL WINAPI()>(atl, "AtlAxWinInit");
  auto* const get_control = Find<HRESULT WINAPI(HWND, IUnknown**)>(atl, "AtlAxGetControl");
  if (!init || !get_control) throw std::runtime_error("no atl" + version + ".dll");
  init();  // fails when it was called before

  frame_ = Make_Frame();
  {
    const PersonWhoCloses person(frame_);
    site_ =
        CreateWindowExA(0, ("AtlAxWin" + version).c_str(), "QuillspeechX.Quillspeech",
                        WS_CHILD | WS_VISIBLE, 16, 16, 300, 200, frame_, nullptr, nullptr, nullptr);
  }
  activex::ComPtr<IUnknown> control;
  if (!site_ || FAILED(get_control(site_, control.Receive()))) {
    throw std::runtime_error("AtlAxWin" + version + " holds no control");
  }
  control_ = control.As<IDispatch>(IID_IDispatch);
}

AtlHost::~AtlHost() { Close(); }

HWND AtlHost::Control_Window() const {
  const auto object = control_.As<IOleInPlaceObject>(IID_IOleInPlaceObject);
  HWND window = nullptr;
  return object && SUCCEEDED(object->GetWindow(&window)) ? window : nullptr;
}

void AtlHost::Close() {
  control_ = {};
  if (HWND frame = std::exchange(frame_, nullptr)) DestroyWindow(frame);
}

void Handle_Messages() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void Run_Messages(DWORD milliseconds) {
  const DWORD begun = GetTickCount();
  for (DWORD passed = 0; passed < milliseconds; passed = GetTickCount() - begun) {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, milliseconds - passed, QS_ALLINPUT);
    Handle_Messages();
  }
}

}  // namespace quillspeech::tests
