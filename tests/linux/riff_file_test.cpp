#include "platform/linux/riff_file.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/linux/open_descriptors.hpp"
#include "tests/support/temporary_folder.hpp"
#include "tests/support/wave_builder.hpp"

namespace quillspeech {
namespace {

namespace fs = std::filesystem;
using tests::Bytes;
using tests::Descriptor_Of;
using tests::Noise;
using tests::Open_Descriptors;
using tests::Wave;
using FileBytes = std::vector<std::uint8_t>;

struct RiffFileOnDisk : testing::Test, tests::TemporaryFolder {
  linux::RiffFiles files;
};

TEST_F(RiffFileOnDisk, A_sound_is_walked_and_read) {
  const auto sound = Noise(tests::Amplitude(100), Bytes(100'001));
  const auto file =
      files.Open(Put("a.wav", Wave().Chunk("LIST", FileBytes(5001, 'x')).Data(sound)));
  ASSERT_NE(file, nullptr);
  const auto riff = file->Descend_To_Form(Four_Characters("WAVE"));
  ASSERT_TRUE(riff);
  const auto format = file->Descend_To_Chunk(Four_Characters("fmt "), *riff);
  ASSERT_TRUE(format);
  EXPECT_TRUE(file->Ascend(*format));
  const auto data = file->Descend_To_Chunk(Four_Characters("data"), *riff);
  ASSERT_TRUE(data);
  ASSERT_EQ(data->size, 100'001u);
  FileBytes bytes(data->size + 100);
  EXPECT_EQ(file->Read(bytes.data(), std::ssize(bytes)), 100'002);  // with the pad byte
  EXPECT_TRUE(std::equal(sound.begin(), sound.end(), bytes.begin()));
}

TEST_F(RiffFileOnDisk, A_read_at_the_end_gives_what_there_is) {
  const auto file = files.Open(Put("a.wav", {1, 2, 3}));
  FileBytes bytes(5);
  EXPECT_EQ(file->Read(bytes.data(), 5), 3);
  EXPECT_EQ(file->Read(bytes.data(), 5), 0);
}

TEST_F(RiffFileOnDisk, A_read_error_gives_minus_1) {
  const std::string path = Put("a.wav", {1, 2, 3});
  const auto file = files.Open(path);
  const int unreadable = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
  ASSERT_GE(::dup3(unreadable, Descriptor_Of(path), O_CLOEXEC), 0);
  ::close(unreadable);
  FileBytes bytes(3);
  EXPECT_EQ(file->Read(bytes.data(), 3), -1);
}

TEST_F(RiffFileOnDisk, Only_regular_files_open) {
  const std::string pipe = Path("pipe");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  const std::string file = Put("a.wav", {1});
  for (const std::string& path : {std::string(), Path("none.wav"), Folder().string(), pipe,
                                  std::string("/dev/zero"), file + std::string("\0.wav", 5)}) {
    SCOPED_TRACE(path);
    EXPECT_EQ(files.Open(path), nullptr);
  }
  EXPECT_NE(files.Open(file), nullptr);
}

TEST_F(RiffFileOnDisk, Opening_creates_nothing) {
  files.Open(Path("none.wav"));
  EXPECT_TRUE(fs::is_empty(Folder()));
}

TEST_F(RiffFileOnDisk, No_descriptor_is_left_open) {
  const std::string path = Put("a.wav", {1});
  const int before = Open_Descriptors();
  files.Open(path);
  files.Open(Folder().string());
  files.Open(Path("none.wav"));
  EXPECT_EQ(Open_Descriptors(), before);
}

TEST_F(RiffFileOnDisk, A_child_process_inherits_no_open_file) {
  const std::string path = Put("a.wav", {1});
  const auto file = files.Open(path);
  const int descriptor = Descriptor_Of(path);
  ASSERT_GE(descriptor, 0);
  EXPECT_EQ(::fcntl(descriptor, F_GETFD), FD_CLOEXEC);
}

TEST_F(RiffFileOnDisk, A_file_that_lies_beyond_four_gigabytes_makes_no_loop) {
  const std::string path =
      Put("a.wav", Wave().Chunk("junk", {}).Claiming(0xFFFFFFFE).Riff_Claiming(0xFFFFFFFF));
  fs::resize_file(path, (std::uintmax_t{1} << 32) + 1000);  // a hole, no space on the disk
  const auto file = files.Open(path);
  const auto riff = file->Descend_To_Form(Four_Characters("WAVE"));
  ASSERT_TRUE(riff);
  EXPECT_FALSE(file->Descend_To_Chunk(Four_Characters("data"), *riff));
}

}  // namespace
}  // namespace quillspeech
