#include "datafiles/record_scan.hpp"

#include <algorithm>
#include <cstddef>

#include "base/run_time_failure.hpp"

namespace quillspeech {

void RecordScan::Read_Next(std::span<std::uint8_t> record, std::uint8_t missing) {
  if (edition_ != file_.Edition() || rest_.size() < record.size()) Take_Block();
  if (std::ssize(record) != file_.Record_Bytes()) Fail(Failure::Invalid_Call);
  const std::size_t got = std::min(record.size(), rest_.size());
  std::copy_n(rest_.begin(), got, record.begin());
  std::fill(record.begin() + static_cast<std::ptrdiff_t>(got), record.end(), missing);
  rest_ = rest_.subspan(got);
  ++next_;
}

void RecordScan::Take_Block() {
  constexpr std::int64_t Block_Bytes = 256 << 10;
  rest_ = {};
  edition_ = file_.Edition();
  block_.resize(static_cast<std::size_t>(std::max(Block_Bytes, file_.Record_Bytes())));
  const auto read = [&](std::span<std::uint8_t> bytes) {
    rest_ = bytes.first(static_cast<std::size_t>(file_.Read_Run(next_, bytes)));
  };
  try {
    read(block_);
  } catch (const RunTimeFailure&) {
    // The bad place may lie behind the next record.
    read(std::span(block_).first(static_cast<std::size_t>(file_.Record_Bytes())));
  }
}

}  // namespace quillspeech
