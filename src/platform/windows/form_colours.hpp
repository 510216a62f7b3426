// The colours of a form's controls, and the brushes that the system asks for.
#pragma once

#include <map>

#include "platform/form.hpp"
#include "platform/windows/windows_api.hpp"

namespace quillspeech::windows {

COLORREF Back_Colour_Of(const Form& form);
// A frame, label or picture without a colour of its own has that of what holds it.
COLORREF Back_Colour_Of(const Form& form, const FormControl& control);
COLORREF Text_Colour_Of(const Form& form, const FormControl& control);

// Each colour's brush is made once, and lives as long as this.
class FormBrushes {
 public:
  FormBrushes() = default;
  ~FormBrushes();
  FormBrushes(const FormBrushes&) = delete;
  FormBrushes& operator=(const FormBrushes&) = delete;

  HBRUSH Brush_For(COLORREF colour);

 private:
  std::map<COLORREF, HBRUSH> brushes_;
};

}  // namespace quillspeech::windows
