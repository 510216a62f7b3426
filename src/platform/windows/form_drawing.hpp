// A form drawn without windows: for a control that is not active, and into metafiles.
#pragma once

#include "platform/form.hpp"
#include "platform/windows/windows_api.hpp"

namespace quillspeech::windows {

// Draws the form so that it fills the rectangle, in the device's own units, as its window would
// look. Uses lines, rectangles and texts only, and asks the device nothing.
void Draw_Form(const Form& form, HDC device, const RECT& rectangle);

// How a button stands.
struct ButtonState {
  bool is_pressed = false;
  bool has_focus = false;
  bool is_default = false;
  bool shows_mnemonic = false;
};

// A button with its caption, in as many lines as that takes. The system's own buttons draw theirs
// one way on one system and another on the next.
void Draw_Button(const Form& form, const FormControl& button, HDC device, const RECT& rectangle,
                 HFONT font, const ButtonState& state);

// The box of a frame with its caption. Its ground is there already.
void Draw_Frame(const Form& form, const FormControl& frame, HDC device, const RECT& rectangle,
                HFONT font);

}  // namespace quillspeech::windows
