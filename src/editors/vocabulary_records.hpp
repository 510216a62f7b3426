// The Vocabulary Editor: the record in the buffer, from the file and back and on display.
#pragma once

#include <string_view>

#include "editors/database_ve.hpp"

namespace quillspeech {

// Without the blanks behind it; those in front are part of the name.
std::string_view Name_Of(const datafiles::VocRecord& record);

// Into the buffer, as Record_At gives it; a failure leaves the buffer as it was.
void Read_Record(VocabularyAndEngineEditor& editor, std::int64_t number);

// From the buffer, at its RecordNo.
void Write_Record(VocabularyAndEngineEditor& editor);

// How a command ends that changes a record: the changed one is written at its RecordNo, and then
// becomes the one in the buffer and on display. A failed write leaves both as they were.
void Keep_Record(VocabularyAndEngineEditor& editor, const datafiles::VocRecord& changed);

// Shows the name, the count and the curve as circles on the scale of the graph. A count above the
// array is failure 9, after all values that there are have been drawn.
void Display_Record(VocabularyAndEngineEditor& editor);

}  // namespace quillspeech
