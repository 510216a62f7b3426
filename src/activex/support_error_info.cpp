#include "activex/support_error_info.hpp"

#include "activex/guids.hpp"

namespace quillspeech::activex {

HRESULT SupportErrorInfo::InterfaceSupportsErrorInfo(REFIID iid) {
  return iid == IID__Quillspeech ? S_OK : S_FALSE;
}

}  // namespace quillspeech::activex
