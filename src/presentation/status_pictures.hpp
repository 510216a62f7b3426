// The two pictures of the status window, drawn by ourselves.
#pragma once

#include "platform/form_drawing.hpp"

namespace quillspeech {

FormDrawing Listening_Picture();  // a microphone that waves of sound reach
FormDrawing Busy_Picture();       // two wheels that turn each other

}  // namespace quillspeech
