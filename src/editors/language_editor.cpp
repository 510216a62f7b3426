#include "editors/language_editor.hpp"

#include <utility>

#include "base/text.hpp"
#include "editors/language_editor_form.hpp"
#include "editors/language_entries.hpp"
#include "editors/language_memory.hpp"
#include "editors/language_navigation.hpp"
#include "editors/language_transfer.hpp"
#include "session/failure_trap.hpp"
#include "session/open_records.hpp"

namespace quillspeech {

using datafiles::SayRecord;

LanguageEditor::LanguageEditor(Session& shared) : session(shared) {
  Record_Memory.WordFont("");  // blanks, as in a record without a font
}

LanguageEditor::~LanguageEditor() = default;

Form& LanguageEditor::Database() { return Made(database_); }
Form& LanguageEditor::DataDisplay() { return Made(data_display_); }
Form& LanguageEditor::FeaturesDisplay() { return Made(features_display_); }

bool LanguageEditor::Is_Loaded() const { return database_ && database_->Is_Loaded(); }

void LanguageEditor::Make_Windows() {
  database_ = Make_Database_Form();
  data_display_ = Make_DataDisplay_Form();
  features_display_ = Make_FeaturesDisplay_Form();
  database_->On(Form::Itself, FormEvent::Load, [this] { Database_Load(); });
  database_->On(Form::Itself, FormEvent::Unload, [this] { Database_Unload(); });
  Connect(Navigation_Commands());
  Connect(Transfer_Commands());
  Connect(Memory_Commands());
  Connect(Entry_Commands());
  Connect_Lists(*this);
}

void LanguageEditor::Connect(EditorCommands commands) {
  for (const EditorCommand& command : commands) {
    database_->On(command.control, FormEvent::Click, [this, run = command.run] {
      Run_Silently_Trapped(session, [&] { run(*this); });
    });
  }
}

void LanguageEditor::Load() {
  if (Is_Loaded()) return;
  Make_Windows();
  database_->Load();
  if (!Is_Loaded()) Fail(Failure::Invalid_Call);
}

void LanguageEditor::Show(bool modally) {
  Load();
  FormViews& views = session.ports.views;
  try {
    views.Show(*database_, modally ? Modality::Modal : Modality::None);
  } catch (...) {
    if (!views.Is_Shown(*database_)) Unload();
    throw;
  }
}

void LanguageEditor::Unload() {
  if (Is_Loaded()) database_->Unload();
}

void LanguageEditor::Database_Load() {
  if (Ends_Well(session, [this] { Open_Window(); })) return;
  Forget_File_Name();
  Show_Box(session,
           "Problem in File I/O,Code Ailoa, Check the Name or Location of your disk files of "
           "language database and their states",
           "Quillspeech Info");
  session.operations.Stop_And_Recover(session);
}

void LanguageEditor::Open_Window() {
  session.flags.Language_Editor_Loaded = True;
  Is_Closed = false;
  Forget_File_Name();
  database_->Set_Caption(
      "Quillspeech\xAE  Component Language Editor    \xA9"
      "Corvane Studio Works");
  database_->Set_Menu_Caption("mnuDEM",
                              "Display Engine Data for available count :" +
                                  std::to_string(session.filter.Voice_Words_Explode_Count.Raw()));
  session.ports.events.Enable(FormTimer::Timer5, false);
  session.data.Main_File_Number.Close();
  for (const std::string& font : session.ports.views.Font_Names())
    database_->Add_Item("Combo1", font);
  Open_First_File(*this);
  if (session.flags.File_Run_Active == 1) Hide_Memory_Commands(*this);
  Show_Text("Text1", std::to_string(session.settings.Direct_Add.Raw()));
}

// The recovery closes the file, or the window with it.
void LanguageEditor::Forget_File_Name() {
  File_Name.clear();
  Show_Text("TFNam", "");
}

// With no live session behind the window there is no capture to go back to.
void LanguageEditor::Database_Unload() {
  session.flags.Language_Editor_Loaded = False;
  Is_Closed = true;
  earlier_files_.clear();
  if (session.flags.File_Run_Active == 1) return;
  session.data.Main_File_Number.Close();
  session.flags.Analysis_Running = 0;
  session.ports.events.Enable(FormTimer::Timer5, true);
  data_display_->Unload();
  features_display_->Unload();
}

void LanguageEditor::Open_File(const std::string& name) {
  auto opened = Opened_Records<SayRecord>(session.ports.data_files, name);
  OpenDataFile& data = session.data;
  if (data.Main_File_Number.Is_Open()) earlier_files_.push_back(std::move(data.Main_File_Number));
  Use_Records(data, data.SayRecord, std::move(opened));
}

void LanguageEditor::Choose_Record() {
  const std::int64_t count = session.data.Main_Record_Count;
  const std::int64_t matched = session.results.Matched_Record_No;
  Read_Record(matched > 0 && matched < count ? matched : 1);
}

void LanguageEditor::Read_Record(std::int64_t number) {
  session.data.SayRecord = Record_At<SayRecord>(session.data, number);
}

void LanguageEditor::Write_Record(const SayRecord& changed) {
  Write_At_Its_Number(session.data, changed);
  session.data.SayRecord = changed;
}

bool LanguageEditor::Tell_Missing_File() {
  if (!File_Name.empty()) return false;
  Show_Box(session, "Please open a new or a previously saved file", "Quillspeech",
           BoxIcon::Information);
  return true;
}

void LanguageEditor::Keep_Record() {
  Write_Record();
  Show_As_Matched();
}

void LanguageEditor::Show_As_Matched() {
  Display_Record();
  session.results.Matched_Record_No = Record().RecordNo();
}

void LanguageEditor::Show_Text(std::string_view control, std::string_view text) {
  Database().Set_Text(control, Shown(text));
}

void Connect_Language_Editor(Session& session) {
  const auto editor = std::make_shared<LanguageEditor>(session);
  session.operations.Load_Database = [editor](Session&) { editor->Load(); };
  session.operations.Show_Database = [editor](Session&, bool modally) { editor->Show(modally); };
  session.operations.Unload_Database = [editor](Session&) { editor->Unload(); };
}

}  // namespace quillspeech
