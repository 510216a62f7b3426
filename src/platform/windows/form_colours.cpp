#include "platform/windows/form_colours.hpp"

namespace quillspeech::windows {
namespace {

bool Is_Field(const FormControl& control) {
  return control.kind == FormControlKind::TextBox || control.kind == FormControlKind::ComboBox ||
         control.kind == FormControlKind::ListBox;
}

}  // namespace

COLORREF Back_Colour_Of(const Form& form) {
  const auto colour = form.Back_Colour();
  return colour ? *colour : GetSysColor(COLOR_BTNFACE);
}

COLORREF Back_Colour_Of(const Form& form, const FormControl& control) {
  if (control.back_colour) return *control.back_colour;
  if (Is_Field(control)) {
    const bool is_open = control.enabled && !control.read_only;
    return GetSysColor(is_open ? COLOR_WINDOW : COLOR_BTNFACE);
  }
  if (control.kind == FormControlKind::Button) return GetSysColor(COLOR_BTNFACE);
  const FormControl* const parent = form.Find(control.parent);
  return parent ? Back_Colour_Of(form, *parent) : Back_Colour_Of(form);
}

COLORREF Text_Colour_Of(const Form& form, const FormControl& control) {
  if (!control.enabled) return GetSysColor(COLOR_GRAYTEXT);
  if (control.text_colour) return *control.text_colour;
  if (Is_Field(control)) return GetSysColor(COLOR_WINDOWTEXT);
  const FormControl* const parent = form.Find(control.parent);
  if (parent && !parent->enabled) return GetSysColor(COLOR_GRAYTEXT);
  return GetSysColor(COLOR_BTNTEXT);
}

FormBrushes::~FormBrushes() {
  for (const auto& [colour, brush] : brushes_) DeleteObject(brush);
}

HBRUSH FormBrushes::Brush_For(COLORREF colour) {
  HBRUSH& brush = brushes_[colour];
  if (!brush) brush = CreateSolidBrush(colour);
  return brush;
}

}  // namespace quillspeech::windows
