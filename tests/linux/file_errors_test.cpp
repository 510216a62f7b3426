#include "platform/linux/file_errors.hpp"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <vector>

namespace quillspeech {
namespace {

struct Case {
  int error;
  int number;
};

TEST(FileErrors, Errors_of_opening_have_their_numbers) {
  const std::vector<Case> cases = {
      {ENAMETOOLONG, 52}, {EINVAL, 52}, {ENOENT, 76}, {ENOTDIR, 76}, {EPERM, 70},  {EROFS, 70},
      {ETXTBSY, 70},      {ENOSPC, 61}, {EDQUOT, 61}, {ENOMEM, 7},   {EIO, 57},    {ENXIO, 57},
      {ENODEV, 57},       {EACCES, 75}, {EISDIR, 75}, {ELOOP, 75},   {EMFILE, 75}, {ENFILE, 75},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(static_cast<int>(linux::Failure_To_Open(one.error)), one.number)
        << std::strerror(one.error);
  }
}

TEST(FileErrors, Errors_of_an_open_file_have_their_numbers) {
  const std::vector<Case> cases = {
      {ENOSPC, 61}, {EDQUOT, 61}, {EFBIG, 61}, {EPERM, 70}, {EACCES, 70},
      {EIO, 57},    {EBADF, 57},  {ENXIO, 57}, {EROFS, 57}, {ESTALE, 57},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(static_cast<int>(linux::Failure_To_Transfer(one.error)), one.number)
        << std::strerror(one.error);
  }
}

TEST(FileErrors, Only_a_file_system_that_has_no_locks_may_refuse_one) {
  for (const int error : {EOPNOTSUPP, ENOLCK, ENOSYS}) {
    EXPECT_TRUE(linux::Is_Without_Locks(error)) << std::strerror(error);
  }
  for (const int error : {EBADF, EINVAL, EWOULDBLOCK, EIO, EINTR, EPERM, 0}) {
    EXPECT_FALSE(linux::Is_Without_Locks(error)) << std::strerror(error);
  }
}

}  // namespace
}  // namespace quillspeech
