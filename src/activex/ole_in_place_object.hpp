// IOleInPlaceObject, with IOleWindow: the control's place in the container's window.
#pragma once

#include "activex/activation.hpp"
#include "activex/com.hpp"

namespace quillspeech::activex {

// E_FAIL and the like where there is no window to answer for. There is nothing to undo and no help
// on the context.
class OleInPlaceObject final : public PartOf<IOleInPlaceObject> {
 public:
  OleInPlaceObject(IUnknown& whole, Activation& activation)
      : PartOf(whole), activation_(activation) {}

  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE InPlaceDeactivate() override;
  HRESULT STDMETHODCALLTYPE UIDeactivate() override;
  HRESULT STDMETHODCALLTYPE SetObjectRects(LPCRECT position, LPCRECT clip) override;
  HRESULT STDMETHODCALLTYPE ReactivateAndUndo() override { return INPLACE_E_NOTUNDOABLE; }

 private:
  Activation& activation_;
};

// For both interfaces that are windows. E_POINTER, or E_FAIL without a window.
HRESULT Give_Window(const Activation& activation, HWND* window);

}  // namespace quillspeech::activex
