// ISupportErrorInfo: the vtable of _Quillspeech leaves an IErrorInfo for each failure.
#pragma once

#include "activex/com.hpp"

namespace quillspeech::activex {

class SupportErrorInfo final : public PartOf<ISupportErrorInfo> {
 public:
  using PartOf::PartOf;

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;
};

}  // namespace quillspeech::activex
