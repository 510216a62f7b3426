// What the lists and boxes of the window do while a person chooses and types.
#include <initializer_list>
#include <string>
#include <variant>

#include "base/spelled_number.hpp"
#include "editors/language_navigation.hpp"
#include "session/failure_trap.hpp"

namespace quillspeech {
namespace {

using Names = std::initializer_list<std::string_view>;

void Choose_Alike(Form& form, std::string_view chosen, std::string_view other) {
  const int index = form[chosen].index;
  if (index < static_cast<int>(form[other].items.size())) form.Set_Index(other, index);
}

// A click in one list chooses the same place in the others.
void Keep_In_Step(Form& form, Names group) {
  for (const std::string_view list : group) {
    form.On(list, FormEvent::Click, [&form, list, lists = std::vector(group)] {
      for (const std::string_view other : lists) {
        if (other != list) Choose_Alike(form, list, other);
      }
    });
  }
}

void Save_On_Enter(Form& form, Names lists, std::string_view button) {
  for (const std::string_view list : lists) {
    form.On_Key_Press(list, [&form, button](unsigned char key) {
      if (key == Key_Enter) form.Click(button);
    });
  }
}

double Value_Of(const SpelledNumber& number) {
  return std::visit([](auto value) { return static_cast<double>(value); }, number);
}

// A rating of 0 cannot be typed.
std::string Kept_Rating(const std::string& text) {
  constexpr std::size_t Most_Characters = 3;
  constexpr double Highest = 100;
  if (!Is_Numeric(text) || text.size() > Most_Characters) return "100";
  const double value = Value_Of(*Read_Number(text));
  if (value == 0) return "2";
  return value > Highest ? "100" : text;
}

std::string Kept_Division_Count(const std::string& text) {
  const double value = Numeric_Value(text);
  if (text.size() > 1 || value >= 6) return "5";
  return value == 0 ? "1" : text;
}

std::string Kept_Byte_Length(const std::string& text) {
  constexpr double Most_Bytes = 100'000;
  return Numeric_Value(text) >= Most_Bytes ? "100000" : text;
}

void Keep_In_Limits(Form& form, Names boxes, std::string (*kept)(const std::string&)) {
  for (const std::string_view box : boxes) {
    form.On(box, FormEvent::Change,
            [&form, box, kept] { form.Set_Text(box, kept(std::string(form[box].text))); });
  }
}

void Combo1_Click(Form& form) {
  const std::string& chosen = form["Combo1"].text;
  FormFont font = form["Combo5"].font;
  font.name = chosen.empty() ? "Times New Roman" : chosen;
  form.Set_Font("Combo5", font);
}

void DataDisplay_Combo1_Click(LanguageEditor& editor) {
  const double number = Numeric_Value(editor.DataDisplay()["Combo1"].text);
  if (number <= 0 || number > static_cast<double>(editor.session.data.Main_Record_Count)) return;
  editor.Read_Record(Round_To_32(number));
  editor.Display_Record();
}

}  // namespace

void Connect_Lists(LanguageEditor& editor) {
  Form& form = editor.Database();
  Keep_In_Step(form, {"Combo5", "Combo10"});
  Keep_In_Step(form, {"Combo2", "Combo3"});
  Keep_In_Step(form, {"Combo7", "Combo6", "Combo9"});
  Save_On_Enter(form, {"Combo5", "Combo10"}, "Command14");
  Save_On_Enter(form, {"Combo2", "Combo3"}, "Command16");
  Save_On_Enter(form, {"Combo7"}, "Command15");
  Keep_In_Limits(form, {"Combo10", "Combo3"}, Kept_Rating);
  Keep_In_Limits(form, {"TextDiv"}, Kept_Division_Count);
  Keep_In_Limits(form, {"Text2"}, Kept_Byte_Length);
  form.On("Combo1", FormEvent::Click, [&form] { Combo1_Click(form); });
  editor.DataDisplay().On("Combo1", FormEvent::Click, [&editor] {
    Run_Silently_Trapped(editor.session, [&] { DataDisplay_Combo1_Click(editor); });
  });
}

}  // namespace quillspeech
