// Keys and focus. A host's loop may deal with dialog keys itself, ask the form whether it wants
// them, or know nothing of them: then they reach the controls, which see to them.
#include <algorithm>
#include <string>

#include "platform/windows/form_window.hpp"
#include "platform/windows/text.hpp"

namespace quillspeech::windows {
namespace {

bool Is_Down(int key) { return GetKeyState(key) < 0; }

bool Is_Arrow(WPARAM key) { return key >= VK_LEFT && key <= VK_DOWN; }

// The character as the model knows it; nothing when Windows-1252 lacks it.
std::optional<unsigned char> Key_Of(WPARAM character) {
  const auto wide = static_cast<wchar_t>(character);
  const std::string narrow = Narrow({&wide, 1});
  if (narrow == "?" && wide != L'?') return std::nullopt;
  return static_cast<unsigned char>(narrow.front());
}

// What is typed next takes the place of the text that stands there, as in every dialog. A text that
// can only be read stays as it is.
void Focus_And_Select(HWND control) {
  SetFocus(control);
  const bool has_text = (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0;
  const bool is_to_read = (GetWindowLongPtrW(control, GWL_STYLE) & ES_READONLY) != 0;
  if (has_text && !is_to_read) SendMessageW(control, EM_SETSEL, 0, -1);
}

bool Is_Enter_Or_Escape(WPARAM key) { return key == Key_Enter || key == Key_Escape; }

// Ctrl and a letter, as for copying, are no character.
bool Is_Command(WPARAM character) {
  return character < L' ' && !Is_Enter_Or_Escape(character) && character != VK_BACK;
}
static_assert(Key_Enter == VK_RETURN && Key_Escape == VK_ESCAPE);

}  // namespace

bool FormWindow::Take_From_Loop(MSG& message) {
  if (!Holds(message.hwnd)) return false;
  const Stay stay(*this);
  const auto tell = signals.At_Key;  // it may replace itself
  return tell ? tell(message) : Translate(message);
}

// Any other key is that of the control that has the focus, after the host has looked at it.
bool FormWindow::Translate(MSG& message) {
  if (!form_ || is_inert_ || !Holds(message.hwnd)) return false;
  const Stay stay(*this);
  try {
    if (message.message == WM_KEYDOWN) return Translate_Key_Down(message);
    if (message.message == WM_SYSCHAR)
      return Handle_Form_Key(WM_SYSCHAR, message.wParam).has_value();
  } catch (...) {
    desk_.At_Failure();
    return true;
  }
  // Letters to press show as soon as somebody is about to press one.
  if (message.message == WM_SYSKEYDOWN && message.wParam == VK_MENU) {
    SendMessageW(window_, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL), 0);
  }
  return false;
}

bool FormWindow::Translate_Key_Down(MSG& message) {
  const WPARAM key = message.wParam;
  if (Is_Enter_Or_Escape(key)) {
    const FormControlWindow* const control = Control_At(message.hwnd);
    if (control && control->Is_Dropped_Down()) return false;
    return Press(static_cast<unsigned char>(key));
  }
  if (key == VK_TAB && !Is_Down(VK_CONTROL)) return Go_By_Tab();
  // The system's walk begins at the control that has the focus.
  if (!Is_Arrow(key) || !Control_At(GetFocus())) return false;
  return IsDialogMessageW(window_, &message) != FALSE;
}

// Whoever embeds a form goes on at its ends; any other goes round.
bool FormWindow::Go_By_Tab() {
  const FormControlWindow* const now = Control_At(GetFocus());
  const bool is_back = Is_Down(VK_SHIFT);
  const FormControlWindow* const next =
      is_child_ ? Next_Before_End(now, is_back) : Next_By_Tab(now, is_back);
  if (!next) return false;
  SendMessageW(window_, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
  Focus_And_Select(next->Window());
  return true;
}

bool FormWindow::Press(unsigned char key) {
  if (!form_) return false;
  const FormControlWindow* const control = Control_At(GetFocus());
  const std::string name = control ? control->Name() : std::string();
  return form_->Press_Key(name, key);
}

std::optional<LRESULT> FormWindow::Handle_Control(FormControlWindow& control, HWND part,
                                                  UINT message, WPARAM wide,
                                                  LPARAM longer) noexcept {
  try {
    switch (message) {
      case WM_NCHITTEST:
        if (is_inert_) return HTTRANSPARENT;
        return {};
      case WM_SETFOCUS:
        Note_Focus(part);
        return {};
      case WM_KILLFOCUS:
        Note_Focus(reinterpret_cast<HWND>(wide));
        return {};
      case WM_LBUTTONDOWN:
      case WM_LBUTTONDBLCLK:
      case WM_LBUTTONUP:
      case WM_RBUTTONDOWN:
      case WM_CAPTURECHANGED:
        if (!form_ || Takes_Focus((*form_)[control.Name()].kind)) return {};
        return Handle_Mouse(part, message, longer);
      case WM_KEYDOWN:
      case WM_CHAR:
      case WM_SYSCHAR:
        return Handle_Key(control, message, wide);
      default:
        return {};
    }
  } catch (...) {
    desk_.At_Failure();
    return 0;
  }
}

std::optional<LRESULT> FormWindow::Handle_Key(FormControlWindow& control, UINT message,
                                              WPARAM key) {
  if (!form_) return {};
  if (message == WM_KEYDOWN) closes_list_ = 0;
  if (control.Is_Dropped_Down()) {
    if (message == WM_KEYDOWN && Is_Enter_Or_Escape(key)) closes_list_ = key;
    return {};
  }
  if (message == WM_CHAR && closes_list_ == key) return 0;
  if (message == WM_SYSCHAR) return Handle_Form_Key(message, key);
  if (is_inert_) return 0;
  if (message == WM_KEYDOWN) {
    if (key != VK_TAB) return {};
    const FormControlWindow* const next = Next_By_Tab(&control, Is_Down(VK_SHIFT));
    if (next) Focus_And_Select(next->Window());
    return 0;
  }
  if (key == VK_TAB) return 0;
  const auto character = Key_Of(key);
  if (!character) return {};
  // The control may go meanwhile, and its name with it.
  const std::string name = control.Name();  // NOLINT(performance-unnecessary-copy-initialization)
  if (Is_Command(key) && (*form_)[name].read_only) return {};
  const bool is_taken = form_->Press_Key(name, *character);
  if (!form_) return 0;
  // An edit field of one line would only beep.
  const FormControl& model = (*form_)[name];
  if (Is_Enter_Or_Escape(key) && (is_taken || !model.multi_line)) return 0;
  return {};
}

// A key for the form itself, or a letter to press on any of its controls.
std::optional<LRESULT> FormWindow::Handle_Form_Key(UINT message, WPARAM key) {
  const auto character = Key_Of(key);
  if (!form_ || !character || is_inert_) return {};
  const bool is_taken = message == WM_SYSCHAR ? form_->Press_Mnemonic(static_cast<char>(*character))
                                              : Press(*character);
  return is_taken ? std::optional<LRESULT>(0) : std::nullopt;
}

bool FormWindow::Holds(HWND window) const {
  return window_ && window && (window == window_ || IsChild(window_, window));
}

// The control that had it last, or else the next behind that which takes it.
void FormWindow::Give_Focus() {
  const FormControlWindow* const last = Control_Named(form_->Focused());
  if (last && form_->Takes_Action(last->Name())) {
    SetFocus(last->Window());
    return;
  }
  const FormControlWindow* const next = Next_By_Tab(last, false);
  if (next) Focus_And_Select(next->Window());
}

// By the model: the windows of what has just been disabled or hidden are not so yet, and the system
// may look for ever where there is nothing to find.
const FormControlWindow* FormWindow::Next_Before_End(const FormControlWindow* from,
                                                     bool is_back) const {
  const auto takes_focus = [this](const auto& one) {
    return one->Window() && Takes_Focus((*form_)[one->Name()].kind) &&
           form_->Takes_Action(one->Name());
  };
  const auto next_in = [&](auto at, auto end) -> const FormControlWindow* {
    if (from) at = std::find_if(at, end, [from](const auto& one) { return one.get() == from; });
    if (from && at != end) ++at;
    const auto next = std::find_if(at, end, takes_focus);
    return next == end ? nullptr : next->get();
  };
  return is_back ? next_in(controls_.rbegin(), controls_.rend())
                 : next_in(controls_.begin(), controls_.end());
}

const FormControlWindow* FormWindow::Next_By_Tab(const FormControlWindow* from,
                                                 bool is_back) const {
  const FormControlWindow* const next = Next_Before_End(from, is_back);
  return next ? next : Next_Before_End(nullptr, is_back);
}

// A click on what takes no focus itself brings it to an embedded form all the same.
void FormWindow::Take_Focus_By_Click() {
  if (signals.At_Focus && !has_focus_ && form_) SetFocus(window_);
}

// To the window around a child.
void FormWindow::Leave_Focus() {
  if (is_child_ && Holds(GetFocus())) SetFocus(GetParent(window_));
}

// From what takes no action any more to the next that does, or to the form itself.
void FormWindow::Hand_Focus_On() {
  const FormControlWindow* const now = Control_At(GetFocus());
  if (now && form_ && !form_->Takes_Action(now->Name())) SetFocus(window_);
}

void FormWindow::Note_Focus(HWND now) {
  if (!form_) return;
  const bool is_here = Holds(now);
  if (const FormControlWindow* const control = is_here ? Control_At(now) : nullptr) {
    form_->Move_Focus(control->Name());
  }
  if (const FormControlWindow* const button = Control_Named(form_->Default_Button())) {
    InvalidateRect(button->Window(), nullptr, FALSE);
  }
  if (is_here == has_focus_) return;
  has_focus_ = is_here;
  const auto tell = signals.At_Focus;  // it may replace itself
  if (tell) tell(is_here);
}

}  // namespace quillspeech::windows
