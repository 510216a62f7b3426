#include "editors/language_memory.hpp"

#include <array>
#include <string>

#include "base/text.hpp"

namespace quillspeech {
namespace {

std::int64_t Division_Count(const LanguageEditor& editor) {
  return editor.session.words.Word_Count_Log[0];
}

std::int64_t Division_Bytes(const LanguageEditor& editor, std::int64_t division) {
  return editor.session.words.Word_Entry_Length[division - 1];
}

std::string Division_Text(const LanguageEditor& editor, std::int64_t division) {
  return Trimmed(editor.session.filter.Voice_Word_Table[division]);
}

// A text of the engine in the edit part of the patterns.
void Show_Pattern(LanguageEditor& editor, const std::string& text) {
  editor.Show_Text("Combo2", text);
}

void Command3_Click(LanguageEditor& editor) {
  if (editor.File_Name.empty()) return;
  const std::int64_t count = Division_Count(editor);
  Checked32 bytes;
  for (std::int64_t i = 1; i <= count; ++i) bytes += Division_Bytes(editor, i);
  editor.Show_Text("Label5", "Total");
  editor.Show_Text("TextDiv", std::to_string(count));
  editor.Show_Text("Text2", std::to_string(bytes.Raw()));
  Show_Pattern(editor, Division_Text(editor, 1));
  editor.Show_Text("Combo3", "100");
}

void Command10_Click(LanguageEditor& editor) {
  if (editor.File_Name.empty()) return;
  Form& form = editor.Database();
  const Filter& filter = editor.session.filter;
  form.Clear_Items("Combo8");
  for (std::int64_t slot = 1; slot <= filter.Filter_Filled_Slots; ++slot) {
    form.Add_Item("Combo8", std::to_string(slot) + " " + filter.Filter_Slot_Table[slot] + " " +
                                std::to_string(filter.Filter_Weight_Table[slot].Raw()));
  }
}

// The slot that was chosen becomes a differentiator to be saved.
void Combo8_Click(LanguageEditor& editor) {
  Form& form = editor.Database();
  const Filter& filter = editor.session.filter;
  const std::int64_t slot = form["Combo8"].index + 1;
  for (const auto list : {"Combo7", "Combo6", "Combo9"}) form.Clear_Items(list);
  const auto enter = [&form](std::string_view list, const std::string& text) {
    form.Add_Item(list, text);
    form.Set_Text(list, text);
  };
  enter("Combo7", std::to_string(slot));
  enter("Combo6", filter.Filter_Slot_Table[slot]);
  enter("Combo9", std::to_string(filter.Filter_Weight_Table[slot].Raw()));
}

template <int Division>
void Show_Division(LanguageEditor& editor) {
  editor.Show_Text("Label5", std::to_string(Division));
  editor.Show_Text("TextDiv", std::to_string(Division_Count(editor)));
  editor.Show_Text("Text2", std::to_string(Division_Bytes(editor, Division)));
  Show_Pattern(editor, Division_Text(editor, Division));
}

// Outside a design environment the list is filled and not shown.
void Show_Browser(LanguageEditor& editor) {
  if (!Is_Design_Environment(editor.session)) return;
  editor.session.ports.views.Show(editor.DataDisplay(), Modality::Modal);
}

void mnuDCM_Click(LanguageEditor& editor) {
  Command3_Click(editor);
  const std::int64_t count = Division_Count(editor);
  Show_Pattern(editor, Division_Text(editor, count));
  editor.Show_Text("Combo3", "100");
  Form& browser = editor.DataDisplay();
  browser.Clear_Items("Combo1");
  for (std::int64_t i = 1; i <= count; ++i) {
    browser.Add_Item("Combo1", Division_Text(editor, i) + "-   Length :  -" +
                                   std::to_string(Division_Bytes(editor, i)));
  }
  Show_Browser(editor);
}

void mnuDEM_Click(LanguageEditor& editor) {
  Form& browser = editor.DataDisplay();
  browser.Clear_Items("Combo1");
  const std::int64_t count = editor.session.filter.Voice_Words_Explode_Count;
  for (std::int64_t i = 1; i <= count; ++i) {
    browser.Add_Item("Combo1", Trim(editor.session.filter.Voice_Word_Table[i]));
  }
  Command3_Click(editor);
  Command10_Click(editor);
  Show_Browser(editor);
}

constexpr auto Commands = std::to_array<EditorCommand>({
    {"Command3", Command3_Click},
    {"Command10", Command10_Click},
    {"Combo8", Combo8_Click},
    {"mnuD1M", Show_Division<1>},
    {"mnuD2M", Show_Division<2>},
    {"mnuD3M", Show_Division<3>},
    {"mnuD4M", Show_Division<4>},
    {"mnuD5M", Show_Division<5>},
    {"mnuDCM", mnuDCM_Click},
    {"mnuDEM", mnuDEM_Click},
});

}  // namespace

EditorCommands Memory_Commands() { return Commands; }

}  // namespace quillspeech
