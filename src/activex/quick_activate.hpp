// IQuickActivate: the handshake of container and control in one call.
#pragma once

#include "activex/com.hpp"
#include "activex/connection_points.hpp"
#include "activex/control_site.hpp"
#include "activex/ole_object.hpp"
#include "activex/view_object.hpp"

namespace quillspeech::activex {

class QuickActivation final : public PartOf<IQuickActivate> {
 public:
  QuickActivation(IUnknown& whole, ControlSite& site, OleObject& object, ViewObject& view,
                  ConnectionPoints& points)
      : PartOf(whole), site_(site), object_(object), view_(view), points_(points) {}

  HRESULT STDMETHODCALLTYPE QuickActivate(QACONTAINER* container, QACONTROL* control) override;
  HRESULT STDMETHODCALLTYPE SetContentExtent(LPSIZEL extent) override {
    return object_.SetExtent(DVASPECT_CONTENT, extent);
  }
  HRESULT STDMETHODCALLTYPE GetContentExtent(LPSIZEL extent) override {
    return object_.GetExtent(DVASPECT_CONTENT, extent);
  }

 private:
  ControlSite& site_;
  OleObject& object_;
  ViewObject& view_;
  ConnectionPoints& points_;
};

}  // namespace quillspeech::activex
