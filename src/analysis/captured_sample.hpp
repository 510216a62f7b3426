// From a finished capture to its words.
#pragma once

#include "session/session.hpp"

namespace quillspeech {

// Finds the words of Speech_Sample_Bytes (the first Wave_Header_Buffer_Length bytes), cuts those
// below Noise_Word_No_CutOff into slices and analyses each. With words found the next capture is
// armed, or the Language Editor loaded when the session adds to its language. Settings that hold
// "none" get their defaults, written back. A failure ends in the recovery.
void Process_Captured_Sample(Session& session);

}  // namespace quillspeech
