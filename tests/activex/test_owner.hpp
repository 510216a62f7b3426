// A control object with the parts that scripts see, on a session without devices.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "activex/connection_points.hpp"
#include "activex/control_access.hpp"
#include "activex/dispatch.hpp"
#include "activex/events.hpp"
#include "activex/guids.hpp"
#include "tests/support/test_control.hpp"

namespace quillspeech::tests {

// Its count is watched and ends nothing.
class TestOwner final : public IUnknown, public activex::ControlAccess {
 public:
  explicit TestOwner(std::shared_ptr<Control> living) : control(std::move(living)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    IUnknown* found = nullptr;
    if (iid == IID_IUnknown) found = static_cast<IUnknown*>(this);
    if (iid == IID_IDispatch || iid == activex::IID__Quillspeech) found = dispatch.Interface();
    if (iid == IID_IConnectionPointContainer) found = &points;
    *object = found;
    if (!found) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }
  std::shared_ptr<Control> Living() override { return control; }

  std::shared_ptr<Control> control;
  ULONG references = 0;
  activex::Dispatch dispatch{*this, *this};
  activex::ConnectionPoints points{*this};
  activex::EventSender events{points};
};

// What Invoke answered; it frees the texts.
struct Answer {
  Answer() {
    ::VariantInit(&result);
    result.vt = VT_UI1;  // what is in there before counts for nothing
  }
  ~Answer() {
    ::VariantClear(&result);
    for (const BSTR text : {exception.bstrSource, exception.bstrDescription}) ::SysFreeString(text);
  }
  Answer(Answer&& other) noexcept
      : code(other.code),
        result(other.result),
        exception(other.exception),
        bad_argument(other.bad_argument) {
    ::VariantInit(&other.result);
    other.exception = {};
  }

  // The number of a failed member, 0 when none failed.
  int Number() const {
    return code == DISP_E_EXCEPTION ? static_cast<int>(exception.scode & 0xFFFF) : 0;
  }
  std::wstring Text() const {
    return result.vt == VT_BSTR && result.bstrVal
               ? std::wstring(result.bstrVal, ::SysStringLen(result.bstrVal))
               : std::wstring();
  }

  HRESULT code = S_OK;
  VARIANT result;
  EXCEPINFO exception{};
  UINT bad_argument = 99;
};

// A VARIANT that frees itself.
struct Variant : VARIANT {
  Variant() { ::VariantInit(this); }
  Variant(VARTYPE type) : Variant() { vt = type; }
  Variant(SHORT number) : Variant(VARTYPE{VT_I2}) { iVal = number; }
  Variant(LONG number) : Variant(VARTYPE{VT_I4}) { lVal = number; }
  Variant(int number) : Variant(LONG{number}) {}
  Variant(double number) : Variant(VARTYPE{VT_R8}) { dblVal = number; }
  Variant(bool truth) : Variant(VARTYPE{VT_BOOL}) {
    boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
  }
  Variant(const wchar_t* text) : Variant(std::wstring_view(text)) {}
  Variant(std::wstring_view text) : Variant(VARTYPE{VT_BSTR}) {
    bstrVal = ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  }
  Variant(const VARIANT& other) : Variant() {
    VARIANT source = other;
    ::VariantCopy(this, &source);
  }
  Variant(const Variant& other) : Variant(static_cast<const VARIANT&>(other)) {}
  Variant& operator=(const Variant&) = delete;
  ~Variant() { ::VariantClear(this); }
};

// Calls of a script, by the names of members.
class Script {
 public:
  explicit Script(IDispatch* object) : object_(object) {}

  DISPID Id(const std::wstring& name) const {
    std::wstring own = name;
    LPOLESTR names[] = {own.data()};
    DISPID id = DISPID_UNKNOWN;
    object_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_NEUTRAL, &id);
    return id;
  }
  Answer Get(const std::wstring& name) const {
    DISPPARAMS none{};
    return Invoke(Id(name), DISPATCH_PROPERTYGET | DISPATCH_METHOD, none);
  }
  Answer Let(const std::wstring& name, Variant value) const {
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS arguments{&value, &put, 1, 1};
    return Invoke(Id(name), DISPATCH_PROPERTYPUT, arguments);
  }
  Answer Invoke(DISPID id, WORD flags, DISPPARAMS& arguments) const {
    Answer answer;
    answer.code = object_->Invoke(id, IID_NULL, LOCALE_NEUTRAL, flags, &arguments, &answer.result,
                                  &answer.exception, &answer.bad_argument);
    return answer;
  }

 private:
  IDispatch* object_;
};

inline std::wstring Widened(std::string_view ascii) { return {ascii.begin(), ascii.end()}; }

struct DispatchTest : testing::Test, ControlTest {
  TestOwner owner{control};
  IDispatch* const dispatch = owner.dispatch.Interface();
  Script script{dispatch};
};

}  // namespace quillspeech::tests
