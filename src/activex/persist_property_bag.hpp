// IPersistPropertyBag: the control's record as named values in the container's bag.
#pragma once

#include "activex/com.hpp"
#include "activex/control_record.hpp"

namespace quillspeech::activex {

class PersistPropertyBag final : public PartOf<IPersistPropertyBag> {
 public:
  PersistPropertyBag(IUnknown& whole, ControlRecord& record) : PartOf(whole), record_(record) {}

  HRESULT STDMETHODCALLTYPE GetClassID(CLSID* id) override { return Give_Class(id); }
  HRESULT STDMETHODCALLTYPE InitNew() override;
  // A key that the bag has not (E_INVALIDARG) has its default; any other error of the bag ends the
  // load and goes out.
  HRESULT STDMETHODCALLTYPE Load(IPropertyBag* bag, IErrorLog* log) override;
  // Without save_all, only what differs from its default.
  HRESULT STDMETHODCALLTYPE Save(IPropertyBag* bag, BOOL clear_dirty, BOOL save_all) override;

 private:
  ControlRecord& record_;
};

}  // namespace quillspeech::activex
