// Events for scripts whose engine connects none: a COM object, ProgID "QuillspeechTests.Bridge".
//
//   Connect(control, handler)   each event of the control's default source interface calls the
//                               handler's method of that name, if it has one
//   Disconnect()
//   Pump(ms)                    runs the messages of the thread so long; stands in for Sleep
#include "activex/com.hpp"
//
#include <dispex.h>

#include <cwchar>
#include <new>
#include <string>
#include <utility>

namespace quillspeech::tests {
namespace {

using activex::ComPtr;

// The import libraries lack it.
constexpr GUID Dispatch_Extended = {
    0xA6EF9860, 0xC720, 0x11D0, {0x93, 0x37, 0x00, 0xA0, 0xC9, 0x0D, 0xCA, 0xA9}};

// {5D5E2E6C-6E0C-4B3E-9C57-0B6F0F0C5B11}
constexpr GUID CLSID_Bridge = {
    0x5D5E2E6C, 0x6E0C, 0x4B3E, {0x9C, 0x57, 0x0B, 0x6F, 0x0F, 0x0C, 0x5B, 0x11}};
constexpr wchar_t Class_Key[] = L"Software\\Classes\\CLSID\\{5D5E2E6C-6E0C-4B3E-9C57-0B6F0F0C5B11}";
constexpr wchar_t Name_Key[] = L"Software\\Classes\\QuillspeechTests.Bridge";

HINSTANCE this_file = nullptr;
long objects = 0;

// An IDispatch that counts itself.
class Dispatch : public IDispatch {
 public:
  Dispatch() { ++objects; }
  Dispatch(const Dispatch&) = delete;
  Dispatch& operator=(const Dispatch&) = delete;
  virtual ~Dispatch() { --objects; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    const bool known = iid == IID_IUnknown || iid == IID_IDispatch || iid == own_;
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
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }

 protected:
  IID own_ = IID_IDispatch;  // an interface more that it answers for

 private:
  ULONG count_ = 1;
};

// VBScript's objects answer IDispatchEx only.
HRESULT Find(IDispatch& object, wchar_t* name, DISPID& id) {
  ComPtr<IDispatchEx> extended;
  if (SUCCEEDED(object.QueryInterface(Dispatch_Extended, extended.Receive_Void()))) {
    BSTR text = SysAllocString(name);
    const HRESULT found = extended->GetDispID(text, fdexNameCaseInsensitive, &id);
    SysFreeString(text);
    if (SUCCEEDED(found)) return found;
  }
  return object.GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
}

class Sink final : public Dispatch {
 public:
  Sink(REFIID events, ComPtr<ITypeInfo> information, ComPtr<IDispatch> handler)
      : information_(information), handler_(handler) {
    own_ = events;
  }

  HRESULT STDMETHODCALLTYPE Invoke(DISPID event, REFIID, LCID locale, WORD, DISPPARAMS* arguments,
                                   VARIANT*, EXCEPINFO*, UINT*) override {
    BSTR name = nullptr;
    UINT count = 0;
    if (FAILED(information_->GetNames(event, &name, 1, &count)) || count != 1) return E_FAIL;
    DISPID id = DISPID_UNKNOWN;
    const HRESULT found = Find(*handler_, name, id);
    SysFreeString(name);
    if (FAILED(found)) return S_OK;  // this script does not care for it
    return handler_->Invoke(id, IID_NULL, locale, DISPATCH_METHOD, arguments, nullptr, nullptr,
                            nullptr);
  }

 private:
  ComPtr<ITypeInfo> information_;
  ComPtr<IDispatch> handler_;
};

// The source interface's description, which the control's own type library holds.
HRESULT Describe(IProvideClassInfo2& provider, IID& events, ComPtr<ITypeInfo>& information) {
  HRESULT result = provider.GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events);
  if (FAILED(result)) return result;
  ComPtr<ITypeInfo> whole;
  result = provider.GetClassInfo(whole.Receive());
  if (FAILED(result)) return result;
  ComPtr<ITypeLib> library;
  UINT index = 0;
  result = whole->GetContainingTypeLib(library.Receive(), &index);
  if (FAILED(result)) return result;
  return library->GetTypeInfoOfGuid(events, information.Receive());
}

class Bridge final : public Dispatch {
 public:
  ~Bridge() override { Disconnect(); }

  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override {
    if (count != 1) return DISP_E_UNKNOWNNAME;
    *ids = _wcsicmp(names[0], L"Connect") == 0      ? Connect_Id
           : _wcsicmp(names[0], L"Disconnect") == 0 ? Disconnect_Id
           : _wcsicmp(names[0], L"Pump") == 0       ? Pump_Id
                                                    : DISPID_UNKNOWN;
    return *ids == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
  }

  // Arguments come last first.
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*,
                                   EXCEPINFO*, UINT*) override {
    const UINT count = arguments->cArgs;
    if (id == Disconnect_Id && count == 0) return Disconnect();
    if (id == Pump_Id && count == 1) return Pump(arguments->rgvarg[0]);
    if (id == Connect_Id && count == 2) return Connect(arguments->rgvarg[1], arguments->rgvarg[0]);
    return DISP_E_BADPARAMCOUNT;
  }

 private:
  static constexpr DISPID Connect_Id = 1;
  static constexpr DISPID Disconnect_Id = 2;
  static constexpr DISPID Pump_Id = 3;

  static ComPtr<IDispatch> Object_In(VARIANT& value) {
    VARIANT object;
    VariantInit(&object);
    if (FAILED(VariantChangeType(&object, &value, 0, VT_DISPATCH))) return {};
    return ComPtr<IDispatch>::Adopt(object.pdispVal);
  }

  HRESULT Connect(VARIANT& control, VARIANT& handler) {
    Disconnect();
    const auto source = Object_In(control);
    const auto script = Object_In(handler);
    if (!source || !script) return DISP_E_TYPEMISMATCH;
    const auto provider = source.As<IProvideClassInfo2>(IID_IProvideClassInfo2);
    const auto points = source.As<IConnectionPointContainer>(IID_IConnectionPointContainer);
    if (!provider || !points) return E_NOINTERFACE;
    IID events = {};
    ComPtr<ITypeInfo> information;
    HRESULT result = Describe(*provider, events, information);
    if (FAILED(result)) return result;
    result = points->FindConnectionPoint(events, point_.Receive());
    if (FAILED(result)) return result;
    auto sink = ComPtr<Sink>::Adopt(new Sink(events, information, script));
    result = point_->Advise(sink.Get(), &cookie_);
    if (FAILED(result)) point_ = {};
    return result;
  }

  HRESULT Disconnect() {
    const ComPtr<IConnectionPoint> point = std::exchange(point_, {});
    return point ? point->Unadvise(cookie_) : S_OK;
  }

  HRESULT Pump(VARIANT& milliseconds) {
    VARIANT number;
    VariantInit(&number);
    const HRESULT converted = VariantChangeType(&number, &milliseconds, 0, VT_I4);
    if (FAILED(converted)) return converted;
    const DWORD begun = GetTickCount();
    const auto length = static_cast<DWORD>(number.lVal);
    for (DWORD passed = 0; passed < length; passed = GetTickCount() - begun) {
      MsgWaitForMultipleObjects(0, nullptr, FALSE, length - passed, QS_ALLINPUT);
      MSG message;
      while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
      }
    }
    return S_OK;
  }

  ComPtr<IConnectionPoint> point_;
  DWORD cookie_ = 0;
};

class Factory final : public IClassFactory {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    const bool known = iid == IID_IUnknown || iid == IID_IClassFactory;
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
    *object = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    const auto bridge = ComPtr<Bridge>::Adopt(new (std::nothrow) Bridge);
    return bridge ? bridge->QueryInterface(iid, object) : E_OUTOFMEMORY;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    objects += lock ? 1 : -1;
    return S_OK;
  }
};

Factory factory;

bool Write(const std::wstring& key, const wchar_t* name, const wchar_t* value) {
  return RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), name, REG_SZ, value,
                         static_cast<DWORD>((std::wcslen(value) + 1) * sizeof *value)) ==
         ERROR_SUCCESS;
}

}  // namespace
}  // namespace quillspeech::tests

using namespace quillspeech::tests;

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*) {
  if (reason == DLL_PROCESS_ATTACH) this_file = instance;
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
  return clsid == CLSID_Bridge ? factory.QueryInterface(iid, object) : CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() { return objects == 0 ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() {
  wchar_t path[MAX_PATH] = L"";
  GetModuleFileNameW(this_file, path, MAX_PATH);
  const std::wstring server = std::wstring(Class_Key) + L"\\InprocServer32";
  const bool written =
      Write(server, nullptr, path) && Write(server, L"ThreadingModel", L"Apartment") &&
      Write(std::wstring(Name_Key) + L"\\CLSID", nullptr, std::wcsrchr(Class_Key, L'\\') + 1);
  return written ? S_OK : SELFREG_E_CLASS;
}

STDAPI DllUnregisterServer() {
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, Class_Key);
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, Name_Key);
  return S_OK;
}
