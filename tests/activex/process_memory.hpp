// What the process has taken from the system.
#pragma once

#include <cstddef>

#include "platform/windows/windows_api.hpp"
//
#include <psapi.h>

namespace quillspeech::tests {

inline std::size_t Private_Bytes() {
  PROCESS_MEMORY_COUNTERS counters{};
  ::GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof counters);
  return counters.PagefileUsage;
}

}  // namespace quillspeech::tests
