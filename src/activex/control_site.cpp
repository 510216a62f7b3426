#include "activex/control_site.hpp"

#include "activex/scoped_variant.hpp"

namespace quillspeech::activex {
namespace {

bool Is_Down(int key) { return GetKeyState(key) < 0; }

DWORD Modifier_Keys() {
  DWORD keys = 0;
  if (Is_Down(VK_SHIFT)) keys |= 1;
  if (Is_Down(VK_CONTROL)) keys |= 2;
  if (Is_Down(VK_MENU)) keys |= 4;
  return keys;
}

}  // namespace

bool ControlSite::Ambient_Truth(DISPID ambient, bool unless_told) const {
  const auto ambients = As<IDispatch>();
  if (!ambients) return unless_told;
  DISPPARAMS nothing = {};
  ScopedVariant answer;
  const HRESULT asked = ambients->Invoke(ambient, IID_NULL, LOCALE_USER_DEFAULT,
                                         DISPATCH_PROPERTYGET, &nothing, &answer, nullptr, nullptr);
  if (FAILED(asked) || FAILED(VariantChangeType(&answer, &answer, 0, VT_BOOL))) return unless_told;
  return answer.boolVal != VARIANT_FALSE;
}

void ControlSite::Tell_Focus(bool got) const {
  if (const auto site = As<IOleControlSite>()) site->OnFocus(got ? TRUE : FALSE);
}

bool ControlSite::Takes_Key(MSG& message) const {
  const auto site = As<IOleControlSite>();
  return site && site->TranslateAccelerator(&message, Modifier_Keys()) == S_OK;
}

}  // namespace quillspeech::activex
