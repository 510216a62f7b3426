#include "activex/class_factory.hpp"

#include <new>

#include "activex/control_object.hpp"
#include "activex/errors.hpp"
#include "activex/guids.hpp"
#include "activex/module.hpp"
#include "activex/page_classes.hpp"
#include "activex/property_page.hpp"

namespace quillspeech::activex {
namespace {

class ClassFactory final : public IClassFactory {
 public:
  explicit ClassFactory(REFCLSID class_id) : class_(class_id) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IClassFactory) return E_NOINTERFACE;
    AddRef();
    *object = static_cast<IClassFactory*>(this);
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override {
    return static_cast<ULONG>(::InterlockedIncrement(&references_));
  }
  ULONG STDMETHODCALLTYPE Release() override {
    const LONG left = ::InterlockedDecrement(&references_);
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }

  // An outer object gets hold of the inner one's own IUnknown first, and of nothing else.
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (outer && iid != IID_IUnknown) return CLASS_E_NOAGGREGATION;
    return Guarded([&] {
      if (class_ == CLSID_Quillspeech) return Make_Control(outer, iid, object);
      return Make_Property_Page(class_, outer, iid, object);
    });
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    Module::Of_This_File().Lock(lock != FALSE);
    return S_OK;
  }

 private:
  ~ClassFactory() = default;

  const CLSID class_;
  LONG references_ = 0;
  CountedObject counted_;
};

}  // namespace

HRESULT Make_Class_Factory(REFCLSID class_id, REFIID iid, void** object) {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (class_id != CLSID_Quillspeech && !Page_Of(class_id)) return CLASS_E_CLASSNOTAVAILABLE;
  const ComPtr<IClassFactory> factory(new (std::nothrow) ClassFactory(class_id));
  return factory ? factory->QueryInterface(iid, object) : E_OUTOFMEMORY;
}

}  // namespace quillspeech::activex
