// Reads the records of a file in turn, a block of them from the file at once.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "datafiles/record_file.hpp"

namespace quillspeech {

// Lives for one scan, from record 1 on, of a file that lives longer. The scan sees each block of
// about 256 KiB as it was at one moment; what others write into it meanwhile it does not see. What
// goes through `file` itself counts at once: a write shows, and after an opening the scan goes on
// in the file that is open then.
class RecordScan {
 public:
  explicit RecordScan(RecordFile& file) : file_(file) {}

  // Reads the next record as RecordFile::Read does, with its failures: a bad place keeps none of
  // the records before it back. After a failure the same record is the next one still.
  void Read_Next(std::span<std::uint8_t> record, std::uint8_t missing = 0);

 private:
  void Take_Block();

  RecordFile& file_;
  std::int64_t next_ = 1;               // number of the record that comes next
  std::vector<std::uint8_t> block_;     // grows to its size once
  std::span<const std::uint8_t> rest_;  // of the block: from the next record on
  std::int64_t edition_ = 0;            // of the file, when the block was taken
};

}  // namespace quillspeech
