// From the twips of a form to pixels.
#pragma once

#include "platform/form_view.hpp"
#include "platform/windows/windows_api.hpp"

namespace quillspeech::windows {

// Between the edge of a field and its text, in twips.
inline constexpr int Field_Margin = 30;

// So many units of the target for so many twips, across and down.
struct FormScale {
  int across = 0;
  int across_twips = 1;
  int down = 0;
  int down_twips = 1;

  int Across(int twips) const { return MulDiv(twips, across, across_twips); }
  int Down(int twips) const { return MulDiv(twips, down, down_twips); }
};

FormScale Scale_At(int dots_per_inch);
// The scale at which the form fills the rectangle.
FormScale Scale_Into(const RECT& rectangle, FormSize size);
int Screen_Dots_Per_Inch();

// Relative to the form, whatever frames are around it.
FormPlace Place_On_Form(const Form& form, const FormControl& control);
RECT Pixels_On_Form(const Form& form, const FormControl& control, const FormScale& scale);
// Relative to the control's parent.
RECT Pixels_In_Parent(const Form& form, const FormControl& control, const FormScale& scale);
SIZE Pixels_Of(FormSize size, const FormScale& scale);

inline int Width_Of(const RECT& rectangle) { return rectangle.right - rectangle.left; }
inline int Height_Of(const RECT& rectangle) { return rectangle.bottom - rectangle.top; }
inline ChildPlace Child_Place_Of(const RECT& rectangle) {
  return {static_cast<int>(rectangle.left), static_cast<int>(rectangle.top), Width_Of(rectangle),
          Height_Of(rectangle)};
}

}  // namespace quillspeech::windows
