// Data files in memory, which fail on demand.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "base/run_time_failure.hpp"
#include "platform/data_file.hpp"

namespace quillspeech::headless {

class DataFileStore final : public quillspeech::DataFileStore {
 public:
  // A write that fails after its first `torn_bytes` bytes. The file keeps its length, as the port
  // promises; of the span, only bytes that the file had before can have changed.
  struct WriteFault {
    Failure failure = Failure::Disk_Full;
    std::int64_t torn_bytes = 0;
  };

  std::unique_ptr<DataFile> Open(const std::string& name) override;

  // The files by name. One that is erased while it is open has vanished: whatever its user does
  // next is failure 57.
  std::map<std::string, std::vector<std::uint8_t>> files;

  std::map<std::string, Failure> refused;  // opening one of these fails so
  std::set<std::string> read_only;         // opening one of these is failure 75
  std::map<int, WriteFault> write_faults;  // by the number of the write, the first being 1
  std::map<int, Failure> read_faults;      // by the number of the read, the first being 1
  std::set<std::size_t> bad_places;        // reading a byte at one of these offsets is failure 57

  int opens = 0;       // that succeeded
  int open_files = 0;  // opened and not yet closed
  int reads = 0;       // failed ones too
  int writes = 0;      // failed ones too
};

}  // namespace quillspeech::headless
