// What a call fails with.
#pragma once

#include <utility>

#include "base/run_time_failure.hpp"

namespace quillspeech::tests {

// The number of the failure that the procedure ends with, 0 when it ends well.
template <class Procedure>
int Failure_Of(Procedure&& procedure) {
  try {
    std::forward<Procedure>(procedure)();
    return 0;
  } catch (...) {
    return Current_Failure_Number();
  }
}

}  // namespace quillspeech::tests
