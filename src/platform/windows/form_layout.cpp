#include "platform/windows/form_layout.hpp"

namespace quillspeech::windows {

FormScale Scale_At(int dots_per_inch) {
  return {dots_per_inch, Twips_Per_Inch, dots_per_inch, Twips_Per_Inch};
}

FormScale Scale_Into(const RECT& rectangle, FormSize size) {
  return {Width_Of(rectangle), size.width, Height_Of(rectangle), size.height};
}

int Screen_Dots_Per_Inch() {
  const HDC screen = GetDC(nullptr);
  const int dots = screen ? GetDeviceCaps(screen, LOGPIXELSX) : USER_DEFAULT_SCREEN_DPI;
  if (screen) ReleaseDC(nullptr, screen);
  return dots;
}

FormPlace Place_On_Form(const Form& form, const FormControl& control) {
  FormPlace place = control.place;
  for (const FormControl* parent = form.Find(control.parent); parent;
       parent = form.Find(parent->parent)) {
    place.left += parent->place.left;
    place.top += parent->place.top;
  }
  return place;
}

RECT Pixels_On_Form(const Form& form, const FormControl& control, const FormScale& scale) {
  const FormPlace place = Place_On_Form(form, control);
  return {scale.Across(place.left), scale.Down(place.top), scale.Across(place.left + place.width),
          scale.Down(place.top + place.height)};
}

RECT Pixels_In_Parent(const Form& form, const FormControl& control, const FormScale& scale) {
  RECT pixels = Pixels_On_Form(form, control, scale);
  if (const FormControl* const parent = form.Find(control.parent)) {
    const RECT around = Pixels_On_Form(form, *parent, scale);
    OffsetRect(&pixels, -around.left, -around.top);
  }
  return pixels;
}

SIZE Pixels_Of(FormSize size, const FormScale& scale) {
  return {scale.Across(size.width), scale.Down(size.height)};
}

}  // namespace quillspeech::windows
