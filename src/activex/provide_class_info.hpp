// IProvideClassInfo2: the class in the type library, and the interface of its events.
#pragma once

#include "activex/com.hpp"

namespace quillspeech::activex {

class ProvideClassInfo final : public PartOf<IProvideClassInfo2> {
 public:
  using PartOf::PartOf;

  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** information) override;
  HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* guid) override;
};

}  // namespace quillspeech::activex
