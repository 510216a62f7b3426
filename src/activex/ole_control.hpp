// IOleControl: what the container says of keys, of ambient properties and of events.
#pragma once

#include "activex/activation.hpp"
#include "activex/com.hpp"
#include "activex/events.hpp"

namespace quillspeech::activex {

class OleControl final : public PartOf<IOleControl> {
 public:
  OleControl(IUnknown& whole, Activation& activation, EventSender& events)
      : PartOf(whole), activation_(activation), events_(events) {}

  // The captions of its buttons have no letters to press.
  HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* information) override;
  HRESULT STDMETHODCALLTYPE OnMnemonic(MSG*) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID ambient) override;
  HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL freeze) override;

 private:
  Activation& activation_;
  EventSender& events_;
};

}  // namespace quillspeech::activex
