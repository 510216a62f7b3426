#include "platform/windows/data_file.hpp"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <optional>
#include <span>

#include "base/run_time_failure.hpp"
#include "platform/bounded_wait.hpp"
#include "platform/windows/file_errors.hpp"
#include "platform/windows/handle.hpp"
#include "platform/windows/stored_bytes.hpp"

namespace quillspeech::windows {

namespace {

using std::chrono::milliseconds;

OVERLAPPED At(std::int64_t offset) {
  OVERLAPPED place{};
  place.Offset = static_cast<DWORD>(offset);
  place.OffsetHigh = static_cast<DWORD>(offset >> 32);
  return place;
}

// The system tells of a name that is too long as of a folder that is missing.
bool Is_Too_Long(const std::wstring& name) {
  constexpr std::size_t Longest = 255;  // of a folder's entry
  const std::size_t separator = name.find_last_of(L"\\/");
  const std::size_t start = separator == std::wstring::npos ? 0 : separator + 1;
  return name.size() - start > Longest;
}

HANDLE Opened(const std::wstring& name) {
  if (Is_Too_Long(name)) Fail(Failure::Bad_File_Name);
  const HANDLE file =
      ::CreateFileW(name.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) Fail(Failure_To_Open(::GetLastError()));
  return file;
}

class Disk final : public StoredBytes {
 public:
  explicit Disk(const Handle& file) : file_(file) {}

  DWORD Measure(std::int64_t& length) override {
    LARGE_INTEGER size;
    if (!::GetFileSizeEx(file_.Get(), &size)) return ::GetLastError();
    length = size.QuadPart;
    return ERROR_SUCCESS;
  }

  DWORD Read_Part(std::int64_t offset, std::span<std::uint8_t> bytes, DWORD& got) override {
    OVERLAPPED place = At(offset);
    if (::ReadFile(file_.Get(), bytes.data(), Held(bytes.size()), &got, &place)) {
      return ERROR_SUCCESS;
    }
    const DWORD error = ::GetLastError();
    return error == ERROR_HANDLE_EOF ? ERROR_SUCCESS : error;
  }

  DWORD Write_Part(std::int64_t offset, std::span<const std::uint8_t> bytes, DWORD& put) override {
    OVERLAPPED place = At(offset);
    const BOOL done = ::WriteFile(file_.Get(), bytes.data(), Held(bytes.size()), &put, &place);
    return done ? ERROR_SUCCESS : ::GetLastError();
  }

  DWORD Cut_To(std::int64_t length) override {
    FILE_END_OF_FILE_INFO end{};
    end.EndOfFile.QuadPart = length;
    const BOOL done =
        ::SetFileInformationByHandle(file_.Get(), FileEndOfFileInfo, &end, sizeof end);
    return done ? ERROR_SUCCESS : ::GetLastError();
  }

 private:
  static DWORD Held(std::size_t bytes) {
    constexpr std::size_t Most_At_Once = 1 << 30;
    return static_cast<DWORD>(std::min(bytes, Most_At_Once));
  }

  const Handle& file_;
};

// Holds the lock of an open file. It belongs to the handle and not to the process, so it keeps
// threads apart that opened the file each for itself.
class Lock {
 public:
  Lock(const Handle& file, DWORD kind, milliseconds patience) : file_(file) {
    constexpr milliseconds Pause{1};
    DWORD error = ERROR_SUCCESS;
    const bool is_answered = Try_For(patience, Pause, [&] {
      OVERLAPPED place = At(Lock_Offset);
      const DWORD how = kind | LOCKFILE_FAIL_IMMEDIATELY;
      const BOOL done = ::LockFileEx(file_.Get(), how, 0, 1, 0, &place);
      error = done ? ERROR_SUCCESS : ::GetLastError();
      return error != ERROR_LOCK_VIOLATION;
    });
    if (!is_answered) Fail(Failure::Permission_Denied);
    if (error != ERROR_SUCCESS && !Is_Without_Locks(error)) Fail(Failure::Device_Failure);
  }
  ~Lock() {
    OVERLAPPED place = At(Lock_Offset);
    ::UnlockFileEx(file_.Get(), 0, 1, 0, &place);
  }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

 private:
  static constexpr std::int64_t Lock_Offset = std::int64_t{1} << 62;

  const Handle& file_;
};

constexpr DWORD Shared = 0;
constexpr DWORD Alone = LOCKFILE_EXCLUSIVE_LOCK;

class File final : public DataFile {
 public:
  // Fails unless this is a file with content of its own: no folder, pipe or device.
  File(const std::wstring& name, DataFileStore::Locking locking, milliseconds patience)
      : handle_(Opened(name)), patience_(patience) {
    if (::GetFileType(handle_.Get()) != FILE_TYPE_DISK) Fail(Failure::Path_Access);
    if (locking == DataFileStore::Locking::Held) held_.emplace(handle_, Alone, patience_);
  }

  std::int64_t Length() const override {
    const CallLock lock(*this, Shared);
    std::int64_t length = 0;
    if (const DWORD error = Disk(handle_).Measure(length)) Fail(Failure_To_Transfer(error));
    return length;
  }

  std::int64_t Read(std::int64_t offset, std::span<std::uint8_t> bytes) override {
    const CallLock lock(*this, Shared);
    Disk disk(handle_);
    return Read_Whole(disk, offset, bytes);
  }

  void Write(std::int64_t offset, std::span<const std::uint8_t> bytes) override {
    const CallLock lock(*this, Alone);
    Disk disk(handle_);
    Write_Or_Put_Back(disk, offset, bytes);
  }

 private:
  // The lock of one call, unless the file holds its own: a second one would wait for that.
  class CallLock {
   public:
    CallLock(const File& file, DWORD kind) {
      if (!file.held_) lock_.emplace(file.handle_, kind, file.patience_);
    }

   private:
    std::optional<Lock> lock_;
  };

  Handle handle_;
  milliseconds patience_;
  std::optional<Lock> held_;
};

}  // namespace

std::unique_ptr<DataFile> DataFileStore::Open(const std::string& name) {
  const auto wide = Wide_Name(name, encoding_);
  if (!wide) Fail(Failure::Bad_File_Name);
  return std::make_unique<File>(*wide, locking_, patience_);
}

}  // namespace quillspeech::windows
