#include "activex/support_error_info.hpp"

#include <algorithm>

namespace quillspeech::activex {

HRESULT SupportErrorInfo::InterfaceSupportsErrorInfo(REFIID iid) {
  const bool does = std::ranges::any_of(
      interfaces_, [&](const IID* own) { return IsEqualIID(*own, iid) != FALSE; });
  return does ? S_OK : S_FALSE;
}

}  // namespace quillspeech::activex
