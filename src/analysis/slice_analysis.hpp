// From a slice of a capture to its number.
#pragma once

#include <cstdint>

#include "session/session.hpp"

namespace quillspeech {

// Counts the valleys of the slice between these byte positions of the store into Engine_Category,
// at the level of the settings, stops the recorder and runs the engine filter. Yields once, at its
// head. A slice that the store's end cuts to nothing, and a stop, leave without the filter; a
// failure ends in the recovery, and the caller is not told.
void Analyse_Slice(Session& session, std::int64_t first_byte, std::int64_t last_byte);

}  // namespace quillspeech
