// An object of a host: a sink of events and of changes, or anything else with IDispatch.
#pragma once

#include <functional>

#include "activex/com.hpp"

namespace quillspeech::tests {

// Lives as long as its variable; `references` counts from 1.
class SimpleObject final : public IDispatch, public IPropertyNotifySink {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    *object = nullptr;
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == answers_to) {
      *object = static_cast<IDispatch*>(this);
    } else if (iid == IID_IPropertyNotifySink && hears_changes) {
      *object = static_cast<IPropertyNotifySink*>(this);
    } else {
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references); }
  ULONG STDMETHODCALLTYPE Release() override {
    const auto left = static_cast<ULONG>(--references);
    if (const auto now = At_Release) now();
    return left;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments,
                                   VARIANT* result, EXCEPINFO*, UINT*) override {
    return At_Invoke ? At_Invoke(id, arguments, result) : DISP_E_MEMBERNOTFOUND;
  }

  HRESULT STDMETHODCALLTYPE OnChanged(DISPID id) override {
    return At_Changed ? At_Changed(id) : S_OK;
  }
  HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) override {
    ++edits_requested;
    return S_FALSE;
  }

  std::function<HRESULT(DISPID, DISPPARAMS*, VARIANT*)> At_Invoke;
  std::function<HRESULT(DISPID)> At_Changed;
  std::function<void()> At_Release;
  IID answers_to = IID_NULL;  // one more name of its IDispatch
  bool hears_changes = true;
  int references = 1;
  int edits_requested = 0;
};

}  // namespace quillspeech::tests
