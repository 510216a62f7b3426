// The port for the random-access data files.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace quillspeech {

// How long a store on a disk waits for a file that another user has locked. Whoever holds files
// from one call to the next comes after all others who do, and has more time.
inline constexpr std::chrono::milliseconds Patience_Of_A_Call{2'000};
inline constexpr std::chrono::milliseconds Patience_Of_A_Holder{60'000};

// One open file. Failures: 7 out of memory, 57 the device failed or refused the lock, 61 the disk
// is full or the file too large, 70 permission, or another user keeps the file locked.
class DataFile {
 public:
  virtual ~DataFile() = default;

  virtual std::int64_t Length() const = 0;  // bytes

  // Reads what the file holds from `offset` on, up to the span's size; gives the bytes read. No
  // write of another user of the file shows in part, unless the file lies on a file system that has
  // no locks.
  virtual std::int64_t Read(std::int64_t offset, std::span<std::uint8_t> bytes) = 0;

  // Writes the whole span at `offset`. A write that fails never changes a byte outside the span,
  // and leaves the file's length as it was as far as the device lets it. A gap between the old end
  // and the offset reads as zeros.
  virtual void Write(std::int64_t offset, std::span<const std::uint8_t> bytes) = 0;
};

class DataFileStore {
 public:
  virtual ~DataFileStore() = default;

  // Opens for reading and writing; a name that does not exist is created empty. Destroying the file
  // closes it. Failures: 7 out of memory, 52 bad name, 57 device, 61 no room to create it, 70
  // permission or locked, 75 path access, 76 path not found.
  virtual std::unique_ptr<DataFile> Open(const std::string& name) = 0;
};

}  // namespace quillspeech
