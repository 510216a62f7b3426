// A question that an editor asks before it does something.
#pragma once

#include <string_view>

#include "session/session.hpp"

namespace quillspeech {

// Asks in a box with the buttons Yes and No, and tells whether the answer is Yes.
inline bool Is_Answered_Yes(Session& session, std::string_view question, std::string_view title) {
  return Show_Box(session, question, title, BoxIcon::None, BoxButtons::YesNo) == BoxAnswer::Yes;
}

}  // namespace quillspeech
