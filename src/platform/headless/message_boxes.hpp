// Message boxes without a screen: kept in a list and answered by a script.
#pragma once

#include <deque>
#include <vector>

#include "platform/message_boxes.hpp"

namespace quillspeech::headless {

class MessageBoxes final : public quillspeech::MessageBoxes {
 public:
  struct Shown {
    MessageBox box;
    BoxAnswer answer = BoxAnswer::OK;
  };

  // A question takes the next of `answers`, and No when none is left; an OK box is answered OK.
  BoxAnswer Show(const MessageBox& box) override;

  std::deque<BoxAnswer> answers;
  std::vector<Shown> shown;
};

}  // namespace quillspeech::headless
