// The one exit for a failure in the pipeline.
#pragma once

#include "session/session.hpp"

namespace quillspeech {

// By Always_Restart_on_Error either throws the sample away and re-arms the capture, or brings the
// session to rest. Only "NO" and an empty text bring it to rest. Shows no message; a failure in
// here is not caught again.
void Stop_And_Recover(Session& session);

}  // namespace quillspeech
