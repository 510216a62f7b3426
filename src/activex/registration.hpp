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

// Writes the rows and registers the type library; a registration that fails takes itself back.
// SELFREG_E_CLASS or SELFREG_E_TYPELIB when it cannot.
HRESULT Register(RegistrationScope scope);
// Removes what Register wrote, and nothing else. What is not there is removed already.
HRESULT Unregister(RegistrationScope scope);

}  // namespace quillspeech::activex
