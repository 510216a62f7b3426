#include "editors/language_entries.hpp"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "base/rounding.hpp"
#include "base/spelled_number.hpp"
#include "base/text.hpp"
#include "editors/ask.hpp"
#include "editors/language_entry_lists.hpp"

namespace quillspeech {
namespace {

using datafiles::SayRecord;

constexpr std::string_view Product_Title = "Quillspeech";
constexpr std::string_view Editor_Title = "Quillspeech Language Editor";

bool Is_Blank(std::string_view text) { return Trim(text).empty(); }

// `question` is followed by the name of the file as it is shown.
bool Is_Agreed(LanguageEditor& editor, std::string_view question) {
  const std::string text = std::string(question) + std::string(editor.Text("TFNam")) + " ?";
  return Is_Answered_Yes(editor.session, text, Editor_Title);
}

// Words and patterns are letters: a number is refused and wiped out.
void Refuse_Number(LanguageEditor& editor, std::string_view control) {
  if (!Is_Numeric(Trim(editor.Text(control)))) return;
  Show_Box(editor.session, "Hey ! Please enter non numericals for storage ", Product_Title);
  editor.Show_Text(control, "");
}

bool Tell_Missing_Entry(LanguageEditor& editor, bool is_missing, std::string_view text) {
  if (is_missing) Show_Box(editor.session, text, Editor_Title);
  return is_missing;
}

bool Is_Word_Complete(LanguageEditor& editor) {
  Refuse_Number(editor, "Combo5");
  const bool is_missing = Is_Blank(editor.Text("Combo5")) || Is_Blank(editor.Text("Combo10"));
  return !Tell_Missing_Entry(editor, is_missing,
                             "Please enter the word with its rating and then save");
}

// Blanks are something here and below: they are left out only when it comes to storing.
bool Is_Pattern_Complete(LanguageEditor& editor) {
  Refuse_Number(editor, "Combo2");
  const bool is_missing = editor.Text("Combo2").empty() || editor.Text("Combo3").empty();
  return !Tell_Missing_Entry(editor, is_missing,
                             "Please enter the LIKE operator string with its rating and then save");
}

bool Is_Differentiator_Complete(LanguageEditor& editor) {
  Refuse_Number(editor, "Combo6");
  const bool is_missing = editor.Text("Combo7").empty() || editor.Text("Combo6").empty() ||
                          editor.Text("Combo9").empty();
  if (Tell_Missing_Entry(editor, is_missing,
                         "Please enter the differentiation data completely and then save")) {
    return false;
  }
  if (Is_Numeric(editor.Text("Combo7")) && Is_Numeric(editor.Text("Combo9"))) return true;
  Show_Box(editor.session, "Incorrect data format, cannot save.", "Quillspeech Langauge Editor");
  return false;
}

// Takes the next element of the list into use and stores the entry fields there. With the first
// empty one the element is given up again, and with it the fields behind.
void Store_Entry(LanguageEditor& editor, const EntryList& list) {
  SayRecord& record = editor.Record();
  const Checked16 counter = editor.*list.counter;
  (record.*list.set_count)(counter.Raw());
  for (const EntryField& field : list.fields) {
    const std::string text(editor.Text(field.control));
    if (Is_Blank(text)) {
      (record.*list.set_count)(Checked16(counter - 1).Raw());
      return;
    }
    field.store(record, counter, text);
  }
}

struct SaveRules {
  const EntryList& list;
  std::string_view question = "Are you ready to save data to file ";
  bool (*is_complete)(LanguageEditor& editor);  // tells what is missing
  // The counter that may not pass the limit.
  Checked16 LanguageEditor::*limited;
  int limit;
};

// A counter that has passed the limit stays there until the next display.
bool Has_Room(LanguageEditor& editor, const SaveRules& rules) {
  ++(editor.*rules.list.counter);
  if (editor.*rules.limited <= rules.limit) return true;
  Show_Box(
      editor.session,
      "Sorry, this file type does not permit entries above " + std::to_string(rules.limit) + ".",
      Product_Title);
  return false;
}

// Tells whether the entry was stored; the record is yet to be kept.
bool Is_Saved(LanguageEditor& editor, const SaveRules& rules) {
  if (editor.Tell_Missing_File()) {
    if (Is_Design_Environment(editor.session)) editor.Show(true);
    return false;
  }
  if (!Is_Agreed(editor, rules.question) || !rules.is_complete(editor)) return false;
  if (!Has_Room(editor, rules)) return false;
  Store_Entry(editor, rules.list);
  return true;
}

void Save_Word(LanguageEditor& editor) {
  const SaveRules rules{Word_List(), "Are you ready to save  data to file ", Is_Word_Complete,
                        &LanguageEditor::Word_Counter, SayRecord::Most_Words};
  if (!Is_Saved(editor, rules)) return;
  SayRecord& record = editor.Record();
  record.WordFont(Trim(editor.Database()["Combo5"].font.name));
  record.DivisionCount(Round_To_16(Numeric_Value(Trim(editor.Text("TextDiv")))).Raw());
  record.DivisionByteLength(Round_To_32(Numeric_Value(Trim(editor.Text("Text2")))).Raw());
  editor.Keep_Record();
}

void Save_Pattern(LanguageEditor& editor) {
  const SaveRules rules{.list = Pattern_List(),
                        .is_complete = Is_Pattern_Complete,
                        .limited = &LanguageEditor::Like_Counter,
                        .limit = SayRecord::Most_Likes};
  if (Is_Saved(editor, rules)) editor.Keep_Record();
}

// It is the words that are counted against the limit; the array's end stops the differentiators.
void Save_Differentiator(LanguageEditor& editor) {
  const SaveRules rules{.list = Differentiator_List(),
                        .is_complete = Is_Differentiator_Complete,
                        .limited = &LanguageEditor::Word_Counter,
                        .limit = SayRecord::Most_Differentiators};
  if (Is_Saved(editor, rules)) editor.Keep_Record();
}

// When the disk takes no record more, the number of records, the buffer and the counters are as
// they were before it was begun; what was typed stays.
void Append_Record(LanguageEditor& editor, const SayRecord& before) {
  try {
    editor.Write_Record();
  } catch (...) {
    --editor.session.data.Main_Record_Count;
    editor.Record() = before;
    editor.Load_Counters();
    throw;
  }
}

// The new record starts as a copy of the one on display.
void Add_Entry(LanguageEditor& editor, const EntryList& list) {
  if (editor.Tell_Missing_File()) return;
  if (!Is_Agreed(editor, "Are you ready to add data to file ")) return;
  const SayRecord before = editor.Record();
  Checked32& records = editor.session.data.Main_Record_Count;
  editor.Record().RecordNo((++records).Raw());
  ++(editor.*list.counter);
  Store_Entry(editor, list);
  Append_Record(editor, before);
  editor.Show_As_Matched();
}

// The element that is chosen in the list, counted from 1; nothing when none is, which is told.
std::optional<std::int64_t> Chosen_Element(LanguageEditor& editor, const EntryList& list) {
  const auto is_chosen = [&](const EntryField& field) {
    const FormControl& box = editor.Database()[field.control];
    return box.index >= 0 && !box.items.at(static_cast<std::size_t>(box.index)).empty();
  };
  const auto tested = list.fields.first(list.chosen_fields);
  if (std::all_of(tested.begin(), tested.end(), is_chosen)) {
    return editor.Database()[tested.front().control].index + 1;
  }
  Show_Box(editor.session, "Please select a entry from the dropdown list for editing.",
           Editor_Title);
  return std::nullopt;
}

// The answers in the order of the prompts, without blanks around them; nothing when one that is
// needed lacks.
std::optional<std::vector<std::string>> Ask_Answers(LanguageEditor& editor, const EntryList& list,
                                                    std::int64_t element) {
  const auto index = static_cast<std::size_t>(element - 1);
  std::vector<std::string> answers;
  bool is_complete = true;
  for (const EntryField& field : list.fields) {
    const std::string& present = editor.Database()[field.control].items.at(index);
    answers.push_back(
        Trimmed(Ask_Text(editor.session, std::string(field.prompt) + present, field.title)));
    if (field.is_needed && answers.back().empty()) is_complete = false;
  }
  if (!is_complete) return std::nullopt;
  return answers;
}

void Edit_Entry(LanguageEditor& editor, const EntryList& list) {
  if (editor.File_Name.empty()) return;
  const auto element = Chosen_Element(editor, list);
  if (!element) return;
  const auto answers = Ask_Answers(editor, list, *element);
  if (!answers) return;
  for (std::size_t i = 0; i < answers->size(); ++i) {
    list.fields[i].replace(editor.Record(), *element, (*answers)[i]);
  }
  editor.Write_Record();
  editor.Display_Record();
}

// The entry behind takes the place of the one that goes; those further behind stay where they are.
void Delete_Entry(LanguageEditor& editor, const EntryList& list) {
  if (editor.File_Name.empty()) return;
  const auto element = Chosen_Element(editor, list);
  if (!element) return;
  SayRecord& record = editor.Record();
  for (const EntryField& field : list.fields) field.take_next(record, *element);
  (record.*list.set_count)(Narrow<std::int16_t>((record.*list.count)() - 1));
  editor.Write_Record();
  editor.Display_Record();
}

constexpr EditorCommand Commands[] = {
    {"Command14", Save_Word},
    {"Command13", [](LanguageEditor& editor) { Edit_Entry(editor, Word_List()); }},
    {"Command12", [](LanguageEditor& editor) { Delete_Entry(editor, Word_List()); }},
    {"Command16", Save_Pattern},
    {"Command5", [](LanguageEditor& editor) { Add_Entry(editor, Pattern_List()); }},
    {"Command6", [](LanguageEditor& editor) { Edit_Entry(editor, Pattern_List()); }},
    {"Command2", [](LanguageEditor& editor) { Delete_Entry(editor, Pattern_List()); }},
    {"Command15", Save_Differentiator},
    {"Command4", [](LanguageEditor& editor) { Add_Entry(editor, Differentiator_List()); }},
    {"Command11", [](LanguageEditor& editor) { Edit_Entry(editor, Differentiator_List()); }},
    {"Command17", [](LanguageEditor& editor) { Delete_Entry(editor, Differentiator_List()); }},
};

}  // namespace

std::span<const EditorCommand> Entry_Commands() { return Commands; }

}  // namespace quillspeech
