#include "platform/windows/host_program.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace quillspeech::tests {
namespace {

TEST(HostProgram, It_is_the_program_file_of_this_process) {
  const auto path = windows::HostProgram().Path();
  ASSERT_TRUE(path);
  const std::filesystem::path file = *path;
  EXPECT_TRUE(file.is_absolute());
  EXPECT_EQ(file.filename(), std::filesystem::path(_pgmptr).filename());
  EXPECT_TRUE(std::filesystem::is_regular_file(file));
}

}  // namespace
}  // namespace quillspeech::tests
