// The Language Editor: the window Database, in which a person makes and maintains a language file
// one record at a time. The session's current SayRecord is its only buffer, and every command that
// changes it writes it to the file at once. While the window is loaded the capture clock stands.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/checked.hpp"
#include "datafiles/record_file.hpp"
#include "datafiles/records.hpp"
#include "editors/editor_windows.hpp"
#include "editors/shown_text.hpp"
#include "platform/form.hpp"
#include "session/session.hpp"

namespace quillspeech {

class LanguageEditor;

// A failure ends a command silently. The tables are Navigation_Commands, Transfer_Commands,
// Memory_Commands and Entry_Commands.
using EditorCommand = ClickCommand<LanguageEditor>;
using EditorCommands = ClickCommands<LanguageEditor>;

// What the commands share. The windows are made anew at each loading; asking for one before its
// first is failure 5.
class LanguageEditor {
 public:
  // Outlives neither the session nor its ports.
  explicit LanguageEditor(Session& shared);
  ~LanguageEditor();
  LanguageEditor(const LanguageEditor&) = delete;
  LanguageEditor& operator=(const LanguageEditor&) = delete;

  // The window's life. A window that is loaded stays as it is. Loading opens the file of
  // Consider_this_Lang_File_to_Add; when that fails, a message and the recovery of the session, and
  // failure 5 if the recovery has taken the window away.
  void Load();
  void Show(bool modally);  // when there is no window to be had it is unloaded again
  void Unload();            // nothing when it is not loaded
  bool Is_Loaded() const;

  // The session's current record and its file. Failures as of RecordFile.
  datafiles::SayRecord& Record() { return session.data.SayRecord; }
  void Read_Record(std::int64_t number);  // in a file that counts no record it is record 1
  // Writes it at its RecordNo. A file that has counted fewer records counts as many from then on.
  void Write_Record() { Write_Record(session.data.SayRecord); }
  // The same with a record that becomes the current one when it is written.
  void Write_Record(const datafiles::SayRecord& changed);
  // Shows the record and brings the counters to its counts. A count above its array is failure 9.
  void Display_Record();
  void Load_Counters();
  // How a command ends that has stored an entry or made a record: it is displayed and counts as the
  // record matched last; with Keep_Record it is written first.
  void Show_As_Matched();
  void Keep_Record();
  // Tells that a command wants an open file, when there is none.
  bool Tell_Missing_File();

  // Controls of Database: what an edit part or a text box holds, and what it is to show, which ends
  // at the first character 0 as every text on a screen.
  const std::string& Text(std::string_view control) { return Database()[control].text; }
  void Show_Text(std::string_view control, std::string_view text);

  Form& Database();
  Form& DataDisplay();      // the browser
  Form& FeaturesDisplay();  // the summary

  Session& session;
  std::string File_Name;  // of the open file; empty: none
  bool Is_Closed = true;  // written only

  // Shadows of the record's counts.
  Checked16 Like_Counter;
  Checked16 Word_Counter;
  Checked16 Differentiator_Counter;

  // What Copy and Cut keep for Paste, over the end of the window. Empty at first.
  datafiles::SayRecord Record_Memory;

  // Opens the file beside the one that is open, which stays open until the window ends, and reads
  // record 1. A failure leaves everything as it was.
  void Open_File(const std::string& name);
  // Reads the record matched last, or record 1 when that one is the last of the file or none.
  void Choose_Record();

 private:
  void Make_Windows();
  void Connect(EditorCommands commands);
  void Open_Window();
  void Forget_File_Name();
  void Database_Load();
  void Database_Unload();

  std::unique_ptr<Form> database_;
  std::unique_ptr<Form> data_display_;
  std::unique_ptr<Form> features_display_;
  std::vector<RecordFile> earlier_files_;
};

// Gives the session its Language Editor, which lives as long as the session's operations.
void Connect_Language_Editor(Session& session);

}  // namespace quillspeech
