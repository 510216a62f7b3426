// A shell that only notes what it was asked to open.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/shell.hpp"

namespace quillspeech::headless {

class Shell final : public quillspeech::Shell {
 public:
  struct Opened {
    std::string document;
    std::intptr_t parent = 0;
    bool operator==(const Opened&) const = default;
  };

  bool Open(const std::string& document, std::intptr_t parent) override {
    opened.push_back({document, parent});
    return true;
  }
  std::string Windows_Directory() const override { return windows_directory; }

  std::vector<Opened> opened;
  std::string windows_directory = "C:\\WINDOWS";
};

}  // namespace quillspeech::headless
