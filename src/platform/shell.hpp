// The port to the desktop's shell.
#pragma once

#include <string>

namespace quillspeech {

class Shell {
 public:
  virtual ~Shell() = default;

  // Opens the document with the program that the desktop has for it; false when it cannot.
  virtual bool Open(const std::string& document) = 0;
  // The folder of the system's own files, without a separator at its end.
  virtual std::string Windows_Directory() const = 0;
};

}  // namespace quillspeech
