#include "platform/windows/form_classes.hpp"

#include <cstdint>
#include <system_error>

namespace quillspeech::windows {
namespace {

const char Anything_Of_Ours = 0;

}  // namespace

HINSTANCE This_Module() {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&Anything_Of_Ours), &module);
  return module;
}

WindowClass::WindowClass(const wchar_t* name, WNDPROC procedure, UINT style)
    : name_(std::wstring(name) + L"." + std::to_wstring(reinterpret_cast<std::uintptr_t>(this))) {
  WNDCLASSEXW description{};
  description.cbSize = sizeof description;
  description.style = style;
  description.lpfnWndProc = procedure;
  description.hInstance = This_Module();
  // IDC_ARROW, which is a narrow name where UNICODE is not defined.
  description.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
  description.lpszClassName = name_.c_str();
  if (RegisterClassExW(&description) == 0) {
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
  }
}

WindowClass::~WindowClass() { UnregisterClassW(name_.c_str(), This_Module()); }

}  // namespace quillspeech::windows
