// The operations of a session, and the wiring of the calls that go up.
#pragma once

#include "session/session.hpp"

namespace quillspeech {

// Prepares a new session, once and before anything else: fills in the operations that the floors of
// the recogniser own, gives the timers of the hidden window their ticks, and fills the engine table
// with the built-in groups, which stand until an engine is loaded.
void Prepare_Session(Session& session);

// Leaves the session as every start of live work begins: no results, no stop, no capture under way,
// "Sleeping" and alive. The capture clock is armed (Timer5 on, Timer3 off; Timer1 stays as it is)
// and a missing recording frequency becomes 22,050 Hz. Whether the session may start at all, and
// whom to tell, is the caller's.
void Begin_Session(Session& session);

// Two steps of it, which a restart takes by themselves. The first: no results, no stop, started, no
// capture under way. The second: Timer5 on, Timer3 off.
void Clear_For_Capture(Session& session);
void Arm_Capture(Session& session);

// Reads the file named by Open_this_Wave_File and runs the file analysis over it, unless one of the
// session's timers is on: a live session shuts files out, without a message. A failure ends the
// operation silently. Between the two the host is told by Wave_File_Was_Read, before
// File_Run_Active is set.
void Open_Specified_Wave_File_And_Process(Session& session);

}  // namespace quillspeech
