// The one handler of run-time failures that every long procedure shares.
#pragma once

#include <utility>

#include "base/run_time_failure.hpp"
#include "session/session.hpp"

namespace quillspeech {

// Runs the procedure. A failure inside ends it, is noted in the session's trace, and then
// Stop_And_Recover runs, outside the procedure; a failure in there is not caught again. The caller
// goes on either way.
template <class Procedure>
void Run_Trapped(Session& session, Procedure&& procedure) {
  try {
    std::forward<Procedure>(procedure)();
    return;
  } catch (...) {
    session.trace.failures.push_back(Current_Failure_Number());
  }
  session.operations.Stop_And_Recover(session);
}

// The same with no recovery and no message: the failure is only noted.
template <class Procedure>
void Run_Silently_Trapped(Session& session, Procedure&& procedure) {
  try {
    std::forward<Procedure>(procedure)();
  } catch (...) {
    session.trace.failures.push_back(Current_Failure_Number());
  }
}

}  // namespace quillspeech
