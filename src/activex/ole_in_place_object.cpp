#include "activex/ole_in_place_object.hpp"

#include "activex/errors.hpp"

namespace quillspeech::activex {

HRESULT Give_Window(const Activation& activation, HWND* window) {
  if (!window) return E_POINTER;
  *window = activation.Window();
  return *window ? S_OK : E_FAIL;
}

HRESULT OleInPlaceObject::GetWindow(HWND* window) { return Give_Window(activation_, window); }

HRESULT OleInPlaceObject::InPlaceDeactivate() {
  return Guarded([&] { return activation_.Deactivate_In_Place(); });
}

HRESULT OleInPlaceObject::UIDeactivate() {
  return Guarded([&] { return activation_.Deactivate_UI(); });
}

HRESULT OleInPlaceObject::SetObjectRects(LPCRECT position, LPCRECT clip) {
  if (!position) return E_INVALIDARG;
  // Without a clip, all of it shows.
  const RECT everything = {-0x8000, -0x8000, 0x7FFF, 0x7FFF};
  return Guarded([&] { return activation_.Set_Rectangles(*position, clip ? *clip : everything); });
}

}  // namespace quillspeech::activex
