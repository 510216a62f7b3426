#include "activex/specify_property_pages.hpp"

#include <algorithm>
#include <array>

#include "activex/guids.hpp"

namespace quillspeech::activex {
namespace {

constexpr std::array Pages = {
    CLSID_StartingKeys,     CLSID_InterestingSettings, CLSID_WindowsTechnicalSettings,
    CLSID_EngineDepartment, CLSID_LanguageDepartment,  CLSID_WaveAudioDepartment,
    CLSID_ErrorDepartment,  CLSID_SoundCardSettings,
};

}  // namespace

HRESULT SpecifyPropertyPages::GetPages(CAUUID* pages) {
  if (!pages) return E_POINTER;
  *pages = {};
  pages->pElems = static_cast<GUID*>(CoTaskMemAlloc(sizeof Pages));
  if (!pages->pElems) return E_OUTOFMEMORY;
  std::ranges::copy(Pages, pages->pElems);
  pages->cElems = Pages.size();
  return S_OK;
}

}  // namespace quillspeech::activex
