#include "editors/vocabulary_records.hpp"

#include <string>
#include <utility>

#include "editors/shown_text.hpp"
#include "editors/vocabulary_editor.hpp"
#include "session/open_records.hpp"

namespace quillspeech {

using datafiles::VocRecord;

namespace {

// 1 to `most`.
FormColour Random_Colour_Part(VocabularyAndEngineEditor& editor, FormColour most) {
  return 1 + static_cast<FormColour>(editor.Random()) % most;
}

// Bright circles on a dark ground, both in other colours at each display.
void Draw_Graph(VocabularyAndEngineEditor& editor) {
  constexpr FormColour Blue = 1 << 16;
  constexpr FormColour Full_Green = 255 << 8;
  constexpr FormColour Darkest = 40;
  Form& form = editor.DatabaseVE();
  const VocRecord& record = editor.Vocabulary();
  form.Clear_Drawing("Picture1");
  form.Set_Back_Colour("Picture1", (Darkest + Random_Colour_Part(editor, 50)) * Blue);
  form.Set_Scale("Picture1", Vocabulary_Scale);
  const FormColour colour = Random_Colour_Part(editor, 255) + Full_Green;
  for (int i = 1; i <= record.VocabularySampleCount(); ++i) {
    const DrawingPoint centre{record.VocabularySamples(i), static_cast<double>(i)};
    DrawingOperation circle = Drawn_Circle(centre, 1, colour);
    circle.is_filled = false;
    form.Draw("Picture1", std::move(circle));
  }
}

}  // namespace

std::string_view Name_Of(const VocRecord& record) {
  const std::string_view name = record.VocabularyName();
  return name.substr(0, name.find_last_not_of(' ') + 1);
}

void Read_Record(VocabularyAndEngineEditor& editor, std::int64_t number) {
  editor.Vocabulary() = Record_At<VocRecord>(editor.session.data, number);
}

void Write_Record(VocabularyAndEngineEditor& editor) {
  Write_At_Its_Number(editor.session.data, editor.Vocabulary());
}

void Keep_Record(VocabularyAndEngineEditor& editor, const VocRecord& changed) {
  Write_At_Its_Number(editor.session.data, changed);
  editor.Vocabulary() = changed;
  Display_Record(editor);
}

void Display_Record(VocabularyAndEngineEditor& editor) {
  const VocRecord& record = editor.Vocabulary();
  const std::string_view name = Name_Of(record);
  editor.DatabaseVE().Set_Caption("Quillspeech Vocabulary Database.Rec No: " +
                                  std::to_string(record.RecordNo()) + std::string(Shown(name)));
  editor.Show_Text("Text1", name);
  editor.Show_Text("Label3", std::to_string(record.VocabularySampleCount()));
  Draw_Graph(editor);
}

}  // namespace quillspeech
