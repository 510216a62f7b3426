#include "cli/live_boxes.hpp"

#include <string>

#include "base/text.hpp"

namespace quillspeech::cli {

BoxAnswer LiveBoxes::Show(const MessageBox& box) {
  const BoxAnswer answer = Answer_To(box);
  if (Tell) Tell(box, answer);
  return answer;
}

BoxAnswer LiveBoxes::Answer_To(const MessageBox& box) {
  if (box.buttons == BoxButtons::OK) return BoxAnswer::OK;
  if (!Tell) return BoxAnswer::No;
  if (always_yes_) return BoxAnswer::Yes;
  return console_.in_is_terminal ? Ask(box) : BoxAnswer::No;
}

BoxAnswer LiveBoxes::Ask(const MessageBox& box) {
  console_.out << std::flush;
  console_.err << To_Utf8(box.title) << ": " << To_Utf8(Trim(box.text)) << " [y/N] " << std::flush;
  const auto typed = Typed_Line();
  if (!typed) console_.err << "\n" << std::flush;
  const std::string word = Lower_Case(Trim(typed.value_or("")));
  return word == "y" || word == "yes" ? BoxAnswer::Yes : BoxAnswer::No;
}

std::optional<std::string> LiveBoxes::Typed_Line() {
  if (lines_) return lines_->Next([this] { return console_.Is_Interrupted() || Is_Over(); });
  std::string typed;
  if (!std::getline(console_.in, typed)) return std::nullopt;
  return typed;
}

}  // namespace quillspeech::cli
