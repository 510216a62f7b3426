// Dialogs without a screen: kept in lists and answered by a script.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "platform/dialogs.hpp"

namespace quillspeech::headless {

class Dialogs final : public quillspeech::Dialogs {
 public:
  // Each takes the next of its answers; when none is left it is cancelled.
  std::string Ask_Text(const InputBox& box) override;
  std::string Ask_File(const FileDialog& dialog) override;

  std::deque<std::string> texts;
  std::deque<std::string> files;
  std::vector<InputBox> shown_boxes;
  std::vector<FileDialog> shown_dialogs;
};

}  // namespace quillspeech::headless
