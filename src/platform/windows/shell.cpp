#include "platform/windows/shell.hpp"

#include <array>

#include "platform/windows/text.hpp"
#include "platform/windows/windows_api.hpp"

#include <shellapi.h>  // after windows.h

namespace quillspeech::windows {

namespace {

// The mouse pointer while it stands.
class Hourglass {
 public:
  Hourglass() : old_(::SetCursor(::LoadCursorW(nullptr, MAKEINTRESOURCEW(Wait_Cursor)))) {}
  ~Hourglass() { ::SetCursor(old_); }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;

 private:
  static constexpr WORD Wait_Cursor = 32514;  // IDC_WAIT

  HCURSOR old_;
};

}  // namespace

bool Shell::Open(const std::string& document, std::intptr_t parent) {
  constexpr std::intptr_t Largest_Error = 32;
  const Hourglass hourglass;
  const HINSTANCE answer =
      ::ShellExecuteW(reinterpret_cast<HWND>(parent), L"open", Wide(document).c_str(), nullptr,
                      nullptr, SW_SHOWMAXIMIZED);
  return reinterpret_cast<std::intptr_t>(answer) > Largest_Error;
}

std::string Shell::Windows_Directory() const {
  std::array<wchar_t, 255> directory{};
  const UINT length = ::GetWindowsDirectoryW(directory.data(), directory.size());
  return length < directory.size() ? Narrow(directory.data()) : std::string();
}

}  // namespace quillspeech::windows
