#include "datafiles/record_file.hpp"

#include <algorithm>
#include <limits>
#include <utility>

#include "base/rounding.hpp"
#include "base/run_time_failure.hpp"

namespace quillspeech {

RecordFile& RecordFile::operator=(RecordFile&& other) noexcept {
  edition_ = std::max(edition_, other.edition_) + 1;
  file_ = std::move(other.file_);
  record_bytes_ = other.record_bytes_;
  return *this;
}

void RecordFile::Open(DataFileStore& store, const std::string& name, int record_bytes) {
  Close();
  if (record_bytes < 1) Fail(Failure::Invalid_Call);
  file_ = store.Open(name);
  record_bytes_ = record_bytes;
}

void RecordFile::Close() noexcept {
  file_.reset();
  ++edition_;
}

Checked32 RecordFile::Record_Count() const {
  if (!file_) Fail(Failure::Bad_File_Name);
  return Rounded_Quotient(file_->Length(), record_bytes_);
}

std::int64_t RecordFile::Offset_Of(std::int64_t number) const {
  if (!file_) Fail(Failure::Bad_File_Name);
  if (number < 1 || number > std::numeric_limits<std::int32_t>::max()) {
    Fail(Failure::Bad_Record_Number);
  }
  return (number - 1) * record_bytes_;
}

void RecordFile::Check_Length(std::size_t span_bytes) const {
  if (static_cast<std::int64_t>(span_bytes) != record_bytes_) Fail(Failure::Invalid_Call);
}

void RecordFile::Read(std::int64_t number, std::span<std::uint8_t> record, std::uint8_t missing) {
  const std::int64_t offset = Offset_Of(number);
  Check_Length(record.size());
  const std::int64_t got = file_->Read(offset, record);
  std::fill(record.begin() + static_cast<std::ptrdiff_t>(got), record.end(), missing);
}

std::int64_t RecordFile::Read_Run(std::int64_t first, std::span<std::uint8_t> bytes) {
  const std::int64_t offset = Offset_Of(first);
  return file_->Read(offset, bytes);
}

void RecordFile::Write(std::int64_t number, std::span<const std::uint8_t> record) {
  const std::int64_t offset = Offset_Of(number);
  Check_Length(record.size());
  ++edition_;
  file_->Write(offset, record);
}

}  // namespace quillspeech
