#include "activex/variants.hpp"

#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "activex/scoped_variant.hpp"
#include "base/host_text.hpp"
#include "base/run_time_failure.hpp"
#include "core/conversions.hpp"
#include "platform/windows/text.hpp"

namespace quillspeech::activex {
namespace {

constexpr LCID English = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);

// Bytes of a value in a VARIANT; 0 for a type that is never there by itself.
std::size_t Bytes_Of(VARTYPE type) {
  switch (type) {
    case VT_I1:
    case VT_UI1:
      return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return 4;
    case VT_R8:
    case VT_CY:
    case VT_DATE:
    case VT_I8:
    case VT_UI8:
      return 8;
    case VT_DECIMAL:
      return sizeof(DECIMAL);
    default:
      return 0;
  }
}
static_assert(sizeof(void*) == 4);

// What a by-ref value points to, as a value that belongs to somebody else still.
VARIANT Looked_Up(const VARIANT& from) {
  if (!(from.vt & VT_BYREF)) return from;
  const auto type = static_cast<VARTYPE>(from.vt & ~VT_BYREF);
  if (!from.byref) Fail(Failure::Type_Mismatch);
  if (type == VT_VARIANT) {
    const VARIANT& inner = *from.pvarVal;
    // The one that is pointed to may point on, though not to another VARIANT.
    if (inner.vt == (VT_VARIANT | VT_BYREF)) Fail(Failure::Type_Mismatch);
    return Looked_Up(inner);
  }
  const std::size_t bytes = Bytes_Of(type);
  if (bytes == 0) Fail(Failure::Type_Mismatch);
  VARIANT value;
  ::VariantInit(&value);
  if (type == VT_DECIMAL) {
    value.decVal = *from.pdecVal;  // over the whole VARIANT, its type too
  } else {
    std::memcpy(&value.lVal, from.byref, bytes);
  }
  value.vt = type;
  return value;
}

bool Is_Object(VARTYPE type) { return type == VT_DISPATCH || type == VT_UNKNOWN; }

// An object's default property, asked for in vain when there is none.
void Ask_For_Value(IUnknown* unknown, VARIANT& answer) {
  const auto object = ComPtr<IUnknown>(unknown).As<IDispatch>(IID_IDispatch);
  if (!object) Fail(Failure::Type_Mismatch);
  DISPPARAMS none{};
  const HRESULT asked =
      object->Invoke(DISPID_VALUE, IID_NULL, English, DISPATCH_PROPERTYGET | DISPATCH_METHOD, &none,
                     &answer, nullptr, nullptr);
  if (FAILED(asked)) Fail(Failure::Type_Mismatch);
}

[[noreturn]] void Fail_With(HRESULT code) {
  if (code == DISP_E_OVERFLOW) Fail(Failure::Overflow);
  if (code == E_OUTOFMEMORY) Fail(Failure::Out_Of_Memory);
  Fail(Failure::Type_Mismatch);
}

// Types that only the system converts: to the one that carries all that a member can hold.
MemberValue Converted_By_System(const VARIANT& from, MemberType type) {
  if (Bytes_Of(from.vt) == 0 || from.vt == VT_ERROR) Fail(Failure::Type_Mismatch);
  const VARTYPE wanted = type == MemberType::Text      ? VARTYPE{VT_BSTR}
                         : type == MemberType::Boolean ? VARTYPE{VT_BOOL}
                                                       : VARTYPE{VT_I4};
  ScopedVariant converted;
  VARIANT source = from;  // the call takes a pointer to what it does not change
  const HRESULT code = ::VariantChangeTypeEx(&converted, &source, English, 0, wanted);
  if (FAILED(code)) Fail_With(code);
  if (wanted == VT_BSTR) return Taken_Text(converted.bstrVal);
  if (wanted == VT_BOOL) return converted.boolVal != VARIANT_FALSE;
  return static_cast<std::int32_t>(converted.lVal);
}

VARIANT Real(double number) {
  VARIANT value;
  ::VariantInit(&value);
  value.vt = VT_R8;
  value.dblVal = number;
  return value;
}

// A value by itself, not by reference and no object.
MemberValue Plain_Value(const VARIANT& from, MemberType type) {
  switch (from.vt) {
    case VT_EMPTY:
      return {};
    case VT_NULL:
      Fail(static_cast<Failure>(Invalid_Use_Of_Null));
    case VT_BSTR:
      return Taken_Text(from.bstrVal);
    case VT_BOOL:
      return from.boolVal != VARIANT_FALSE;
    case VT_UI1:
      return std::int16_t{from.bVal};
    case VT_I2:
      return from.iVal;
    case VT_I4:
    case VT_INT:
      return static_cast<std::int32_t>(from.lVal);
    case VT_UI4:
    case VT_UINT:  // some systems take its bits for a sign
      return Converted_By_System(Real(from.ulVal), type);
    default:
      return Converted_By_System(from, type);
  }
}

// An object may answer with another one, but not for ever.
MemberValue Untyped_Value(const VARIANT& from, MemberType type, int objects_left = 8) {
  const VARIANT value = Looked_Up(from);
  if (!Is_Object(value.vt)) return Plain_Value(value, type);
  if (!value.punkVal || objects_left == 0) Fail(Failure::Type_Mismatch);
  ScopedVariant answer;
  Ask_For_Value(value.punkVal, answer);
  return Untyped_Value(answer, type, objects_left - 1);
}

}  // namespace

BSTR Given_Text(std::string_view windows_1252) {
  const std::wstring wide = windows::Wide(windows_1252);
  const BSTR text = ::SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  if (!text) Fail(Failure::Out_Of_Memory);
  return text;
}

std::string Taken_Text(BSTR text) {
  return text ? windows::Narrow({text, ::SysStringLen(text)}) : std::string();
}

MemberValue Value_Of(const VARIANT& from, MemberType type) {
  MemberValue value = Untyped_Value(from, type);
  switch (type) {
    case MemberType::Text:
      return To_Text(value);
    case MemberType::Number16:
      return To_Number16(value);
    case MemberType::Number32:
      return To_Number32(value);
    case MemberType::Boolean:
      return To_Boolean(value);
    case MemberType::None:
      break;
  }
  return value;
}

bool Is_Missing(const VARIANT& argument) {
  return argument.vt == VT_ERROR && argument.scode == DISP_E_PARAMNOTFOUND;
}

void Give_Value(const MemberValue& value, VARIANT& to) {
  switch (Type_Of(value)) {
    case MemberType::None:
      break;
    case MemberType::Text:
      to.bstrVal = Given_Text(std::get<std::string>(value));
      to.vt = VT_BSTR;
      break;
    case MemberType::Number16:
      to.iVal = std::get<std::int16_t>(value);
      to.vt = VT_I2;
      break;
    case MemberType::Number32:
      to.lVal = std::get<std::int32_t>(value);
      to.vt = VT_I4;
      break;
    case MemberType::Boolean:
      to.boolVal = std::get<bool>(value) ? VARIANT_TRUE : VARIANT_FALSE;
      to.vt = VT_BOOL;
      break;
  }
}

}  // namespace quillspeech::activex
