#include "activex/persist_stream_init.hpp"

#include "activex/errors.hpp"
#include "activex/stored_record.hpp"

namespace quillspeech::activex {

HRESULT Load_From(IStream& stream, ControlRecord& record) {
  return Guarded([&] {
    StoredRecord stored;
    const HRESULT read = stored.Read_From(stream);
    return FAILED(read) ? read : record.Load(stored);
  });
}

HRESULT Save_To(IStream& stream, ControlRecord& record) {
  return Guarded([&] {
    StoredRecord stored;
    const HRESULT saved = record.Save(stored);
    return FAILED(saved) ? saved : stored.Write_To(stream);
  });
}

HRESULT PersistStreamInit::Load(IStream* stream) {
  if (!stream) return E_POINTER;
  const ComPtr<IUnknown> whole(&Whole());
  return Load_From(*stream, record_);
}

HRESULT PersistStreamInit::Save(IStream* stream, BOOL clear_dirty) {
  if (!stream) return E_POINTER;
  const ComPtr<IUnknown> whole(&Whole());
  const HRESULT saved = Save_To(*stream, record_);
  if (SUCCEEDED(saved)) record_.Is_Saved(clear_dirty != FALSE);
  return saved;
}

HRESULT PersistStreamInit::GetSizeMax(ULARGE_INTEGER* size) {
  if (!size) return E_POINTER;
  std::uint64_t bytes = 0;
  const HRESULT measured = record_.Most_Bytes(bytes);
  size->QuadPart = bytes;
  return measured;
}

HRESULT PersistStreamInit::InitNew() {
  const ComPtr<IUnknown> whole(&Whole());
  return record_.Initialise();
}

}  // namespace quillspeech::activex
