#include "activex/dispatch.hpp"

#include <algorithm>
#include <cwchar>
#include <utility>

#include "activex/errors.hpp"
#include "activex/guids.hpp"
#include "activex/member_ids.hpp"
#include "activex/module.hpp"
#include "activex/variants.hpp"
#include "core/control.hpp"
#include "platform/windows/text.hpp"

namespace quillspeech::activex {
namespace {

constexpr UINT Let_Argument = 0;  // its place among the arguments

bool Is_Sound(const DISPPARAMS& arguments) {
  return arguments.cNamedArgs <= arguments.cArgs && (arguments.cArgs == 0 || arguments.rgvarg) &&
         (arguments.cNamedArgs == 0 || arguments.rgdispidNamedArgs);
}

// What a get or a call says to arguments.
HRESULT Without_Arguments(const DISPPARAMS& arguments) {
  if (arguments.cNamedArgs > 0) return DISP_E_NONAMEDARGS;
  return arguments.cArgs > 0 ? DISP_E_BADPARAMCOUNT : S_OK;
}

HRESULT Blame_Argument(HRESULT code, UINT* bad_argument) {
  if (bad_argument) *bad_argument = Let_Argument;
  return code;
}

// Into the variable of a caller of the vtable.
void Give_To_Variable(const MemberValue& value, void* variable) {
  switch (Type_Of(value)) {
    case MemberType::None:
      break;
    case MemberType::Text:
      *static_cast<BSTR*>(variable) = Given_Text(std::get<std::string>(value));
      break;
    case MemberType::Number16:
      *static_cast<SHORT*>(variable) = std::get<std::int16_t>(value);
      break;
    case MemberType::Number32:
      *static_cast<LONG*>(variable) = std::get<std::int32_t>(value);
      break;
    case MemberType::Boolean:
      *static_cast<VARIANT_BOOL*>(variable) = std::get<bool>(value) ? VARIANT_TRUE : VARIANT_FALSE;
      break;
  }
}

// Above a short value the word holds anything.
MemberValue Value_In_Word(std::uintptr_t word, MemberType type) {
  switch (type) {
    case MemberType::None:
      break;
    case MemberType::Text:
      return Taken_Text(reinterpret_cast<BSTR>(word));
    case MemberType::Number16:
      return static_cast<std::int16_t>(word);
    case MemberType::Number32:
      return static_cast<std::int32_t>(word);
    case MemberType::Boolean:
      return static_cast<VARIANT_BOOL>(word) != VARIANT_FALSE;
  }
  return {};
}

// Any other failure takes an older one's words away.
HRESULT With_Error_Object(HRESULT code) {
  if (Is_Failure_Number(code)) return Tell_Failure(code & 0xFFFF);
  if (FAILED(code)) ::SetErrorInfo(0, nullptr);
  return code;
}

}  // namespace

// Whatever the action does to the control, the object lives until it has returned.
template <class Action>
HRESULT Dispatch::With_Control(Action&& action) {
  const ComPtr<IUnknown> kept(&whole_);
  return Guarded_By_Number([&] {
    const auto control = access_.Living();
    return control ? action(*control) : RPC_E_DISCONNECTED;
  });
}

HRESULT Dispatch::GetTypeInfo(UINT index, ITypeInfo** information) {
  if (!information) return E_POINTER;
  *information = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  return Guarded([&] { return Module::Of_This_File().Type_Info(IID__Quillspeech, information); });
}

// The first name is a member's; the others would be its arguments', and no member has one with a
// name.
HRESULT Dispatch::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, DISPID* ids) {
  if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (!names || !ids || count == 0) return E_INVALIDARG;
  std::fill_n(ids, count, DISPID_UNKNOWN);
  return Guarded([&] {
    if (!names[0]) return E_INVALIDARG;
    ids[0] = Id_Of_Member(windows::Narrow(names[0]));
    return ids[0] == DISPID_UNKNOWN || count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
  });
}

HRESULT Dispatch::Invoke(DISPID id, REFIID iid, WORD flags, const DISPPARAMS* arguments,
                         VARIANT* result, EXCEPINFO* exception, UINT* bad_argument) {
  if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (!arguments || !Is_Sound(*arguments)) return E_INVALIDARG;
  if (result) ::VariantInit(result);
  const HRESULT code = Invoke_Member(id, flags, *arguments, result, bad_argument);
  return Is_Failure_Number(code) ? Tell_Exception(code, exception) : code;
}

HRESULT Dispatch::Invoke_Member(DISPID id, WORD flags, const DISPPARAMS& arguments, VARIANT* result,
                                UINT* bad_argument) {
  if (flags & DISPATCH_PROPERTYPUT) {
    const Member* const let = Member_With_Id(id, Access::Let);
    return let ? Invoke_Let(*let, arguments, bad_argument) : DISP_E_MEMBERNOTFOUND;
  }
  const Member* const get =
      flags & DISPATCH_PROPERTYGET ? Member_With_Id(id, Access::Get) : nullptr;
  const Member* const call = flags & DISPATCH_METHOD ? Member_With_Id(id, Access::Call) : nullptr;
  if (!get && !call) return DISP_E_MEMBERNOTFOUND;
  const HRESULT refused = Without_Arguments(arguments);
  if (FAILED(refused)) return refused;
  return get ? Invoke_Get(*get, result) : Call(*call);
}

HRESULT Dispatch::Invoke_Get(const Member& member, VARIANT* result) {
  return With_Control([&](Control& control) {
    const MemberValue value = Get_Member(member, control);
    if (result) Give_Value(value, *result);
    return S_OK;
  });
}

HRESULT Dispatch::Invoke_Let(const Member& member, const DISPPARAMS& arguments,
                             UINT* bad_argument) {
  if (arguments.cArgs != 1) return DISP_E_BADPARAMCOUNT;
  if (arguments.cNamedArgs != 1 || arguments.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT) {
    return Blame_Argument(DISP_E_PARAMNOTFOUND, bad_argument);
  }
  const VARIANT& argument = arguments.rgvarg[0];
  if (Is_Missing(argument)) return Blame_Argument(DISP_E_PARAMNOTOPTIONAL, bad_argument);
  return With_Control([&](Control& control) {
    MemberValue value;
    const HRESULT converted = Guarded_By_Number([&] {
      value = Value_Of(argument, member.type);
      return S_OK;
    });
    if (FAILED(converted)) return Blame_Argument(converted, bad_argument);
    Let_Member(member, control, value);
    return S_OK;
  });
}

HRESULT Dispatch::Get(const Member& member, void* value) {
  if (!value) return E_POINTER;
  if (member.type == MemberType::Text) *static_cast<BSTR*>(value) = nullptr;
  return With_Control([&](Control& control) {
    Give_To_Variable(Get_Member(member, control), value);
    return S_OK;
  });
}

HRESULT Dispatch::Let(const Member& member, std::uintptr_t value) {
  return With_Control([&](Control& control) {
    Let_Member(member, control, Value_In_Word(value, member.type));
    return S_OK;
  });
}

HRESULT Dispatch::Call(const Member& member) {
  return With_Control([&](Control& control) {
    Call_Member(member, control);
    return S_OK;
  });
}

// As functions of C whose first argument is the interface: the vtable is an array that the table of
// the members makes.
struct Dispatch::Entries {
  static HRESULT STDMETHODCALLTYPE QueryInterface(Face* face, REFIID iid, void** object) {
    return face->owner->whole_.QueryInterface(iid, object);
  }
  static ULONG STDMETHODCALLTYPE AddRef(Face* face) { return face->owner->whole_.AddRef(); }
  static ULONG STDMETHODCALLTYPE Release(Face* face) { return face->owner->whole_.Release(); }
  static HRESULT STDMETHODCALLTYPE GetTypeInfoCount(Face*, UINT* count) {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  static HRESULT STDMETHODCALLTYPE GetTypeInfo(Face*, UINT index, LCID, ITypeInfo** information) {
    return Dispatch::GetTypeInfo(index, information);
  }
  static HRESULT STDMETHODCALLTYPE GetIDsOfNames(Face*, REFIID iid, LPOLESTR* names, UINT count,
                                                 LCID, DISPID* ids) {
    return Dispatch::GetIDsOfNames(iid, names, count, ids);
  }
  static HRESULT STDMETHODCALLTYPE Invoke(Face* face, DISPID id, REFIID iid, LCID, WORD flags,
                                          DISPPARAMS* arguments, VARIANT* result,
                                          EXCEPINFO* exception, UINT* bad_argument) {
    return face->owner->Invoke(id, iid, flags, arguments, result, exception, bad_argument);
  }

  template <std::size_t place>
  static HRESULT STDMETHODCALLTYPE Get(Face* face, void* value) {
    return With_Error_Object(face->owner->Get(Member_Table()[place], value));
  }
  template <std::size_t place>
  static HRESULT STDMETHODCALLTYPE Let(Face* face, std::uintptr_t value) {
    return With_Error_Object(face->owner->Let(Member_Table()[place], value));
  }
  template <std::size_t place>
  static HRESULT STDMETHODCALLTYPE Call(Face* face) {
    return With_Error_Object(face->owner->Call(Member_Table()[place]));
  }

  // Which of the three the member is decides what its caller takes off the stack.
  template <std::size_t place>
  static const void* Of_Member() {
    switch (Member_Table()[place].access) {
      case Access::Get:
        return reinterpret_cast<const void*>(&Get<place>);
      case Access::Let:
        return reinterpret_cast<const void*>(&Let<place>);
      case Access::Call:
        break;
    }
    return reinterpret_cast<const void*>(&Call<place>);
  }

  static constexpr std::size_t Before_Members = 7;
  using Vtable = std::array<const void*, Before_Members + Member_Count>;
  template <std::size_t... places>
  static Vtable Made_Vtable(std::index_sequence<places...>) {
    return {reinterpret_cast<const void*>(&QueryInterface),
            reinterpret_cast<const void*>(&AddRef),
            reinterpret_cast<const void*>(&Release),
            reinterpret_cast<const void*>(&GetTypeInfoCount),
            reinterpret_cast<const void*>(&GetTypeInfo),
            reinterpret_cast<const void*>(&GetIDsOfNames),
            reinterpret_cast<const void*>(&Invoke),
            Of_Member<places>()...};
  }
  static const void* const* Shared_Vtable() {
    static const Vtable vtable = Made_Vtable(std::make_index_sequence<Member_Count>());
    return vtable.data();
  }
};

Dispatch::Dispatch(IUnknown& whole, ControlAccess& access)
    : face_{Entries::Shared_Vtable(), this}, whole_(whole), access_(access) {}

}  // namespace quillspeech::activex
