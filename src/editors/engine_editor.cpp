#include "editors/engine_editor.hpp"

#include <array>
#include <cstdint>
#include <string>

#include "base/rounding.hpp"
#include "base/spelled_number.hpp"
#include "base/text.hpp"
#include "editors/ask.hpp"
#include "editors/messages.hpp"
#include "editors/shown_text.hpp"
#include "platform/form_caption.hpp"
#include "recognition/engine_table.hpp"
#include "recognition/like_match.hpp"
#include "session/failure_trap.hpp"
#include "session/open_records.hpp"

namespace quillspeech {
namespace {

using datafiles::EgnRecord;

constexpr std::string_view Title = "Quillspeech Engine Editor";
constexpr std::string_view Info_Title = "Quillspeech Engine Editor Info.";

// Two points refuse a name, also when they lie in its folder.
bool Has_Two_Points(std::string_view name) { return Like_Match(name, "*.*.*"); }

void Show_Entry(VocabularyAndEngineEditor& editor, const EngineGroup& group, int entry,
                std::string_view text) {
  editor.DatabaseVE().Set_Menu_Caption(Menu_Of(group, entry), As_Caption(Shown(text)));
}

std::string Text_Of_Entry(VocabularyAndEngineEditor& editor, const EngineGroup& group, int entry) {
  return Text_Of_Caption(editor.DatabaseVE().Menu(Menu_Of(group, entry)).caption);
}

void Show_Engine_Record(VocabularyAndEngineEditor& editor) {
  EgnRecord& record = editor.Engine();
  For_Each_Engine_Entry([&](const EngineGroup& group, int entry) {
    const int element = group.Element(entry);
    const std::string text = Trimmed(record.EngineSlots(element));
    record.EngineSlots(element, text);
    Show_Entry(editor, group, entry, text);
  });
}

// The running table stays: it changes when the engine is loaded anew.
void Open_Engine_File(VocabularyAndEngineEditor& editor, const std::string& name) {
  Session& session = editor.session;
  Open_Records(session.data, editor.Engine(), session.ports.data_files, name);
  editor.Engine_File_Name = name;
  Show_Engine_Record(editor);
}

// The dialog begins with its pattern as the name, and a cancel leaves it so.
void Command3_Click(VocabularyAndEngineEditor& editor) {
  constexpr std::string_view Pattern = "*.EGN";
  const std::string name =
      Trimmed(Ask_File(editor.session, "Open Quillspeech Engine to Edit", Pattern, Pattern));
  if (name.empty() || name == Pattern) return;
  if (Has_Two_Points(name)) return Refuse_File_Name(editor.session, Info_Title);
  if (!Like_Match(name, "*.E??") && !Like_Match(name, "*.e??")) {
    return Refuse_File_Name(editor.session, Info_Title);
  }
  Open_Engine_File(editor, name);
}

void mnuEFoef_Click(VocabularyAndEngineEditor& editor) {
  editor.session.data.Main_File_Number.Close();
  const std::string name = Trimmed(Ask_Text(
      editor.session, "Open this existing or new *.egn File :", "Open:", editor.Engine_File_Name));
  if (Has_Two_Points(name)) return Refuse_File_Name(editor.session, Info_Title);
  if (!Is_Engine_File_Name(name)) return Refuse_File_Name(editor.session, Title);
  Open_Engine_File(editor, name);
}

void Save_Engine_Record(VocabularyAndEngineEditor& editor) {
  EgnRecord record = editor.Engine();
  For_Each_Engine_Entry([&](const EngineGroup& group, int entry) {
    record.EngineSlots(group.Element(entry), Trim(Text_Of_Entry(editor, group, entry)));
  });
  Write_At_Its_Number(editor.session.data, record);
  editor.Engine() = record;
  editor.session.data.Main_File_Number.Close();
}

void Save_Engine_File(VocabularyAndEngineEditor& editor) {
  Session& session = editor.session;
  if (editor.Engine_File_Name.empty() || !session.data.Main_File_Number.Is_Open()) {
    Show_Box(session,
             "You have'nt opened a Engine file yet. Please open a new or an existing file and then "
             "SAVE",
             "Quillspeech Engine Editor.");
    return;
  }
  const std::string question =
      "Are you ready to save this engine record in file  " + editor.Engine_File_Name;
  if (Is_Answered_Yes(session, question, Title)) Save_Engine_Record(editor);
}

void mnuEFsef_Click(VocabularyAndEngineEditor& editor) {
  Run_Trapped(editor.session, [&] { Save_Engine_File(editor); });
}

void Command4_Click(VocabularyAndEngineEditor& editor) {
  Load_Default_Engine_Table(editor.session);
  Show_Running_Table(editor);
}

constexpr std::string_view Pass_Value_Prompt =
    "Please enter the engine input filter's( category ) pass criteria";

// What the answer spells or, when it spells no number, what it begins with: 0 if that is none.
Checked16 Pass_Value_In(const std::string& answer) {
  if (Is_Numeric(answer)) return Number_In<std::int16_t>(answer);
  return Round_To_16(Numeric_Value(answer));
}

// The caption shows the answer even when its value then does not fit.
void Take_Pass_Value(VocabularyAndEngineEditor& editor, const std::string& answer) {
  editor.DatabaseVE().Set_Menu_Caption(
      "mnuEFCT", std::string(Pass_Value_Prompt) + "..." + As_Caption(Shown(answer)));
  editor.session.settings.Filter_Pass_Value = Pass_Value_In(answer);
}

void Command5_Click(VocabularyAndEngineEditor& editor) {
  const std::string answer = Ask_Text(editor.session, Pass_Value_Prompt, "Enter threshold value:");
  if (Is_Numeric(answer)) return Take_Pass_Value(editor, answer);
  Show_Box(editor.session, "Incorrect data format, cannot use the value you specified.Try again",
           Title);
}

// Takes any answer, a cancelled one too.
void mnuEFCT_Click(VocabularyAndEngineEditor& editor) {
  Take_Pass_Value(editor, Ask_Text(editor.session, Pass_Value_Prompt, "Enter threshold:"));
}

constexpr auto Commands = std::to_array<DatabaseVECommand>({
    {"Command3", Command3_Click},
    {"Command4", Command4_Click},
    {"Command5", Command5_Click},
    {"mnuEFoef", mnuEFoef_Click},
    {"mnuEFsef", mnuEFsef_Click},
    {"mnuEFCT", mnuEFCT_Click},
});

}  // namespace

DatabaseVECommands Engine_Commands() { return Commands; }

void Connect_Engine_Entries(VocabularyAndEngineEditor& editor) {
  For_Each_Engine_Entry([&](const EngineGroup& group, int entry) {
    editor.DatabaseVE().On(Menu_Of(group, entry), FormEvent::Click,
                           [&editor, &group, entry] { Edit_Engine_Entry(editor, group, entry); });
  });
}

void Show_Filter_Pass_Value(VocabularyAndEngineEditor& editor) {
  editor.DatabaseVE().Set_Menu_Caption(
      "mnuEFCT", "Engine Filter Pass Criteria  : " +
                     std::to_string(editor.session.settings.Filter_Pass_Value.Raw()));
}

void Show_Running_Table(VocabularyAndEngineEditor& editor) {
  const auto& table = editor.session.filter.Engine_Table;
  For_Each_Engine_Entry([&](const EngineGroup& group, int entry) {
    Show_Entry(editor, group, entry, Trim(table[group.Element(entry)]));
  });
}

void Edit_Engine_Entry(VocabularyAndEngineEditor& editor, const EngineGroup& group, int entry) {
  constexpr int Most_Entries = 15;
  if (entry > Most_Entries) return;
  const std::string text =
      Trimmed(Ask_Text(editor.session,
                       "Please enter your data here for " + std::string(group.name) + " ..." +
                           std::to_string(entry + group.prompt_offset),
                       "Enter vyanjana:"));
  Show_Entry(editor, group, entry, text);
  editor.session.filter.Engine_Table[entry] = text;
}

}  // namespace quillspeech
