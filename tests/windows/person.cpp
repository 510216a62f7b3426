#include "tests/windows/person.hpp"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <stdexcept>

#include "editors/language_editor_form.hpp"
#include "platform/windows/text.hpp"
#include "presentation/help_window_layout.hpp"
#include "tests/windows/person_sight.hpp"

namespace quillspeech::tests {
namespace {

constexpr UINT Settled = WM_APP + 1;

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

}  // namespace

Person::Person() {
  marker_.at_message = [this](UINT message) {
    if (message == Settled) SetEvent(settled_);
  };
}

Person::~Person() { CloseHandle(settled_); }

HWND Person::Front() const {
  for (const HWND window : Windows_Of(thread_)) {
    const bool takes_input = IsWindowVisible(window) && IsWindowEnabled(window);
    if (takes_input && (Is_Form(window) || Is_Dialog(window))) return window;
  }
  return nullptr;
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
  for (const wchar_t letter : windows::Wide(text)) PostMessageW(field, WM_CHAR, letter, 1);
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
