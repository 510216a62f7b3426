#include "activex/late_bound_members.hpp"

#include "activex/scoped_variant.hpp"
#include "activex/variants.hpp"
#include "base/run_time_failure.hpp"
#include "platform/windows/text.hpp"

namespace quillspeech::activex {
namespace {

// The words of a failed member, on their way to whoever called the page.
struct Exception : EXCEPINFO {
  Exception() : EXCEPINFO{} {}
  ~Exception() {
    SysFreeString(bstrSource);
    SysFreeString(bstrDescription);
    SysFreeString(bstrHelpFile);
  }
  Exception(const Exception&) = delete;
  Exception& operator=(const Exception&) = delete;

  HRESULT Told() {
    if (pfnDeferredFillIn) pfnDeferredFillIn(this);
    const HRESULT code = FAILED(scode) ? scode : E_FAIL;
    SetErrorInfo(0, nullptr);  // the member's record of it counts
    ComPtr<ICreateErrorInfo> error;
    if (FAILED(CreateErrorInfo(error.Receive()))) return code;
    error->SetSource(bstrSource);
    error->SetDescription(bstrDescription);
    if (const auto told = error.As<IErrorInfo>()) SetErrorInfo(0, told.Get());
    return code;
  }
};

}  // namespace

void LateBoundMembers::End_With(HRESULT failure) {
  failure_ = failure;
  Fail(Failure::Invalid_Call);
}

void LateBoundMembers::Invoke(std::string_view member, WORD kind, DISPPARAMS& arguments,
                              VARIANT* result) {
  std::wstring name = windows::Wide(member);
  LPOLESTR names = name.data();
  DISPID id = 0;
  const HRESULT named = object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(named)) End_With(named);
  Exception exception;
  UINT bad_argument = 0;
  const HRESULT invoked = object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &arguments,
                                          result, &exception, &bad_argument);
  if (invoked == DISP_E_EXCEPTION) End_With(exception.Told());
  if (FAILED(invoked)) End_With(invoked);
}

std::string LateBoundMembers::Get(std::string_view member) {
  DISPPARAMS nothing = {};
  ScopedVariant value;
  Invoke(member, DISPATCH_PROPERTYGET, nothing, &value);
  try {
    return std::get<std::string>(Value_Of(value, MemberType::Text));
  } catch (const RunTimeFailure& failure) {
    End_With(failure.What() == Failure::Out_Of_Memory ? E_OUTOFMEMORY : DISP_E_TYPEMISMATCH);
  }
}

void LateBoundMembers::Let(std::string_view member, std::string_view text) {
  ScopedVariant value;
  Give_Value(std::string(text), value);
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS arguments = {&value, &put, 1, 1};
  Invoke(member, DISPATCH_PROPERTYPUT, arguments, nullptr);
}

}  // namespace quillspeech::activex
