// The program file of this process.
#pragma once

#include <optional>
#include <string>

#include "platform/host_program.hpp"

namespace quillspeech::windows {

class HostProgram final : public quillspeech::HostProgram {
 public:
  // A longer path is cut.
  std::optional<std::string> Path() const override;
};

}  // namespace quillspeech::windows
