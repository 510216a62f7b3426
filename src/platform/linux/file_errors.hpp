// What the system's error numbers mean for a data file.
#pragma once

#include "base/run_time_failure.hpp"

namespace quillspeech::linux {

Failure Failure_To_Open(int error);

// For an open file that is measured, read or written.
Failure Failure_To_Transfer(int error);

// Whether a lock was refused because the file system has none, or none left.
bool Is_Without_Locks(int error);

}  // namespace quillspeech::linux
