// The face drawn by the container's wish, without a window.
#pragma once

#include "activex/com.hpp"
#include "activex/control_access.hpp"
#include "platform/form.hpp"

namespace quillspeech::activex {

class FacePicture {
 public:
  FacePicture(ControlAccess& access, Form& face) : access_(access), face_(face) {}

  // Into the rectangle, in the units of the device.
  void Draw(HDC device, const RECT& bounds);
  // A metafile of it in the medium, which the receiver frees. E_OUTOFMEMORY.
  HRESULT Give_Metafile(STGMEDIUM& medium);

  // While it is drawn, a change of its colours is no news.
  bool Is_Drawing() const { return is_drawing_; }

 private:
  ControlAccess& access_;
  Form& face_;
  bool is_drawing_ = false;
};

}  // namespace quillspeech::activex
