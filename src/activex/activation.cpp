#include "activex/activation.hpp"

#include <utility>

#include "activex/errors.hpp"
#include "activex/module.hpp"
#include "activex/ole_in_place_active_object.hpp"
#include "core/control.hpp"

namespace quillspeech::activex {
namespace {

InPlaceWindow::Entry Entry_By(const MSG* cause) {
  using Entry = InPlaceWindow::Entry;
  if (!cause || cause->message != WM_KEYDOWN || cause->wParam != VK_TAB) return Entry::By_Itself;
  return GetKeyState(VK_SHIFT) < 0 ? Entry::Last : Entry::First;
}

}  // namespace

Activation::Activation(IUnknown& whole, ControlAccess& access, ControlSite& site, ShownMode& shown,
                       Form& face, OleInPlaceActiveObject& active_object)
    : whole_(whole),
      access_(access),
      site_(site),
      shown_(shown),
      active_object_(active_object),
      window_(Module::Of_This_File().Views(), face, *this) {}

ChildMode Activation::Mode() const {
  return site_.User_Mode() && !site_.UI_Dead() ? ChildMode::Live : ChildMode::Inert;
}

HRESULT Activation::Activate_In_Place(IOleClientSite* with_verb) {
  const ComPtr<IUnknown> whole(&whole_);
  if (state_ == State::Opening) return S_OK;
  if (!window_.Is_Open()) Deactivate_In_Place();  // the window went with its parent
  if (Is_In_Place()) {
    Show_Window();
    return S_OK;
  }
  const auto client = site_ ? site_.Get() : ComPtr<IOleClientSite>(with_verb);
  const auto place = client.As<IOleInPlaceSite>();
  if (!place || place->CanInPlaceActivate() != S_OK || Is_In_Place()) return E_FAIL;
  const HRESULT accepted = place->OnInPlaceActivate();
  if (FAILED(accepted)) return accepted;
  if (Is_In_Place()) return S_OK;
  state_ = State::Opening;
  place_ = place;
  const HRESULT opened = Guarded([&] { return Open_Window(); });
  if (FAILED(opened)) {
    if (state_ == State::Opening) Deactivate_In_Place();
    return Is_In_Place() ? S_OK : opened;
  }
  client->ShowObject();
  return S_OK;
}

// The container may deactivate it on the way, and even activate it again: that one stands then.
HRESULT Activation::Open_Window() {
  const auto place = place_;
  HWND parent = nullptr;
  RECT position = {};
  RECT clip = {};
  OLEINPLACEFRAMEINFO information = {};
  information.cb = sizeof information;
  HRESULT told = place->GetWindow(&parent);
  if (FAILED(told)) return told;
  ComPtr<IOleInPlaceFrame> frame;
  ComPtr<IOleInPlaceUIWindow> document;
  told =
      place->GetWindowContext(frame.Receive(), document.Receive(), &position, &clip, &information);
  if (FAILED(told)) return told;
  if (state_ != State::Opening) return E_FAIL;
  frame_ = std::move(frame);
  document_ = std::move(document);
  if (!window_.Open(parent, position, Mode())) return E_FAIL;
  state_ = State::In_Place;
  Set_Rectangles(position, clip);
  if (!window_.Is_Open()) return E_FAIL;
  Show_Window();
  return S_OK;
}

void Activation::Show_Window() {
  if (!window_.Is_Shown()) shown_.Appear();
  window_.Show(true);
}

HRESULT Activation::Activate_UI(IOleClientSite* with_verb, const MSG* cause) {
  const ComPtr<IUnknown> whole(&whole_);
  const HRESULT in_place = Activate_In_Place(with_verb);
  if (FAILED(in_place)) return in_place;
  if (state_ == State::In_Place) {
    const auto place = place_;
    const HRESULT accepted = place->OnUIActivate();
    if (FAILED(accepted)) return accepted;
    if (state_ != State::In_Place) return S_OK;
    state_ = State::UI;
    Tell_Active_Object(&active_object_);
  }
  if (state_ == State::UI && Mode() == ChildMode::Live) window_.Take_Focus(Entry_By(cause));
  return S_OK;
}

// Null: no object is active any more. It has no menus and no tools of its own.
void Activation::Tell_Active_Object(IOleInPlaceActiveObject* object) {
  const auto frame = frame_;
  const auto document = document_;
  const wchar_t* const name = object ? L"Quillspeech" : nullptr;
  if (frame) {
    frame->SetActiveObject(object, name);
    if (object) frame->SetBorderSpace(nullptr);
  }
  if (!document) return;
  document->SetActiveObject(object, name);
  if (object) document->SetBorderSpace(nullptr);
}

HRESULT Activation::Hide() {
  const ComPtr<IUnknown> whole(&whole_);
  Deactivate_UI();
  window_.Show(false);
  return S_OK;
}

HRESULT Activation::Deactivate_UI() {
  if (state_ != State::UI) return S_OK;
  const ComPtr<IUnknown> whole(&whole_);
  const auto place = place_;
  state_ = State::In_Place;
  Tell_Active_Object(nullptr);
  place->OnUIDeactivate(FALSE);
  return S_OK;
}

HRESULT Activation::Deactivate_In_Place() {
  if (!Is_In_Place()) return S_OK;
  const ComPtr<IUnknown> whole(&whole_);
  Deactivate_UI();
  if (!Is_In_Place()) return S_OK;
  state_ = State::Inactive;
  const auto place = std::exchange(place_, nullptr);
  frame_ = nullptr;
  document_ = nullptr;
  window_.Close();
  place->OnInPlaceDeactivate();
  return S_OK;
}

// A container that offers another size is asked once to make it the control's own.
HRESULT Activation::Set_Rectangles(const RECT& position, const RECT& clip) {
  if (!window_.Is_Open()) return E_UNEXPECTED;
  window_.Place(position, clip);
  const RECT own = window_.Place_At(position);
  if (EqualRect(&own, &position) || asks_for_size_) return S_OK;
  const ComPtr<IUnknown> whole(&whole_);
  const auto place = place_;
  asks_for_size_ = true;
  if (place) place->OnPosRectChange(&own);
  asks_for_size_ = false;
  return S_OK;
}

// Where it has no window, the container draws it anew.
void Activation::Follow_Ambients() {
  const ComPtr<IUnknown> whole(&whole_);
  if (window_.Is_Open()) {
    if (Mode() == ChildMode::Inert) Deactivate_UI();
    window_.Set_Mode(Mode());
  }
  if (!shown_.Is_Outdated()) return;
  if (window_.Is_Shown()) shown_.Appear();
  if (const auto control = access_.Living()) control->Refresh();
}

HRESULT Activation::Translate_Key(MSG& message) {
  if (state_ != State::UI) return S_FALSE;
  const ComPtr<IUnknown> whole(&whole_);
  if (window_.Take_Key(message)) return S_OK;
  return site_.Takes_Key(message) ? S_OK : S_FALSE;
}

void Activation::On_Focus(bool got) noexcept {
  Guarded([&] {
    const ComPtr<IUnknown> whole(&whole_);
    if (got && state_ == State::In_Place) Activate_UI(nullptr, nullptr);
    site_.Tell_Focus(got);
    return S_OK;
  });
}

bool Activation::On_Key(MSG& message) noexcept {
  return Guarded([&] { return Translate_Key(message); }) == S_OK;
}

void Activation::On_Paint() noexcept {
  Guarded([&] {
    const ComPtr<IUnknown> whole(&whole_);
    if (const auto control = access_.Living()) control->UserControl_Paint();
    return S_OK;
  });
}

}  // namespace quillspeech::activex
