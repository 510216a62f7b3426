#include "cli/files.hpp"

#include <fcntl.h>
#include <pthread.h>
#include <signal.h>  // NOLINT(modernize-deprecated-headers): sigset_t is not in csignal
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

namespace quillspeech::cli {
namespace {

// An open file that closes itself.
class Descriptor {
 public:
  Descriptor(const std::string& name, int flags)
      : number_(::open(name.c_str(), flags | O_CLOEXEC, 0666)) {}
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  bool Is_Open() const { return number_ >= 0; }
  int Number() const { return number_; }

 private:
  int number_;
};

// The error number, or 0.
int Write_All(int descriptor, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return errno;
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
  return 0;
}

// Keeps an interrupt waiting, so that it leaves no temporary file behind.
class InterruptsHeld {
 public:
  InterruptsHeld() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &signals, &before_);
  }
  ~InterruptsHeld() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  InterruptsHeld(const InterruptsHeld&) = delete;
  InterruptsHeld& operator=(const InterruptsHeld&) = delete;

 private:
  sigset_t before_;
};

// The file that is to be replaced, links followed.
std::filesystem::path Target(const std::string& name) {
  std::error_code none;
  const auto target = std::filesystem::canonical(name, none);
  return none ? std::filesystem::path(name) : target;
}

std::string Temporary_Name(const std::filesystem::path& target, int number) {
  const std::string name =
      ".quillspeech-" + std::to_string(::getpid()) + "-" + std::to_string(number);
  return (target.parent_path() / name).string();
}

// Fills a file that was just made and gives it the target's place. The error number, or 0.
int Fill_And_Rename(int descriptor, const std::string& temporary, const std::string& target,
                    std::span<const std::uint8_t> bytes) {
  struct stat old {};
  if (::stat(target.c_str(), &old) == 0 && ::fchmod(descriptor, old.st_mode & 07777) != 0) {
    return errno;
  }
  if (const int error = Write_All(descriptor, bytes)) return error;
  if (::fsync(descriptor) != 0) return errno;
  return ::rename(temporary.c_str(), target.c_str()) == 0 ? 0 : errno;
}

void Replace_File(const std::string& name, std::span<const std::uint8_t> bytes) {
  const InterruptsHeld held;
  const std::filesystem::path target = Target(name);
  for (int number = 0;; ++number) {
    const std::string temporary = Temporary_Name(target, number);
    const Descriptor file(temporary, O_WRONLY | O_CREAT | O_EXCL);
    if (!file.Is_Open() && errno == EEXIST) continue;
    if (!file.Is_Open()) throw FileError(name, errno);
    const int error = Fill_And_Rename(file.Number(), temporary, target.string(), bytes);
    if (error == 0) return;
    ::unlink(temporary.c_str());
    throw FileError(name, error);
  }
}

}  // namespace

std::vector<std::uint8_t> Read_Whole_File(const std::string& name) {
  const Descriptor file(name, O_RDONLY);
  struct stat about {};
  if (!file.Is_Open() || ::fstat(file.Number(), &about) != 0) throw FileError(name, errno);
  if (S_ISCHR(about.st_mode) || S_ISBLK(about.st_mode)) {
    throw FileError(name, "is a device, not a file");  // it may never end
  }
  constexpr std::size_t Block_Bytes = 1 << 16;
  std::vector<std::uint8_t> bytes(
      S_ISREG(about.st_mode) ? static_cast<std::size_t>(about.st_size) + 1 : Block_Bytes);
  for (std::size_t filled = 0;;) {
    if (filled == bytes.size()) bytes.resize(std::max(2 * filled, Block_Bytes));
    const ssize_t got = ::read(file.Number(), bytes.data() + filled, bytes.size() - filled);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) throw FileError(name, errno);
    filled += static_cast<std::size_t>(got);
    if (got > 0) continue;
    bytes.resize(filled);
    return bytes;
  }
}

void Write_Whole_File(const std::string& name, std::span<const std::uint8_t> bytes) {
  struct stat about {};
  const bool is_there = ::stat(name.c_str(), &about) == 0;
  if (!is_there || S_ISREG(about.st_mode)) return Replace_File(name, bytes);
  const Descriptor file(name, O_WRONLY);  // a directory is refused here
  if (!file.Is_Open()) throw FileError(name, errno);
  if (const int error = Write_All(file.Number(), bytes)) throw FileError(name, error);
}

bool File_Exists(const std::string& name) {
  std::error_code none;
  return std::filesystem::exists(name, none);
}

bool Is_Pipe(const std::string& name) {
  std::error_code none;
  return std::filesystem::is_fifo(name, none);
}

bool Is_Same_File(const std::string& one, const std::string& other) {
  std::error_code none;
  return std::filesystem::equivalent(one, other, none);
}

}  // namespace quillspeech::cli
