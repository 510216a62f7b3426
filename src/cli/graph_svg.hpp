// The audio graph as a picture for browsers.
#pragma once

#include <string>

#include "presentation/audio_graph.hpp"

namespace quillspeech::cli {

// A whole SVG document. `file` is the sound's name, for the heading.
std::string Graph_Svg(const AudioGraph& graph, const std::string& file);

}  // namespace quillspeech::cli
