// A person at the menus of a window.
#include <optional>
#include <stdexcept>

#include "platform/windows/text.hpp"
#include "tests/windows/person.hpp"
#include "tests/windows/person_sight.hpp"

namespace quillspeech::tests {
namespace {

struct MenuEntry {
  UINT command = 0;
  HMENU opens = nullptr;
};

// As the menu itself has it; nothing when it is not there or gray.
std::optional<MenuEntry> Entry_In(HMENU menu, const std::string& caption) {
  for (int i = 0; i < GetMenuItemCount(menu); ++i) {
    wchar_t text[256] = {};
    MENUITEMINFOW item{};
    item.cbSize = sizeof item;
    item.fMask = MIIM_ID | MIIM_STRING | MIIM_SUBMENU | MIIM_STATE;
    item.dwTypeData = text;
    item.cch = 256;
    GetMenuItemInfoW(menu, static_cast<UINT>(i), TRUE, &item);
    if (windows::Narrow(text) != caption) continue;
    if (item.fState & MFS_GRAYED) return std::nullopt;
    return MenuEntry{item.wID, item.hSubMenu};
  }
  return std::nullopt;
}

// By the captions of the menus that hold it, from the bar down.
std::optional<MenuEntry> Find_Entry(HMENU bar, const Form& layout, const FormMenu& menu) {
  if (menu.parent.empty()) return Entry_In(bar, menu.caption);
  const auto holder = Find_Entry(bar, layout, layout.Menu(menu.parent));
  return holder ? Entry_In(holder->opens, menu.caption) : std::nullopt;
}

}  // namespace

// The first menu of the bar opens by the keyboard, the others by the mouse, which sends a command.
void Person::Choose(const Form& layout, const std::string& name) {
  const HWND window = Await_Window(layout.Name());
  const FormMenu& menu = layout.Menu(name);
  const auto entry = Find_Entry(GetMenu(window), layout, menu);
  if (!entry) throw std::runtime_error("no such entry in the menus");
  if (menu.parent == layout.Menus().front().name && Mnemonic_Of(menu.caption)) {
    return Choose_By_Letter(menu);
  }
  PostMessageW(window, WM_COMMAND, entry->command, 0);
}

// F10 goes to the bar, the arrow opens its first menu, and the letter chooses.
void Person::Choose_By_Letter(const FormMenu& menu) {
  GUITHREADINFO state{};
  state.cbSize = sizeof state;
  GetGUIThreadInfo(thread_, &state);
  const HWND focus = state.hwndFocus ? state.hwndFocus : Front();
  PostMessageW(focus, WM_SYSKEYDOWN, VK_F10, 1);
  PostMessageW(focus, WM_SYSKEYUP, VK_F10, static_cast<LPARAM>(0xC0000001));
  PostMessageW(focus, WM_KEYDOWN, VK_DOWN, 1);
  PostMessageW(focus, WM_CHAR, static_cast<unsigned char>(*Mnemonic_Of(menu.caption)), 1);
}

}  // namespace quillspeech::tests
