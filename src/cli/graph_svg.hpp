// The audio graph as a picture for browsers.
#pragma once

#include <string>

#include "platform/form_drawing.hpp"

namespace quillspeech::cli {

// A whole SVG document of an audio graph. `file` is the sound's name, for the heading.
std::string Graph_Svg(const FormDrawing& graph, const std::string& file);

}  // namespace quillspeech::cli
