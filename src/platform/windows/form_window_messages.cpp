// What the system tells the windows of a form, and what becomes of it: the actions of the model.
#include <windowsx.h>

#include "platform/windows/form_drawing.hpp"
#include "platform/windows/form_window.hpp"
#include "platform/windows/text.hpp"

namespace quillspeech::windows {
namespace {

// To the form's own window, once the system has done with the list of a combo box.
constexpr UINT List_Has_Closed = WM_APP;

bool Is_List(FormControlKind kind) {
  return kind == FormControlKind::ListBox || kind == FormControlKind::ComboBox;
}

}  // namespace

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
        On_Menu_Or_Key(LOWORD(wide));
      } else {
        On_Command(reinterpret_cast<HWND>(longer), HIWORD(wide));
      }
      return 0;
    case List_Has_Closed:
      if (FormControlWindow* const list = Control_At(reinterpret_cast<HWND>(longer))) {
        On_List_Closed(*list);
      }
      return 0;
    case WM_CLOSE:
      form_->Close();
      return 0;
    case WM_SETFOCUS:
      Give_Focus();
      if (GetFocus() == window) Note_Focus(window);
      return 0;
    case WM_KILLFOCUS:
      // What of the form gets it tells so itself, and once it has it.
      if (const HWND next = reinterpret_cast<HWND>(wide); !Holds(next)) Note_Focus(next);
      return 0;
    case WM_CHAR:
    case WM_SYSCHAR:
      return Handle_Form_Key(message, wide);
    case WM_ERASEBKGND:
    case WM_PAINT:
    case WM_SIZE:
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
    case WM_SIZE:
      // The ground is stretched with the form, below its controls too.
      if (window == window_ && !form_->Ground().operations.empty()) {
        RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
      }
      return {};
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

// A click on the form, a frame, a picture or a label is a press and a release there.
std::optional<LRESULT> FormWindow::Handle_Mouse(HWND window, UINT message, LPARAM longer) {
  if (message == WM_NCHITTEST && is_inert_) return HTTRANSPARENT;
  const bool is_press = message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK;
  if (is_press || message == WM_RBUTTONDOWN) Take_Focus_By_Click();
  if (!form_) return {};
  if (is_press) {
    is_pressed_ = true;
    is_second_press_ = message == WM_LBUTTONDBLCLK;
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
    is_second_press_ ? On_Second_Click(control->Name()) : void(form_->Click(control->Name()));
  }
  return 0;
}

// Where nobody waits for double clicks, quick clicks count one by one.
void FormWindow::On_Second_Click(const std::string& control) {
  if (form_->Has_Handler(control, FormEvent::DoubleClick)) {
    form_->Double_Click(control);
  } else if (Is_List((*form_)[control].kind)) {
    form_->Select(control, (*form_)[control].index);
  } else {
    form_->Click(control);
  }
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
      if (code == CBN_SELENDOK) PostMessageW(window_, List_Has_Closed, 0, LPARAM(window));
      if (code == CBN_DBLCLK) On_Second_Click(control->Name());
      return;
    case FormControlKind::ListBox:
      if (code == LBN_SELCHANGE) form_->Select(control->Name(), control->Index());
      if (code == LBN_DBLCLK) On_Second_Click(control->Name());
      return;
    case FormControlKind::Button:
      if (code == BN_CLICKED) form_->Click(control->Name());
      return;
    default:
      return;
  }
}

// The system marks the entry that fits what was typed, and may take its text, without a word.
void FormWindow::On_List_Closed(FormControlWindow& control) {
  const FormControl& model = (*form_)[control.Name()];
  const std::string shown = control.Text();
  if (shown == model.text && model.index >= 0) return;
  const int index = control.Index();
  const bool is_entry = index >= 0 && index < static_cast<int>(model.items.size()) &&
                        model.items[static_cast<std::size_t>(index)] == shown;
  if (is_entry) {
    form_->Select(control.Name(), index);
  } else if (shown != model.text) {
    On_Typed(control);
  }
}

// What the model makes of the text stands in the box afterwards.
void FormWindow::On_Typed(FormControlWindow& control) {
  const std::string name = control.Name();
  const std::string typed = control.Text();
  form_->Type(name, typed);
  if (!form_ || (*form_)[name].text == typed) return;
  control.Show_Text((*form_)[name]);
  control.Put_Caret_At_End();
}

// An entry of the menus or, from the dialog keys, Enter or Escape: the system tells them so where
// no control has the number of a default button, and the model knows what they press.
void FormWindow::On_Menu_Or_Key(WORD command) {
  if (const auto entry = menus_ ? menus_->Entry_Of(command) : std::nullopt) {
    form_->Choose_Menu(*entry);
    return;
  }
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
  if (found && Shows_Ground((*form_)[found->Name()])) {
    Draw_Below(window, device);
    SetBkMode(device, TRANSPARENT);
    return reinterpret_cast<LRESULT>(GetStockObject(NULL_BRUSH));
  }
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
  const PaintBuffer buffer(item.hDC, item.rcItem);
  Draw_Button(*form_, button, buffer.Device(), item.rcItem, desk_.fonts, state);
}

// A picture and an image paint their ground themselves.
void FormWindow::Erase(HWND window, HDC device) {
  RECT whole{};
  GetClientRect(window, &whole);
  if (window == window_) {
    const PaintBuffer buffer(device, whole);
    return Draw_Ground(*form_, buffer.Device(), whole, desk_.fonts);
  }
  const FormControlWindow* const found = Control_At(window);
  if (!found) return;
  const FormControl& control = (*form_)[found->Name()];
  if (control.kind != FormControlKind::Frame) return;
  FillRect(device, &whole, desk_.brushes.Brush_For(Back_Colour_Of(*form_, control)));
}

void FormWindow::Paint(HWND window) {
  PAINTSTRUCT painting{};
  const HDC device = BeginPaint(window, &painting);
  const FormControlWindow* const found = window == window_ ? nullptr : Control_At(window);
  if (device && found) {
    const FormControl& control = (*form_)[found->Name()];
    if (control.kind == FormControlKind::Frame) {
      RECT whole{};
      GetClientRect(window, &whole);
      Draw_Frame(*form_, control, device, whole, desk_.fonts.Font_For(control.font));
    } else {
      Paint_Surface(*found, device);
    }
  }
  EndPaint(window, &painting);
}

void FormWindow::Paint_Surface(const FormControlWindow& surface, HDC device) {
  RECT whole{};
  GetClientRect(surface.Window(), &whole);
  const FormControl& control = (*form_)[surface.Name()];
  const PaintBuffer buffer(device, whole);
  if (Shows_Ground(control)) {
    Draw_Below(surface.Window(), buffer.Device());
  } else {
    FillRect(buffer.Device(), &whole, desk_.brushes.Brush_For(Back_Colour_Of(*form_, control)));
  }
  Draw_Surface(control, surface.Picture(), buffer.Device(), whole, desk_.fonts);
}

// A label or an image lets it show through where the form itself, and no frame, lies below.
bool FormWindow::Shows_Ground(const FormControl& control) const {
  const bool is_clear =
      control.kind == FormControlKind::Label || control.kind == FormControlKind::Image;
  return is_clear && !control.back_colour && control.parent.empty() &&
         !form_->Ground().operations.empty();
}

void FormWindow::Draw_Below(HWND window, HDC device) {
  RECT ground{};
  GetClientRect(window_, &ground);
  MapWindowPoints(window_, window, reinterpret_cast<POINT*>(&ground), 2);
  Draw_Ground(*form_, device, ground, desk_.fonts);
}

}  // namespace quillspeech::windows
