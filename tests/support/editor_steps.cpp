#include "tests/support/editor_steps.hpp"

#include <utility>

namespace quillspeech::tests {

std::string Text_Of(const SessionBox& box) {
  const char* const kinds[] = {"message", "question", "input", "file"};
  std::string text = kinds[static_cast<int>(box.kind)];
  text += " [" + box.title + "] " + box.text;
  if (box.kind == SessionBox::Kind::Input) text += " [" + box.proposed + "]";
  return text + " -> " + box.answer.value_or("(cancelled)");
}

EditorSteps& EditorSteps::Add(EditorStep step) {
  all_.push_back(std::move(step));
  return *this;
}

EditorSteps& EditorSteps::Add(SessionBox box) {
  all_.back().boxes.push_back(std::move(box));
  return *this;
}

EditorSteps& EditorSteps::Click(const std::string& button, const std::string& window) {
  return Add(EditorStep{EditorStep::Act::Click, window, button});
}

EditorSteps& EditorSteps::Choose(const std::string& menu) {
  return Add(EditorStep{EditorStep::Act::Choose, "Database", menu});
}

EditorSteps& EditorSteps::Type(const std::string& box, const std::string& text) {
  return Add(EditorStep{EditorStep::Act::Type, "Database", box, text});
}

EditorSteps& EditorSteps::Select(const std::string& list, int index) {
  return Add(EditorStep{EditorStep::Act::Select, "Database", list, {}, index});
}

EditorSteps& EditorSteps::Enter(const std::string& box) {
  return Add(EditorStep{EditorStep::Act::Enter, "Database", box});
}

EditorSteps& EditorSteps::Close(const std::string& window) {
  return Add(EditorStep{EditorStep::Act::Close, window});
}

EditorSteps& EditorSteps::Look(const std::string& part, const std::string& text,
                               const std::string& window) {
  return Add(EditorStep{EditorStep::Act::Look, window, part, text});
}

EditorSteps& EditorSteps::Tells(const std::string& text, const std::string& title) {
  return Add(SessionBox{SessionBox::Kind::Message, title, text, "", "OK"});
}

EditorSteps& EditorSteps::Asks(const std::string& text, const std::string& answer,
                               const std::string& title) {
  return Add(SessionBox{SessionBox::Kind::Question, title, text, "", answer});
}

EditorSteps& EditorSteps::Asks_Text(const std::string& title, const std::string& prompt,
                                    std::optional<std::string> answer,
                                    const std::string& proposed) {
  return Add(SessionBox{SessionBox::Kind::Input, title, prompt, proposed, std::move(answer)});
}

EditorSteps& EditorSteps::Asks_File(const std::string& title, const std::string& pattern,
                                    const std::string& answer) {
  return Add(SessionBox{SessionBox::Kind::File, title, pattern, "", answer});
}

}  // namespace quillspeech::tests
