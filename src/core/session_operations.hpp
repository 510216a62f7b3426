// What a host does with a session: start, stop, restart, and the cue that loops before a start.
#pragma once

#include "core/control.hpp"

namespace quillspeech {

// Begins live recognition and raises StartRecognitionActivity; nothing at all while a session is
// started. With incomplete settings, or on a run-time failure, a message box.
void Start_Real_Action(Control& control);

// Ends live recognition and raises StopRecognitionActivity, also when no session is open. On a
// run-time failure a message box.
void Stop_Real_Action(Control& control);

// What that does to the session, whatever the control. Traps no failure.
void Halt_Session(Session& session);

// Abandons the sample and begins again at once; nothing unless the session is alive. With
// incomplete settings a message box, and the session stays stopped. Traps no failure.
void Restart(Control& control);

// Loops Play_this_file_on_Initialization until the next purge.
void InitializeSound(Session& session);

// The session's side of a control's end, whose pump is off by then. On a run-time failure a message
// box.
void Terminate_Session(Session& session);

}  // namespace quillspeech
