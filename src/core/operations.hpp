// The operations of a session, and the wiring of the calls that go up.
#pragma once

#include "session/session.hpp"

namespace quillspeech {

// Makes a new session ready: fills in the operations that the floors of the recogniser own, and the
// engine table with the built-in groups, which stand until an engine is loaded.
void Connect_Operations(Session& session);

// Reads the file named by Open_this_Wave_File and runs the file analysis over it, unless one of the
// session's timers is on: a live session shuts files out, without a message. A failure ends the
// operation silently.
void Open_Specified_Wave_File_And_Process(Session& session);

}  // namespace quillspeech
