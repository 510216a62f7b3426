// The desktop's shell.
#pragma once

#include <cstdint>
#include <string>

#include "platform/shell.hpp"

namespace quillspeech::windows {

class Shell final : public quillspeech::Shell {
 public:
  bool Open(const std::string& document, std::intptr_t parent) override;
  // Empty too when it is longer than 254 characters.
  std::string Windows_Directory() const override;
};

}  // namespace quillspeech::windows
