// The timers of the hidden window, and the pump that looks for speech in a buffer that still fills.
#pragma once

#include "session/session.hpp"

namespace quillspeech {

// The capture clock: once a second.
void Timer1_Timer(Session& session);
// The pump trigger: every Voice_Capture_Delay ms.
void Timer3_Timer(Session& session);
// The capture starter.
void Timer5_Timer(Session& session);

// Looks for speech in the buffer as filled so far, and processes the sample when somebody speaks.
// A failure ends in Stop_And_Recover.
void Run_Pump(Session& session);

// Yields that many times. 15,000 passes last at least 150 ms on any machine.
void Wait_Passes(EventLoop& events, Checked32& count);

}  // namespace quillspeech
