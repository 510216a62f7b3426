#include "platform/windows/form_menus.hpp"

#include <algorithm>

#include "platform/windows/text.hpp"

namespace quillspeech::windows {
namespace {

UINT Command_Of(const Form& form, const FormMenu& menu) {
  return First_Menu_Command + static_cast<UINT>(&menu - form.Menus().data());
}

bool Holds_Others(const Form& form, const FormMenu& menu) {
  return std::ranges::any_of(form.Menus(),
                             [&](const FormMenu& other) { return other.parent == menu.name; });
}

// Menus that open have a number too, so that each is found by it.
void Append(HMENU bar, const FormMenu& menu, UINT command, HMENU opens) {
  const std::wstring caption = Wide(menu.caption);
  MENUITEMINFOW item{};
  item.cbSize = sizeof item;
  item.fMask = MIIM_ID | MIIM_FTYPE | MIIM_STATE;
  item.wID = command;
  item.fType = menu.is_line ? MFT_SEPARATOR : MFT_STRING;
  item.fState = menu.enabled ? MFS_ENABLED : MFS_GRAYED;
  if (!menu.is_line) {
    item.fMask |= MIIM_STRING;
    item.dwTypeData = const_cast<wchar_t*>(caption.c_str());
  }
  if (opens) {
    item.fMask |= MIIM_SUBMENU;
    item.hSubMenu = opens;
  }
  InsertMenuItemW(bar, static_cast<UINT>(GetMenuItemCount(bar)), TRUE, &item);
}

}  // namespace

FormMenus::FormMenus(const Form& form, HWND window) : form_(form), window_(window) {
  if (!form_.Menus().empty()) Make_Bar();
}

void FormMenus::Make_Bar() {
  const HMENU old = GetMenu(window_);
  const HMENU bar = CreateMenu();
  Append_Entries_Of("", bar);
  SetMenu(window_, bar);
  if (old) DestroyMenu(old);
}

void FormMenus::Append_Entries_Of(const std::string& parent, HMENU menu) const {
  for (const FormMenu& entry : form_.Menus()) {
    if (entry.parent != parent || !entry.visible) continue;
    HMENU opens = nullptr;
    if (Holds_Others(form_, entry)) {
      opens = CreatePopupMenu();
      Append_Entries_Of(entry.name, opens);
    }
    Append(menu, entry, Command_Of(form_, entry), opens);
  }
}

// What is not there cannot be told to come back: the bar is made anew.
void FormMenus::Changed(const FormMenu& menu, FormChange change) {
  if (change == FormChange::Visible) return Make_Bar();
  if (menu.visible) Show_State(menu);
}

void FormMenus::Show_State(const FormMenu& menu) const {
  const HMENU bar = GetMenu(window_);
  const std::wstring caption = Wide(menu.caption);
  MENUITEMINFOW item{};
  item.cbSize = sizeof item;
  item.fMask = MIIM_STATE | MIIM_STRING;
  item.fState = menu.enabled ? MFS_ENABLED : MFS_GRAYED;
  item.dwTypeData = const_cast<wchar_t*>(caption.c_str());
  SetMenuItemInfoW(bar, Command_Of(form_, menu), FALSE, &item);
  if (menu.parent.empty()) DrawMenuBar(window_);
}

std::optional<std::string> FormMenus::Entry_Of(UINT command) const {
  const std::size_t place = command - First_Menu_Command;
  if (command < First_Menu_Command || place >= form_.Menus().size()) return std::nullopt;
  return form_.Menus()[place].name;
}

}  // namespace quillspeech::windows
