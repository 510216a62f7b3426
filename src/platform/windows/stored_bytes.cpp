#include "platform/windows/stored_bytes.hpp"

#include <cstddef>
#include <iterator>
#include <vector>

#include "platform/windows/file_errors.hpp"

namespace quillspeech::windows {

namespace {

DWORD Write_Whole(StoredBytes& file, std::int64_t offset, std::span<const std::uint8_t> bytes) {
  std::int64_t done = 0;
  while (done < std::ssize(bytes)) {
    DWORD put = 0;
    const auto rest = bytes.subspan(static_cast<std::size_t>(done));
    if (const DWORD error = file.Write_Part(offset + done, rest, put)) return error;
    if (put == 0) return ERROR_DISK_FULL;
    done += put;
  }
  return ERROR_SUCCESS;
}

}  // namespace

std::int64_t Read_Whole(StoredBytes& file, std::int64_t offset, std::span<std::uint8_t> bytes) {
  std::int64_t done = 0;
  while (done < std::ssize(bytes)) {
    DWORD got = 0;
    const auto rest = bytes.subspan(static_cast<std::size_t>(done));
    if (const DWORD error = file.Read_Part(offset + done, rest, got)) {
      Fail(Failure_To_Transfer(error));
    }
    if (got == 0) break;
    done += got;
  }
  return done;
}

void Write_Or_Put_Back(StoredBytes& file, std::int64_t offset,
                       std::span<const std::uint8_t> bytes) {
  std::int64_t length = 0;
  if (const DWORD error = file.Measure(length)) Fail(Failure_To_Transfer(error));
  std::vector<std::uint8_t> old(bytes.size());
  old.resize(static_cast<std::size_t>(Read_Whole(file, offset, old)));
  const DWORD error = Write_Whole(file, offset, bytes);
  if (error == ERROR_SUCCESS) return;
  // What fails from here on is not told: the first error is the one that counts.
  Write_Whole(file, offset, old);
  if (offset + std::ssize(bytes) > length) file.Cut_To(length);
  Fail(Failure_To_Transfer(error));
}

}  // namespace quillspeech::windows
