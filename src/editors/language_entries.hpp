// The commands of the Language Editor that change the three lists of a record: words, patterns and
// differentiators. Save appends an entry to the record, Add appends it to a copy of the record at
// the file's end, Edit and Delete work on the entry that is chosen in its list. Each writes the
// whole record at once; what a command has stored before it fails stays in memory and reaches the
// file with the next write.
#pragma once

#include <span>

#include "editors/language_editor.hpp"

namespace quillspeech {

// What the eleven buttons do.
std::span<const EditorCommand> Entry_Commands();

}  // namespace quillspeech
