// What the system tells the windows of a form, and what becomes of it: the actions of the model.
#include <windowsx.h>

#include "platform/windows/form_drawing.hpp"
#include "platform/windows/form_window.hpp"
#include "platform/windows/text.hpp"

namespace quillspeech::windows {

LRESULT CALLBACK FormWindow::Window_Procedure(HWND window, UINT message, WPARAM wide,
                                              LPARAM longer) {
  if (message == WM_NCCREATE) {
    const auto* const creation = reinterpret_cast<const CREATESTRUCTW*>(longer);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
  }
  auto* const form = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!form) return DefWindowProcW(window, message, wide, longer);
  const Stay stay(*form);
  try {
    if (message == WM_NCDESTROY) {
      SetWindowLongPtrW(window, GWLP_USERDATA, 0);
      if (window == form->window_) form->On_Window_Destroyed();
    } else if (const auto answer = form->Handle(window, message, wide, longer)) {
      return *answer;
    }
  } catch (...) {
    form->desk_.At_Failure();
    return 0;
  }
  return DefWindowProcW(window, message, wide, longer);
}

std::optional<LRESULT> FormWindow::Handle(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  if (!form_) return {};
  switch (message) {
    case WM_COMMAND:
      if (longer == 0) {
        On_Dialog_Command(LOWORD(wide));
      } else {
        On_Command(reinterpret_cast<HWND>(longer), HIWORD(wide));
      }
      return 0;
    case WM_CLOSE:
      form_->Close();
      return 0;
    case WM_SETFOCUS:
      Give_Focus();
      return 0;
    case WM_CHAR:
    case WM_SYSCHAR:
      return Handle_Form_Key(message, wide);
    case DM_GETDEFID: {
      const FormControlWindow* const button = Control_Named(form_->Default_Button());
      if (!button) return 0;
      return MAKELRESULT(GetDlgCtrlID(button->Window()), DC_HASDEFID);
    }
    case WM_ERASEBKGND:
    case WM_PAINT:
    case WM_DRAWITEM:
    case WM_SYSCOLORCHANGE:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORBTN:
      return Handle_Drawing(window, message, wide, longer);
    default:
      return Handle_Mouse(window, message, longer);
  }
}

std::optional<LRESULT> FormWindow::Handle_Drawing(HWND window, UINT message, WPARAM wide,
                                                  LPARAM longer) {
  switch (message) {
    case WM_ERASEBKGND:
      Erase(window, reinterpret_cast<HDC>(wide));
      return 1;
    case WM_PAINT:
      if (const auto tell = signals.At_Paint; tell && window == window_) tell();
      if (!form_) return {};
      Paint(window);
      return 0;
    case WM_DRAWITEM:
      Draw_Item(*reinterpret_cast<const DRAWITEMSTRUCT*>(longer));
      return TRUE;
    case WM_SYSCOLORCHANGE:
      RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
      return {};
    default:
      return Colour(reinterpret_cast<HDC>(wide), reinterpret_cast<HWND>(longer));
  }
}

// A click on the form, a frame or a label is a press and a release there.
std::optional<LRESULT> FormWindow::Handle_Mouse(HWND window, UINT message, LPARAM longer) {
  if (message == WM_NCHITTEST && is_inert_) return HTTRANSPARENT;
  if (message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN) Take_Focus_By_Click();
  if (!form_) return {};
  if (message == WM_LBUTTONDOWN) {
    is_pressed_ = true;
    SetCapture(window);
    return 0;
  }
  if (message == WM_CAPTURECHANGED) is_pressed_ = false;
  if (message != WM_LBUTTONUP || !is_pressed_) return {};
  ReleaseCapture();
  RECT inside{};
  GetClientRect(window, &inside);
  if (!PtInRect(&inside, {GET_X_LPARAM(longer), GET_Y_LPARAM(longer)})) return 0;
  if (window == window_) {
    form_->Click_Form();
  } else if (const FormControlWindow* const control = Control_At(window)) {
    form_->Click(control->Name());
  }
  return 0;
}

void FormWindow::On_Command(HWND window, UINT code) {
  FormControlWindow* const control = Control_At(window);
  if (!control || control->Is_Being_Told()) return;
  const FormControlKind kind = (*form_)[control->Name()].kind;
  switch (kind) {
    case FormControlKind::TextBox:
      if (code == EN_CHANGE) On_Typed(*control);
      return;
    case FormControlKind::ComboBox:
      if (code == CBN_EDITCHANGE) On_Typed(*control);
      if (code == CBN_SELCHANGE) form_->Select(control->Name(), control->Index());
      return;
    case FormControlKind::ListBox:
      if (code == LBN_SELCHANGE) form_->Select(control->Name(), control->Index());
      return;
    case FormControlKind::Button:
      if (code == BN_CLICKED) form_->Click(control->Name());
      return;
    default:
      return;
  }
}

// What the model makes of the text stands in the box afterwards.
void FormWindow::On_Typed(FormControlWindow& control) {
  const std::string name = control.Name();
  form_->Type(name, control.Text());
  if (form_) control.Show_Text((*form_)[name]);
}

// From the dialog keys: Enter or Escape.
void FormWindow::On_Dialog_Command(WORD command) {
  if (command == IDOK) Press(Key_Enter);
  if (command == IDCANCEL) Press(Key_Escape);
}

LRESULT FormWindow::Colour(HDC device, HWND window) {
  const FormControlWindow* const found = Control_At(window);
  COLORREF text = GetSysColor(COLOR_WINDOWTEXT);
  COLORREF back = GetSysColor(COLOR_WINDOW);
  if (found) {
    const FormControl& control = (*form_)[found->Name()];
    text = Text_Colour_Of(*form_, control);
    back = Back_Colour_Of(*form_, control);
  }
  SetTextColor(device, text);
  SetBkColor(device, back);
  return reinterpret_cast<LRESULT>(desk_.brushes.Brush_For(back));
}

// The default button has its black frame unless another button has the focus.
void FormWindow::Draw_Item(const DRAWITEMSTRUCT& item) {
  const FormControlWindow* const found = Control_At(item.hwndItem);
  if (!found || item.CtlType != ODT_BUTTON) return;
  const FormControl& button = (*form_)[found->Name()];
  const FormControl* const focused = form_->Find(form_->Focused());
  const bool other_has_focus =
      has_focus_ && focused && focused->kind == FormControlKind::Button && focused != &button;
  ButtonState state;
  state.is_pressed = (item.itemState & ODS_SELECTED) != 0;
  state.has_focus = (item.itemState & ODS_FOCUS) != 0;
  state.shows_mnemonic = (item.itemState & ODS_NOACCEL) == 0;
  state.is_default =
      state.has_focus || (button.name == form_->Default_Button() && !other_has_focus);
  Draw_Button(*form_, button, item.hDC, item.rcItem, desk_.fonts.Font_For(button.font), state);
}

void FormWindow::Erase(HWND window, HDC device) {
  const FormControlWindow* const frame = window == window_ ? nullptr : Control_At(window);
  const COLORREF colour =
      frame ? Back_Colour_Of(*form_, (*form_)[frame->Name()]) : Back_Colour_Of(*form_);
  RECT whole{};
  GetClientRect(window, &whole);
  FillRect(device, &whole, desk_.brushes.Brush_For(colour));
}

void FormWindow::Paint(HWND window) {
  PAINTSTRUCT painting{};
  const HDC device = BeginPaint(window, &painting);
  const FormControlWindow* const frame = window == window_ ? nullptr : Control_At(window);
  if (device && frame) {
    RECT whole{};
    GetClientRect(window, &whole);
    const FormControl& control = (*form_)[frame->Name()];
    Draw_Frame(*form_, control, device, whole, desk_.fonts.Font_For(control.font));
  }
  EndPaint(window, &painting);
}

}  // namespace quillspeech::windows
