#include "activex/aggregated_object.hpp"

namespace quillspeech::activex {
namespace {

// Far from 0, so that whoever takes and gives back a reference while the object ends does not end
// it again.
constexpr ULONG Count_While_Ending = 0x40000000;

}  // namespace

HRESULT AggregatedObject::InnerUnknown::QueryInterface(REFIID iid, void** interface_out) {
  if (!interface_out) return E_POINTER;
  *interface_out = nullptr;
  IUnknown* const found = IsEqualIID(iid, IID_IUnknown) ? this : object_.Interface_Of(iid);
  if (!found) return E_NOINTERFACE;
  found->AddRef();  // counts on the whole, or here for the inner identity
  *interface_out = found;
  return S_OK;
}

ULONG AggregatedObject::InnerUnknown::Release() {
  const ULONG left = --count_;
  if (left != 0) return left;
  count_ = Count_While_Ending;
  object_.At_Last_Release();
  delete &object_;
  return 0;
}

HRESULT Give_New(AggregatedObject& made, IUnknown* outer, REFIID iid, void** object) {
  const auto reference = ComPtr<IUnknown>::Adopt(&made.Inner());
  if (outer && !IsEqualIID(iid, IID_IUnknown)) return CLASS_E_NOAGGREGATION;
  return reference->QueryInterface(iid, object);
}

}  // namespace quillspeech::activex
