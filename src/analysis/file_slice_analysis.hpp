// From a slice of a file to its number.
#pragma once

#include <cstdint>

#include "session/session.hpp"

namespace quillspeech {

// Counts the valleys of the slice between these byte positions of the store into Engine_Category,
// always at level 128, and its peaks, and runs the engine filter when Enable_Speech_Engine is
// "YES". A slice of 1,500 bytes or more with too few loud bytes is noise and leaves no mark. Never
// yields. A failure ends in the recovery, and the caller is not told.
void Analyse_File_Slice(Session& session, std::int64_t first_byte, std::int64_t last_byte);

}  // namespace quillspeech
