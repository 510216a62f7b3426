// A random-access file of equal records, numbered from 1.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "base/checked.hpp"
#include "platform/data_file.hpp"

namespace quillspeech {

// Every call may fail as the port does. Whatever needs an open file is failure 52 without one.
class RecordFile {
 public:
  RecordFile() = default;
  RecordFile(RecordFile&&) = default;
  // Takes over what the other has open, which counts as an opening.
  RecordFile& operator=(RecordFile&& other) noexcept;

  // Opens the file for records of that many bytes and closes what was open before. A name that does
  // not exist is created empty. Failure 5 when the records have less than 1 byte.
  void Open(DataFileStore& store, const std::string& name, int record_bytes);
  bool Is_Open() const { return file_ != nullptr; }
  void Close() noexcept;

  std::int64_t Record_Bytes() const { return record_bytes_; }

  // The file's length by the record's, rounded half to even: a tail of more than half a record
  // counts. Failure 6 past 32 bits.
  Checked32 Record_Count() const;

  // Reads record `number` as it stands in the file now; bytes past the end of the file become
  // `missing`. Reading past the end is no failure. Failure 63 unless the number is 1 to 2^31 - 1,
  // 5 when the span has not the record's length.
  void Read(std::int64_t number, std::span<std::uint8_t> record, std::uint8_t missing = 0);

  // Reads what the file holds of record `first` and those behind it, up to the span's size; gives
  // the bytes read. Failure 63 as for Read.
  std::int64_t Read_Run(std::int64_t first, std::span<std::uint8_t> bytes);

  // Writes the whole record at its position; the file grows as needed. Failures 5 and 63 as for
  // Read.
  void Write(std::int64_t number, std::span<const std::uint8_t> record);

  // Another number after each opening, closing and write: what somebody read ahead before then no
  // longer holds.
  std::int64_t Edition() const { return edition_; }

 private:
  // Where the record lies, once the file and the number are in order.
  std::int64_t Offset_Of(std::int64_t number) const;
  void Check_Length(std::size_t span_bytes) const;

  std::unique_ptr<DataFile> file_;
  std::int64_t record_bytes_ = 0;
  std::int64_t edition_ = 0;
};

}  // namespace quillspeech
