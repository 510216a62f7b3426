// The Language Editor: search by pattern, the record memory, the texts of the file, a new record
// and the summary.
#pragma once

#include <string>

#include "editors/language_editor.hpp"

namespace quillspeech {

EditorCommands Transfer_Commands();

// The summary of a record, in lines that end with carriage return and line feed but for the last.
// Counts above their arrays are failure 9.
std::string Record_Summary(const datafiles::SayRecord& record);

}  // namespace quillspeech
