// The engine table: which letter group stands for a category of sound.
#pragma once

#include <string_view>

#include "session/session.hpp"

namespace quillspeech {

// Writes the built-in groups into entries 0 to 70; 71 to 100 stay.
void Load_Default_Engine_Table(Session& session);

// Whether the name ends in ".EGN" or ".egn", as that of every engine file does.
bool Is_Engine_File_Name(std::string_view name);

// Fills the table from the file of Consider_this_Engine_for_Recognition (entries 0 to 99, with
// their padding), or with the built-in groups when no file is named. A name of another kind is
// refused with a message and the recovery; a failure ends in the recovery.
void Load_Engine(Session& session);

}  // namespace quillspeech
