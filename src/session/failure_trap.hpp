// The one handler of run-time failures that every long procedure shares.
#pragma once

#include <string_view>
#include <utility>

#include "base/run_time_failure.hpp"
#include "session/session.hpp"

namespace quillspeech {

// Runs the procedure and tells whether it ended well. A failure inside ends it and is noted in the
// session's trace.
template <class Procedure>
bool Ends_Well(Session& session, Procedure&& procedure) {
  try {
    std::forward<Procedure>(procedure)();
    return true;
  } catch (...) {
    session.trace.Note_Failure(Current_Failure_Number());
  }
  return false;
}

// Runs the procedure. After a failure Stop_And_Recover runs, outside the procedure; a failure in
// there is not caught again. The caller goes on either way.
template <class Procedure>
void Run_Trapped(Session& session, Procedure&& procedure) {
  if (Ends_Well(session, std::forward<Procedure>(procedure))) return;
  session.operations.Stop_And_Recover(session);
}

// What a box with the stop icon says about a failure.
struct FailureMessage {
  std::string_view title;
  std::string_view text;
};

// The same, and shows the message before the recovery.
template <class Procedure>
void Run_Trapped(Session& session, const FailureMessage& message, Procedure&& procedure) {
  if (Ends_Well(session, std::forward<Procedure>(procedure))) return;
  Show_Box(session, message.text, message.title, BoxIcon::Stop);
  session.operations.Stop_And_Recover(session);
}

// With no recovery and no message: the failure is only noted.
template <class Procedure>
void Run_Silently_Trapped(Session& session, Procedure&& procedure) {
  Ends_Well(session, std::forward<Procedure>(procedure));
}

}  // namespace quillspeech
