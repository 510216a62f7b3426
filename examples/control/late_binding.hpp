// An object that is spoken to by the names of its members, as scripts do it: no header, no type
// library and no import of the control is needed.
#pragma once

#include <windows.h>
//
#include <ole2.h>
#include <oleauto.h>

#include <string>

namespace example {

// A call that failed, in the control's words: number 9 with "Subscript out of range" and so on.
struct CallFailed {
  HRESULT code;
  std::wstring description;
};

class LateBound {
 public:
  explicit LateBound(IDispatch* object);  // counts a reference of its own
  ~LateBound();
  LateBound(const LateBound&) = delete;
  LateBound& operator=(const LateBound&) = delete;

  std::wstring Text(const wchar_t* property) const;
  int Number(const wchar_t* property) const;
  void Set(const wchar_t* property, const std::wstring& text) const;
  void Set(const wchar_t* property, int number) const;
  void Call(const wchar_t* method) const;

  IDispatch& Object() const { return *object_; }

 private:
  VARIANT Get(const wchar_t* property, VARTYPE type) const;
  void Set_Variant(const wchar_t* property, VARIANT& value) const;
  void Invoke(const wchar_t* member, WORD kind, DISPPARAMS& arguments, VARIANT* result) const;

  IDispatch* object_;
};

}  // namespace example
