// What both editors say.
#pragma once

#include <string>
#include <string_view>

#include "session/session.hpp"

namespace quillspeech {

inline void Refuse_File_Name(Session& session, std::string_view title) {
  Show_Box(session, "You did not enter a file name or the name is not valid, verify and try again",
           title);
}

// That the file has no record of what a person has asked for.
inline void Tell_Not_Present(Session& session, const std::string& wanted, std::string_view title) {
  Show_Box(session, "Record " + wanted + " not present", title);
}

}  // namespace quillspeech
