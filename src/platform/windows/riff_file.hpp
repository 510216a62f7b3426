// RIFF files of the file system, walked by the system's multimedia calls.
#pragma once

#include <memory>
#include <string>

#include "platform/riff_file.hpp"
#include "platform/windows/text.hpp"

namespace quillspeech::windows {

// Only a regular file opens: no folder, pipe or device. The calls know places below two gigabytes;
// what lies beyond is not found.
class RiffFiles final : public quillspeech::RiffFiles {
 public:
  explicit RiffFiles(NameEncoding encoding) : encoding_(encoding) {}
  std::unique_ptr<RiffFile> Open(const std::string& path) override;

 private:
  NameEncoding encoding_;
};

}  // namespace quillspeech::windows
