// Data files in a folder of their own, and what can happen to them there.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/linux/data_file.hpp"
#include "tests/linux/open_descriptors.hpp"
#include "tests/support/temporary_folder.hpp"

namespace quillspeech::tests {

using FileBytes = std::vector<std::uint8_t>;

struct DataFileOnDisk : testing::Test, TemporaryFolder {
  linux::DataFileStore store;

  // From now on the open file of that name can only be used as these flags of open() let it be.
  void Reopen(const std::string& name, int flags) const {
    const int other = ::open(Path(name).c_str(), flags | O_CLOEXEC);
    ASSERT_GE(::dup3(other, Descriptor_Of(Path(name)), O_CLOEXEC), 0);
    ::close(other);
  }
};

// While it lives, files of this process end at that length: a write that crosses it is torn there.
class LargestFile {
 public:
  explicit LargestFile(rlim_t bytes) {
    ::getrlimit(RLIMIT_FSIZE, &old_);
    old_handler_ = ::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{bytes, old_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
  }
  ~LargestFile() {
    ::setrlimit(RLIMIT_FSIZE, &old_);
    ::signal(SIGXFSZ, old_handler_);
  }
  LargestFile(const LargestFile&) = delete;
  LargestFile& operator=(const LargestFile&) = delete;

 private:
  rlimit old_{};
  sighandler_t old_handler_ = nullptr;
};

}  // namespace quillspeech::tests
