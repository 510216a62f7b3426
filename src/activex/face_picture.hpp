// The face drawn by the container's wish, without a window.
#pragma once

#include "activex/com.hpp"
#include "activex/control_access.hpp"
#include "activex/shown_mode.hpp"
#include "platform/form.hpp"

namespace quillspeech::activex {

class FacePicture {
 public:
  FacePicture(ControlAccess& access, ShownMode& shown, Form& face)
      : access_(access), shown_(shown), face_(face) {}

  // Into the rectangle, in the units of the device.
  void Draw(HDC device, const RECT& bounds);
  // A metafile of it in the medium, which the receiver frees. E_OUTOFMEMORY.
  HRESULT Give_Metafile(STGMEDIUM& medium);

  // While it is drawn, a change of its looks for that is no news.
  bool Is_Drawing() const { return drawings_ > 0; }

 private:
  void Prepare();

  ControlAccess& access_;
  ShownMode& shown_;
  Form& face_;
  int drawings_ = 0;  // a container that is asked for its mode may draw, too
};

}  // namespace quillspeech::activex
