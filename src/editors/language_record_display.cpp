// How the current record shows in the window.
#include <string>

#include "base/text.hpp"
#include "datafiles/say_record_texts.hpp"
#include "editors/language_editor.hpp"

namespace quillspeech {
namespace {

using datafiles::Align;
using datafiles::Codes;
using datafiles::Element;
using datafiles::Protocols;
using datafiles::SayRecord;
using datafiles::Words;

constexpr std::string_view Product = "Quillspeech";
constexpr std::string_view Registered = "\xAE";
constexpr std::string_view Copyright = "\xA9";

std::string Caption(LanguageEditor& editor) {
  SayRecord& record = editor.Record();
  std::string caption(Product);
  caption.append(Registered).append("  Record No.").append(std::to_string(record.RecordNo()));
  caption.append(" out of ").append(std::to_string(editor.session.data.Main_Record_Count.Raw()));
  caption.append(" ").append(" for Words Like...").append(Shown(Align(record, Words, 1)));
  return caption.append(" ").append(Copyright).append("Corvane Studio Works");
}

void Clear_Controls(LanguageEditor& editor) {
  for (const auto box : {"TextDiv", "Text2"}) editor.Show_Text(box, "");
  for (const auto list : {"Combo2", "Combo3", "Combo5", "Combo10", "Combo7", "Combo6", "Combo9"}) {
    editor.Database().Clear_Items(list);
  }
}

void Display_Words(LanguageEditor& editor) {
  Form& form = editor.Database();
  SayRecord& record = editor.Record();
  const std::string font_name = Trimmed(record.WordFont());
  record.WordFont(font_name);
  FormFont font = form["Combo5"].font;
  font.name = Shown(font_name);
  form.Set_Font("Combo5", font);
  for (int i = 1; i <= record.WordCount(); ++i) {
    form.Add_Item("Combo5", Shown(Align(record, Words, i)));
    form.Add_Item("Combo10", std::to_string(record.WordRatings(i)));
  }
  editor.Show_Text("Combo5", Element(record, Words, 1));
  editor.Show_Text("Combo10", std::to_string(record.WordRatings(1)));
  editor.Show_Text("TextDiv", std::to_string(record.DivisionCount()));
  editor.Show_Text("Text2", std::to_string(record.DivisionByteLength()));
}

void Display_Counts(LanguageEditor& editor) {
  const SayRecord& record = editor.Record();
  editor.Load_Counters();
  editor.Show_Text("Label7", std::to_string(record.LikeCount()));
  editor.Show_Text("Label11", std::to_string(record.WordCount()));
  editor.Show_Text("Label12", std::to_string(record.DifferentiatorCount()));
}

void Display_Patterns(LanguageEditor& editor) {
  Form& form = editor.Database();
  SayRecord& record = editor.Record();
  for (int i = 1; i <= record.LikeCount(); ++i) {
    form.Add_Item("Combo2", Shown(Align(record, Protocols, i)));
    form.Add_Item("Combo3", std::to_string(record.LikeRatings(i)));
  }
  editor.Show_Text("Combo2", Element(record, Protocols, 1));
  editor.Show_Text("Combo3", std::to_string(record.LikeRatings(1)));
}

void Display_Differentiators(LanguageEditor& editor) {
  Form& form = editor.Database();
  SayRecord& record = editor.Record();
  for (int i = 1; i <= record.DifferentiatorCount(); ++i) {
    form.Add_Item("Combo7", std::to_string(record.SlotNumbers(i)));
    form.Add_Item("Combo6", Shown(Align(record, Codes, i)));
    form.Add_Item("Combo9", std::to_string(record.EngineCodeWeights(i)));
  }
  editor.Show_Text("Combo7", std::to_string(record.SlotNumbers(1)));
  editor.Show_Text("Combo6", Element(record, Codes, 1));
  editor.Show_Text("Combo9", std::to_string(record.EngineCodeWeights(1)));
}

}  // namespace

void LanguageEditor::Load_Counters() {
  Like_Counter = Record().LikeCount();
  Word_Counter = Record().WordCount();
  Differentiator_Counter = Record().DifferentiatorCount();
}

// The edit parts show entry 1 of each list, also of an empty one.
void LanguageEditor::Display_Record() {
  Database().Set_Caption(Caption(*this));
  Clear_Controls(*this);
  Display_Words(*this);
  Display_Counts(*this);
  Display_Patterns(*this);
  Display_Differentiators(*this);
}

}  // namespace quillspeech
