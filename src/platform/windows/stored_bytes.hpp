// The bytes of an open file, moved by calls that may do a part of what they are asked.
#pragma once

#include <cstdint>
#include <span>

#include "platform/windows/windows_api.hpp"

namespace quillspeech::windows {

// Each call gives ERROR_SUCCESS or the error that it failed with.
class StoredBytes {
 public:
  virtual ~StoredBytes() = default;

  virtual DWORD Measure(std::int64_t& length) = 0;
  // At the end of the file a read gives no bytes, and that is no error.
  virtual DWORD Read_Part(std::int64_t offset, std::span<std::uint8_t> bytes, DWORD& got) = 0;
  virtual DWORD Write_Part(std::int64_t offset, std::span<const std::uint8_t> bytes,
                           DWORD& put) = 0;
  virtual DWORD Cut_To(std::int64_t length) = 0;
};

// Reads up to the span's size; gives the bytes read, fewer only where the file ends. Failures:
// those of Failure_To_Transfer.
std::int64_t Read_Whole(StoredBytes& file, std::int64_t offset, std::span<std::uint8_t> bytes);

// Writes the whole span, or puts back what the file had, as far as the device lets it, and fails
// with the error that came first. A write that does nothing means a full disk.
void Write_Or_Put_Back(StoredBytes& file, std::int64_t offset, std::span<const std::uint8_t> bytes);

}  // namespace quillspeech::windows
