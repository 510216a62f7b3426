#include "platform/linux/data_file.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "base/run_time_failure.hpp"
#include "platform/bounded_wait.hpp"
#include "platform/linux/file_errors.hpp"
#include "platform/linux/system_call.hpp"

namespace quillspeech::linux {

namespace {

using std::chrono::milliseconds;

class Descriptor {
 public:
  explicit Descriptor(const std::string& name) : number_(Open(name)) {}
  ~Descriptor() { ::close(number_); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int Number() const { return number_; }

 private:
  static int Open(const std::string& name) {
    constexpr mode_t Everybody = 0666;  // less what the user's mask takes away
    constexpr int How = O_RDWR | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    const int number = Uninterrupted([&] { return ::open(name.c_str(), How, Everybody); });
    if (number < 0) Fail(Failure_To_Open(errno));
    return number;
  }

  int number_;
};

// Holds the lock of an open file. It belongs to the descriptor and not to the process, so it keeps
// threads apart that opened the file each for itself.
class Lock {
 public:
  Lock(const Descriptor& file, int kind, milliseconds patience) : file_(file) {
    constexpr std::chrono::microseconds Pause{100};
    int error = 0;
    const bool is_answered = Try_For(patience, Pause, [&] {
      const int refused = Uninterrupted([&] { return ::flock(file_.Number(), kind | LOCK_NB); });
      error = refused ? errno : 0;
      return error != EWOULDBLOCK;
    });
    if (!is_answered) Fail(Failure::Permission_Denied);
    if (error && !Is_Without_Locks(error)) Fail(Failure::Device_Failure);
  }
  ~Lock() { ::flock(file_.Number(), LOCK_UN); }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

 private:
  const Descriptor& file_;
};

class File final : public DataFile {
 public:
  // Fails unless this is a file with content of its own: no folder, pipe or device.
  File(const std::string& name, DataFileStore::Locking locking, milliseconds patience)
      : descriptor_(name), patience_(patience) {
    if (!S_ISREG(Status().st_mode)) Fail(Failure::Path_Access);
    if (locking == DataFileStore::Locking::Held) held_.emplace(descriptor_, LOCK_EX, patience_);
  }

  std::int64_t Length() const override {
    const CallLock lock(*this, LOCK_SH);
    return Status().st_size;
  }

  std::int64_t Read(std::int64_t offset, std::span<std::uint8_t> bytes) override {
    const CallLock lock(*this, LOCK_SH);
    return Read_Whole(offset, bytes);
  }

  void Write(std::int64_t offset, std::span<const std::uint8_t> bytes) override {
    const CallLock lock(*this, LOCK_EX);
    const std::int64_t length = Status().st_size;
    std::vector<std::uint8_t> old(bytes.size());
    old.resize(static_cast<std::size_t>(Read_Whole(offset, old)));
    const int error = Write_Whole(offset, bytes);
    if (error == 0) return;
    // What fails from here on is not told: the first error is the one that counts.
    Write_Whole(offset, old);
    if (offset + std::ssize(bytes) > length) Cut_To(length);
    Fail(Failure_To_Transfer(error));
  }

 private:
  // The lock of one call, unless the file holds its own: a second one would replace that.
  class CallLock {
   public:
    CallLock(const File& file, int kind) {
      if (!file.held_) lock_.emplace(file.descriptor_, kind, file.patience_);
    }

   private:
    std::optional<Lock> lock_;
  };

  struct stat Status() const {
    struct stat status;
    if (::fstat(descriptor_.Number(), &status) != 0) Fail(Failure_To_Transfer(errno));
    return status;
  }

  std::int64_t Read_Whole(std::int64_t offset, std::span<std::uint8_t> bytes) const {
    std::int64_t done = 0;
    while (done < std::ssize(bytes)) {
      const auto rest = bytes.subspan(static_cast<std::size_t>(done));
      const auto got = Uninterrupted(
          [&] { return ::pread(descriptor_.Number(), rest.data(), rest.size(), offset + done); });
      if (got < 0) Fail(Failure_To_Transfer(errno));
      if (got == 0) break;
      done += got;
    }
    return done;
  }

  // Gives 0 or the error that stopped it.
  int Write_Whole(std::int64_t offset, std::span<const std::uint8_t> bytes) const {
    std::int64_t done = 0;
    while (done < std::ssize(bytes)) {
      const auto rest = bytes.subspan(static_cast<std::size_t>(done));
      const auto put = Uninterrupted(
          [&] { return ::pwrite(descriptor_.Number(), rest.data(), rest.size(), offset + done); });
      if (put < 0) return errno;
      if (put == 0) return ENOSPC;
      done += put;
    }
    return 0;
  }

  bool Cut_To(std::int64_t length) const {
    return Uninterrupted([&] { return ::ftruncate(descriptor_.Number(), length); }) == 0;
  }

  Descriptor descriptor_;
  milliseconds patience_;
  std::optional<Lock> held_;
};

}  // namespace

std::unique_ptr<DataFile> DataFileStore::Open(const std::string& name) {
  if (name.empty() || name.find('\0') != std::string::npos) Fail(Failure::Bad_File_Name);
  return std::make_unique<File>(name, locking_, patience_);
}

}  // namespace quillspeech::linux
