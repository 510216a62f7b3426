// From a slice of a file to its number.
#pragma once

#include "base/checked.hpp"
#include "session/session.hpp"

namespace quillspeech {

// Counts the valleys of the slice between these byte positions of the store into Engine_Category,
// always at level 128, and its peaks, and runs the engine filter when Enable_Speech_Engine is
// "YES". A slice of 1,500 bytes or more with too few loud bytes is noise and leaves no mark. Never
// yields. A failure ends in the recovery, and the caller is not told; a position that needs more
// than 32 bits is the caller's own failure 6.
void Analyse_File_Slice(Session& session, Checked32 first_byte, Checked32 last_byte);

}  // namespace quillspeech
