// A message box as JSON: title, text, buttons OK or YesNo, icon none, stop or information, answer.
#pragma once

#include <nlohmann/json.hpp>

#include "platform/message_boxes.hpp"

namespace quillspeech::cli {

nlohmann::ordered_json Box_Json(const MessageBox& box, BoxAnswer answer);

}  // namespace quillspeech::cli
