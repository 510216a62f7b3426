// A person before the screen of a design environment, who looks at the windows StatusBar and Graph
// of the control.
#pragma once

#include <functional>
#include <string>

#include "platform/form_drawing.hpp"
#include "platform/windows/form_fonts.hpp"
#include "platform/windows/windows_api.hpp"

namespace quillspeech::tests {

// How often each of the two has been made on this thread since it was, however briefly it stood.
// One at a time.
class WindowCount {
 public:
  WindowCount();
  ~WindowCount();
  WindowCount(const WindowCount&) = delete;
  WindowCount& operator=(const WindowCount&) = delete;

  static int Status_Bars();
  static int Graphs();

 private:
  HHOOK hook_;
};

// Looks from another thread than that of the windows, every few ms.
class Onlooker {
 public:
  // At the windows of that thread. Pictures of the screen go into the folder; empty: none are
  // taken.
  Onlooker(DWORD thread, std::wstring folder);

  HWND Status_Bar() const;  // null when it is not to be seen, as below
  HWND Graph() const;
  // Each point of the picture in the StatusBar is as it is drawn.
  bool Status_Shows(const FormDrawing& picture);
  // The word's box, the wave and the ground: red, black and white.
  bool Graph_Shows_A_Word() const;

  // False when it does not come to be within that many ms.
  static bool Comes(const std::function<bool()>& condition, DWORD milliseconds = 20'000);
  // Throws a std::runtime_error instead. What comes is told, and goes into a picture of that name.
  void Expect(const std::wstring& what, const std::function<bool()>& condition,
              const std::wstring& picture = L"") const;

  // By messages of the mouse.
  void Click_Picture() const;
  // By its cross.
  void Close_Graph() const;

 private:
  HWND Find(const wchar_t* caption) const;
  void Save_Screen(const std::wstring& name) const;

  DWORD thread_;
  std::wstring folder_;
  windows::FormFonts fonts_;
};

}  // namespace quillspeech::tests
