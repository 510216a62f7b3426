// The classes of the property pages.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

#include "activex/guids.hpp"
#include "core/property_pages.hpp"

namespace quillspeech::activex {

// In the order of Property_Pages().
inline constexpr std::array<CLSID, Property_Page_Count> Page_Classes = {
    CLSID_StartingKeys,     CLSID_InterestingSettings, CLSID_WindowsTechnicalSettings,
    CLSID_EngineDepartment, CLSID_LanguageDepartment,  CLSID_WaveAudioDepartment,
    CLSID_ErrorDepartment,  CLSID_SoundCardSettings,
};

// Their interfaces in the type library, in the same order.
inline constexpr std::array<IID, Property_Page_Count> Page_Interfaces = {
    DIID__StartingKeys,     DIID__InterestingSettings, DIID__WindowsTechnicalSettings,
    DIID__EngineDepartment, DIID__LanguageDepartment,  DIID__WaveAudioDepartment,
    DIID__ErrorDepartment,  DIID__SoundCardSettings,
};

// Null when the class is none of theirs.
inline const PropertyPage* Page_Of(REFCLSID id) {
  const auto found = std::ranges::find_if(
      Page_Classes, [&](const CLSID& page) { return IsEqualCLSID(page, id) != FALSE; });
  return found == Page_Classes.end()
             ? nullptr
             : &Property_Pages()[static_cast<std::size_t>(found - Page_Classes.begin())];
}

inline REFIID Interface_Of(const PropertyPage& page) {
  return Page_Interfaces[static_cast<std::size_t>(&page - Property_Pages().data())];
}

}  // namespace quillspeech::activex
