#include "activex/in_place_window.hpp"

#include <system_error>

#include "activex/control_extent.hpp"
#include "platform/windows/form_layout.hpp"

namespace quillspeech::activex {

InPlaceWindow::InPlaceWindow(windows::FormViews& views, Form& face, Listener& listener)
    : views_(views), face_(face), listener_(std::make_shared<Listener*>(&listener)) {}

InPlaceWindow::~InPlaceWindow() {
  *listener_ = nullptr;
  Close();
}

HWND InPlaceWindow::Handle() const { return reinterpret_cast<HWND>(views_.Window_Of(face_)); }

RECT InPlaceWindow::Place_At(const RECT& position) const {
  const SIZE size = Own_Size(views_.Dots_Per_Inch());
  return {position.left, position.top, position.left + size.cx, position.top + size.cy};
}

// The signals may end the window and themselves with it: whom they tell is read before that.
bool InPlaceWindow::Open(HWND parent, const RECT& position, ChildMode mode) {
  try {
    views_.Make_Child(face_, reinterpret_cast<std::intptr_t>(parent),
                      windows::Child_Place_Of(Place_At(position)), mode);
  } catch (const std::system_error&) {
    face_.Unload();
  }
  if (!Is_Open()) return false;
  const auto got_focus = [listener = listener_](bool got) {
    if (Listener* const told = *listener) told->On_Focus(got);
  };
  const auto paints = [listener = listener_] {
    if (Listener* const told = *listener) told->On_Paint();
  };
  const auto takes_key = [listener = listener_](MSG& message) {
    Listener* const told = *listener;
    return told && told->On_Key(message);
  };
  views_.Set_Signals(face_, {got_focus, paints, takes_key});
  return true;
}

void InPlaceWindow::Close() { face_.Unload(); }

void InPlaceWindow::Set_Mode(ChildMode mode) { views_.Set_Child_Mode(face_, mode); }

void InPlaceWindow::Show(bool visible) {
  if (!Is_Open()) return;
  if (visible) {
    views_.Show(face_, Modality::None);
  } else {
    views_.Hide(face_);
  }
}

void InPlaceWindow::Repaint() { views_.Repaint(face_); }

void InPlaceWindow::Place(const RECT& position, const RECT& clip) {
  const RECT place = Place_At(position);
  views_.Move_Child(face_, windows::Child_Place_Of(place));
  RECT seen = {};
  IntersectRect(&seen, &place, &clip);
  HRGN region = nullptr;  // all of it
  if (!EqualRect(&seen, &place)) {
    OffsetRect(&seen, -place.left, -place.top);
    region = CreateRectRgnIndirect(&seen);
  }
  SetWindowRgn(Handle(), region, TRUE);
}

bool InPlaceWindow::Has_Focus() const {
  const HWND window = Handle();
  const HWND now = GetFocus();
  return window && (now == window || IsChild(window, now));
}

void InPlaceWindow::Take_Focus(Entry entry) {
  const HWND window = Handle();
  if (!window || Has_Focus()) return;
  HWND to = window;
  if (entry != Entry::By_Itself) to = GetNextDlgTabItem(window, nullptr, FALSE);
  if (entry == Entry::Last) to = GetNextDlgTabItem(window, to, TRUE);
  SetFocus(to ? to : window);
}

bool InPlaceWindow::Take_Key(MSG& message) { return views_.Translate(face_, message); }

}  // namespace quillspeech::activex
