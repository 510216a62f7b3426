#include "editors/vocabulary_editor.hpp"

#include <algorithm>
#include <array>
#include <string>

#include "base/spelled_number.hpp"
#include "base/text.hpp"
#include "editors/ask.hpp"
#include "editors/messages.hpp"
#include "editors/shown_text.hpp"
#include "editors/voc_record_states.hpp"
#include "editors/vocabulary_records.hpp"
#include "recognition/like_match.hpp"
#include "session/failure_trap.hpp"
#include "session/open_records.hpp"

namespace quillspeech {
namespace {

using datafiles::VocRecord;

constexpr std::string_view Graph = "Picture1";
constexpr std::string_view List = "Combo1";
constexpr std::string_view Find_Title = "Quillspeech Vocabulary Editor Version 1.0";

std::int64_t Record_Count(const VocabularyAndEngineEditor& editor) {
  return editor.session.data.Main_Record_Count;
}

// On a scale of twips.
FormDrawing List_Heading(const Form& list) {
  constexpr DrawingPoint Corner{120, 90};
  FormDrawing heading;
  heading.scale = {.left = 0,
                   .top = 0,
                   .right = static_cast<double>(list.Size().width),
                   .bottom = static_cast<double>(list.Size().height)};
  heading.operations = {Drawn_Text(Corner, "     RefNo    Name", 0)};
  return heading;
}

// The list of records. Outside a design environment it is filled and not shown.
void Begin_List(VocabularyAndEngineEditor& editor) {
  Form& list = editor.DataDisplayVE();
  list.Clear_Items(List);
  list.Set_Ground(List_Heading(list));
  if (Is_Design_Environment(editor.session)) {
    editor.session.ports.views.Show(list, Modality::None);
  }
}

void List_Record(VocabularyAndEngineEditor& editor, std::int64_t number) {
  const VocRecord record = Record_At<VocRecord>(editor.session.data, number);
  editor.DataDisplayVE().Add_Item(List, " " + std::to_string(record.RecordNo()) + "           " +
                                            std::string(Shown(Name_Of(record))) + "( " +
                                            std::to_string(record.VocabularySampleCount()) + " )");
}

// Lists the records of these numbers. The one on display is read anew; nothing is written. A
// failure leaves it in the buffer as it was.
void List_Records(VocabularyAndEngineEditor& editor, std::int64_t first, std::int64_t last) {
  const std::int64_t kept = editor.Vocabulary().RecordNo();
  Begin_List(editor);
  for (std::int64_t number = first; number <= last; ++number) List_Record(editor, number);
  Read_Record(editor, kept);
  Display_Record(editor);
}

// The last record, whatever the caption says.
void VC_Click(VocabularyAndEngineEditor& editor) {
  const std::int64_t last = Record_Count(editor);
  List_Records(editor, std::max<std::int64_t>(last, 1), last);
}

void mnuView_Click(VocabularyAndEngineEditor& editor) {
  List_Records(editor, 1, Record_Count(editor));
}

void Open_File(VocabularyAndEngineEditor& editor, const std::string& name) {
  Enable_Vocabulary_Menus(editor, true);
  for (const auto button : {"NextHit", "PreHit"}) editor.DatabaseVE().Set_Enabled(button, true);
  Open_Records(editor.session.data, editor.Vocabulary(), editor.session.ports.data_files, name);
  editor.DataDisplayVE().Clear_Items(List);  // also when the display fails
  Display_Record(editor);
  mnuView_Click(editor);
}

void Refuse_Name(VocabularyAndEngineEditor& editor) {
  Refuse_File_Name(editor.session, "Quillspeech Vocabulary Editor Info.");
}

void Command1_Click(VocabularyAndEngineEditor& editor) {
  editor.DatabaseVE().Clear_Drawing(Graph);
  const std::string name = Ask_File(editor.session, "Open Quillspeech Vocabulary to Edit", "*.SAY");
  if (!Like_Match(name, "*.S??") && !Like_Match(name, "*.s??")) return Refuse_Name(editor);
  Open_File(editor, name);
}

void Ask_And_Open_File(VocabularyAndEngineEditor& editor) {
  const std::string name =
      Ask_Text(editor.session, "Open this existing or new *.say File :", "Open:");
  if (Like_Match(name, "*.say") || Like_Match(name, "*.SAY")) return Open_File(editor, name);
  Enable_Vocabulary_Menus(editor, false);
  editor.DatabaseVE().Set_Enabled("NextHit", false);
  Refuse_Name(editor);
}

void Opmu_Click(VocabularyAndEngineEditor& editor) {
  if (!Ends_Well(editor.session, [&] { Ask_And_Open_File(editor); })) Refuse_Name(editor);
}

void Command2_Click(VocabularyAndEngineEditor& editor) { editor.DatabaseVE().Clear_Drawing(Graph); }

void mnuNext_Click(VocabularyAndEngineEditor& editor) {
  Write_Record(editor);
  const std::int64_t next = std::int64_t{editor.Vocabulary().RecordNo()} + 1;
  if (next <= Record_Count(editor)) {
    Read_Record(editor, next);
  } else {
    Show_Box(editor.session, "No More Records", "Quillspeech");
  }
  Display_Record(editor);
}

void mnuPrevious_Click(VocabularyAndEngineEditor& editor) {
  Write_Record(editor);
  const std::int64_t previous = std::int64_t{editor.Vocabulary().RecordNo()} - 1;
  if (previous > 0) {
    Read_Record(editor, previous);
  } else {
    Show_Box(editor.session, " Start of File", "Quillspeech");
  }
  Display_Record(editor);
}

// Displays that record; false: the file counts none of that number.
bool Go_To(VocabularyAndEngineEditor& editor, double number) {
  if (number <= 0 || number > static_cast<double>(Record_Count(editor))) return false;
  const std::int64_t rounded = Round_To_32(number);
  if (rounded == 0) return false;
  Read_Record(editor, rounded);
  Display_Record(editor);
  return true;
}

void mnuNumber_Click(VocabularyAndEngineEditor& editor) {
  const std::string answer = Ask_Text(editor.session, "Enter Reference Number", "Find:");
  const double number = Numeric_Value(answer);
  if (number != 0 && !Go_To(editor, number)) Tell_Not_Present(editor.session, answer, Find_Title);
}

// After a search in vain the last record is in the buffer, and the window shows what it showed.
void mnuFindName_Click(VocabularyAndEngineEditor& editor) {
  const std::string answer = Ask_Text(editor.session, "Enter Target Name", "Find :");
  if (answer.empty()) return;
  const std::int64_t count = Record_Count(editor);
  for (std::int64_t number = 1; number <= count; ++number) {
    Read_Record(editor, number);
    if (Name_Of(editor.Vocabulary()) == answer) return Display_Record(editor);
  }
  Tell_Not_Present(editor.session, answer, Find_Title);
}

void mnuDelete_Click(VocabularyAndEngineEditor& editor) {
  VocRecord deleted = editor.Vocabulary();
  Make_Deleted(deleted);
  Keep_Record(editor, deleted);
}

void mnuCopy_Click(VocabularyAndEngineEditor& editor) {
  Copy_Curve(editor.Vocabulary(), editor.Vocabulary_Memory);
}

// The copy is taken before the question, which bears the name of the other editor.
void mnuCut_Click(VocabularyAndEngineEditor& editor) {
  mnuCopy_Click(editor);
  if (Is_Answered_Yes(editor.session, "Are you sure you want to delete this record ?",
                      "Quillspeech Language Editor")) {
    mnuDelete_Click(editor);
  }
}

// Always a new record at the end, which the file counts once it is written.
void mnuPaste_Click(VocabularyAndEngineEditor& editor) {
  if (!Is_Answered_Yes(editor.session, "Add data in Memory to file ?",
                       "Quillspeech Vocabulary Development")) {
    return;
  }
  VocRecord added = editor.Vocabulary();
  added.RecordNo(Checked32(Record_Count(editor) + 1).Raw());
  Copy_Curve(editor.Vocabulary_Memory, added);
  Keep_Record(editor, added);
}

void mnuRename_Click(VocabularyAndEngineEditor& editor) {
  const std::string name = Ask_Text(editor.session, "Enter the New Name:", "Rename:", "XYZ");
  VocRecord renamed = editor.Vocabulary();
  renamed.VocabularyName(Trim(name));
  Keep_Record(editor, renamed);
}

void Exitmnu_Click(VocabularyAndEngineEditor& editor) { editor.Unload(); }

void mnuHelp_Click(VocabularyAndEngineEditor& editor) {
  editor.session.operations.Show_Help(editor.session);
}

void mnuCu_Click(VocabularyAndEngineEditor& editor) {
  editor.session.operations.Show_ComingSplash(editor.session);
}

constexpr auto Commands = std::to_array<DatabaseVECommand>({
    {"Command1", Command1_Click},       {"Opmu", Opmu_Click},
    {"Command2", Command2_Click},       {"mnuNext", mnuNext_Click},
    {"NextHit", mnuNext_Click},         {"mnuPrevious", mnuPrevious_Click},
    {"PreHit", mnuPrevious_Click},      {"VC", VC_Click},
    {"mnuView", mnuView_Click},         {"mnuNumber", mnuNumber_Click},
    {"mnuFindName", mnuFindName_Click}, {"mnuCopy", mnuCopy_Click},
    {"mnuCut", mnuCut_Click},           {"mnuPaste", mnuPaste_Click},
    {"mnuRename", mnuRename_Click},     {"mnuDelete", mnuDelete_Click},
    {"Exitmnu", Exitmnu_Click},         {"Aboutmnu", mnuHelp_Click},
    {"mnuHelp", mnuHelp_Click},         {"mnuCu", mnuCu_Click},
});

}  // namespace

DatabaseVECommands Vocabulary_Commands() { return Commands; }

void Enable_Vocabulary_Menus(VocabularyAndEngineEditor& editor, bool on) {
  for (const auto menu : {"mnuFile", "mnuQuery", "mnuRecord"}) {
    editor.DatabaseVE().Set_Menu_Enabled(menu, on);
  }
}

void Connect_Vocabulary_List(VocabularyAndEngineEditor& editor) {
  editor.DataDisplayVE().On(List, FormEvent::Click, [&editor] {
    Go_To(editor, Numeric_Value(editor.DataDisplayVE()[List].text));
  });
}

}  // namespace quillspeech
