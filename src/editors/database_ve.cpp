#include "editors/database_ve.hpp"

#include "editors/database_ve_form.hpp"
#include "editors/engine_editor.hpp"
#include "editors/shown_text.hpp"
#include "editors/vocabulary_editor.hpp"
#include "session/failure_trap.hpp"

namespace quillspeech {

VocabularyAndEngineEditor::VocabularyAndEngineEditor(Session& shared) : session(shared) {}

VocabularyAndEngineEditor::~VocabularyAndEngineEditor() = default;

Form& VocabularyAndEngineEditor::DatabaseVE() { return Made(database_ve_); }
Form& VocabularyAndEngineEditor::DataDisplayVE() { return Made(data_display_ve_); }

bool VocabularyAndEngineEditor::Is_Loaded() const {
  return database_ve_ && database_ve_->Is_Loaded();
}

void VocabularyAndEngineEditor::Make_Windows() {
  database_ve_ = Make_DatabaseVE_Form();
  data_display_ve_ = Make_DataDisplayVE_Form();
  Vocabulary_Memory = {};
  Vocabulary_Memory.VocabularyName("");
  database_ve_->On(Form::Itself, FormEvent::Load, [this] { Open_Window(); });
  database_ve_->On(Form::Itself, FormEvent::Unload, [this] { Close_Window(); });
  Connect(Vocabulary_Commands());
  Connect(Engine_Commands());
  Connect_Vocabulary_List(*this);
  Connect_Engine_Entries(*this);
}

void VocabularyAndEngineEditor::Connect(DatabaseVECommands commands) {
  for (const DatabaseVECommand& command : commands) {
    database_ve_->On(command.control, FormEvent::Click, [this, run = command.run] { run(*this); });
  }
}

void VocabularyAndEngineEditor::Load() {
  if (Is_Loaded()) return;
  Make_Windows();
  database_ve_->Load();
}

// What goes on is the first failure, also when the notice fails behind it.
void VocabularyAndEngineEditor::Show(bool modally) {
  Load();
  FormViews& views = session.ports.views;
  try {
    views.Show(*database_ve_, modally ? Modality::Modal : Modality::None);
  } catch (...) {
    if (!views.Is_Shown(*database_ve_)) Run_Silently_Trapped(session, [this] { Unload(); });
    throw;
  }
}

void VocabularyAndEngineEditor::Unload() {
  if (Is_Loaded()) database_ve_->Unload();
}

void VocabularyAndEngineEditor::Open_Window() {
  Enable_Vocabulary_Menus(*this, false);
  Show_Filter_Pass_Value(*this);
  database_ve_->Set_Scale("Picture1", Vocabulary_Scale);
  Show_Running_Table(*this);
  database_ve_->Set_Caption(
      "Quillspeech\xAE  Component Engine Editor    \xA9"
      "Corvane Studio Works");
}

// What the Language Editor has open stays open.
void VocabularyAndEngineEditor::Close_Window() {
  RecordFile& file = session.data.Main_File_Number;
  if (file.Record_Bytes() != datafiles::SayRecord::Record_Bytes) file.Close();
  data_display_ve_->Unload();
  session.operations.Show_ComingSplash(session);
}

void VocabularyAndEngineEditor::Show_Text(std::string_view control, std::string_view text) {
  DatabaseVE().Set_Text(control, Shown(text));
}

void Connect_Vocabulary_And_Engine_Editor(Session& session) {
  const auto editor = std::make_shared<VocabularyAndEngineEditor>(session);
  session.operations.Show_DatabaseVE = [editor](Session&, bool modally) { editor->Show(modally); };
}

}  // namespace quillspeech
