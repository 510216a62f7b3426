// IClassFactory for the control and for its property pages.
#pragma once

#include "activex/com.hpp"

namespace quillspeech::activex {

// CLASS_E_CLASSNOTAVAILABLE for a class that is not of this file.
HRESULT Make_Class_Factory(REFCLSID class_id, REFIID iid, void** object);

}  // namespace quillspeech::activex
