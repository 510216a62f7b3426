#include "datafiles/record_file.hpp"

#include <algorithm>
#include <limits>

#include "base/rounding.hpp"

namespace quillspeech {

namespace {

constexpr std::int64_t Block_Bytes = 256 << 10;

}  // namespace

void RecordFile::Open(DataFileStore& store, const std::string& name, int record_bytes) {
  Close();
  if (record_bytes < 1) Fail(Failure::Invalid_Call);
  file_ = store.Open(name);
  record_bytes_ = record_bytes;
}

void RecordFile::Close() noexcept {
  file_.reset();
  block_bytes_ = 0;
  last_read_ = 0;
}

Checked32 RecordFile::Record_Count() const {
  if (!file_) Fail(Failure::Bad_File_Name);
  return Rounded_Quotient(file_->Length(), record_bytes_);
}

std::int64_t RecordFile::Offset_Of(std::int64_t number, std::size_t span_bytes) const {
  if (!file_) Fail(Failure::Bad_File_Name);
  if (number < 1 || number > std::numeric_limits<std::int32_t>::max()) {
    Fail(Failure::Bad_Record_Number);
  }
  if (static_cast<std::int64_t>(span_bytes) != record_bytes_) Fail(Failure::Invalid_Call);
  return (number - 1) * record_bytes_;
}

void RecordFile::Read(std::int64_t number, std::span<std::uint8_t> record, std::uint8_t missing) {
  const std::int64_t offset = Offset_Of(number, record.size());
  const bool goes_on = last_read_ > 0 && number == last_read_ + 1;
  last_read_ = number;
  std::int64_t got = 0;
  if (goes_on) {
    got = Read_Ahead(offset, record);
  } else {
    block_bytes_ = 0;
    got = file_->Read(offset, record);
  }
  std::fill(record.begin() + static_cast<std::ptrdiff_t>(got), record.end(), missing);
}

std::int64_t RecordFile::Read_Ahead(std::int64_t offset, std::span<std::uint8_t> record) {
  if (offset < block_offset_ || offset + record_bytes_ > block_offset_ + block_bytes_) {
    block_bytes_ = 0;
    block_.resize(static_cast<std::size_t>(std::max(Block_Bytes, record_bytes_)));
    block_bytes_ = file_->Read(offset, block_);
    block_offset_ = offset;
  }
  const std::int64_t got = std::min(record_bytes_, block_offset_ + block_bytes_ - offset);
  std::copy_n(block_.data() + (offset - block_offset_), got, record.data());
  return got;
}

void RecordFile::Write(std::int64_t number, std::span<const std::uint8_t> record) {
  const std::int64_t offset = Offset_Of(number, record.size());
  if (offset < block_offset_ + block_bytes_ && offset + record_bytes_ > block_offset_) {
    block_bytes_ = 0;
  }
  file_->Write(offset, record);
}

}  // namespace quillspeech
