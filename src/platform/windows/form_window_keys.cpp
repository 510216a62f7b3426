// Keys and focus. A host's loop may deal with dialog keys itself, ask the form whether it wants
// them, or know nothing of them: then they reach the controls, which see to them.
#include "platform/windows/form_window.hpp"

namespace quillspeech::windows {
namespace {

bool Is_Shift_Down() { return GetKeyState(VK_SHIFT) < 0; }

bool Is_Enter_Or_Escape(WPARAM key) { return key == Key_Enter || key == Key_Escape; }
static_assert(Key_Enter == VK_RETURN && Key_Escape == VK_ESCAPE);

}  // namespace

bool FormWindow::Translate(MSG& message) {
  if (!window_ || !form_ || is_inert_) return false;
  if (message.hwnd != window_ && !IsChild(window_, message.hwnd)) return false;
  if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
  const Stay stay(*this);
  if (message.message == WM_KEYDOWN && Is_Enter_Or_Escape(message.wParam)) {
    const FormControlWindow* const control = Control_At(message.hwnd);
    if (control && control->Is_Dropped_Down()) return false;
    try {
      return Press(static_cast<unsigned char>(message.wParam));
    } catch (...) {
      desk_.At_Failure();
      return true;
    }
  }
  if (message.message == WM_KEYDOWN && message.wParam == VK_TAB && is_child_ && Leaves_By_Tab()) {
    return false;
  }
  // A plain key is a control's own affair.
  if (message.message == WM_CHAR) return false;
  return IsDialogMessageW(window_, &message) != FALSE;
}

// Whether the next control by Tab lies on the other side of the form's end.
bool FormWindow::Leaves_By_Tab() const {
  const FormControlWindow* const now = Control_At(GetFocus());
  const bool is_back = Is_Shift_Down();
  const HWND next = GetNextDlgTabItem(window_, GetFocus(), is_back);
  for (const auto& one : controls_) {
    if (one.get() == now) return is_back ? next != nullptr && Control_At(next) == now : false;
    if (one->Window() == next) return !is_back;
  }
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
  static_cast<void>(longer);
}

std::optional<LRESULT> FormWindow::Handle_Key(FormControlWindow& control, UINT message,
                                              WPARAM key) {
  if (!form_ || control.Is_Dropped_Down()) return {};
  if (message == WM_KEYDOWN && key == VK_TAB) {
    const HWND next = GetNextDlgTabItem(window_, GetFocus(), Is_Shift_Down());
    if (next) SetFocus(next);
    return 0;
  }
  if (message == WM_SYSCHAR && form_->Press_Mnemonic(static_cast<char>(key))) return 0;
  if (message != WM_CHAR || key > 0xFF) return {};
  if (key == VK_TAB) return 0;
  const std::string name = control.Name();
  const bool is_taken = form_->Press_Key(name, static_cast<unsigned char>(key));
  if (!form_) return 0;
  // An edit field of one line would only beep.
  const FormControl& model = (*form_)[name];
  if (Is_Enter_Or_Escape(key) && (is_taken || !model.multi_line)) return 0;
  return {};
}

// The control that had it last, or else the first that takes it.
void FormWindow::Give_Focus() {
  if (const FormControlWindow* const last = Control_Named(form_->Focused())) {
    SetFocus(last->Window());
    return;
  }
  const HWND first = GetNextDlgTabItem(window_, nullptr, FALSE);
  if (first && first != window_) SetFocus(first);
}

void FormWindow::Note_Focus(HWND now) {
  if (!form_) return;
  const bool is_here = now && (now == window_ || IsChild(window_, now));
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
