#include "event_sink.hpp"

#include <oleauto.h>

#include <utility>

namespace example {
namespace {

// The type information of the class's default source interface; null when it has none.
ITypeInfo* Source_Information(IProvideClassInfo2& provider) {
  ITypeInfo* whole = nullptr;
  if (FAILED(provider.GetClassInfo(&whole))) return nullptr;
  ITypeInfo* source = nullptr;
  TYPEATTR* attributes = nullptr;
  if (SUCCEEDED(whole->GetTypeAttr(&attributes))) {
    for (UINT i = 0; i < attributes->cImplTypes && !source; ++i) {
      constexpr int Wanted = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
      INT flags = 0;
      HREFTYPE reference = 0;
      if (FAILED(whole->GetImplTypeFlags(i, &flags)) || (flags & Wanted) != Wanted) continue;
      if (FAILED(whole->GetRefTypeOfImplType(i, &reference))) continue;
      if (FAILED(whole->GetRefTypeInfo(reference, &source))) source = nullptr;
    }
    whole->ReleaseTypeAttr(attributes);
  }
  whole->Release();
  return source;
}

// A sink is an IDispatch whose Invoke the control calls with the id of the event.
class Sink final : public IDispatch {
 public:
  Sink(REFIID events, ITypeInfo* information, EventHandler handler)
      : events_(events), information_(information), handler_(std::move(handler)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (!object) return E_POINTER;
    const bool known = iid == IID_IUnknown || iid == IID_IDispatch || iid == events_;
    *object = known ? this : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++count_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --count_;
    if (left == 0) delete this;
    return left;
  }

  // A control calls events by their ids; it asks for no names.
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*,
                                   EXCEPINFO*, UINT*) override {
    try {
      handler_(Name_Of(id), Argument_Of(*arguments));
      return S_OK;
    } catch (...) {
      return E_FAIL;  // nothing that is thrown may cross into the control
    }
  }

 private:
  virtual ~Sink() {
    if (information_) information_->Release();
  }

  std::wstring Name_Of(DISPID id) const {
    BSTR name = nullptr;
    UINT count = 0;
    if (!information_ || FAILED(information_->GetNames(id, &name, 1, &count)) || count == 0) {
      return std::to_wstring(id);
    }
    std::wstring text(name);
    SysFreeString(name);
    return text;
  }

  static std::wstring Argument_Of(const DISPPARAMS& arguments) {
    if (arguments.cArgs == 0) return {};
    VARIANT text;
    VariantInit(&text);
    if (FAILED(VariantChangeType(&text, &arguments.rgvarg[0], 0, VT_BSTR))) return {};
    std::wstring value(text.bstrVal, SysStringLen(text.bstrVal));
    VariantClear(&text);
    return value;
  }

  IID events_;
  ITypeInfo* information_;
  EventHandler handler_;
  ULONG count_ = 1;
};

}  // namespace

EventConnection::EventConnection(IUnknown& control, EventHandler handler) {
  IProvideClassInfo2* provider = nullptr;
  if (FAILED(control.QueryInterface(IID_IProvideClassInfo2, reinterpret_cast<void**>(&provider)))) {
    return;
  }
  IID events = {};
  provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events);
  sink_ = new Sink(events, Source_Information(*provider), std::move(handler));
  provider->Release();

  IConnectionPointContainer* points = nullptr;
  if (FAILED(control.QueryInterface(IID_IConnectionPointContainer,
                                    reinterpret_cast<void**>(&points)))) {
    return;
  }
  if (FAILED(points->FindConnectionPoint(events, &point_))) point_ = nullptr;
  points->Release();
  if (point_ && FAILED(point_->Advise(sink_, &cookie_))) {
    point_->Release();
    point_ = nullptr;
  }
}

EventConnection::~EventConnection() {
  if (point_) {
    point_->Unadvise(cookie_);
    point_->Release();
  }
  if (sink_) sink_->Release();
}

}  // namespace example
