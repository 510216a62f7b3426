// A form drawn without windows: for a control that is not active, and into metafiles.
#pragma once

#include "platform/form.hpp"
#include "platform/windows/form_picture.hpp"
#include "platform/windows/windows_api.hpp"

namespace quillspeech::windows {

// Draws the form so that it fills the rectangle, in the device's own units, as its window would
// look. Uses shapes, texts and picture files only, and asks the device nothing.
void Draw_Form(const Form& form, HDC device, const RECT& rectangle);

// How a button stands.
struct ButtonState {
  bool is_pressed = false;
  bool has_focus = false;
  bool is_default = false;
  bool shows_mnemonic = false;
};

// A button with its caption, in as many lines as that takes, and its drawing above that, in its own
// shape. The system's own buttons draw theirs one way on one system and another on the next.
void Draw_Button(const Form& form, const FormControl& button, HDC device, const RECT& rectangle,
                 FormFonts& fonts, const ButtonState& state);

// The box of a frame with its caption. Its ground is there already.
void Draw_Frame(const Form& form, const FormControl& frame, HDC device, const RECT& rectangle,
                HFONT font);

// Its colour, and its drawing over the rectangle.
void Draw_Ground(const Form& form, HDC device, const RECT& rectangle, FormFonts& fonts);

// What a picture or an image holds: the picture file or, where there is none, the drawing. Its
// ground is there already.
void Draw_Surface(const FormControl& surface, const PictureFile& picture, HDC device,
                  const RECT& rectangle, FormFonts& fonts);

}  // namespace quillspeech::windows
