#include "platform/linux/riff_file.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <utility>

#include "platform/linux/system_call.hpp"
#include "platform/riff_walk.hpp"

namespace quillspeech::linux {

namespace {

class Disk final : public ByteSource {
 public:
  // Without O_NONBLOCK a pipe would hold us here until somebody writes into it.
  explicit Disk(const std::string& path)
      : descriptor_(Uninterrupted(
            [&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK); })) {}
  ~Disk() override {
    if (descriptor_ >= 0) ::close(descriptor_);
  }
  Disk(const Disk&) = delete;
  Disk& operator=(const Disk&) = delete;

  // Whether it is open, and a file with content of its own.
  bool Is_Good() const {
    struct stat status;
    return descriptor_ >= 0 && ::fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode);
  }

  std::int64_t Read_At(std::int64_t offset, std::uint8_t* bytes, std::int64_t count) override {
    std::int64_t done = 0;
    while (done < count) {
      const auto wanted = static_cast<std::size_t>(count - done);
      const auto got =
          Uninterrupted([&] { return ::pread(descriptor_, bytes + done, wanted, offset + done); });
      if (got < 0) return -1;
      if (got == 0) break;
      done += got;
    }
    return done;
  }

 private:
  int descriptor_;
};

}  // namespace

std::unique_ptr<RiffFile> RiffFiles::Open(const std::string& path) {
  if (path.find('\0') != std::string::npos) return nullptr;
  auto disk = std::make_unique<Disk>(path);
  if (!disk->Is_Good()) return nullptr;
  return std::make_unique<RiffWalk>(std::move(disk));
}

}  // namespace quillspeech::linux
