// The port that tells which program hosts us.
#pragma once

#include <optional>
#include <string>

namespace quillspeech {

class HostProgram {
 public:
  virtual ~HostProgram() = default;

  // The path of the host's program file, at most 261 characters; nothing when it cannot be told.
  virtual std::optional<std::string> Path() const = 0;
};

}  // namespace quillspeech
