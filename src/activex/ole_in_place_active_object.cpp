#include "activex/ole_in_place_active_object.hpp"

#include "activex/errors.hpp"
#include "activex/ole_in_place_object.hpp"

namespace quillspeech::activex {

HRESULT OleInPlaceActiveObject::GetWindow(HWND* window) { return Give_Window(activation_, window); }

HRESULT OleInPlaceActiveObject::TranslateAccelerator(MSG* message) {
  if (!message) return E_POINTER;
  return Guarded([&] { return activation_.Translate_Key(*message); });
}

}  // namespace quillspeech::activex
