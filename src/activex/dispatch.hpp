// IDispatch and the dual interface _Quillspeech: both roads to the 168 members, written once over
// the member table.
//
// Invoke. A get or a call takes no argument, a let exactly one, under the name DISPID_PROPERTYPUT.
// What hosts send as "get or call" does what the member is. A member that fails, or an argument
// that cannot be converted to the member's type, is DISP_E_EXCEPTION; the EXCEPINFO has the number,
// as 0x800A0000 plus the number, the words and the source "Quillspeech".
//
// The vtable has the members behind IDispatch, in the order of the table: a get (T* value), a let
// (T value), a call (). Failures are the code above, with an IErrorInfo.
//
// Everything answers RPC_E_DISCONNECTED once the control has ended.
#pragma once

#include <cstdint>

#include "activex/com.hpp"
#include "activex/control_access.hpp"
#include "core/member_table.hpp"

namespace quillspeech::activex {

class Dispatch {
 public:
  Dispatch(IUnknown& whole, ControlAccess& access);
  Dispatch(const Dispatch&) = delete;
  Dispatch& operator=(const Dispatch&) = delete;

  // For IID_IDispatch and IID__Quillspeech. It shares the identity and the count of the whole.
  IDispatch* Interface() { return reinterpret_cast<IDispatch*>(&face_); }

 private:
  // What a caller sees of it.
  struct Face {
    const void* const* vtable;
    Dispatch* owner;
  };
  struct Entries;  // of the vtable

  static HRESULT GetTypeInfo(UINT index, ITypeInfo** information);
  static HRESULT GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, DISPID* ids);
  HRESULT Invoke(DISPID id, REFIID iid, WORD flags, const DISPPARAMS* arguments, VARIANT* result,
                 EXCEPINFO* exception, UINT* bad_argument);
  HRESULT Invoke_Member(DISPID id, WORD flags, const DISPPARAMS& arguments, VARIANT* result,
                        UINT* bad_argument);
  HRESULT Invoke_Get(const Member& member, VARIANT* result);
  HRESULT Invoke_Let(const Member& member, const DISPPARAMS& arguments, UINT* bad_argument);

  // A value of the vtable is a BSTR, SHORT, LONG or VARIANT_BOOL: one word of the stack.
  HRESULT Get(const Member& member, void* value);
  HRESULT Let(const Member& member, std::uintptr_t value);
  HRESULT Call(const Member& member);

  // Runs the action on the living control; a failure is its code.
  template <class Action>
  HRESULT With_Control(Action&& action);

  Face face_;
  IUnknown& whole_;
  ControlAccess& access_;
};

}  // namespace quillspeech::activex
