// Where on the screen a form comes up.
#pragma once

#include <optional>
#include <vector>

#include "platform/windows/windows_api.hpp"

namespace quillspeech::windows {

// Of the screen that the window lies on, without its bars; of the first screen for no window.
RECT Work_Area_Around(HWND window);

// In the middle of the window before which it shows, or of the work area, and within that.
RECT Centred(SIZE size, HWND owner);

// That place or, where it would cover one that is taken, one beside those, within the area. Nothing
// where there is no room.
std::optional<RECT> Place_Beside(const RECT& place, const std::vector<RECT>& taken,
                                 const RECT& area);

// In the right lower corner of the area.
RECT Place_In_Corner(const RECT& place, const RECT& area);

}  // namespace quillspeech::windows
