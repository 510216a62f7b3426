// ISupportErrorInfo: which interfaces leave an IErrorInfo where there are words for a failure.
#pragma once

#include <span>

#include "activex/com.hpp"

namespace quillspeech::activex {

class SupportErrorInfo final : public PartOf<ISupportErrorInfo> {
 public:
  // The ids outlive it.
  SupportErrorInfo(IUnknown& whole, std::span<const IID* const> interfaces)
      : PartOf(whole), interfaces_(interfaces) {}

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;

 private:
  const std::span<const IID* const> interfaces_;
};

}  // namespace quillspeech::activex
