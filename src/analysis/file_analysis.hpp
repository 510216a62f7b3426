// From a file in the store to its words: the first of three levels.
#pragma once

#include "session/session.hpp"

namespace quillspeech {

// Finds the words of Speech_Sample_Bytes (the first Wave_Header_Buffer_Length bytes) and analyses
// every one, long ones by a descent into their parts; then ranks what the last word that found
// anything left in the results. Switches no timer, and yields once at its head. A failure ends in
// the recovery.
void Run_File_Analysis(Session& session);

}  // namespace quillspeech
