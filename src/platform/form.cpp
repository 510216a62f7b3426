#include "platform/form.hpp"

#include <algorithm>
#include <cctype>

#include "base/run_time_failure.hpp"

namespace quillspeech {

Form::Form(std::string name, std::string caption, FormSize size)
    : name_(std::move(name)), caption_(std::move(caption)), size_(size) {}

Form::~Form() {
  life_.reset();
  if (FormView* const view = std::exchange(view_, nullptr)) view->Form_Gone();
}

void Form::Add(FormControl control) { controls_.push_back(std::move(control)); }

// A line stays one whatever its caption becomes, and an entry that is given such a caption stays an
// entry.
void Form::Add_Menu(FormMenu menu) {
  menu.is_line = menu.caption == "-";
  menus_.push_back(std::move(menu));
}

void Form::On(std::string_view control, FormEvent event, Handler handler) {
  handlers_[{std::string(control), event}] = std::move(handler);
}

void Form::On_Key_Press(std::string_view control, KeyHandler handler) {
  key_handlers_[std::string(control)] = std::move(handler);
}

const FormControl* Form::Find(std::string_view control) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(),
                                  [&](const FormControl& one) { return one.name == control; });
  return found == controls_.end() ? nullptr : &*found;
}

const FormControl& Form::operator[](std::string_view control) const {
  const FormControl* const found = Find(control);
  if (!found) Fail(Failure::Invalid_Call);
  return *found;
}

FormControl& Form::At(std::string_view control) {
  return const_cast<FormControl&>(std::as_const(*this)[control]);
}

const FormMenu* Form::Find_Menu(std::string_view menu) const {
  const auto found = std::find_if(menus_.begin(), menus_.end(),
                                  [&](const FormMenu& one) { return one.name == menu; });
  return found == menus_.end() ? nullptr : &*found;
}

const FormMenu& Form::Menu(std::string_view menu) const {
  const FormMenu* const found = Find_Menu(menu);
  if (!found) Fail(Failure::Invalid_Call);
  return *found;
}

FormMenu& Form::Menu_At(std::string_view menu) { return const_cast<FormMenu&>(Menu(menu)); }

std::int32_t Form::Item_Data(std::string_view control, int index) const {
  const FormControl& list = (*this)[control];
  if (index < 0 || index >= static_cast<int>(list.item_data.size())) Fail(Failure::Invalid_Call);
  return list.item_data[static_cast<std::size_t>(index)];
}

bool Form::Menu_Takes_Action(std::string_view menu) const {
  const FormMenu* one = &Menu(menu);
  while (enabled_ && one->enabled && one->visible) {
    if (one->parent.empty()) return true;
    one = &Menu(one->parent);
  }
  return false;
}

bool Form::Takes_Action(std::string_view control) const {
  const FormControl* one = &(*this)[control];
  while (enabled_ && one->enabled && one->visible) {
    if (one->parent.empty()) return true;
    one = &(*this)[one->parent];
  }
  return false;
}

bool Form::Has_Handler(std::string_view control, FormEvent event) const {
  if (event == FormEvent::KeyPress) return key_handlers_.contains(control);
  return handlers_.contains({std::string(control), event});
}

// The handler may replace itself or end the form: what runs is a copy, and nothing here is touched
// afterwards.
bool Form::Raise(std::string_view control, FormEvent event) {
  const auto found = handlers_.find({std::string(control), event});
  if (found == handlers_.end() || !found->second) return false;
  const Handler handler = found->second;
  handler();
  return true;
}

bool Form::Raise_Key(std::string_view control, unsigned char key) {
  const auto found = key_handlers_.find(control);
  if (found == key_handlers_.end() || !found->second) return false;
  const KeyHandler handler = found->second;
  handler(key);
  return true;
}

bool Form::Click(std::string_view control) {
  if (!Takes_Action(control)) return false;
  Raise(control, FormEvent::Click);
  return true;
}

bool Form::Double_Click(std::string_view control) {
  if (!Takes_Action(control)) return false;
  Raise(control, FormEvent::DoubleClick);
  return true;
}

bool Form::Choose_Menu(std::string_view menu) {
  const bool is_entry =
      !Menu(menu).is_line && std::none_of(menus_.begin(), menus_.end(),
                                          [&](const FormMenu& one) { return one.parent == menu; });
  if (!is_entry || !Menu_Takes_Action(menu)) return false;
  Raise(menu, FormEvent::Click);
  return true;
}

bool Form::Click_Form() {
  if (!enabled_) return false;
  Raise(Itself, FormEvent::Click);
  return true;
}

bool Form::Type(std::string_view control, std::string_view text) {
  const FormControl& box = (*this)[control];
  const bool can_type =
      box.kind == FormControlKind::TextBox || box.kind == FormControlKind::ComboBox;
  if (!can_type || box.read_only || !Takes_Action(control)) return false;
  if (box.text == text) return true;
  // What is typed is no item that was chosen.
  if (box.kind == FormControlKind::ComboBox) At(control).index = -1;
  Set_Text(control, text);
  Raise(control, FormEvent::Change);
  return true;
}

bool Form::Select(std::string_view control, int index) {
  const FormControl& list = (*this)[control];
  const bool is_there = index >= 0 && index < static_cast<int>(list.items.size());
  if (!is_there || !Takes_Action(control)) return false;
  Set_Index(control, index);
  Raise(control, FormEvent::Click);
  return true;
}

bool Form::Press_Key(unsigned char key) {
  const std::string control = focused_;
  return Press_Key(control, key);
}

bool Form::Press_Key(std::string_view control, unsigned char key) {
  const std::string name(control);  // the caller's may be a field of this form
  if (!enabled_ || (!name.empty() && !Takes_Action(name))) return false;
  const std::weak_ptr<const void> life = life_;
  const bool was_loaded = loaded_;
  const bool was_seen = Raise_Key(Itself, key);
  if (life.expired() || loaded_ != was_loaded) return true;
  if (Press_Button_For(name, key)) return true;
  return (!name.empty() && Raise_Key(name, key)) || was_seen;
}

// A box of many lines keeps its Enter.
bool Form::Press_Button_For(std::string_view control, unsigned char key) {
  const FormControl* const focused = Find(control);
  std::string button;
  if (key == Key_Enter && focused && focused->kind == FormControlKind::Button) {
    button = focused->name;
  } else if (key == Key_Enter && !(focused && focused->multi_line && !focused->read_only)) {
    button = default_button_;
  } else if (key == Key_Escape) {
    button = cancel_button_;
  }
  return !button.empty() && Click(button);
}

bool Form::Press_Mnemonic(char letter) {
  const auto wanted = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    const FormControl& control = controls_[i];
    const bool has_caption = control.kind == FormControlKind::Button ||
                             control.kind == FormControlKind::Label ||
                             control.kind == FormControlKind::Frame;
    if (!has_caption || Mnemonic_Of(control.text) != wanted) continue;
    if (!Takes_Action(control.name)) continue;
    if (control.kind == FormControlKind::Button) return Click(std::string(control.name));
    for (std::size_t next = i + 1; next < controls_.size(); ++next) {
      if (!Takes_Focus(controls_[next].kind) || !Takes_Action(controls_[next].name)) continue;
      Set_Focus(std::string(controls_[next].name));
      return true;
    }
  }
  return false;
}

bool Form::Move_Focus(std::string_view control) {
  if (!Takes_Focus((*this)[control].kind) || !Takes_Action(control)) return false;
  focused_ = control;
  return true;
}

bool Form::Close() {
  if (!enabled_ || !loaded_) return false;
  Unload();
  return true;
}

void Form::Load() {
  if (loaded_) return;
  loaded_ = true;
  Raise(Itself, FormEvent::Load);
}

// The view goes also when the handler fails: a form that is not loaded takes no further close.
void Form::Unload() {
  if (!loaded_) return;
  loaded_ = false;
  const auto leave_view = [this, life = Life()] {
    if (life.expired() || loaded_) return;
    focused_.clear();
    if (FormView* const view = std::exchange(view_, nullptr)) view->Form_Gone();
  };
  try {
    Raise(Itself, FormEvent::Unload);
  } catch (...) {
    leave_view();
    throw;
  }
  leave_view();
}

std::optional<char> Mnemonic_Of(std::string_view caption) {
  for (std::size_t at = 0; at + 1 < caption.size(); ++at) {
    if (caption[at] != '&') continue;
    const auto next = static_cast<unsigned char>(caption[at + 1]);
    if (next != '&') return static_cast<char>(std::tolower(next));
    ++at;  // && is one plain &
  }
  return std::nullopt;
}

bool Takes_Focus(FormControlKind kind) {
  switch (kind) {
    case FormControlKind::TextBox:
    case FormControlKind::Button:
    case FormControlKind::ComboBox:
    case FormControlKind::ListBox:
      return true;
    default:
      return false;
  }
}

}  // namespace quillspeech
