// RIFF files in memory, which fail on demand.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "platform/riff_file.hpp"

namespace quillspeech::headless {

class RiffFiles final : public quillspeech::RiffFiles {
 public:
  std::unique_ptr<RiffFile> Open(const std::string& path) override;

  std::map<std::string, std::vector<std::uint8_t>> files;  // by path; others cannot be opened

  std::set<int> failing_reads;  // by the number of the read, the first being 1: these give -1
  bool ascends_fail = false;

  int opens = 0;       // that succeeded
  int open_files = 0;  // opened and not yet closed
  int reads = 0;       // failed ones too
};

}  // namespace quillspeech::headless
