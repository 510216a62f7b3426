// A person at boxes and dialogs.
#include <algorithm>
#include <stdexcept>

#include "tests/windows/person.hpp"
#include "tests/windows/person_sight.hpp"

namespace quillspeech::tests {
namespace {

constexpr int File_Name_Field = 0x480;  // of the system's file dialog
constexpr int File_Name_Combo = 0x47C;
constexpr int File_Kind_Combo = 0x470;

}  // namespace

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

void Person::Press_Button(HWND box, const std::string& caption) const {
  for (const HWND part : All_Inside(box)) {
    std::string shown = Shown(part);
    std::erase(shown, '&');
    if (Class_Of(part) == L"Button" && shown == caption && IsWindowVisible(part))
      return Click(part);
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
      if (Class_Of(part) == L"Static" && !Shown(part).empty()) return part;
    }
    return nullptr;
  }();
  seen.text = label ? Shown(label) : "";
  if (wanted.kind == SessionBox::Kind::Input) seen.proposed = Shown(Inside(box, L"Edit"));
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
    Type_And_Press(box, Inside(box, L"Edit"), wanted, false);
  } else if (wanted.kind == SessionBox::Kind::File) {
    HWND field = GetDlgItem(box, File_Name_Field);
    if (!field) field = Inside(GetDlgItem(box, File_Name_Combo), L"Edit");
    Type_And_Press(box, field, wanted, true);
  } else {
    Press_Button(box, *wanted.answer);
  }
  if (!Await([&] { return !IsWindowVisible(box); })) Fail_At("the box to go", box);
}

}  // namespace quillspeech::tests
