#include "activex/errors.hpp"

#include <string>

#include "activex/guids.hpp"
#include "base/host_text.hpp"
#include "platform/windows/text.hpp"

namespace quillspeech::activex {
namespace {

constexpr wchar_t Source[] = L"Quillspeech";

constexpr int Number_Of(HRESULT code) { return static_cast<int>(code & 0xFFFF); }

void Leave_Error_Object(int number) {
  ComPtr<ICreateErrorInfo> error;
  if (FAILED(::CreateErrorInfo(error.Receive()))) return;
  std::wstring source = Source;
  std::wstring words = windows::Wide(Host_Text(number));
  error->SetGUID(IID__Quillspeech);
  error->SetSource(source.data());
  error->SetDescription(words.data());
  if (const auto told = error.As<IErrorInfo>()) ::SetErrorInfo(0, told.Get());
}

}  // namespace

// Without memory for the words the code has to do, and not those of an older failure.
HRESULT Tell_Failure(int number) noexcept {
  ::SetErrorInfo(0, nullptr);
  try {
    Leave_Error_Object(number);
  } catch (...) {
  }
  return Code_Of(number);
}

HRESULT Tell_Exception(HRESULT code, EXCEPINFO* exception) noexcept {
  if (!exception) return DISP_E_EXCEPTION;
  *exception = {};
  exception->scode = code;
  exception->bstrSource = ::SysAllocString(Source);
  try {
    exception->bstrDescription =
        ::SysAllocString(windows::Wide(Host_Text(Number_Of(code))).c_str());
  } catch (...) {
    exception->bstrDescription = nullptr;
  }
  return DISP_E_EXCEPTION;
}

}  // namespace quillspeech::activex
