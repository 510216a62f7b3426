// How the control gets into the registry and out of it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "activex/com.hpp"

namespace quillspeech::activex {

// For everybody, below HKEY_LOCAL_MACHINE\Software\Classes, or for one user, below
// HKEY_CURRENT_USER\Software\Classes.
enum class RegistrationScope { Machine, User };

// One value below the classes. A key without values is a row without name and text.
struct RegistryRow {
  std::wstring key;
  std::wstring name;  // empty: the key's default value
  std::wstring text;
};
std::vector<RegistryRow> Registry_Rows(std::wstring_view file);

// Writes the rows, registers the type library and, for everybody, tells the system's manager of
// categories. SELFREG_E_CLASS or SELFREG_E_TYPELIB when it cannot; then it leaves nothing of the
// control in that scope, also of an earlier registration, which it has written over.
HRESULT Register(RegistrationScope scope);
// Removes what Register wrote, and nothing else but the folder of the classes if it is empty then.
// What is not there is removed already.
HRESULT Unregister(RegistrationScope scope);

}  // namespace quillspeech::activex
