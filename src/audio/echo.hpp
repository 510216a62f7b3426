// Plays back to the speaker what was just heard.
#pragma once

#include <cstdint>

#include "session/session.hpp"

namespace quillspeech {

// Plays the bytes of the store between the two positions and returns when the sound has ended;
// timers run meanwhile. Skipped in silence when the device cannot be opened. Failure 9 when
// last_byte is negative or the positions lie outside the store, 7 when memory runs out.
void Play_Echo(Session& session, std::int64_t first_byte, std::int64_t last_byte);

}  // namespace quillspeech
