// A random-access file of equal records, numbered from 1.
#pragma once

#include <cstddef>
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
  // Reading one record after another takes a block of them from the file at once; the block is let
  // go when the reading jumps, and when a write of ours meets it.
  void Read(std::int64_t number, std::span<std::uint8_t> record, std::uint8_t missing = 0);

  // Writes the whole record at its position; the file grows as needed. The span has the record's
  // length. Failure 63 when the number is below 1, else those of the port.
  void Write(std::int64_t number, std::span<const std::uint8_t> record);

 private:
  // Where the record lies, once the file, the number and the span's length are in order.
  std::int64_t Offset_Of(std::int64_t number, std::size_t span_bytes) const;
  // Reads the record at `offset` through the block; gives its bytes that the file has.
  std::int64_t Read_Ahead(std::int64_t offset, std::span<std::uint8_t> record);

  std::unique_ptr<DataFile> file_;
  std::int64_t record_bytes_ = 0;
  // Records read ahead: block_bytes_ bytes of the file from block_offset_ on.
  std::vector<std::uint8_t> block_;
  std::int64_t block_offset_ = 0;
  std::int64_t block_bytes_ = 0;
  std::int64_t last_read_ = 0;  // number of the record that was read last, 0 is none
};

}  // namespace quillspeech
