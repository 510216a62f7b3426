// The window classes of forms, registered for the module that this code lies in.
#pragma once

#include <string>

#include "platform/windows/windows_api.hpp"

namespace quillspeech::windows {

// The module that this code was linked into: a program, or a library that may be unloaded.
HINSTANCE This_Module();

// Registered as long as this lives, under a name that nobody else uses.
class WindowClass {
 public:
  WindowClass(const wchar_t* name, WNDPROC procedure, UINT style = 0);
  ~WindowClass();
  WindowClass(const WindowClass&) = delete;
  WindowClass& operator=(const WindowClass&) = delete;

  const wchar_t* Name() const { return name_.c_str(); }

 private:
  std::wstring name_;
};

}  // namespace quillspeech::windows
