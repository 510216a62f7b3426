#include "activex/specify_property_pages.hpp"

#include <algorithm>

namespace quillspeech::activex {

HRESULT SpecifyPropertyPages::GetPages(CAUUID* pages) {
  if (!pages) return E_POINTER;
  *pages = {};
  pages->pElems = static_cast<GUID*>(CoTaskMemAlloc(sizeof Page_Classes));
  if (!pages->pElems) return E_OUTOFMEMORY;
  std::ranges::copy(Page_Classes, pages->pElems);
  pages->cElems = Page_Classes.size();
  return S_OK;
}

}  // namespace quillspeech::activex
