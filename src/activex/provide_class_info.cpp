#include "activex/provide_class_info.hpp"

#include "activex/errors.hpp"
#include "activex/guids.hpp"
#include "activex/module.hpp"

namespace quillspeech::activex {

HRESULT ProvideClassInfo::GetClassInfo(ITypeInfo** information) {
  if (!information) return E_POINTER;
  *information = nullptr;
  return Guarded([&] { return Module::Of_This_File().Type_Info(CLSID_Quillspeech, information); });
}

HRESULT ProvideClassInfo::GetGUID(DWORD kind, GUID* guid) {
  if (!guid) return E_POINTER;
  const bool is_known = kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID;
  *guid = is_known ? DIID___Quillspeech : GUID_NULL;
  return is_known ? S_OK : E_INVALIDARG;
}

}  // namespace quillspeech::activex
