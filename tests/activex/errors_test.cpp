#include "activex/errors.hpp"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>

namespace quillspeech::activex {
namespace {

struct Told {
  std::wstring source;
  std::wstring words;
};

// What the thread's error object says; it is taken away.
Told Error_Object() {
  ComPtr<IErrorInfo> error;
  if (::GetErrorInfo(0, error.Receive()) != S_OK) return {};
  BSTR source = nullptr;
  BSTR words = nullptr;
  error->GetSource(&source);
  error->GetDescription(&words);
  const Told told{source ? source : L"", words ? words : L""};
  ::SysFreeString(source);
  ::SysFreeString(words);
  return told;
}

TEST(Errors, A_failure_is_its_number_above_0x800A0000) {
  EXPECT_EQ(static_cast<unsigned>(Code_Of(9)), 0x800A0009u);
  EXPECT_EQ(static_cast<unsigned>(Code_Of(438)), 0x800A01B6u);
  EXPECT_TRUE(Is_Failure_Number(Code_Of(6)));
  for (const HRESULT other : {S_OK, E_FAIL, E_OUTOFMEMORY, HRESULT{RPC_E_DISCONNECTED}}) {
    EXPECT_FALSE(Is_Failure_Number(other));
  }
}

TEST(Errors, A_failure_leaves_an_error_object_with_source_and_words) {
  EXPECT_EQ(Tell_Failure(9), Code_Of(9));
  const Told told = Error_Object();
  EXPECT_EQ(told.source, L"Quillspeech");
  EXPECT_EQ(told.words, L"Subscript out of range");
}

TEST(Errors, To_hosts_that_know_numbers_whatever_is_thrown_is_one_and_tells_nothing) {
  ::SetErrorInfo(0, nullptr);
  EXPECT_EQ(Guarded_By_Number([]() -> HRESULT { Fail(Failure::Overflow); }), Code_Of(6));
  EXPECT_EQ(Guarded_By_Number([]() -> HRESULT { throw std::bad_alloc(); }), Code_Of(7));
  EXPECT_EQ(Guarded_By_Number([]() -> HRESULT { throw std::runtime_error("?"); }), Code_Of(5));
  EXPECT_EQ(Guarded_By_Number([]() -> HRESULT { throw 1; }), Code_Of(5));
  EXPECT_EQ(Error_Object().source, L"");
}

TEST(Errors, To_containers_whatever_is_thrown_is_lack_of_memory_or_unexpected) {
  ::SetErrorInfo(0, nullptr);
  EXPECT_EQ(Guarded([]() -> HRESULT { throw std::bad_alloc(); }), E_OUTOFMEMORY);
  EXPECT_EQ(Guarded([]() -> HRESULT { Fail(Failure::Out_Of_Memory); }), E_OUTOFMEMORY);
  EXPECT_EQ(Guarded([]() -> HRESULT { Fail(Failure::Overflow); }), E_UNEXPECTED);
  EXPECT_EQ(Guarded([]() -> HRESULT { throw std::runtime_error("?"); }), E_UNEXPECTED);
  EXPECT_EQ(Guarded([]() -> HRESULT { throw 1; }), E_UNEXPECTED);
  EXPECT_EQ(Error_Object().source, L"");
}

TEST(Errors, A_code_that_is_no_exception_passes_as_it_is) {
  EXPECT_EQ(Guarded([] { return E_NOTIMPL; }), E_NOTIMPL);
  EXPECT_EQ(Guarded_By_Number([] { return E_NOTIMPL; }), E_NOTIMPL);
}

TEST(Errors, An_exception_record_has_the_code_and_no_number_of_its_own) {
  EXCEPINFO exception;
  EXPECT_EQ(Tell_Exception(Code_Of(13), &exception), DISP_E_EXCEPTION);
  EXPECT_EQ(exception.wCode, 0);
  EXPECT_EQ(exception.scode, Code_Of(13));
  EXPECT_STREQ(exception.bstrSource, L"Quillspeech");
  EXPECT_STREQ(exception.bstrDescription, L"Type mismatch");
  ::SysFreeString(exception.bstrSource);
  ::SysFreeString(exception.bstrDescription);
  EXPECT_EQ(Tell_Exception(Code_Of(13), nullptr), DISP_E_EXCEPTION);
}

}  // namespace
}  // namespace quillspeech::activex
