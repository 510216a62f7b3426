// The engine table: which letter group stands for a category of sound.
#pragma once

#include "session/session.hpp"

namespace quillspeech {

// Writes the built-in groups into entries 0 to 70; 71 to 100 stay.
void Load_Default_Engine_Table(Session& session);

// Fills the table from the file of Consider_this_Engine_for_Recognition (entries 0 to 99, with
// their padding), or with the built-in groups when no file is named. A name that does not end in
// ".EGN" or ".egn" is refused with a message and a recovery; a failure ends in the recovery.
void Load_Engine(Session& session);

}  // namespace quillspeech
