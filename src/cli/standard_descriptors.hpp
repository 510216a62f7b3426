// The descriptors 0 to 2, which the program's streams take for granted.
#pragma once

namespace quillspeech::cli {

// Opens /dev/null for reading in the place of each that is closed, so that no file opened later
// gets such a number and takes what is meant for a stream. Writing to such a place still fails.
// Call it before anything else is opened.
void Fill_Standard_Descriptors();

}  // namespace quillspeech::cli
