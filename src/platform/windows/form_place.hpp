// Where on the screen a form comes up.
#pragma once

#include <optional>
#include <vector>

#include "platform/windows/windows_api.hpp"

namespace quillspeech::windows {

// That place or, where it would cover one that is taken, one beside those, on the desktop. Nothing
// where there is no room.
std::optional<RECT> Place_Beside(const RECT& place, const std::vector<RECT>& taken);

// In the right lower corner of the desktop.
RECT Place_In_Corner(const RECT& place);

}  // namespace quillspeech::windows
