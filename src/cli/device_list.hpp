// The sound devices of this system as text and as JSON.
#pragma once

#include <string>
#include <vector>

#include "cli/backend.hpp"

namespace quillspeech::cli {

// A section each for the inputs and the outputs, * before the default one; ends with a line end.
std::string Device_Lines(const std::vector<backend::SoundDevice>& devices, bool colour);

// {"inputs":[...],"outputs":[...]}, each {"number","name","system","channels","rate","default"}.
std::string Devices_Json(const std::vector<backend::SoundDevice>& devices);

}  // namespace quillspeech::cli
