#include "tests/hosts/onlooker.hpp"

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include "platform/windows/form_picture.hpp"
#include "platform/windows/text.hpp"
#include "tests/hosts/host_thread.hpp"
#include "tests/windows/form_pictures.hpp"
#include "tests/windows/thread_windows.hpp"

namespace quillspeech::tests {
namespace {

constexpr wchar_t Status_Caption[] = L"Quillspeech";
constexpr wchar_t Graph_Caption[] =
    L"Quillspeech\u00AEAudio Graph Version 1.2.400\u00A9"
    L"Corvane Studio Works";

bool Is_Form(HWND window) { return Class_Of(window).starts_with(L"Quillspeech.Form"); }

struct Counts {
  int status_bars = 0;
  int graphs = 0;
};

Counts& So_Far() {
  static Counts counts;
  return counts;
}

LRESULT CALLBACK Count_Window(int code, WPARAM wide, LPARAM longer) {
  const auto window = reinterpret_cast<HWND>(wide);
  if (code == HCBT_CREATEWND && Is_Form(window)) {
    const CREATESTRUCTW& made = *reinterpret_cast<const CBT_CREATEWNDW*>(longer)->lpcs;
    const std::wstring caption = made.lpszName ? made.lpszName : L"";
    const bool is_top = (made.style & WS_CHILD) == 0;
    if (is_top && caption == Status_Caption) ++So_Far().status_bars;
    if (is_top && caption == Graph_Caption) ++So_Far().graphs;
  }
  return CallNextHookEx(nullptr, code, wide, longer);
}

RECT Inside(HWND window) {
  RECT inside{};
  GetClientRect(window, &inside);
  return inside;
}

// What the window shows now. One that has gone shows a point.
class ShownBy : public Picture {
 public:
  explicit ShownBy(HWND window)
      : Picture(std::max<int>(1, Inside(window).right), std::max<int>(1, Inside(window).bottom)) {
    Take_Picture(window, *this);
  }
};

bool Are_Same(const Picture& one, const Picture& other) {
  for (int y = 0; y < one.Height(); ++y) {
    for (int x = 0; x < one.Width(); ++x) {
      if (one.At(x, y) != other.At(x, y)) return false;
    }
  }
  return true;
}

}  // namespace

WindowCount::WindowCount()
    : hook_(SetWindowsHookExW(WH_CBT, Count_Window, nullptr, GetCurrentThreadId())) {
  if (!hook_) throw std::runtime_error("windows cannot be counted");
  So_Far() = {};
}

WindowCount::~WindowCount() { UnhookWindowsHookEx(hook_); }

int WindowCount::Status_Bars() { return So_Far().status_bars; }
int WindowCount::Graphs() { return So_Far().graphs; }

Onlooker::Onlooker(DWORD thread, std::wstring folder)
    : thread_(thread),
      folder_(std::move(folder)),
      fonts_(windows::Scale_At(windows::Screen_Dots_Per_Inch())) {}

HWND Onlooker::Find(const wchar_t* caption) const {
  for (const HWND window : Windows_Of(thread_)) {
    wchar_t shown[256] = L"";
    InternalGetWindowText(window, shown, 256);
    if (IsWindowVisible(window) && Is_Form(window) && std::wstring(shown) == caption) return window;
  }
  return nullptr;
}

HWND Onlooker::Status_Bar() const { return Find(Status_Caption); }
HWND Onlooker::Graph() const { return Find(Graph_Caption); }

// The first of its parts is the one on view.
bool Onlooker::Status_Shows(const FormDrawing& picture) {
  const HWND window = GetWindow(Status_Bar(), GW_CHILD);
  if (!window) return false;
  const ShownBy shown(window);
  Picture drawn(shown.Width(), shown.Height());
  drawn.Clear(GetSysColor(COLOR_BTNFACE));
  windows::Paint_Drawing(picture, drawn.Device(), {0, 0, drawn.Width(), drawn.Height()}, fonts_);
  return Are_Same(shown, drawn);
}

bool Onlooker::Graph_Shows_A_Word() const {
  const HWND window = Graph();
  if (!window) return false;
  const ShownBy shown(window);
  constexpr int Enough = 100;  // points
  return std::ranges::all_of(
      std::initializer_list<COLORREF>{RGB(255, 0, 0), RGB(0, 0, 0), RGB(255, 255, 255)},
      [&](COLORREF colour) { return shown.Count(colour) >= Enough; });
}

bool Onlooker::Comes(const std::function<bool()>& condition, DWORD milliseconds) {
  const DWORD begun = GetTickCount();
  for (;;) {
    if (condition()) return true;
    if (GetTickCount() - begun > milliseconds) return false;
    Sleep(2);
  }
}

void Onlooker::Expect(const std::wstring& what, const std::function<bool()>& condition,
                      const std::wstring& picture) const {
  if (!Comes(condition)) throw std::runtime_error("there never was " + windows::Narrow(what));
  if (!picture.empty() && !folder_.empty()) Save_Screen(picture);
  Tell(L"seen", what);
}

void Onlooker::Click_Picture() const {
  const HWND window = GetWindow(Status_Bar(), GW_CHILD);
  PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 20));
  PostMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(20, 20));
}

void Onlooker::Close_Graph() const { PostMessageW(Graph(), WM_SYSCOMMAND, SC_CLOSE, 0); }

// That part of it where the thread's windows stand.
void Onlooker::Save_Screen(const std::wstring& name) const {
  RECT area{};
  for (const HWND window : Windows_Of(thread_)) {
    RECT place{};
    GetWindowRect(window, &place);
    if (IsWindowVisible(window)) UnionRect(&area, &area, &place);
  }
  Picture picture(windows::Width_Of(area), windows::Height_Of(area));
  const HDC screen = GetDC(nullptr);
  BitBlt(picture.Device(), 0, 0, picture.Width(), picture.Height(), screen, area.left, area.top,
         SRCCOPY);
  ReleaseDC(nullptr, screen);
  picture.Save(windows::Narrow(folder_ + L"\\" + name + L".bmp"));
}

}  // namespace quillspeech::tests
