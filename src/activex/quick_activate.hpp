// IQuickActivate: the handshake of container and control in one call.
#pragma once

#include "activex/com.hpp"

namespace quillspeech::activex {

class QuickActivation final : public PartOf<IQuickActivate> {
 public:
  using PartOf::PartOf;

  HRESULT STDMETHODCALLTYPE QuickActivate(QACONTAINER* container, QACONTROL* control) override;
  HRESULT STDMETHODCALLTYPE SetContentExtent(LPSIZEL extent) override;
  HRESULT STDMETHODCALLTYPE GetContentExtent(LPSIZEL extent) override;
};

}  // namespace quillspeech::activex
