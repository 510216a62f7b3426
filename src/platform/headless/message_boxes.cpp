#include "platform/headless/message_boxes.hpp"

namespace quillspeech::headless {

BoxAnswer MessageBoxes::Show(const MessageBox& box) {
  BoxAnswer answer = BoxAnswer::OK;
  if (box.buttons == BoxButtons::YesNo) {
    answer = BoxAnswer::No;
    if (!answers.empty()) {
      answer = answers.front();
      answers.pop_front();
    }
  }
  shown.push_back({box, answer});
  return answer;
}

}  // namespace quillspeech::headless
