#include "platform/headless/dialogs.hpp"

#include <utility>

namespace quillspeech::headless {
namespace {

std::string Next_Of(std::deque<std::string>& answers) {
  if (answers.empty()) return {};
  std::string answer = std::move(answers.front());
  answers.pop_front();
  return answer;
}

}  // namespace

std::string Dialogs::Ask_Text(const InputBox& box) {
  shown_boxes.push_back(box);
  return Next_Of(texts);
}

std::string Dialogs::Ask_File(const FileDialog& dialog) {
  shown_dialogs.push_back(dialog);
  return Next_Of(files);
}

}  // namespace quillspeech::headless
