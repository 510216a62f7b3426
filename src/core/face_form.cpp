#include "core/face_form.hpp"

#include <array>
#include <string>
#include <string_view>

#include "core/control.hpp"

namespace quillspeech {
namespace {

// Green and light grey both read well on it.
constexpr FormColour Display_Ground = 0x00000000;

// Two displays, then two by two buttons of two lines each, then the status.
struct Layout {
  std::string_view name;
  FormPlace place;
};
constexpr auto Layouts = std::to_array<Layout>({
    {"Frame1", {45, 30, 1605, 405}},
    {"Text2", {60, 60, 1485, 285}},
    {"Text1", {1695, 90, 1581, 285}},
    {"Command1", {45, 465, 1605, 480}},
    {"Command2", {1680, 465, 1611, 480}},
    {"Command3", {45, 960, 1605, 480}},
    {"Command4", {1680, 960, 1611, 480}},
    {"Frame2", {45, 1470, 3246, 375}},
    {"Label1", {75, 60, 3096, 255}},
});

FormPlace Place_Of(std::string_view name) {
  for (const Layout& layout : Layouts) {
    if (layout.name == name) return layout.place;
  }
  return {};
}

FormFont Font_Of(const ChildControl& child) {
  FormFont font;
  if (!child.font.empty()) font.name = child.font;
  if (child.kind == ChildKind::Label) font.points = 7;  // what small fonts are made for
  return font;
}

FormControlKind Kind_Of(ChildKind kind) {
  switch (kind) {
    case ChildKind::Frame:
      return FormControlKind::Frame;
    case ChildKind::TextBox:
      return FormControlKind::TextBox;
    case ChildKind::Button:
      return FormControlKind::Button;
    default:
      return FormControlKind::Label;
  }
}

FormControl As_Form_Control(const ChildControl& child) {
  FormControl control;
  control.name = child.name;
  control.kind = Kind_Of(child.kind);
  control.place = Place_Of(child.name);
  control.parent = child.parent;
  control.text = child.text;
  control.tip = child.tip;
  control.font = Font_Of(child);
  if (child.kind == ChildKind::TextBox) control.back_colour = Display_Ground;
  return control;
}

}  // namespace

std::unique_ptr<Form> Make_Face_Form(Control& control) {
  const FaceSize size = UserControl_Resize({});
  auto form = std::make_unique<Form>("Quillspeech", "", FormSize{size.width, size.height});
  for (const ChildControl& child : Child_Controls()) {
    if (child.kind == ChildKind::Timer) continue;
    form->Add(As_Form_Control(child));
    form->On(child.name, FormEvent::Click, [clicked = control.weak_from_this(), name = child.name] {
      if (const auto living = clicked.lock()) living->Click_On(name);
    });
  }
  for (const std::string_view box : {"Text1", "Text2"}) {
    form->On(box, FormEvent::Change, [typed = control.weak_from_this(), box, &face = *form] {
      if (const auto living = typed.lock()) living->Type_Into(box, face[box].text);
    });
  }
  Show_Face(*form, control.face);
  return form;
}

void Show_Face(Form& form, const Face& face) {
  form.Set_Text("Label1", face.Label1);
  form.Set_Text("Text1", face.Text1);
  form.Set_Text("Text2", face.Text2);
  form.Set_Text_Colour("Text1", face.Text_Colour);
  form.Set_Text_Colour("Text2", face.Text_Colour);
}

}  // namespace quillspeech
