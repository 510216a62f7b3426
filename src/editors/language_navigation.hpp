// The Language Editor: files, the way through their records, and the lists of the window.
#pragma once

#include "editors/language_editor.hpp"

namespace quillspeech {

EditorCommands Navigation_Commands();

// The lists of one group are in step, Enter saves an entry, and numbers are kept in their limits
// while they are typed.
void Connect_Lists(LanguageEditor& editor);

// At the loading of the window: opens the file of Consider_this_Lang_File_to_Add and displays the
// record matched last. Without a name a message, and the commands of a file are disabled.
void Open_First_File(LanguageEditor& editor);
// What a live capture keeps in mind is nothing to show when there was none.
void Hide_Memory_Commands(LanguageEditor& editor);

// Displays the first record that fits a predicate, read into the buffer one after the other, or
// tells that there is none for the answer. Then the last record of the file is in the buffer, and
// the window shows what it showed.
using RecordTest = bool (*)(const datafiles::SayRecord& record, std::string_view wanted);
void Find_Record(LanguageEditor& editor, RecordTest fits);

}  // namespace quillspeech
