// The port to the desktop's shell.
#pragma once

#include <cstdint>
#include <string>

namespace quillspeech {

class Shell {
 public:
  virtual ~Shell() = default;

  // Opens the document, maximised, with the program that the desktop has for it, in the name of the
  // parent window, by its handle, 0 for none. The mouse pointer is an hourglass meanwhile. False
  // when it cannot.
  virtual bool Open(const std::string& document, std::intptr_t parent) = 0;
  // The folder of the system's own files, without a separator at its end; empty when it cannot be
  // told.
  virtual std::string Windows_Directory() const = 0;
};

}  // namespace quillspeech
