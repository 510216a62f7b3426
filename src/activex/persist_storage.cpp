#include "activex/persist_storage.hpp"

#include <utility>

#include "activex/persist_stream_init.hpp"

namespace quillspeech::activex {
namespace {

constexpr wchar_t Stream_Name[] = L"Quillspeech";

}  // namespace

HRESULT PersistStorage::InitNew(IStorage* storage) {
  if (!storage) return E_POINTER;
  if (state_ != State::No_Storage || record_.Has_Begun()) return CO_E_ALREADYINITIALIZED;
  const ComPtr<IUnknown> whole(&Whole());
  const HRESULT begun = record_.Initialise();
  if (SUCCEEDED(begun)) state_ = State::Normal;
  return begun;
}

HRESULT PersistStorage::Load(IStorage* storage) {
  if (!storage) return E_POINTER;
  if (state_ != State::No_Storage) return CO_E_ALREADYINITIALIZED;
  const ComPtr<IUnknown> whole(&Whole());
  ComPtr<IStream> stream;
  HRESULT result = storage->OpenStream(Stream_Name, nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0,
                                       stream.Receive());
  if (SUCCEEDED(result)) result = Load_From(*stream, record_);
  if (SUCCEEDED(result)) state_ = State::Normal;
  return result;
}

// A container may also save what was begun or loaded through another interface.
HRESULT PersistStorage::Save(IStorage* storage, BOOL same_as_loaded) {
  if (!storage) return E_POINTER;
  if (state_ == State::Saving || state_ == State::Hands_Off) return E_UNEXPECTED;
  const ComPtr<IUnknown> whole(&Whole());
  ComPtr<IStream> stream;
  HRESULT result = storage->CreateStream(
      Stream_Name, STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0, 0, stream.Receive());
  if (SUCCEEDED(result)) result = Save_To(*stream, record_);
  if (FAILED(result)) return result;
  is_saved_ = true;
  saves_own_ = same_as_loaded != FALSE;
  state_ = State::Saving;
  return S_OK;
}

// With a storage, that one is the control's from now on; and so a copy has become it.
HRESULT PersistStorage::SaveCompleted(IStorage* storage) {
  if (state_ != State::Saving && state_ != State::Hands_Off) return E_UNEXPECTED;
  if (state_ == State::Hands_Off && !storage) return E_INVALIDARG;
  const ComPtr<IUnknown> whole(&Whole());
  state_ = State::Normal;
  if (std::exchange(is_saved_, false)) record_.Is_Saved(saves_own_ || storage);
  return S_OK;
}

HRESULT PersistStorage::HandsOffStorage() {
  if (state_ != State::Normal && state_ != State::Saving) return E_UNEXPECTED;
  state_ = State::Hands_Off;
  return S_OK;
}

}  // namespace quillspeech::activex
