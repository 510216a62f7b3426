// From a slice of a capture to its number.
#pragma once

#include "base/checked.hpp"
#include "session/session.hpp"

namespace quillspeech {

// Counts the valleys of the slice between these byte positions of the store into Engine_Category,
// at the level of the settings, stops the recorder and runs the engine filter. Yields once, at its
// head. A slice that the store's end cuts to end before its start, and a stop, leave without the
// filter; a failure ends in the recovery, and the caller is not told; a position that needs more
// than 32 bits is the caller's own failure 6.
void Analyse_Slice(Session& session, Checked32 first_byte, Checked32 last_byte);

}  // namespace quillspeech
