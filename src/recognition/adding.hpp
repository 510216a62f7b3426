// Adds what was just heard to a record of the language file.
#pragma once

#include "session/session.hpp"

namespace quillspeech {

// Asks, and on a yes puts the word's string into record Direct_Add of
// Consider_this_Lang_File_to_Add as a new pattern rated 100. A failure goes to the caller with the
// file still open.
void Add_Engine_String_To_Language(Session& session);

}  // namespace quillspeech
