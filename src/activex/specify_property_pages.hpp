// ISpecifyPropertyPages: the eight pages of the control, in their order.
#pragma once

#include "activex/com.hpp"
#include "activex/page_classes.hpp"

namespace quillspeech::activex {

class SpecifyPropertyPages final : public PartOf<ISpecifyPropertyPages> {
 public:
  using PartOf::PartOf;

  // The receiver frees the list.
  HRESULT STDMETHODCALLTYPE GetPages(CAUUID* pages) override;
};

}  // namespace quillspeech::activex
