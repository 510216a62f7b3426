#include "platform/linux/data_file.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <vector>

#include "base/run_time_failure.hpp"

namespace quillspeech::linux {

namespace {

Failure Failure_To_Open(int error) {
  switch (error) {
    case ENAMETOOLONG:
    case EINVAL:
      return Failure::Bad_File_Name;
    case ENOENT:
    case ENOTDIR:
      return Failure::Path_Not_Found;
    case EPERM:
    case EROFS:
    case ETXTBSY:
      return Failure::Permission_Denied;
    case ENOSPC:
    case EDQUOT:
      return Failure::Disk_Full;
    case ENOMEM:
      return Failure::Out_Of_Memory;
    case EIO:
    case ENXIO:
    case ENODEV:
      return Failure::Device_Failure;
    default:  // EACCES and EISDIR among them
      return Failure::Path_Access;
  }
}

Failure Failure_To_Transfer(int error) {
  switch (error) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return Failure::Disk_Full;
    case EPERM:
    case EACCES:
      return Failure::Permission_Denied;
    case EISDIR:
      return Failure::Path_Access;
    default:
      return Failure::Device_Failure;
  }
}

// Repeats a system call that a signal interrupted.
template <class Call>
auto Uninterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

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
  Lock(const Descriptor& file, int kind) : file_(file) {
    held_ = Uninterrupted([&] { return ::flock(file_.Number(), kind); }) == 0;
  }
  ~Lock() {
    if (held_) ::flock(file_.Number(), LOCK_UN);
  }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

 private:
  const Descriptor& file_;
  bool held_ = false;
};

class File final : public DataFile {
 public:
  // Fails unless this is a file with content of its own: no folder, pipe or device.
  explicit File(const std::string& name) : descriptor_(name) {
    if (!S_ISREG(Status().st_mode)) Fail(Failure::Path_Access);
  }

  std::int64_t Length() const override {
    const Lock lock(descriptor_, LOCK_SH);
    return Status().st_size;
  }

  std::int64_t Read(std::int64_t offset, std::span<std::uint8_t> bytes) override {
    const Lock lock(descriptor_, LOCK_SH);
    return Read_Whole(offset, bytes);
  }

  void Write(std::int64_t offset, std::span<const std::uint8_t> bytes) override {
    const Lock lock(descriptor_, LOCK_EX);
    const std::int64_t length = Status().st_size;
    std::vector<std::uint8_t> old(bytes.size());
    old.resize(static_cast<std::size_t>(Read_Whole(offset, old)));
    const int error = Write_Whole(offset, bytes);
    if (error == 0) return;
    if (Status().st_size > length) Truncate(length);
    Write_Whole(offset, old);
    Fail(Failure_To_Transfer(error));
  }

 private:
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

  void Truncate(std::int64_t length) const {
    if (Uninterrupted([&] { return ::ftruncate(descriptor_.Number(), length); }) != 0) {
      Fail(Failure_To_Transfer(errno));
    }
  }

  Descriptor descriptor_;
};

}  // namespace

std::unique_ptr<DataFile> DataFileStore::Open(const std::string& name) {
  if (name.empty() || name.find('\0') != std::string::npos) Fail(Failure::Bad_File_Name);
  return std::make_unique<File>(name);
}

}  // namespace quillspeech::linux
