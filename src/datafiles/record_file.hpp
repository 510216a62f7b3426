// A random-access file of equal records, numbered from 1.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "base/checked.hpp"
#include "platform/data_file.hpp"

namespace quillspeech {

class RecordFile {
 public:
  // Opens the file for records of that many bytes (1 or more) and closes what was open before. A
  // name that does not exist is created empty. Failures: those of the port.
  void Open(DataFileStore& store, const std::string& name, int record_bytes);
  bool Is_Open() const { return file_ != nullptr; }
  void Close() noexcept;

  // The file's length by the record's, rounded half to even: a tail of more than half a record
  // counts. Failure 6 past 32 bits, 52 when nothing is open.
  Checked32 Record_Count() const;

  // Reads record `number`; bytes past the end of the file become `missing`. Reading past the end is
  // no failure. The span has the record's length. Failure 63 when the number is below 1.
  // Reading one record after another takes a block of them from the file at once.
  void Read(std::int64_t number, std::span<std::uint8_t> record, std::uint8_t missing = 0);

  // Writes the whole record at its position; the file grows as needed.
  void Write(std::int64_t number, std::span<const std::uint8_t> record);

 private:
  std::unique_ptr<DataFile> file_;
  std::int64_t record_bytes_ = 0;
  // Records read ahead: the bytes of the file from block_offset_ on.
  std::vector<std::uint8_t> block_;
  std::int64_t block_offset_ = 0;
  std::int64_t last_read_ = 0;
};

}  // namespace quillspeech
