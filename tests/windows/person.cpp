#include "tests/windows/person.hpp"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>

#include "editors/language_editor_form.hpp"
#include "platform/windows/text.hpp"
#include "presentation/help_window_layout.hpp"

namespace quillspeech::tests {
namespace {

using windows::Narrow;
using windows::Wide;

constexpr DWORD Longest_Wait = 10'000;
constexpr UINT Settled = WM_APP + 1;
constexpr int File_Name_Field = 0x480;  // of the system's file dialog
constexpr int File_Name_Combo = 0x47C;
constexpr int File_Kind_Combo = 0x470;

// Until it gives something, looked at every few ms.
template <class Look>
auto Await(Look&& look) {
  const DWORD begun = GetTickCount();
  for (;;) {
    const auto found = look();
    if (found || GetTickCount() - begun > Longest_Wait) return found;
    Sleep(2);
  }
}

LRESULT Ask(HWND window, UINT message, WPARAM wide = 0, LPARAM longer = 0) {
  DWORD_PTR answer = 0;
  SendMessageTimeoutW(window, message, wide, longer, SMTO_NORMAL, Longest_Wait, &answer);
  return static_cast<LRESULT>(answer);
}

std::string Shown(HWND window) {
  std::wstring text(static_cast<std::size_t>(Ask(window, WM_GETTEXTLENGTH)) + 1, L'\0');
  const LRESULT length =
      Ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(length));
  return Narrow(text);
}

std::string Class_Of(HWND window) {
  wchar_t name[64] = {};
  GetClassNameW(window, name, 64);
  return Narrow(name);
}

bool Is_Form(HWND window) { return Class_Of(window).starts_with("Quillspeech.Form"); }
bool Is_Dialog(HWND window) { return Class_Of(window) == "#32770"; }

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

HWND Inside(HWND parent, const char* kind) {
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

[[noreturn]] void Fail_At(const std::string& wanted, HWND front) {
  throw std::runtime_error("expected " + wanted + ", and in front is " + Told_By(front));
}

// Each window as it is laid out: its parts lie in their parents in the order of the layout.
std::unique_ptr<Form> Layout_Of(const std::string& window) {
  if (window == "Database") return Make_Database_Form();
  if (window == "FeaturesDisplay") return Make_FeaturesDisplay_Form();
  auto form = std::make_unique<Form>(window, "", FormSize{});
  if (window == "Splash") Lay_Out_Splash(*form);
  if (window == "Help") Lay_Out_Help(*form);
  return form;
}

HWND Part_Of(HWND window, const Form& layout, const std::string& name) {
  const FormControl& part = layout[name];
  const HWND parent = part.parent.empty() ? window : Part_Of(window, layout, part.parent);
  std::size_t place = 0;
  for (const FormControl& other : layout.Controls()) {
    if (other.name == name) break;
    if (other.parent == part.parent) ++place;
  }
  return Children(parent).at(place);
}

// Windows are told from each other by how many parts they hold.
bool Fits(HWND window, const Form& layout) {
  const auto lies_in_it = [](const FormControl& part) { return part.parent.empty(); };
  return Is_Form(window) && std::ranges::count_if(layout.Controls(), lies_in_it) ==
                                static_cast<std::ptrdiff_t>(Children(window).size());
}

HWND Edit_Part(HWND window) {
  if (Class_Of(window) != "ComboBox") return window;
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  GetComboBoxInfo(window, &parts);
  return parts.hwndItem;
}

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
    if (Narrow(text) != caption) continue;
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

Person::Person() {
  marker_.at_message = [this](UINT message) {
    if (message == Settled) SetEvent(settled_);
  };
}

Person::~Person() { CloseHandle(settled_); }

HWND Person::Front() const {
  HWND front = nullptr;
  EnumThreadWindows(
      thread_,
      [](HWND window, LPARAM found) WINAPI -> BOOL {
        const bool takes_input = IsWindowVisible(window) && IsWindowEnabled(window);
        if (!takes_input || !(Is_Form(window) || Is_Dialog(window))) return TRUE;
        *reinterpret_cast<HWND*>(found) = window;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&front));
  return front;
}

// A key that becomes a character does so behind the first mark.
void Person::Settle() {
  for (int i = 0; i < 2; ++i) {
    PostMessageW(marker_.Handle(), Settled, 0, 0);
    if (WaitForSingleObject(settled_, Longest_Wait) != WAIT_OBJECT_0) Fail_At("an end", Front());
  }
}

HWND Person::Await_Window(const std::string& name) const {
  const auto layout = Layout_Of(name);
  const HWND window = Await([&]() -> HWND {
    const HWND front = Front();
    return front && (Is_Dialog(front) || Fits(front, *layout)) ? front : nullptr;
  });
  if (!window || Is_Dialog(window)) Fail_At(name, Front());
  return window;
}

HWND Person::Await_Box(SessionBox::Kind kind) const {
  const HWND box = Await([&]() -> HWND {
    const HWND front = Front();
    if (!front) return nullptr;
    const bool is_input = Is_Form(front) && Children(front).size() == 4;
    return (kind == SessionBox::Kind::Input ? is_input : Is_Dialog(front)) ? front : nullptr;
  });
  if (!box) Fail_At("a box", Front());
  return box;
}

HWND Person::Part(const EditorStep& step) const {
  const HWND window = Await_Window(step.window);
  return step.part.empty() ? window : Part_Of(window, *Layout_Of(step.window), step.part);
}

// Where a person can act.
HWND Person::Field(const EditorStep& step) const {
  const HWND part = Part(step);
  if (!IsWindowVisible(part) || !IsWindowEnabled(part)) Fail_At(step.On() + " to be there", part);
  return part;
}

void Person::Do(const std::vector<EditorStep>& steps) {
  for (const EditorStep& step : steps) Do(step);
}

void Person::Do(const EditorStep& step) {
  try {
    if (step.act == EditorStep::Act::Look) {
      const std::string seen = Seen(step);
      if (seen != step.text) throw std::runtime_error("shows \"" + seen + "\"");
      return;
    }
    Act(step);
    for (const SessionBox& box : step.boxes) Answer(box);
    Settle();
  } catch (const std::exception& trouble) {
    throw std::runtime_error(step.On() + " \"" + step.text + "\": " + trouble.what());
  }
}

std::string Person::Seen(const EditorStep& step) { return Shown(Part(step)); }

void Person::Act(const EditorStep& step) {
  using Act = EditorStep::Act;
  switch (step.act) {
    case Act::Click:
      return Click(Field(step));
    case Act::Choose:
      return Choose(*Layout_Of(step.window), step.part);
    case Act::Type: {
      const HWND field = Edit_Part(Field(step));
      Click(field);
      PostMessageW(field, EM_SETSEL, 0, -1);
      return Type(field, step.text);
    }
    case Act::Select:
      return Select(Field(step), step.index);
    case Act::Enter: {
      const HWND field = Edit_Part(Field(step));
      Click(field);
      return Press_Key(field, VK_RETURN);
    }
    case Act::Close:
      PostMessageW(Await_Window(step.window), WM_CLOSE, 0, 0);
      return;
    case Act::Look:
      return;
  }
}

void Person::Click(HWND window) const {
  PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
  PostMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
}

void Person::Press_Key(HWND window, WPARAM key) const {
  PostMessageW(window, WM_KEYDOWN, key, 1);
  PostMessageW(window, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
}

// Over what is selected. An empty text is one stroke of Backspace.
void Person::Type(HWND field, const std::string& text) const {
  if (text.empty()) PostMessageW(field, WM_CHAR, VK_BACK, 1);
  for (const wchar_t letter : Wide(text)) PostMessageW(field, WM_CHAR, letter, 1);
}

// By the arrow keys, from one item to the next.
void Person::Select(HWND combo, int index) {
  const auto now = static_cast<int>(Ask(combo, CB_GETCURSEL));
  const HWND field = Edit_Part(combo);
  Click(field);
  for (int i = now; i < index; ++i) Press_Key(field, VK_DOWN);
  for (int i = now; i > index; --i) Press_Key(field, VK_UP);
  Settle();
  const LRESULT chosen = Ask(combo, CB_GETCURSEL);
  if (chosen != index) {
    throw std::runtime_error("item " + std::to_string(chosen) + " is selected instead of " +
                             std::to_string(index));
  }
}

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

void Person::Press_Button(HWND box, const std::string& caption) const {
  for (const HWND part : All_Inside(box)) {
    std::string shown = Shown(part);
    std::erase(shown, '&');
    if (Class_Of(part) == "Button" && shown == caption && IsWindowVisible(part)) return Click(part);
  }
  Fail_At("a button " + caption, box);
}

SessionBox Person::Box_Seen(HWND box, const SessionBox& wanted) const {
  SessionBox seen = wanted;
  seen.title = Shown(box);
  if (wanted.kind == SessionBox::Kind::File) {
    seen.text = Shown(GetDlgItem(box, File_Kind_Combo));
    return seen;
  }
  const HWND label = [&]() -> HWND {
    for (const HWND part : All_Inside(box)) {
      if (Class_Of(part) == "Static" && !Shown(part).empty()) return part;
    }
    return nullptr;
  }();
  seen.text = label ? Shown(label) : "";
  if (wanted.kind == SessionBox::Kind::Input) seen.proposed = Shown(Inside(box, "Edit"));
  return seen;
}

void Person::Type_And_Press(HWND box, HWND field, const SessionBox& wanted, bool replaces) {
  if (!wanted.answer) return Press_Button(box, "Cancel");
  if (replaces) PostMessageW(field, EM_SETSEL, 0, -1);
  Type(field, *wanted.answer);
  Settle();
  if (Shown(field) != *wanted.answer) {
    throw std::runtime_error("\"" + Shown(field) + "\" stands in the box");
  }
  Press_Button(box, wanted.kind == SessionBox::Kind::File ? "Open" : "OK");
}

// What an input box proposes is selected, so that typing replaces it.
void Person::Answer(const SessionBox& wanted) {
  const HWND box = Await_Box(wanted.kind);
  const std::string seen = Text_Of(Box_Seen(box, wanted));
  if (seen != Text_Of(wanted)) {
    throw std::runtime_error("expected " + Text_Of(wanted) + ", and there is " + seen);
  }
  if (wanted.kind == SessionBox::Kind::Input) {
    Type_And_Press(box, Inside(box, "Edit"), wanted, false);
  } else if (wanted.kind == SessionBox::Kind::File) {
    HWND field = GetDlgItem(box, File_Name_Field);
    if (!field) field = Inside(GetDlgItem(box, File_Name_Combo), "Edit");
    Type_And_Press(box, field, wanted, true);
  } else {
    Press_Button(box, *wanted.answer);
  }
  if (!Await([&] { return !IsWindowVisible(box); })) Fail_At("the box to go", box);
}

void Person::Leave() {
  for (int i = 0; i < 200 && Front(); ++i) {
    const HWND front = Front();
    PostMessageW(front, WM_CLOSE, 0, 0);
    for (const WPARAM button : {IDOK, IDNO, IDCANCEL}) {
      if (Is_Dialog(front)) PostMessageW(front, WM_COMMAND, button, 0);
    }
    Sleep(50);
  }
}

}  // namespace quillspeech::tests
