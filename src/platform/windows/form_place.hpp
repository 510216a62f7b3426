// Where on the screen a form comes up.
#pragma once

#include <vector>

#include "platform/windows/windows_api.hpp"

namespace quillspeech::windows {

// That place or, where it would cover one that is taken, one beside those, on the desktop. Where
// there is no room for that either, it stays.
RECT Place_Beside(const RECT& place, const std::vector<RECT>& taken);

}  // namespace quillspeech::windows
