// The pictures of the small windows, drawn by ourselves.
#pragma once

#include "platform/form_drawing.hpp"

namespace quillspeech {

FormDrawing Quill_Picture();     // a quill that writes a wave, for a dark ground
FormDrawing Quill_At_Night();    // the same with the ground
FormDrawing Words_Picture();     // a page of words: the Language Editor
FormDrawing Curves_Picture();    // bars below a curve: the Vocabulary and Engine Editor
FormDrawing Steps_Picture();     // steps that rise
FormDrawing Globe_Picture();     // a world of languages
FormDrawing Night_With_Waves();  // the ground of the chooser and of the notice

}  // namespace quillspeech
