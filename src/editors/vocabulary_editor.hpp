// The Vocabulary Editor: the half of DatabaseVE that shows the named curves of a vocabulary file,
// one record at a time and all in a list, and moves, renames and blanks records. It makes no
// curves.
#pragma once

#include "editors/database_ve.hpp"

namespace quillspeech {

DatabaseVECommands Vocabulary_Commands();

// Across the graph Picture1 the values of a curve, from its bottom up their numbers.
inline constexpr DrawingScale Vocabulary_Scale{.left = 0, .top = 50, .right = 128, .bottom = 0};

// The menus that wait for a vocabulary file: mnuFile, mnuQuery and mnuRecord.
void Enable_Vocabulary_Menus(VocabularyAndEngineEditor& editor, bool on);

// A click on a line of the list in DataDisplayVE goes to its record.
void Connect_Vocabulary_List(VocabularyAndEngineEditor& editor);

}  // namespace quillspeech
