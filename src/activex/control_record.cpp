#include "activex/control_record.hpp"

#include "activex/errors.hpp"
#include "activex/guids.hpp"
#include "activex/stored_record.hpp"

namespace quillspeech::activex {

HRESULT ControlRecord::Initialise() {
  return Guarded_By_Number([&] {
    const auto control = access_.Living();
    if (!control) return RPC_E_DISCONNECTED;
    if (has_begun_) return E_UNEXPECTED;
    has_begun_ = true;
    is_dirty_ = true;  // nothing of it is kept yet
    UserControl_InitProperties(*control);
    return S_OK;
  });
}

HRESULT ControlRecord::Load(PropertyBag& bag) {
  return Guarded_By_Number([&] {
    const auto control = access_.Living();
    if (!control) return RPC_E_DISCONNECTED;
    has_begun_ = true;
    UserControl_ReadProperties(*control, bag);
    is_dirty_ = false;
    return S_OK;
  });
}

HRESULT ControlRecord::Save(PropertyBag& bag) {
  return Guarded_By_Number([&] {
    const auto control = access_.Living();
    if (!control) return RPC_E_DISCONNECTED;
    UserControl_WriteProperties(*control, bag);
    return S_OK;
  });
}

// A save would bring the processing level in line with its text, so this only measures.
HRESULT ControlRecord::Most_Bytes(std::uint64_t& bytes) {
  return Guarded_By_Number([&] {
    const auto control = access_.Living();
    if (!control) return RPC_E_DISCONNECTED;
    StoredRecord all;
    for (const RecordKey& key : Record_Keys()) {
      all.WriteProperty(key.key, key.current(control->session, control->instance), MemberValue());
    }
    bytes = all.Bytes().size();
    return S_OK;
  });
}

void ControlRecord::Is_Saved(bool clear_dirty) {
  if (!clear_dirty) return;
  is_dirty_ = false;
  notices_.Saved();
}

HRESULT Give_Class(CLSID* id) {
  if (!id) return E_POINTER;
  *id = CLSID_Quillspeech;
  return S_OK;
}

}  // namespace quillspeech::activex
