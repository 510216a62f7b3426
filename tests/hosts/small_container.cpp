#include "tests/hosts/small_container.hpp"

#include <stdexcept>

namespace quillspeech::tests {
namespace {

using activex::ComPtr;

// A form on which nothing was changed.
class NoProperties final : public IPropertyBag {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    const bool known = iid == IID_IUnknown || iid == IID_IPropertyBag;
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE Read(LPCOLESTR, VARIANT*, IErrorLog*) override { return E_INVALIDARG; }
  HRESULT STDMETHODCALLTYPE Write(LPCOLESTR, VARIANT*) override { return S_OK; }
};

void Demand(HRESULT result, const char* what) {
  if (FAILED(result)) throw std::runtime_error(what);
}

ComPtr<IUnknown> Make_Control() {
  CLSID clsid = {};
  ComPtr<IUnknown> control;
  Demand(CLSIDFromProgID(L"QuillspeechX.Quillspeech", &clsid), "the control is not registered");
  Demand(
      CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, control.Receive_Void()),
      "the control cannot be made");
  return control;
}

}  // namespace

SmallContainer::SmallContainer(HWND frame, bool user_mode)
    : frame_(frame), user_mode_(user_mode), control_(Make_Control()) {
  const auto object = control_.As<IOleObject>(IID_IOleObject);
  Demand(object ? object->SetClientSite(this) : E_NOINTERFACE, "no client site");
  const auto storage = control_.As<IPersistPropertyBag>(IID_IPersistPropertyBag);
  NoProperties bag;
  Demand(storage ? storage->Load(&bag, nullptr) : E_NOINTERFACE, "it does not load");
  RECT place = {};
  GetClientRect(frame_, &place);
  Demand(object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, this, 0, frame_, &place),
         "it does not activate");
}

SmallContainer::~SmallContainer() {
  const auto object = control_.As<IOleObject>(IID_IOleObject);
  object->Close(OLECLOSE_NOSAVE);
  object->SetClientSite(nullptr);
}

HRESULT SmallContainer::QueryInterface(REFIID iid, void** object) {
  *object = nullptr;
  if (iid == IID_IUnknown || iid == IID_IOleClientSite) {
    *object = static_cast<IOleClientSite*>(this);
  } else if (iid == IID_IOleInPlaceSite || iid == IID_IOleWindow) {
    *object = static_cast<IOleInPlaceSite*>(this);
  } else if (iid == IID_IOleInPlaceFrame || iid == IID_IOleInPlaceUIWindow) {
    *object = static_cast<IOleInPlaceFrame*>(this);
  } else if (iid == IID_IDispatch) {
    *object = static_cast<IDispatch*>(this);
  }
  return *object ? S_OK : E_NOINTERFACE;
}

HRESULT SmallContainer::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                         LPRECT place, LPRECT clip,
                                         LPOLEINPLACEFRAMEINFO information) {
  *frame = this;
  *document = nullptr;
  GetClientRect(frame_, place);
  *clip = *place;
  information->fMDIApp = FALSE;
  information->hwndFrame = frame_;
  information->haccel = nullptr;
  information->cAccelEntries = 0;
  return S_OK;
}

HRESULT SmallContainer::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result,
                               EXCEPINFO*, UINT*) {
  if (id != DISPID_AMBIENT_USERMODE || !result) return DISP_E_MEMBERNOTFOUND;
  V_VT(result) = VT_BOOL;
  V_BOOL(result) = user_mode_ ? VARIANT_TRUE : VARIANT_FALSE;
  return S_OK;
}

}  // namespace quillspeech::tests
