// The Engine Editor: the half of DatabaseVE that edits an engine table. The captions of the menu
// entries are its data: an edited one changes the running table at once, and the file at the next
// Save, which writes what the captions show.
#pragma once

#include "editors/database_ve.hpp"
#include "editors/engine_groups.hpp"

namespace quillspeech {

DatabaseVECommands Engine_Commands();

// At the making of the windows: a click on an entry of a group edits it.
void Connect_Engine_Entries(VocabularyAndEngineEditor& editor);

// At the opening of the window: the menus show the filter's pass value and the running table.
void Show_Filter_Pass_Value(VocabularyAndEngineEditor& editor);
void Show_Running_Table(VocabularyAndEngineEditor& editor);

// Asks for the text of an entry. It becomes the entry's caption and the element of the running
// table that has the entry's own number, whatever its group: entries of all groups share the
// elements 1 to 15. A number of 16 and more does nothing.
void Edit_Engine_Entry(VocabularyAndEngineEditor& editor, const EngineGroup& group, int entry);

}  // namespace quillspeech
