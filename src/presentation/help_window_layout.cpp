#include "presentation/help_window_layout.hpp"

#include <array>
#include <string>
#include <utility>

#include "presentation/help_pictures.hpp"

namespace quillspeech {
namespace {

constexpr FormColour White = 0x00FFFFFF;
constexpr FormColour Night_Blue = 0x00502814;  // below the ground of the same colour

constexpr std::string_view Questions =
    "Please send us the answers \r\n"
    "by mail \r\n"
    "Q1. Did you recognize  any\r\n"
    " of your words ?\r\n"
    "Q2. What do you think must \r\n"
    "be enhanced? Which more \r\n"
    "examples will you like?\r\n"
    "Q3 Do you facinate this \r\n"
    "concept ?\r\n"
    "Q4. What was more \r\n"
    "interesting of all?  \r\n"
    "Corvane Studio Works, at the address on your package";

FormControl Control_At(std::string name, FormControlKind kind, const FormPlace& place,
                       std::string_view text = {}) {
  FormControl control;
  control.name = std::move(name);
  control.kind = kind;
  control.place = place;
  control.text = text;
  return control;
}

void Add_Image(Form& form, std::string name, const FormPlace& place, FormDrawing drawing) {
  FormControl image = Control_At(std::move(name), FormControlKind::Image, place);
  image.drawing = std::move(drawing);
  form.Add(std::move(image));
}

void Add_Label(Form& form, std::string name, const FormPlace& place, std::string_view text,
               const FormFont& font, FormColour colour) {
  FormControl label = Control_At(std::move(name), FormControlKind::Label, place, text);
  label.font = font;
  label.text_colour = colour;
  label.multi_line = true;
  form.Add(std::move(label));
}

}  // namespace

void Lay_Out_Help(Form& form) {
  form.Add(
      Control_At("Command5", FormControlKind::Button, {3600, 3330, 2220, 390}, "Click to close"));
  form.Add(Control_At("Command3", FormControlKind::Button, {180, 3330, 2760, 390},
                      "Launch Quillspeech Help"));
  Add_Image(form, "Image1", {180, 180, 1920, 1920}, Quill_At_Night());
  FormControl hint = Control_At("Label5", FormControlKind::Label, {180, 2310, 1920, 600},
                                "See Electronic Help shipped with the package");
  hint.multi_line = true;
  hint.alignment = FormAlignment::Centre;
  form.Add(std::move(hint));
  FormControl questions =
      Control_At("Text1", FormControlKind::TextBox, {2280, 180, 3540, 2970}, Questions);
  questions.multi_line = true;
  questions.read_only = true;
  form.Add(std::move(questions));
}

void Lay_Out_Splash(Form& form) {
  const FormFont bold{.points = 8, .bold = true};
  form.Set_Back_Colour(Night_Blue);
  form.Set_Ground(Night_With_Waves());
  Add_Image(form, "Image1", {1980, 180, 1440, 1440}, Quill_Picture());
  FormControl language =
      Control_At("Command2", FormControlKind::Button, {180, 1860, 2430, 1200}, "&Language Editor");
  language.tip = "Make and change a file of words";
  language.drawing = Words_Picture();
  FormControl engine = Control_At("Command3", FormControlKind::Button, {2790, 1860, 2430, 1200},
                                  "&Vocabulary && Engine Editor");
  engine.tip = "Make and change files of curves and of letter groups";
  engine.drawing = Curves_Picture();
  for (FormControl* const button : {&language, &engine}) {
    button->font = bold;
    form.Add(std::move(*button));
  }
  Add_Label(form, "Label4", {180, 3240, 2430, 240}, "Version 1.3.000", FormFont{}, White);
}

void Lay_Out_ComingSplash(Form& form) {
  constexpr std::array<std::string_view, 4> Lines{
      "Enhanced 'Speech Engine'",
      "Windows O/S and Windows CE   ASR Web Programs Telephony   programs support upgradation",
      "English, Indian and Foreign     Language Word-Processor's.",
      "More feature-rich and flexible Artificial Intelligence Add-on."};
  form.Set_Back_Colour(Night_Blue);
  form.Set_Ground(Night_With_Waves());
  Add_Image(form, "Image2", {180, 240, 960, 960}, Steps_Picture());
  Add_Image(form, "Image3", {180, 2700, 960, 960}, Globe_Picture());
  const FormFont heading{.points = 14, .bold = true};
  Add_Label(form, std::string(ComingSplash_Labels[0]), {1380, 240, 5040, 420},
            "Coming Upgradations ...", heading, White);
  const FormFont plain{.points = 10};
  int top = 900;
  for (std::size_t line = 0; line < Lines.size(); ++line) {
    Add_Label(form, std::string(ComingSplash_Labels[line + 1]), {1380, top, 5040, 660}, Lines[line],
              plain, White);
    top += 735;
  }
}

}  // namespace quillspeech
