#include "editors/language_navigation.hpp"

#include <array>
#include <string>

#include "base/spelled_number.hpp"
#include "base/text.hpp"
#include "datafiles/say_record_texts.hpp"
#include "editors/messages.hpp"
#include "recognition/like_match.hpp"

namespace quillspeech {
namespace {

using datafiles::SayRecord;

constexpr std::string_view Title = "Quillspeech Language Editor";

void Enable_File_Commands(LanguageEditor& editor, bool on) {
  Form& form = editor.Database();
  for (const auto menu : {"mnuFile", "mnuQuery", "mnuRecord"}) form.Set_Menu_Enabled(menu, on);
  for (const auto button : {"Command7", "NextHit"}) form.Set_Enabled(button, on);
}

void Enable_Memory_And_Summary(LanguageEditor& editor, bool on) {
  for (const auto menu : {"mnuEM", "mnuWF"}) editor.Database().Set_Menu_Enabled(menu, on);
}

void Name_File(LanguageEditor& editor, const std::string& name) {
  editor.File_Name = name;
  editor.Show_Text("TFNam", name);
}

void Open_Chosen_File(LanguageEditor& editor, const std::string& name, bool is_valid) {
  if (!is_valid) return Refuse_File_Name(editor.session, "Quillspeech Language Editor Info.");
  editor.Open_File(name);
  Name_File(editor, name);
  Enable_File_Commands(editor, true);
  Enable_Memory_And_Summary(editor, true);
  editor.session.results.Matched_Record_No = editor.Record().RecordNo();
  editor.Display_Record();
}

// A short name with its extension in capitals is refused here, and taken by the menu.
void Command1_Click(LanguageEditor& editor) {
  constexpr std::size_t Longest_Refused = 6;
  const std::string name = Ask_File(editor.session, "Open Quillspeech Language Editor", "*.SAY");
  const bool is_valid =
      Like_Match(name, "*.s??") || (Like_Match(name, "*.S??") && name.size() > Longest_Refused);
  Open_Chosen_File(editor, name, is_valid);
}

void Opmu_Click(LanguageEditor& editor) {
  const std::string name =
      Ask_Text(editor.session, "Open this old or new *.say File :", "Open:", editor.File_Name);
  Open_Chosen_File(editor, name, Like_Match(name, "*.say") || Like_Match(name, "*.SAY"));
}

void mnuReload_Click(LanguageEditor& editor) {
  const std::string name = Trimmed(editor.session.settings.Consider_this_Lang_File_to_Add);
  if (name.empty()) return;
  editor.Open_File(name);
  Name_File(editor, name);
  editor.Choose_Record();
  editor.Display_Record();
}

bool Go_To_Next(LanguageEditor& editor) {
  editor.Write_Record();
  const std::int64_t next = std::int64_t{editor.Record().RecordNo()} + 1;
  if (next > editor.session.data.Main_Record_Count) return false;
  editor.Read_Record(next);
  return true;
}

bool Go_To_Previous(LanguageEditor& editor) {
  editor.Write_Record();
  const std::int64_t previous = std::int64_t{editor.Record().RecordNo()} - 1;
  if (previous <= 0) return false;
  editor.Read_Record(previous);
  return true;
}

void mnuNext_Click(LanguageEditor& editor) {
  if (!Go_To_Next(editor)) Show_Box(editor.session, "No More Records", Title);
  editor.Display_Record();
}

void NextHit_Click(LanguageEditor& editor) {
  if (!Go_To_Next(editor)) {
    Show_Box(editor.session, "No more Records in " + editor.File_Name, Title);
  }
  editor.Display_Record();
}

void mnuPrevious_Click(LanguageEditor& editor) {
  if (!Go_To_Previous(editor)) Show_Box(editor.session, " Start of File", Title);
  editor.Display_Record();
}

void Command7_Click(LanguageEditor& editor) {
  if (!Go_To_Previous(editor)) {
    Show_Box(editor.session, editor.File_Name + " Start of File  ", Title);
  }
  editor.Display_Record();
}

// The last record, whatever the caption says; nothing is written first.
void VC_Click(LanguageEditor& editor) {
  editor.Read_Record(editor.session.data.Main_Record_Count);
  editor.Display_Record();
}

void mnuNumber_Click(LanguageEditor& editor) {
  const std::string answer = Ask_Text(editor.session, "Enter Reference Number", "Find:");
  const double number = Numeric_Value(answer);
  if (number == 0) return;
  // What rounds to 0 is the number of no record.
  if (number > 0.5 && number <= static_cast<double>(editor.session.data.Main_Record_Count)) {
    editor.Read_Record(Round_To_32(number));
  } else {
    Tell_Not_Present(editor.session, answer, Title);
  }
  editor.Display_Record();
}

bool Has_Word(const SayRecord& record, std::string_view wanted) {
  return datafiles::Has_Element(record, datafiles::Words, record.WordCount(), wanted);
}

void mnuFindName_Click(LanguageEditor& editor) { Find_Record(editor, Has_Word); }

void Fill_Browser(LanguageEditor& editor) {
  Form& browser = editor.DataDisplay();
  browser.Clear_Items("Combo1");
  const std::int64_t count = editor.session.data.Main_Record_Count;
  for (std::int64_t number = 1; number <= count; ++number) {
    editor.Read_Record(number);
    browser.Add_Item("Combo1", "__________*******___________");
    const SayRecord& record = editor.Record();
    for (int i = 1; i <= record.WordCount(); ++i) {
      browser.Add_Item("Combo1",
                       std::to_string(number) + "   " + std::string(Shown(Trim(record.Words(i)))));
    }
  }
}

// Outside a design environment the list is filled and not shown.
void mnuView_Click(LanguageEditor& editor) {
  if (Is_Design_Environment(editor.session)) {
    editor.session.ports.views.Show(editor.DataDisplay(), Modality::None);
  }
  const std::int64_t kept = editor.Record().RecordNo();
  Fill_Browser(editor);
  editor.Read_Record(kept);
  editor.Display_Record();
}

void Exitmnu_Click(LanguageEditor& editor) { editor.Unload(); }

void mnuHelp_Click(LanguageEditor& editor) { editor.session.operations.Show_Help(editor.session); }

constexpr auto Commands = std::to_array<EditorCommand>({
    {"Command1", Command1_Click},
    {"Opmu", Opmu_Click},
    {"mnuReload", mnuReload_Click},
    {"mnuNext", mnuNext_Click},
    {"NextHit", NextHit_Click},
    {"mnuPrevious", mnuPrevious_Click},
    {"Command7", Command7_Click},
    {"VC", VC_Click},
    {"mnuNumber", mnuNumber_Click},
    {"mnuFindName", mnuFindName_Click},
    {"mnuView", mnuView_Click},
    {"Exitmnu", Exitmnu_Click},
    {"Command8", Exitmnu_Click},
    {"mnuHelp", mnuHelp_Click},
});

}  // namespace

EditorCommands Navigation_Commands() { return Commands; }

void Find_Record(LanguageEditor& editor, RecordTest fits) {
  const std::string answer =
      Ask_Text(editor.session, "Enter the Word (or Words) or the pattern to find", "Find :");
  if (answer.empty()) return;
  const std::int64_t count = editor.session.data.Main_Record_Count;
  for (std::int64_t number = 1; number <= count; ++number) {
    editor.Read_Record(number);
    if (fits(editor.Record(), Trim(answer))) return editor.Display_Record();
  }
  Tell_Not_Present(editor.session, answer, "Quillspeech Language Editor ");
}

void Open_First_File(LanguageEditor& editor) {
  const std::string name = Trimmed(editor.session.settings.Consider_this_Lang_File_to_Add);
  if (name.empty()) {
    Show_Box(editor.session, "You have not entered the location of the Language File to Add",
             "Quillspeech User Error");
    Enable_File_Commands(editor, false);
    Enable_Memory_And_Summary(editor, false);
    return;
  }
  Enable_File_Commands(editor, true);
  Name_File(editor, name);
  editor.Open_File(name);
  editor.Choose_Record();
  editor.Display_Record();
}

void Hide_Memory_Commands(LanguageEditor& editor) {
  for (const auto menu : {"mnuCM", "mnuEM"}) editor.Database().Set_Menu_Visible(menu, false);
  for (const auto button : {"Command3", "Command10"}) {
    editor.Database().Set_Visible(button, false);
  }
}

}  // namespace quillspeech
