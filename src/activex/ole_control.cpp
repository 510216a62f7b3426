#include "activex/ole_control.hpp"

#include "activex/errors.hpp"

namespace quillspeech::activex {

HRESULT OleControl::GetControlInfo(CONTROLINFO* information) {
  if (!information) return E_POINTER;
  *information = {};
  information->cb = sizeof *information;
  return S_OK;
}

HRESULT OleControl::OnAmbientPropertyChange(DISPID ambient) {
  if (ambient != DISPID_AMBIENT_USERMODE && ambient != DISPID_AMBIENT_UIDEAD &&
      ambient != DISPID_UNKNOWN) {
    return S_OK;
  }
  return Guarded([&] {
    activation_.Follow_Ambients();
    return S_OK;
  });
}

HRESULT OleControl::FreezeEvents(BOOL freeze) {
  events_.Freeze(freeze != FALSE);
  return S_OK;
}

}  // namespace quillspeech::activex
