#include "platform/windows/riff_file.hpp"

#include <gtest/gtest.h>

#include <string>

#include "platform/windows/text.hpp"
#include "platform/windows/windows_api.hpp"
#include "tests/support/riff_file_contract.hpp"
#include "tests/support/riff_file_on_disk_contract.hpp"
#include "tests/support/wave_builder.hpp"

namespace quillspeech::tests {
namespace {

using windows::NameEncoding;
using windows::RiffFiles;

struct OfWindows {
  static RiffFiles Make() { return RiffFiles(NameEncoding::Windows1252); }
};
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, RiffFileContract, RiffFileOnDisk<OfWindows>);
INSTANTIATE_TYPED_TEST_SUITE_P(Windows, RiffFileOnDiskContract, OfWindows);

struct RiffFileOnWindows : testing::Test, RiffFileOnDisk<OfWindows> {};

TEST_F(RiffFileOnWindows, Names_are_written_as_it_was_told) {
  Put("caf.wav", {1});
  ASSERT_TRUE(::MoveFileW(windows::Wide(Path("caf.wav")).c_str(),
                          windows::Wide(Path("caf\xE9.wav")).c_str()));
  EXPECT_NE(files.Open(Path("caf\xE9.wav")), nullptr);
  RiffFiles from_command_line(NameEncoding::Utf8);
  EXPECT_NE(from_command_line.Open(Path("caf\xC3\xA9.wav")), nullptr);
  EXPECT_EQ(from_command_line.Open(Path("caf\xE9.wav")), nullptr);
}

TEST_F(RiffFileOnWindows, Names_with_a_plus_sign_and_long_ones_open) {
  EXPECT_NE(files.Open(Put("one.two+three.wav", {1})), nullptr);
  EXPECT_NE(files.Open(Put(std::string(150, 'n') + ".wav", {1})), nullptr);
}

TEST_F(RiffFileOnWindows, A_device_does_not_open) { EXPECT_EQ(files.Open("NUL"), nullptr); }

TEST_F(RiffFileOnWindows, Another_program_may_write_the_file_meanwhile) {
  const std::string path = Put("a.wav", {1, 2, 3});
  const auto file = files.Open(path);
  const HANDLE other = ::CreateFileW(windows::Wide(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ,
                                     nullptr, OPEN_EXISTING, 0, nullptr);
  EXPECT_NE(other, INVALID_HANDLE_VALUE);
  ::CloseHandle(other);
}

TEST_F(RiffFileOnWindows, A_file_is_closed_with_its_owner) {
  const std::string path = Put("a.wav", Wave().Data({1, 2, 3}));
  files.Open(path)->Descend_To_Form(Wave_Form);
  const HANDLE alone = ::CreateFileW(windows::Wide(path).c_str(), GENERIC_READ, 0, nullptr,
                                     OPEN_EXISTING, 0, nullptr);
  EXPECT_NE(alone, INVALID_HANDLE_VALUE);
  ::CloseHandle(alone);
}

}  // namespace
}  // namespace quillspeech::tests
