// How failures reach a caller: a code, and an error object that tells in words.
#pragma once

#include "activex/com.hpp"
#include "base/run_time_failure.hpp"

namespace quillspeech::activex {

// The codes of run-time failures: 0x800A0000 plus the number.
constexpr HRESULT Code_Of(int number) {
  return static_cast<HRESULT>(0x800A0000u + static_cast<unsigned>(number));
}
// Whether the code is one of them.
constexpr bool Is_Failure_Number(HRESULT code) {
  return (static_cast<unsigned>(code) & 0xFFFF0000u) == 0x800A0000u;
}

// Leaves an error object for the thread, with source "Quillspeech" and the words that hosts have
// for the number ("Subscript out of range" for 9); gives the code.
HRESULT Tell_Failure(int number) noexcept;

// The same for a caller of IDispatch::Invoke, who may have no room for it. Gives DISP_E_EXCEPTION.
HRESULT Tell_Exception(HRESULT code, EXCEPINFO* exception) noexcept;

// Of what has failed with that number: E_OUTOFMEMORY for lack of memory, E_UNEXPECTED otherwise.
constexpr HRESULT System_Code_Of(int number) {
  return number == static_cast<int>(Failure::Out_Of_Memory) ? E_OUTOFMEMORY : E_UNEXPECTED;
}

// Runs what a container or the system has called. No exception gets out; it is a code as the system
// has them. It tells no more than the code.
template <class Call>
HRESULT Guarded(Call&& call) noexcept {
  try {
    return call();
  } catch (...) {
    return System_Code_Of(Current_Failure_Number());
  }
}

// Runs what uses members or loads and saves them, for hosts that know failures by their numbers: a
// run-time failure is the code of its number, lack of memory that of 7, and anything else that
// of 5.
template <class Call>
HRESULT Guarded_By_Number(Call&& call) noexcept {
  try {
    return call();
  } catch (...) {
    return Code_Of(Current_Failure_Number());
  }
}

}  // namespace quillspeech::activex
