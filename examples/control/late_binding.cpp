#include "late_binding.hpp"

namespace example {

LateBound::LateBound(IDispatch* object) : object_(object) { object_->AddRef(); }

LateBound::~LateBound() { object_->Release(); }

std::wstring LateBound::Text(const wchar_t* property) const {
  VARIANT value = Get(property, VT_BSTR);
  std::wstring text(value.bstrVal, SysStringLen(value.bstrVal));
  VariantClear(&value);
  return text;
}

int LateBound::Number(const wchar_t* property) const { return Get(property, VT_I4).lVal; }

void LateBound::Set(const wchar_t* property, const std::wstring& text) const {
  VARIANT value;
  V_VT(&value) = VT_BSTR;
  V_BSTR(&value) = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  Set_Variant(property, value);
}

void LateBound::Set(const wchar_t* property, int number) const {
  VARIANT value;
  V_VT(&value) = VT_I4;
  V_I4(&value) = number;
  Set_Variant(property, value);
}

void LateBound::Call(const wchar_t* method) const {
  DISPPARAMS none = {};
  Invoke(method, DISPATCH_METHOD, none, nullptr);
}

VARIANT LateBound::Get(const wchar_t* property, VARTYPE type) const {
  VARIANT value;
  VariantInit(&value);
  DISPPARAMS none = {};
  Invoke(property, DISPATCH_PROPERTYGET, none, &value);
  const HRESULT converted = VariantChangeType(&value, &value, 0, type);
  if (SUCCEEDED(converted)) return value;
  VariantClear(&value);
  throw CallFailed{converted, property};
}

// The new value of a property is an argument that bears the name DISPID_PROPERTYPUT.
void LateBound::Set_Variant(const wchar_t* property, VARIANT& value) const {
  DISPID name = DISPID_PROPERTYPUT;
  DISPPARAMS arguments = {&value, &name, 1, 1};
  try {
    Invoke(property, DISPATCH_PROPERTYPUT, arguments, nullptr);
  } catch (...) {
    VariantClear(&value);
    throw;
  }
  VariantClear(&value);
}

void LateBound::Invoke(const wchar_t* member, WORD kind, DISPPARAMS& arguments,
                       VARIANT* result) const {
  DISPID id = DISPID_UNKNOWN;
  auto* name = const_cast<wchar_t*>(member);
  HRESULT code = object_->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(code)) throw CallFailed{code, std::wstring(member) + L": there is no such member"};

  EXCEPINFO exception = {};
  code = object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &arguments, result, &exception,
                         nullptr);
  if (SUCCEEDED(code)) return;
  CallFailed failure{code == DISP_E_EXCEPTION ? exception.scode : code, member};
  if (exception.bstrDescription) failure.description += L": ";
  if (exception.bstrDescription) failure.description += exception.bstrDescription;
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
  throw failure;
}

}  // namespace example
