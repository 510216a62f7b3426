// From the string of a word to the words of the language file.
#pragma once

#include "session/session.hpp"

namespace quillspeech {

// Scans the language file of Consider_this_Lang_File_to_match from its first record to its last.
// Each pattern that fits Current_Voice_Word enters all words of its record with a score, and the
// seven best are ranked. The record read last is written back with its patterns left-aligned. A
// failure ends in the recovery.
void Match_Language(Session& session);

}  // namespace quillspeech
