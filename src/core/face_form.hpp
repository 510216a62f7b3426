// The control's face as a form: the child controls, laid out.
#pragma once

#include <memory>

#include "core/control_face.hpp"
#include "platform/form.hpp"

namespace quillspeech {

class Control;

// A person's clicks go to the control, for as long as it lives. Its colour of texts is the face's,
// which every paint sets.
std::unique_ptr<Form> Make_Face_Form(Control& control);

// Brings the form's texts and colours to those of the face.
void Show_Face(Form& form, const Face& face);

}  // namespace quillspeech
