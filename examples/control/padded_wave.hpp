// Silence around a recorded word.
#pragma once

#include <string>

namespace example {

// Writes a copy of the WAV file (8-bit mono) with silence around it, up to that many milliseconds,
// and answers its name: a file in the folder for temporary files, which the next call overwrites.
// A file of another format, or a longer one, is answered as it is.
//
// A pause is a share of the whole sample for the control, so a word that was cut out of a recording
// needs some silence around it to be found as a word. A capture of the microphone has it anyway.
std::wstring Padded_Wave(const std::wstring& file, unsigned milliseconds);

}  // namespace example
