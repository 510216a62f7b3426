// What the system's error numbers mean for a data file.
#pragma once

#include "base/run_time_failure.hpp"
#include "platform/windows/windows_api.hpp"

namespace quillspeech::windows {

Failure Failure_To_Open(DWORD error);

// For an open file that is measured, read or written.
Failure Failure_To_Transfer(DWORD error);

// Whether a lock was refused because the file system has none.
bool Is_Without_Locks(DWORD error);

}  // namespace quillspeech::windows
