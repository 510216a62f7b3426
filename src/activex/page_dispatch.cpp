#include "activex/page_dispatch.hpp"

#include <algorithm>

#include "activex/errors.hpp"
#include "activex/module.hpp"

namespace quillspeech::activex {

HRESULT PageDispatch::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 1;
  return S_OK;
}

HRESULT PageDispatch::GetTypeInfo(UINT index, LCID, ITypeInfo** information) {
  if (!information) return E_POINTER;
  *information = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  return Guarded([&] { return Module::Of_This_File().Type_Info(iid_, information); });
}

HRESULT PageDispatch::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  if (!IsEqualIID(iid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
  if (!names || !ids || count == 0) return E_INVALIDARG;
  std::fill_n(ids, count, DISPID_UNKNOWN);
  return DISP_E_UNKNOWNNAME;
}

HRESULT PageDispatch::Invoke(DISPID, REFIID iid, LCID, WORD, DISPPARAMS*, VARIANT* result,
                             EXCEPINFO*, UINT*) {
  if (!IsEqualIID(iid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
  if (result) VariantInit(result);
  return DISP_E_MEMBERNOTFOUND;
}

}  // namespace quillspeech::activex
