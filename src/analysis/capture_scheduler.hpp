// The timers of the hidden window, and the pump that looks for speech in a buffer that still fills.
#pragma once

#include "session/session.hpp"

namespace quillspeech {

// The capture clock: once a second. Failure 6 when its time in ms does not fit 32 bits.
void Timer1_Timer(Session& session);
// The pump trigger: every Voice_Capture_Delay ms.
void Timer3_Timer(Session& session);
// The capture starter.
void Timer5_Timer(Session& session);

// Looks for speech in the buffer as filled so far, and processes the sample when somebody speaks.
// A failure ends in Stop_And_Recover.
void Run_Pump(Session& session);

// Yields that many times. The 15,000 passes of a new control last 1.5 s on any machine, so that a
// word is recorded to its end before it is processed.
void Wait_Passes(EventLoop& events, Checked32& count);

}  // namespace quillspeech
