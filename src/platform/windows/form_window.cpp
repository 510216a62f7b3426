#include "platform/windows/form_window.hpp"

#include <algorithm>
#include <utility>

#include "platform/windows/form_place.hpp"
#include "platform/windows/text.hpp"

namespace quillspeech::windows {

FormDesk::FormDesk(int dots_per_inch)
    : scale(Scale_At(dots_per_inch)),
      form_class(L"Quillspeech.Form", &FormWindow::Window_Procedure),
      frame_class(L"Quillspeech.Frame", &FormWindow::Window_Procedure,
                  CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW) {}

FormWindow::Stay::Stay(FormWindow& form) : form_(form.shared_from_this()) { ++form_->busy_; }

FormWindow::Stay::~Stay() {
  if (--form_->busy_ == 0 && form_->is_ending_) form_->End();
}

FormWindow::FormWindow(Form& form, FormDesk& desk) : form_(&form), desk_(desk) {}

FormWindow::~FormWindow() = default;

bool FormWindow::Make_Top(HWND owner, bool is_modal) {
  const DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU | (is_modal ? 0 : WS_MINIMIZEBOX);
  const DWORD extended = WS_EX_CONTROLPARENT | (is_modal ? WS_EX_DLGMODALFRAME : 0);
  if (!Make(style, extended, {}, owner)) return false;
  menus_ = std::make_unique<FormMenus>(*form_, window_);
  const RECT place = Centred(Outer_Size(), owner);
  SetWindowPos(window_, nullptr, place.left, place.top, Width_Of(place), Height_Of(place),
               SWP_NOZORDER | SWP_NOACTIVATE);
  return true;
}

// With the frame, the title and the menu bar, which takes as many lines as its width needs: what
// the system makes of a room that is large enough tells how much they take.
SIZE FormWindow::Outer_Size() const {
  const SIZE inner = Pixels_Of(form_->Size(), desk_.scale);
  constexpr LONG Large = 0x7fff;
  const auto within = [&](LONG width) {
    RECT room{0, 0, width, Large};
    SendMessageW(window_, WM_NCCALCSIZE, FALSE, reinterpret_cast<LPARAM>(&room));
    return room;
  };
  const LONG width = inner.cx + Large - Width_Of(within(Large));
  return {width, inner.cy + Large - Height_Of(within(width))};
}

bool FormWindow::Make_Child(HWND parent, const ChildPlace& place, ChildMode mode) {
  is_child_ = true;
  const RECT pixels{place.left, place.top, place.left + place.width, place.top + place.height};
  if (!Make(WS_CHILD | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT, pixels, parent)) return false;
  Set_Mode(mode);
  return true;
}

bool FormWindow::Make(DWORD style, DWORD extended, const RECT& place, HWND parent) {
  if (!form_->Is_Enabled()) style |= WS_DISABLED;
  window_ = CreateWindowExW(extended, desk_.form_class.Name(), Wide(form_->Caption()).c_str(),
                            style | WS_CLIPCHILDREN, place.left, place.top, Width_Of(place),
                            Height_Of(place), parent, nullptr, This_Module(), this);
  if (!window_) return false;
  Make_Controls();
  return true;
}

void FormWindow::Make_Controls() {
  tips_ = std::make_unique<FormTips>(window_, desk_.scale);
  for (const FormControl& control : form_->Controls()) {
    const HWND parent = Window_For(control.parent);
    const RECT place = Pixels_In_Parent(*form_, control, desk_.scale);
    controls_.push_back(std::make_unique<FormControlWindow>(*this, control, parent, place,
                                                            desk_.frame_class.Name()));
    FormControlWindow& made = *controls_.back();
    made.Set_Font(desk_.fonts.Font_For(control.font), desk_.scale.Across(Field_Margin));
    made.Set_Place(place);
    if (!control.items.empty()) made.Show_Items(control);
    if (control.kind == FormControlKind::ComboBox) made.Show_Text(control);
    if (!control.tip.empty()) Show_Tip(made, control.tip);
  }
}

// A combo box shows it over the part to type in too, which is a window of its own.
void FormWindow::Show_Tip(const FormControlWindow& control, std::string_view tip) {
  tips_->Set(control.Window(), tip);
  if (const HWND edit = control.Edit_Part()) tips_->Set(edit, tip);
}

void FormWindow::Place_Controls() {
  for (const FormControl& control : form_->Controls()) {
    FormControlWindow* const one = Control_Named(control.name);
    if (one) one->Set_Place(Pixels_In_Parent(*form_, control, desk_.scale));
  }
}

FormControlWindow* FormWindow::Control_Named(std::string_view name) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(),
                                  [&](const auto& one) { return one->Name() == name; });
  return found == controls_.end() ? nullptr : found->get();
}

FormControlWindow* FormWindow::Control_At(HWND window) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(), [&](const auto& one) {
    return window && (one->Window() == window ||
                      (IsChild(one->Window(), window) && GetParent(window) == one->Window() &&
                       (*form_)[one->Name()].kind == FormControlKind::ComboBox));
  });
  return found == controls_.end() ? nullptr : found->get();
}

HWND FormWindow::Window_For(const std::string& parent) const {
  const FormControlWindow* const frame = Control_Named(parent);
  return frame ? frame->Window() : window_;
}

void FormWindow::Show() {
  if (!window_) return;
  is_shown_ = true;
  if (is_child_) {
    ShowWindow(window_, SW_SHOWNA);
    return;
  }
  ShowWindow(window_, IsIconic(window_) ? SW_RESTORE : SW_SHOW);
  SetForegroundWindow(window_);
}

// What is active stays so.
void FormWindow::Show_Aside() {
  if (!window_) return;
  is_shown_ = true;
  ShowWindow(window_, IsIconic(window_) ? SW_SHOWNOACTIVATE : SW_SHOWNA);
}

// The others come back first, so that one of them, and no other program's, gets to the front.
void FormWindow::Hide() {
  others_.Let_Go();
  is_shown_ = false;
  Leave_Focus();
  if (window_) ShowWindow(window_, SW_HIDE);
}

void FormWindow::Move(const ChildPlace& place) {
  if (!window_) return;
  SetWindowPos(window_, nullptr, place.left, place.top, place.width, place.height,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

// Disabled for the keyboard's sake; the mouse sees through it anyway.
void FormWindow::Set_Mode(ChildMode mode) {
  is_inert_ = mode == ChildMode::Inert;
  if (!window_ || !form_) return;
  tips_->Activate(!is_inert_);
  Enable(!is_inert_ && form_->Is_Enabled());
}

// The focus does not stay where keys do nothing.
void FormWindow::Enable(bool on) {
  const Stay stay(*this);
  if (!on) Leave_Focus();
  if (window_) EnableWindow(window_, on);
}

void FormWindow::Repaint() {
  if (!window_) return;
  RedrawWindow(window_, nullptr, nullptr,
               RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

void FormWindow::Control_Changed(const FormControl& control, FormChange change) {
  FormControlWindow* const one = Control_Named(control.name);
  if (!one || !one->Window()) return;
  const Stay stay(*this);
  switch (change) {
    case FormChange::Text:
      return one->Show_Text(control);
    case FormChange::Tip:
      if (tips_) Show_Tip(*one, control.tip);
      return;
    case FormChange::Font:
      return one->Set_Font(desk_.fonts.Font_For(control.font), desk_.scale.Across(Field_Margin));
    case FormChange::Colours:
      RedrawWindow(one->Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
      return;
    case FormChange::Enabled:
      Hand_Focus_On();
      EnableWindow(one->Window(), control.enabled);
      return;
    case FormChange::Visible:
      Hand_Focus_On();
      ShowWindow(one->Window(), control.visible ? SW_SHOWNA : SW_HIDE);
      return;
    case FormChange::Place:
      return Place_Controls();
    case FormChange::ReadOnly:
      return one->Show_Read_Only(control);
    case FormChange::Items:
      return one->Show_Items(control);
    case FormChange::Index:
      return one->Show_Index(control);
    case FormChange::Focus:
      if (IsWindowVisible(window_)) SetFocus(one->Window());
      return;
    case FormChange::Drawing:
      return one->Show_Drawing(control);
  }
}

void FormWindow::Menu_Changed(const FormMenu& menu, FormChange change) {
  if (window_ && menus_) menus_->Changed(menu, change);
}

void FormWindow::Form_Changed(FormChange change) {
  if (!window_) return;
  if (change == FormChange::Text) {
    SetWindowTextW(window_, Wide(form_->Caption()).c_str());
  } else if (change == FormChange::Enabled) {
    Enable(!is_inert_ && form_->Is_Enabled());
  } else if (change == FormChange::Drawing) {
    RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
  } else if (change == FormChange::Place && !is_child_) {
    const SIZE outer = Outer_Size();
    SetWindowPos(window_, nullptr, 0, 0, outer.cx, outer.cy,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
}

void FormWindow::Form_Gone() {
  const Stay stay(*this);
  Hide();
  Let_Go();
  is_ending_ = true;
}

void FormWindow::Let_Go() {
  if (!form_) return;
  form_ = nullptr;
  desk_.At_End(*this);
}

void FormWindow::End() {
  is_ending_ = false;
  if (window_) DestroyWindow(window_);
}

// By its parent or its owner, mostly: the form has lost its view, and a window of its own is closed
// with that.
void FormWindow::On_Window_Destroyed() {
  window_ = nullptr;
  life.reset();
  tips_.reset();
  others_.Let_Go();
  is_shown_ = false;
  Form* const form = form_;
  if (!form) return;
  form->Attach(nullptr);
  Let_Go();
  if (!is_child_) form->Unload();
}

}  // namespace quillspeech::windows
