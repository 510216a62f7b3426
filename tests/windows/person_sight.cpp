#include "tests/windows/person_sight.hpp"

#include <cstddef>
#include <stdexcept>

#include "platform/windows/text.hpp"

namespace quillspeech::tests {

LRESULT Ask(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  DWORD_PTR answer = 0;
  SendMessageTimeoutW(window, message, wide, longer, SMTO_NORMAL, Longest_Wait, &answer);
  return static_cast<LRESULT>(answer);
}

std::string Shown(HWND window) {
  std::wstring text(static_cast<std::size_t>(Ask(window, WM_GETTEXTLENGTH)) + 1, L'\0');
  const LRESULT length =
      Ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(length));
  return windows::Narrow(text);
}

bool Is_Form(HWND window) { return Class_Of(window).starts_with(L"Quillspeech.Form"); }

std::vector<HWND> Children(HWND parent) {
  std::vector<HWND> children;
  for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    children.push_back(child);
  }
  return children;
}

std::vector<HWND> All_Inside(HWND parent) {
  std::vector<HWND> all;
  for (const HWND child : Children(parent)) {
    all.push_back(child);
    for (const HWND inner : All_Inside(child)) all.push_back(inner);
  }
  return all;
}

HWND Inside(HWND parent, const std::wstring& kind) {
  for (const HWND child : All_Inside(parent)) {
    if (Class_Of(child) == kind) return child;
  }
  return nullptr;
}

std::string Told_By(HWND window) {
  if (!window) return "nothing";
  std::string told = "\"" + Shown(window) + "\"";
  if (!Is_Dialog(window)) return told;
  for (const HWND part : All_Inside(window)) told += " | " + Shown(part);
  return told;
}

void Fail_At(const std::string& wanted, HWND front) {
  throw std::runtime_error("expected " + wanted + ", and in front is " + Told_By(front));
}

HWND Edit_Part(HWND window) {
  if (Class_Of(window) != L"ComboBox") return window;
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  GetComboBoxInfo(window, &parts);
  return parts.hwndItem;
}

}  // namespace quillspeech::tests
