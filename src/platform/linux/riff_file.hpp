// RIFF files of the file system.
#pragma once

#include <memory>
#include <string>

#include "platform/riff_file.hpp"

namespace quillspeech::linux {

// Paths are taken byte for byte. Only a regular file opens: no folder, pipe or device.
class RiffFiles final : public quillspeech::RiffFiles {
 public:
  std::unique_ptr<RiffFile> Open(const std::string& path) override;
};

}  // namespace quillspeech::linux
