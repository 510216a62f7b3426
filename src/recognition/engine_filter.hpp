// From the numbers of the slices to the string of a word.
#pragma once

#include "session/session.hpp"

namespace quillspeech {

// Takes the Engine_Category of one slice: finds its letter group, keeps the groups that last (by
// the mode in Keep_Engine_Frequency_Input_Flow), strings them together in Current_Voice_Word, and
// hands the string to Match_Language on the word's last slice. A failure ends in the recovery.
void Run_Engine_Filter(Session& session);

// The filter at the head of a file run: run, weight, strings and flags cleared. Slices delivered,
// filled slots, the slots themselves and the current word go on from the last run.
void Reset_Filter_For_File(Filter& filter, Results& results);

// The filter at the head of a live sample: the same, and no slice delivered, no slot filled.
void Reset_Filter_For_Live(Filter& filter, Results& results);

}  // namespace quillspeech
