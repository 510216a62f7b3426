// IPersistStreamInit: the control's record in a stream, laid out as stored_record.hpp tells.
#pragma once

#include "activex/com.hpp"
#include "activex/control_record.hpp"

namespace quillspeech::activex {

// Also for IPersistStream, whose entries are the first of these.
class PersistStreamInit final : public PartOf<IPersistStreamInit> {
 public:
  PersistStreamInit(IUnknown& whole, ControlRecord& record) : PartOf(whole), record_(record) {}

  HRESULT STDMETHODCALLTYPE GetClassID(CLSID* id) override { return Give_Class(id); }
  HRESULT STDMETHODCALLTYPE IsDirty() override { return record_.Is_Dirty() ? S_OK : S_FALSE; }
  HRESULT STDMETHODCALLTYPE Load(IStream* stream) override;
  HRESULT STDMETHODCALLTYPE Save(IStream* stream, BOOL clear_dirty) override;
  HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER* size) override;
  HRESULT STDMETHODCALLTYPE InitNew() override;

 private:
  ControlRecord& record_;
};

// For storages, too.
HRESULT Load_From(IStream& stream, ControlRecord& record);
HRESULT Save_To(IStream& stream, ControlRecord& record);

}  // namespace quillspeech::activex
