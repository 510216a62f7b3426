// The doors of the file.
#include <cwchar>

#include "activex/class_factory.hpp"
#include "activex/errors.hpp"
#include "activex/module.hpp"
#include "activex/registration.hpp"

using namespace quillspeech::activex;

// A process that ends takes everything with it, and other files of it may be gone by then.
extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID process_ends) {
  if (reason == DLL_PROCESS_ATTACH) {
    ::DisableThreadLibraryCalls(instance);
    Module::Of_This_File().Begin(instance);
  } else if (reason == DLL_PROCESS_DETACH && !process_ends) {
    Module::Of_This_File().End();
  }
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID class_id, REFIID iid, LPVOID* object) {
  return Make_Class_Factory(class_id, iid, object);
}

STDAPI DllCanUnloadNow() { return Module::Of_This_File().Can_Unload() ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() {
  return Guarded([] { return Register(RegistrationScope::Machine); });
}

STDAPI DllUnregisterServer() {
  return Guarded([] { return Unregister(RegistrationScope::Machine); });
}

// regsvr32 /n /i:user registers for the user alone, and needs no rights of an administrator.
STDAPI DllInstall(BOOL install, LPCWSTR scope) {
  const bool for_machine = !scope || *scope == L'\0';
  if (!for_machine && ::_wcsicmp(scope, L"user") != 0) return E_INVALIDARG;
  return Guarded([&] {
    const auto wanted = for_machine ? RegistrationScope::Machine : RegistrationScope::User;
    return install ? Register(wanted) : Unregister(wanted);
  });
}
