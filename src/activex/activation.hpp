// How active one control is in its container, and the conversation by which that changes.
//
//   Inactive   no window: the container draws it through its view
//   Opening    the container has taken it in, and is asked where
//   In_Place   its window lies in the container's
//   UI         it has the keyboard, too
#pragma once

#include "activex/com.hpp"
#include "activex/control_access.hpp"
#include "activex/control_site.hpp"
#include "activex/in_place_window.hpp"
#include "activex/shown_mode.hpp"

namespace quillspeech::activex {

class OleInPlaceActiveObject;

// The container may answer each call with another: close the control, deactivate it, let go of it.
// Whatever state it is found in then is left to stand.
class Activation final : private InPlaceWindow::Listener {
 public:
  // The object for the frame is the control's own; it may be made later.
  Activation(IUnknown& whole, ControlAccess& access, ControlSite& site, ShownMode& shown,
             Form& face, OleInPlaceActiveObject& active_object);

  // Null while there is none.
  HWND Window() const { return window_.Handle(); }
  // Null while it is not in place.
  const ComPtr<IOleInPlaceFrame>& Frame() const { return frame_; }
  bool Has_Keyboard() const { return state_ == State::UI; }

  // By a verb, with the site that came with it for a control that was given none. E_FAIL when
  // there is no site that takes it in place, or it will not.
  HRESULT Activate_In_Place(IOleClientSite* with_verb);
  // The message that was the cause, if any, tells from which end the focus comes.
  HRESULT Activate_UI(IOleClientSite* with_verb, const MSG* cause);
  HRESULT Hide();
  HRESULT Deactivate_UI();
  HRESULT Deactivate_In_Place();

  HRESULT Set_Rectangles(const RECT& position, const RECT& clip);
  // Design mode may have come or gone.
  void Follow_Ambients();
  // S_FALSE: neither the control nor its site has made use of the key.
  HRESULT Translate_Key(MSG& message);
  void Repaint() { window_.Repaint(); }

 private:
  enum class State { Inactive, Opening, In_Place, UI };

  void On_Focus(bool got) noexcept override;
  void On_Paint() noexcept override;
  bool On_Key(MSG& message) noexcept override;

  bool Is_In_Place() const { return state_ != State::Inactive; }
  HRESULT Open_Window();
  void Show_Window();
  void Tell_Active_Object(IOleInPlaceActiveObject* object);
  ChildMode Mode() const;

  IUnknown& whole_;
  ControlAccess& access_;
  ControlSite& site_;
  ShownMode& shown_;
  OleInPlaceActiveObject& active_object_;
  InPlaceWindow window_;
  State state_ = State::Inactive;
  ComPtr<IOleInPlaceSite> place_;  // while it is active, as are these two
  ComPtr<IOleInPlaceFrame> frame_;
  ComPtr<IOleInPlaceUIWindow> document_;  // null: the frame is the document's window, too
  bool asks_for_size_ = false;
};

}  // namespace quillspeech::activex
