// IOleInPlaceActiveObject: the control while it has the keyboard.
#pragma once

#include "activex/activation.hpp"
#include "activex/com.hpp"

namespace quillspeech::activex {

// It has no tools and no windows apart that the container's frames could concern.
class OleInPlaceActiveObject final : public PartOf<IOleInPlaceActiveObject> {
 public:
  OleInPlaceActiveObject(IUnknown& whole, Activation& activation)
      : PartOf(whole), activation_(activation) {}

  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
  // S_FALSE: the key is the container's.
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message) override;
  HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnDocWindowActivate(BOOL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) override { return S_OK; }

 private:
  Activation& activation_;
};

}  // namespace quillspeech::activex
