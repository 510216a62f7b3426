// What a person does at the windows of the editors, step by step.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quillspeech::tests {

// A box that comes up, and what a person does with it.
struct SessionBox {
  enum class Kind { Message, Question, Input, File };
  Kind kind;
  std::string title;
  std::string text;                   // of an input box its prompt, of a file dialog its pattern
  std::string proposed;               // what stands in it before anybody types
  std::optional<std::string> answer;  // the button's caption; what is typed; nothing: cancelled
};

// All of it in one line, to compare and to tell.
std::string Text_Of(const SessionBox& box);

struct EditorStep {
  enum class Act {
    Click,
    Choose,  // an entry of the menus
    Type,    // in place of what stands there
    Select,  // the item of that index
    Enter,   // the key
    Close,   // the window, by its cross
    Look,    // shows the text
  };
  Act act;
  std::string window;
  std::string part = {};  // empty: the window
  std::string text = {};
  int index = 0;
  std::vector<SessionBox> boxes = {};  // that come up, in this order

  std::string On() const { return part.empty() ? window : window + "." + part; }
};

// Steps in the order of their calls. What stands alone is in the editor's own window.
class EditorSteps {
 public:
  EditorSteps& Click(const std::string& button, const std::string& window = "Database");
  EditorSteps& Choose(const std::string& menu);
  EditorSteps& Type(const std::string& box, const std::string& text);
  EditorSteps& Select(const std::string& list, int index);
  EditorSteps& Enter(const std::string& box);
  EditorSteps& Close(const std::string& window);
  EditorSteps& Look(const std::string& part, const std::string& text,
                    const std::string& window = "Database");

  // Boxes of the step before.
  EditorSteps& Tells(const std::string& text,
                     const std::string& title = "Quillspeech Language Editor");
  EditorSteps& Asks(const std::string& text, const std::string& answer,
                    const std::string& title = "Quillspeech Language Editor");
  EditorSteps& Asks_Text(const std::string& title, const std::string& prompt,
                         std::optional<std::string> answer, const std::string& proposed = "");
  EditorSteps& Asks_File(const std::string& title, const std::string& pattern,
                         const std::string& answer);

  const std::vector<EditorStep>& All() const { return all_; }

 private:
  EditorSteps& Add(EditorStep step);
  EditorSteps& Add(SessionBox box);

  std::vector<EditorStep> all_;
};

}  // namespace quillspeech::tests
