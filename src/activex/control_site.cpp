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

bool ControlSite::Ambient(DISPID ambient, VARTYPE type, VARIANT& value) const {
  const auto ambients = As<IDispatch>();
  if (!ambients) return false;
  DISPPARAMS nothing = {};
  const HRESULT asked = ambients->Invoke(ambient, IID_NULL, LOCALE_USER_DEFAULT,
                                         DISPATCH_PROPERTYGET, &nothing, &value, nullptr, nullptr);
  // Some answer every property that they do not have with success and nothing.
  if (FAILED(asked) || value.vt == VT_EMPTY) return false;
  return SUCCEEDED(VariantChangeType(&value, &value, 0, type));
}

bool ControlSite::User_Mode() const {
  ScopedVariant told;
  if (Ambient(DISPID_AMBIENT_USERMODE, VT_BOOL, told)) return told.boolVal != VARIANT_FALSE;
  return flags_ == 0 || (flags_ & QACONTAINER_USERMODE);
}

bool ControlSite::UI_Dead() const {
  ScopedVariant told;
  if (Ambient(DISPID_AMBIENT_UIDEAD, VT_BOOL, told)) return told.boolVal != VARIANT_FALSE;
  return flags_ & QACONTAINER_UIDEAD;
}

std::wstring ControlSite::Display_Name() const {
  ScopedVariant told;
  if (!Ambient(DISPID_AMBIENT_DISPLAYNAME, VT_BSTR, told)) return {};
  return {told.bstrVal, SysStringLen(told.bstrVal)};
}

void ControlSite::Tell_Focus(bool got) const {
  if (const auto site = As<IOleControlSite>()) site->OnFocus(got ? TRUE : FALSE);
}

bool ControlSite::Takes_Key(MSG& message) const {
  const auto site = As<IOleControlSite>();
  return site && site->TranslateAccelerator(&message, Modifier_Keys()) == S_OK;
}

}  // namespace quillspeech::activex
