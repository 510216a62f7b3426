#include "hosted_control.hpp"

#include <ocidl.h>

#include <utility>

namespace example {
namespace {

// What a form has stored of a control on which nothing was changed: every key has its default. A
// form that stores settings answers Read with them.
class EmptyPropertyBag : public IPropertyBag {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    const bool known = iid == IID_IUnknown || iid == IID_IPropertyBag;
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }  // it lives on the stack
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE Read(LPCOLESTR, VARIANT*, IErrorLog*) override { return E_INVALIDARG; }
  HRESULT STDMETHODCALLTYPE Write(LPCOLESTR, VARIANT*) override { return S_OK; }
};

void Demand(HRESULT code, const wchar_t* what) {
  if (FAILED(code)) throw CallFailed{code, what};
}

template <class Interface>
Interface* Ask(IUnknown& object, REFIID iid, const wchar_t* what) {
  void* answer = nullptr;
  Demand(object.QueryInterface(iid, &answer), what);
  return static_cast<Interface*>(answer);
}

// A control begins with InitNew, as when it is first placed on a form (it then greets the developer
// with its help window), or by loading what a form has stored.
IUnknown* Make_Control() {
  CLSID clsid = {};
  Demand(CLSIDFromProgID(L"QuillspeechX.Quillspeech", &clsid),
         L"The control is not registered: regsvr32 Quillspeech.ocx");
  IUnknown* control = nullptr;
  Demand(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                          reinterpret_cast<void**>(&control)),
         L"The control cannot be made");
  auto* storage = Ask<IPersistPropertyBag>(*control, IID_IPersistPropertyBag, L"no property bag");
  EmptyPropertyBag bag;
  const HRESULT loaded = storage->Load(&bag, nullptr);
  storage->Release();
  Demand(loaded, L"The control does not load its settings");
  return control;
}

template <class Function>
Function* Find(HMODULE module, const char* name) {
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace

HostedControl::HostedControl(HWND parent, EventHandler handler) : atl_(LoadLibraryW(L"atl.dll")) {
  auto* const init = Find<BOOL WINAPI()>(atl_, "AtlAxWinInit");
  auto* const attach =
      Find<HRESULT WINAPI(IUnknown*, HWND, IUnknown**)>(atl_, "AtlAxAttachControl");
  if (!init || !attach) throw CallFailed{E_FAIL, L"atl.dll is missing"};
  init();  // fails when it was called before, which does no harm

  IUnknown* control = Make_Control();
  auto* dispatch = Ask<IDispatch>(*control, IID_IDispatch, L"no members");
  members_ = std::make_unique<LateBound>(dispatch);
  dispatch->Release();
  events_ = std::make_unique<EventConnection>(*control, std::move(handler));

  HDC screen = GetDC(nullptr);
  const SIZE size = Size(GetDeviceCaps(screen, LOGPIXELSX));
  ReleaseDC(nullptr, screen);
  window_ =
      CreateWindowExW(WS_EX_CONTROLPARENT, L"AtlAxWin", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0,
                      0, size.cx, size.cy, parent, nullptr, GetModuleHandleW(nullptr), nullptr);
  const HRESULT attached = window_ ? attach(control, window_, &container_) : E_FAIL;
  control->Release();
  Demand(attached, L"The control does not go into the window");
}

HostedControl::~HostedControl() {
  events_.reset();
  members_.reset();
  DestroyWindow(window_);
  if (container_) container_->Release();
  // atl.dll stays: its window class may still be in use.
}

SIZE HostedControl::Size(int dots_per_inch) {
  return {MulDiv(3336, dots_per_inch, 1440), MulDiv(1884, dots_per_inch, 1440)};
}

}  // namespace example
