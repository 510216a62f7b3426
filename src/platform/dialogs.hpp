// The port for what asks a person for a text or a file.
#pragma once

#include <string>

namespace quillspeech {

struct InputBox {
  std::string title;
  std::string prompt;
  std::string text;  // what stands in it at first
};

struct FileDialog {
  std::string title;
  std::string pattern;  // of the names that it lists, as "*.SAY"
  std::string name;     // what stands in it at first
};

// Texts are in Windows-1252.
class Dialogs {
 public:
  virtual ~Dialogs() = default;

  // Each waits for the answer, and gives an empty text when it is cancelled.
  virtual std::string Ask_Text(const InputBox& box) = 0;
  virtual std::string Ask_File(const FileDialog& dialog) = 0;  // to be opened; it may be a new one
};

}  // namespace quillspeech
