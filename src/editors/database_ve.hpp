// The Vocabulary and Engine Editor: the window DatabaseVE, one half of which browses a vocabulary
// file while the other edits an engine table, and DataDisplayVE, which lists the records of the
// vocabulary. The halves share the session's one data file and nothing else.
#pragma once

#include <memory>
#include <random>
#include <string>
#include <string_view>

#include "datafiles/records.hpp"
#include "editors/editor_windows.hpp"
#include "platform/form.hpp"
#include "session/session.hpp"

namespace quillspeech {

class VocabularyAndEngineEditor;

// A failure goes out to whoever clicked, unless the command has a handler of its own. The tables
// are Vocabulary_Commands and Engine_Commands.
using DatabaseVECommand = ClickCommand<VocabularyAndEngineEditor>;
using DatabaseVECommands = ClickCommands<VocabularyAndEngineEditor>;

// What the commands share. The windows are made anew at each loading; asking for one before its
// first is failure 5.
class VocabularyAndEngineEditor {
 public:
  // Outlives neither the session nor its ports.
  explicit VocabularyAndEngineEditor(Session& shared);
  ~VocabularyAndEngineEditor();
  VocabularyAndEngineEditor(const VocabularyAndEngineEditor&) = delete;
  VocabularyAndEngineEditor& operator=(const VocabularyAndEngineEditor&) = delete;

  // The window's life. A window that is loaded stays as it is; one that a failure takes off the
  // screen is unloaded. When it goes it closes the file that either half has opened, unloads the
  // list, and shows the notice of upgrades to come.
  void Load();
  void Show(bool modally);
  void Unload();  // nothing when it is not loaded
  bool Is_Loaded() const;

  Form& DatabaseVE();
  Form& DataDisplayVE();

  // The session's current records and their file, which Open_Records opens. A file that one half
  // has opened has records of the wrong length for the other: failure 5.
  datafiles::VocRecord& Vocabulary() { return session.data.VocRecord; }
  datafiles::EgnRecord& Engine() { return session.data.EgnRecord; }

  // A text on display ends at its first character 0, as every text on a screen.
  void Show_Text(std::string_view control, std::string_view text);

  Session& session;
  std::string Engine_File_Name;            // of the one opened last; empty: none yet
  datafiles::VocRecord Vocabulary_Memory;  // what Copy and Cut keep for Paste; new with the window
  std::minstd_rand Random;                 // for the colours of the graph, which tell nothing

 private:
  void Make_Windows();
  void Connect(DatabaseVECommands commands);
  void Open_Window();
  void Close_Window();

  std::unique_ptr<Form> database_ve_;
  std::unique_ptr<Form> data_display_ve_;
};

// Gives the session its Vocabulary and Engine Editor, which lives as long as the session's
// operations.
void Connect_Vocabulary_And_Engine_Editor(Session& session);

}  // namespace quillspeech
