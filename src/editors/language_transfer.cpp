#include "editors/language_transfer.hpp"

#include <array>
#include <string>

#include "base/text.hpp"
#include "datafiles/say_record_texts.hpp"
#include "editors/ask.hpp"
#include "editors/language_navigation.hpp"
#include "editors/say_record_states.hpp"

namespace quillspeech {
namespace {

using datafiles::SayRecord;

constexpr std::string_view Title = "Quillspeech Language Editor";

bool Is_Wanted(LanguageEditor& editor, std::string_view question) {
  return Is_Answered_Yes(editor.session, question, Title);
}

// The same text: its wildcards are letters here.
bool Has_Pattern(const SayRecord& record, std::string_view wanted) {
  return datafiles::Has_Element(record, datafiles::Protocols, record.LikeCount(), wanted);
}

void mnuPatternFind_Click(LanguageEditor& editor) { Find_Record(editor, Has_Pattern); }

void mnuSCopy_Click(LanguageEditor& editor) {
  Copy_Contents(editor.Record(), editor.Record_Memory);
}

void Delete_Record(LanguageEditor& editor) {
  SayRecord blank = editor.Record();
  Make_Deleted(blank);
  editor.Write_Record(blank);
  editor.Display_Record();
}

void mnuSCut_Click(LanguageEditor& editor) {
  mnuSCopy_Click(editor);
  Delete_Record(editor);
}

void mnuSpaste_Click(LanguageEditor& editor) {
  SayRecord pasted = editor.Record();
  Copy_Contents(editor.Record_Memory, pasted);
  editor.Write_Record(pasted);
  editor.Display_Record();
}

void mnuDelete_Click(LanguageEditor& editor) {
  if (Is_Wanted(editor,
                "Are you sure you want to delete all and every data under this name and record?")) {
    Delete_Record(editor);
  }
}

// A text that every record has for itself. Without an answer it takes a text of its own, which
// stays in memory until something else writes the record.
struct FileText {
  std::string_view title;
  std::string_view prompt;
  void (SayRecord::*write)(std::string_view);
  std::string_view unanswered;
};

void Ask_File_Text(LanguageEditor& editor, const FileText& text) {
  const std::string answer = Ask_Text(editor.session, text.prompt, text.title);
  if (answer.empty()) return (editor.Record().*text.write)(text.unanswered);
  SayRecord named = editor.Record();
  (named.*text.write)(Trim(answer));
  editor.Write_Record(named);
  editor.Display_Record();
}

void mnuLCrht_Click(LanguageEditor& editor) {
  Ask_File_Text(editor, {"File Copyright:",
                         "Enter Company or individual author name for your identification and "
                         "file copyright security",
                         &SayRecord::FileCopyright, "Unknown???"});
}

void mnuSFD_Click(LanguageEditor& editor) {
  Ask_File_Text(editor, {"File description:",
                         "Enter short file description for identification and your security",
                         &SayRecord::FileDescription, "No desciption"});
}

void Empty_Window(LanguageEditor& editor) {
  for (const auto control : {"Label7", "Label11", "Label12", "TextDiv", "Text2"}) {
    editor.Show_Text(control, "");
  }
  for (const auto list : {"Combo2", "Combo3", "Combo5", "Combo6", "Combo7", "Combo8", "Combo9"}) {
    editor.Database().Clear_Items(list);
  }
}

void Command9_Click(LanguageEditor& editor) {
  if (editor.Tell_Missing_File()) return;
  if (!Is_Wanted(editor, "You are about to create a new record.  Do you wish to continue ?")) {
    return;
  }
  SayRecord fresh = editor.Record();
  Make_New(fresh, Checked32(editor.session.data.Main_Record_Count + 1).Raw());
  editor.Write_Record(fresh);
  Empty_Window(editor);
  editor.Show_As_Matched();
  Show_Box(editor.session, "New record successfully created", "Quillspeech");
}

void mnuTWord_Click(LanguageEditor& editor) {
  const SayRecord& record = editor.Record();
  Form& summary = editor.FeaturesDisplay();
  const bool has_records = editor.session.data.Main_Record_Count > 1;
  summary.Set_Text("Text1", has_records ? Record_Summary(record) : "");
  const std::string_view font_name = Shown(Trim(record.WordFont()));
  FormFont font;
  if (!font_name.empty()) font.name = font_name;
  summary.Set_Font("Text1", font);
  const bool modally = Is_Design_Environment(editor.session) == False;
  editor.session.ports.views.Show(summary, modally ? Modality::Modal : Modality::None);
}

constexpr auto Commands = std::to_array<EditorCommand>({
    {"mnuPatternFind", mnuPatternFind_Click},
    {"mnuSCopy", mnuSCopy_Click},
    {"mnuSCut", mnuSCut_Click},
    {"mnuSpaste", mnuSpaste_Click},
    {"mnuDelete", mnuDelete_Click},
    {"mnuLCrht", mnuLCrht_Click},
    {"mnuSFD", mnuSFD_Click},
    {"Command9", Command9_Click},
    {"mnuTWord", mnuTWord_Click},
});

std::string Text_Of(std::string_view field) { return std::string(Shown(Trim(field))); }

// Lines joined, with no end behind the last.
class Lines {
 public:
  void Add(const std::string& line) {
    if (!text_.empty()) text_ += "\r\n";
    text_ += line;
  }
  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

}  // namespace

EditorCommands Transfer_Commands() { return Commands; }

std::string Record_Summary(const SayRecord& record) {
  Lines lines;
  for (int i = 1; i <= record.WordCount(); ++i) {
    lines.Add("Word no: " + std::to_string(i) + " " + Text_Of(record.Words(i)));
  }
  lines.Add("No of divisons :  " + std::to_string(record.DivisionCount()));
  lines.Add("Total Timelength :  " + std::to_string(record.DivisionByteLength()));
  lines.Add("No. of entries for protocols :  " + std::to_string(record.LikeCount()));
  lines.Add("No. of Criterias :  " + std::to_string(record.DifferentiatorCount()));
  for (int i = 1; i <= record.DifferentiatorCount(); ++i) {
    lines.Add("Special Criteria's,Slot No. " + std::to_string(record.SlotNumbers(i)) +
              "Engine Code " + Text_Of(record.EngineCodes(i)) + " Engine Code Weight " +
              std::to_string(record.EngineCodeWeights(i)));
  }
  for (int i = 1; i <= record.LikeCount(); ++i) {
    lines.Add("Entry no " + std::to_string(i) + " : " + Text_Of(record.LikeProtocols(i)) + " " +
              std::to_string(record.LikeRatings(i)));
  }
  return lines.Text();
}

}  // namespace quillspeech
