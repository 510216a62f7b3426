// The members of any object, reached by name through IDispatch.
#pragma once

#include "activex/com.hpp"
#include "core/property_pages.hpp"

namespace quillspeech::activex {

// What the object or the dispatch refuses ends the procedure that uses it, by an exception; the
// code that is to go out is kept.
class LateBoundMembers final : public MemberSource {
 public:
  explicit LateBoundMembers(ComPtr<IDispatch> object) : object_(std::move(object)) {}

  // DISP_E_TYPEMISMATCH is the code for a value that is no text and cannot become one.
  std::string Get(std::string_view member) override;
  void Let(std::string_view member, std::string_view text) override;

  // What came of a procedure that used it. With an error object for the thread when the object told
  // of its failure; an older one is the caller's to clear.
  HRESULT Result(HRESULT of_procedure) const { return FAILED(failure_) ? failure_ : of_procedure; }

 private:
  void Invoke(std::string_view member, WORD kind, DISPPARAMS& arguments, VARIANT* result);
  [[noreturn]] void End_With(HRESULT failure);

  ComPtr<IDispatch> object_;
  HRESULT failure_ = S_OK;
};

}  // namespace quillspeech::activex
