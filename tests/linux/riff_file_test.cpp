#include "platform/linux/riff_file.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <string>
#include <vector>

#include "tests/linux/open_descriptors.hpp"
#include "tests/support/riff_file_contract.hpp"
#include "tests/support/riff_file_on_disk_contract.hpp"

namespace quillspeech::tests {
namespace {

using FileBytes = std::vector<std::uint8_t>;

struct OfLinux {
  static linux::RiffFiles Make() { return {}; }
};
INSTANTIATE_TYPED_TEST_SUITE_P(Linux, RiffFileContract, RiffFileOnDisk<OfLinux>);
INSTANTIATE_TYPED_TEST_SUITE_P(Linux, RiffFileOnDiskContract, OfLinux);

struct RiffFileOnLinux : testing::Test, RiffFileOnDisk<OfLinux> {};

TEST_F(RiffFileOnLinux, A_read_error_gives_minus_1) {
  const std::string path = Put("a.wav", {1, 2, 3});
  const auto file = files.Open(path);
  const int unreadable = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
  ASSERT_GE(::dup3(unreadable, Descriptor_Of(path), O_CLOEXEC), 0);
  ::close(unreadable);
  FileBytes bytes(3);
  EXPECT_EQ(file->Read(bytes.data(), 3), -1);
}

TEST_F(RiffFileOnLinux, Only_regular_files_open) {
  const std::string pipe = Path("pipe");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  const std::string file = Put("a.wav", {1});
  for (const std::string& path : {pipe, std::string("/dev/zero")}) {
    SCOPED_TRACE(path);
    EXPECT_EQ(files.Open(path), nullptr);
  }
  EXPECT_NE(files.Open(file), nullptr);
}

TEST_F(RiffFileOnLinux, No_descriptor_is_left_open) {
  const std::string path = Put("a.wav", {1});
  const int before = Open_Descriptors();
  files.Open(path);
  files.Open(Folder().string());
  files.Open(Path("none.wav"));
  EXPECT_EQ(Open_Descriptors(), before);
}

TEST_F(RiffFileOnLinux, A_child_process_inherits_no_open_file) {
  const std::string path = Put("a.wav", {1});
  const auto file = files.Open(path);
  const int descriptor = Descriptor_Of(path);
  ASSERT_GE(descriptor, 0);
  EXPECT_EQ(::fcntl(descriptor, F_GETFD), FD_CLOEXEC);
}

}  // namespace
}  // namespace quillspeech::tests
