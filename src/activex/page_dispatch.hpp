// IDispatch of a property page: the interface that the type library has for its class, which has no
// members.
#pragma once

#include "activex/com.hpp"

namespace quillspeech::activex {

class PageDispatch final : public PartOf<IDispatch> {
 public:
  PageDispatch(IUnknown& whole, REFIID iid) : PartOf(whole), iid_(iid) {}

  // Its id in the type library, beside IID_IDispatch.
  REFIID Id() const { return iid_; }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** information) override;
  // No name and no id is a member's.
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID iid, LCID, WORD, DISPPARAMS*, VARIANT* result,
                                   EXCEPINFO*, UINT*) override;

 private:
  const IID iid_;
};

}  // namespace quillspeech::activex
