// The help page, which lies in a folder of ours below the system's own.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "session/session.hpp"

namespace quillspeech {

// Opens it in the name of that window, by its native handle, 0 for none. Whether anything opens is
// not looked at.
void Show_Help_File(Session& session, std::intptr_t window);

// The text up to its first NUL, or all of it.
std::string Strip_At_Nul(std::string_view text);

}  // namespace quillspeech
