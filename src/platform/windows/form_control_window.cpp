#include "platform/windows/form_control_window.hpp"

#include "platform/windows/form_classes.hpp"
#include "platform/windows/form_layout.hpp"
#include "platform/windows/form_window.hpp"
#include "platform/windows/text.hpp"

namespace quillspeech::windows {
namespace {

constexpr int Lines_Of_A_List = 10;  // that a combo box drops down

struct Kind {
  const wchar_t* class_name;
  DWORD style;
  DWORD extended = 0;
};

DWORD Alignment_Style(FormAlignment alignment, DWORD left, DWORD centre, DWORD right) {
  switch (alignment) {
    case FormAlignment::Centre:
      return centre;
    case FormAlignment::Right:
      return right;
    default:
      return left;
  }
}

// One line stands in the middle of its height and ends with dots where it is too long.
Kind Label_Kind(const FormControl& label) {
  DWORD style = SS_NOTIFY | Alignment_Style(label.alignment, SS_LEFT, SS_CENTER, SS_RIGHT);
  if (!label.multi_line) style |= SS_CENTERIMAGE | SS_ENDELLIPSIS;
  return {L"STATIC", style};
}

Kind Box_Kind(const FormControl& box) {
  DWORD style = WS_TABSTOP | Alignment_Style(box.alignment, ES_LEFT, ES_CENTER, ES_RIGHT);
  if (box.read_only) style |= ES_READONLY;
  style |= box.multi_line ? ES_MULTILINE | ES_WANTRETURN | ES_AUTOVSCROLL : ES_AUTOHSCROLL;
  if (box.scroll) style |= WS_VSCROLL;
  return {L"EDIT", style, WS_EX_CLIENTEDGE};
}

bool Is_Of_Our_Class(FormControlKind kind) {
  return kind == FormControlKind::Frame || kind == FormControlKind::Picture ||
         kind == FormControlKind::Image;
}

Kind Kind_Of(const FormControl& control, const wchar_t* our_class) {
  switch (control.kind) {
    case FormControlKind::Frame:
      return {our_class, WS_CLIPCHILDREN, WS_EX_CONTROLPARENT};
    case FormControlKind::Picture:
      return {our_class, 0, WS_EX_CLIENTEDGE};
    case FormControlKind::Image:
      return {our_class, 0};
    case FormControlKind::TextBox:
      return Box_Kind(control);
    case FormControlKind::Button:
      return {L"BUTTON", BS_OWNERDRAW | WS_TABSTOP};
    case FormControlKind::ComboBox:
      return {L"COMBOBOX", CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL | WS_TABSTOP};
    case FormControlKind::ListBox:
      return {L"LISTBOX", LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_TABSTOP,
              WS_EX_CLIENTEDGE};
    default:
      return Label_Kind(control);
  }
}

}  // namespace

class FormControlWindow::Telling {
 public:
  explicit Telling(const FormControlWindow& control) : control_(control) { ++control_.telling_; }
  ~Telling() { --control_.telling_; }
  Telling(const Telling&) = delete;
  Telling& operator=(const Telling&) = delete;

 private:
  const FormControlWindow& control_;
};

FormControlWindow::FormControlWindow(FormWindow& form, const FormControl& control, HWND parent,
                                     const RECT& place, const wchar_t* our_class)
    : name_(control.name), kind_(control.kind) {
  const Kind kind = Kind_Of(control, our_class);
  const bool is_ours = Is_Of_Our_Class(kind_);
  DWORD style = kind.style | WS_CHILD | WS_CLIPSIBLINGS;
  if (control.visible) style |= WS_VISIBLE;
  if (!control.enabled) style |= WS_DISABLED;
  window_ = CreateWindowExW(kind.extended, kind.class_name, Wide(control.text).c_str(), style,
                            place.left, place.top, Width_Of(place), Height_Of(place), parent,
                            nullptr, This_Module(), is_ours ? &form : nullptr);
  if (!window_) return;
  picture_ = PictureFile(control.picture);
  if (!is_ours) Tap_Into(form, window_);
  if (kind_ == FormControlKind::TextBox) Tell(EM_SETLIMITTEXT, 0);  // as much as there is room for
  if (kind_ != FormControlKind::ComboBox) return;
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  if (!GetComboBoxInfo(window_, &parts)) return;
  if (parts.hwndItem && parts.hwndItem != window_) Tap_Into(form, parts.hwndItem);
  if (parts.hwndList) Tap_Into(form, parts.hwndList);
}

FormControlWindow::~FormControlWindow() = default;

// The system's own kinds leave these words to their users.
void FormControlWindow::Tap_Into(FormWindow& form, HWND window) {
  auto tap = std::make_unique<Tap>(Tap{&form, this, nullptr});
  SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(tap.get()));
  tap->original = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Tap_Procedure)));
  taps_.push_back(std::move(tap));
}

LRESULT CALLBACK FormControlWindow::Tap_Procedure(HWND window, UINT message, WPARAM wide,
                                                  LPARAM longer) {
  auto* const tap = reinterpret_cast<Tap*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  const WNDPROC original = tap->original;
  // The system's buttons would take the second of two quick clicks for another thing.
  const bool is_button = tap->control->kind_ == FormControlKind::Button;
  if (is_button && message == WM_LBUTTONDBLCLK) message = WM_LBUTTONDOWN;
  // The form's window, and so the tap, stays in memory until the message is dealt with.
  const FormWindow::Stay stay(*tap->form);
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(original));
    if (window == tap->control->window_) tap->control->window_ = nullptr;
  } else if (const auto answer =
                 tap->form->Handle_Control(*tap->control, window, message, wide, longer)) {
    return *answer;
  }
  return CallWindowProcW(original, window, message, wide, longer);
}

LRESULT FormControlWindow::Tell(UINT message, WPARAM wide, LPARAM longer) const {
  if (!window_) return 0;
  const Telling telling(*this);
  return SendMessageW(window_, message, wide, longer);
}

void FormControlWindow::Set_Font(HFONT font, int margin) {
  Tell(WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
  if (kind_ != FormControlKind::TextBox) return;
  Tell(EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(margin, margin));
}

// A combo box is told the height of its list with its own. What shows the form's ground, or is
// stretched, is drawn anew.
void FormControlWindow::Set_Place(const RECT& place) {
  int height = Height_Of(place);
  if (kind_ == FormControlKind::ComboBox) {
    const int line = static_cast<int>(Tell(CB_GETITEMHEIGHT, 0));
    height += line * Lines_Of_A_List;
    const int frame = 2 * (GetSystemMetrics(SM_CYEDGE) + 1);
    Tell(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), Height_Of(place) - frame);
  }
  SetWindowPos(window_, nullptr, place.left, place.top, Width_Of(place), height,
               SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

void FormControlWindow::Show_Text(const FormControl& control) {
  const std::wstring text = Wide(control.text);
  if (Shown_Text() == text) return;
  Tell(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void FormControlWindow::Put_Caret_At_End() {
  const auto end = static_cast<int>(Tell(WM_GETTEXTLENGTH));
  if (kind_ == FormControlKind::ComboBox) {
    Tell(CB_SETEDITSEL, 0, MAKELPARAM(end, end));
  } else {
    Tell(EM_SETSEL, static_cast<WPARAM>(end), end);
  }
}

void FormControlWindow::Show_Items(const FormControl& control) {
  const bool is_list = kind_ == FormControlKind::ListBox;
  const UINT add = is_list ? LB_ADDSTRING : CB_ADDSTRING;
  auto shown = static_cast<std::size_t>(Tell(is_list ? LB_GETCOUNT : CB_GETCOUNT));
  // Items are added one by one: what stands there already stays.
  if (control.items.size() != shown + 1) {
    Tell(is_list ? LB_RESETCONTENT : CB_RESETCONTENT);
    shown = 0;
  }
  for (std::size_t i = shown; i < control.items.size(); ++i) {
    Tell(add, 0, reinterpret_cast<LPARAM>(Wide(control.items[i]).c_str()));
  }
  if (shown == 0) Show_Index(control);
}

void FormControlWindow::Show_Index(const FormControl& control) {
  const auto index = static_cast<WPARAM>(control.index);
  if (kind_ == FormControlKind::ListBox) {
    Tell(LB_SETCURSEL, index);
    return;
  }
  Tell(CB_SETCURSEL, index);
  Show_Text(control);
}

void FormControlWindow::Show_Read_Only(const FormControl& control) {
  if (kind_ == FormControlKind::TextBox) Tell(EM_SETREADONLY, control.read_only);
}

void FormControlWindow::Show_Drawing(const FormControl& control) {
  if (!picture_.Is_Of(control.picture)) {
    PictureFile next(control.picture);
    // A file that the system cannot read leaves what is on view.
    if (next.Is_There() || control.picture.empty()) picture_ = std::move(next);
  }
  InvalidateRect(window_, nullptr, FALSE);
}

std::wstring FormControlWindow::Shown_Text() const {
  std::wstring text(static_cast<std::size_t>(Tell(WM_GETTEXTLENGTH)) + 1, L'\0');
  const auto length = Tell(WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

std::string FormControlWindow::Text() const { return Narrow(Shown_Text()); }

int FormControlWindow::Index() const {
  return static_cast<int>(Tell(kind_ == FormControlKind::ListBox ? LB_GETCURSEL : CB_GETCURSEL));
}

HWND FormControlWindow::Edit_Part() const {
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  if (kind_ != FormControlKind::ComboBox || !GetComboBoxInfo(window_, &parts)) return nullptr;
  return parts.hwndItem;
}

bool FormControlWindow::Is_Dropped_Down() const {
  return kind_ == FormControlKind::ComboBox && Tell(CB_GETDROPPEDSTATE) != 0;
}

}  // namespace quillspeech::windows
