// A shell that only notes what it was asked to open.
#pragma once

#include <string>
#include <vector>

#include "platform/shell.hpp"

namespace quillspeech::headless {

class Shell final : public quillspeech::Shell {
 public:
  bool Open(const std::string& document) override {
    opened.push_back(document);
    return true;
  }
  std::string Windows_Directory() const override { return windows_directory; }

  std::vector<std::string> opened;
  std::string windows_directory = "C:\\WINDOWS";
};

}  // namespace quillspeech::headless
