// IPersistStorage: the control's record in the stream "Quillspeech" of a storage.
#pragma once

#include "activex/com.hpp"
#include "activex/control_record.hpp"

namespace quillspeech::activex {

// Nothing of a storage is held between two calls, so it is the container's at any time. Calls out
// of turn are E_UNEXPECTED.
class PersistStorage final : public PartOf<IPersistStorage> {
 public:
  PersistStorage(IUnknown& whole, ControlRecord& record) : PartOf(whole), record_(record) {}

  HRESULT STDMETHODCALLTYPE GetClassID(CLSID* id) override { return Give_Class(id); }
  HRESULT STDMETHODCALLTYPE IsDirty() override { return record_.Is_Dirty() ? S_OK : S_FALSE; }
  HRESULT STDMETHODCALLTYPE InitNew(IStorage* storage) override;
  HRESULT STDMETHODCALLTYPE Load(IStorage* storage) override;
  HRESULT STDMETHODCALLTYPE Save(IStorage* storage, BOOL same_as_loaded) override;
  HRESULT STDMETHODCALLTYPE SaveCompleted(IStorage* storage) override;
  HRESULT STDMETHODCALLTYPE HandsOffStorage() override;

 private:
  enum class State { No_Storage, Normal, Saving, Hands_Off };

  ControlRecord& record_;
  State state_ = State::No_Storage;
  bool is_saved_ = false;   // into some storage, and nobody was told yet
  bool saves_own_ = false;  // the save under way goes where the record is kept
};

}  // namespace quillspeech::activex
