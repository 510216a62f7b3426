#include "cli/standard_descriptors.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <vector>

namespace quillspeech::cli {
namespace {

// The number that a process without these descriptors gets for the next file that it opens.
int Next_Descriptor_Without(const std::vector<int>& closed) {
  const pid_t child = ::fork();
  if (child == 0) {
    ::closefrom(3);
    for (const int number : closed) ::close(number);
    Fill_Standard_Descriptors();
    ::_exit(::open("/dev/null", O_RDWR));
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(StandardDescriptors, No_file_gets_the_number_of_a_closed_stream) {
  for (const std::vector<int>& closed :
       std::vector<std::vector<int>>{{}, {0}, {1}, {2}, {0, 1}, {1, 2}, {0, 1, 2}}) {
    EXPECT_EQ(Next_Descriptor_Without(closed), 3) << closed.size();
  }
}

TEST(StandardDescriptors, Writing_to_a_stream_that_was_closed_still_fails) {
  const pid_t child = ::fork();
  if (child == 0) {
    ::close(STDOUT_FILENO);
    Fill_Standard_Descriptors();
    ::_exit(::write(STDOUT_FILENO, "x", 1) < 0 ? 0 : 1);
  }
  int status = -1;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace quillspeech::cli
