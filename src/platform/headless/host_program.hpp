// A host program by name only.
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "platform/host_program.hpp"

namespace quillspeech::headless {

class HostProgram final : public quillspeech::HostProgram {
 public:
  std::optional<std::string> Path() const override {
    ++questions;
    return path;
  }

  std::optional<std::string> path;
  mutable int questions = 0;
};

}  // namespace quillspeech::headless
