#include "platform/windows/file_errors.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace quillspeech::tests {
namespace {

constexpr DWORD Quota_Exceeded = 1295;

struct Case {
  DWORD error;
  int number;
};

TEST(FileErrors, Errors_of_opening_have_their_numbers) {
  const std::vector<Case> cases = {
      {ERROR_INVALID_NAME, 52},
      {ERROR_BAD_PATHNAME, 52},
      {ERROR_FILENAME_EXCED_RANGE, 52},
      {ERROR_INVALID_PARAMETER, 52},
      {ERROR_FILE_NOT_FOUND, 76},
      {ERROR_PATH_NOT_FOUND, 76},
      {ERROR_INVALID_DRIVE, 76},
      {ERROR_BAD_NETPATH, 76},
      {ERROR_BAD_NET_NAME, 76},
      {ERROR_DIRECTORY, 76},
      {ERROR_WRITE_PROTECT, 70},
      {ERROR_SHARING_VIOLATION, 70},
      {ERROR_LOCK_VIOLATION, 70},
      {ERROR_NETWORK_ACCESS_DENIED, 70},
      {ERROR_DISK_FULL, 61},
      {ERROR_HANDLE_DISK_FULL, 61},
      {Quota_Exceeded, 61},
      {ERROR_NOT_ENOUGH_MEMORY, 7},
      {ERROR_OUTOFMEMORY, 7},
      {ERROR_NO_SYSTEM_RESOURCES, 7},
      {ERROR_NOT_READY, 57},
      {ERROR_CRC, 57},
      {ERROR_GEN_FAILURE, 57},
      {ERROR_IO_DEVICE, 57},
      {ERROR_DEV_NOT_EXIST, 57},
      {ERROR_UNRECOGNIZED_VOLUME, 57},
      {ERROR_ACCESS_DENIED, 75},
      {ERROR_TOO_MANY_OPEN_FILES, 75},
      {ERROR_FILE_EXISTS, 75},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(static_cast<int>(windows::Failure_To_Open(one.error)), one.number) << one.error;
  }
}

TEST(FileErrors, Errors_of_an_open_file_have_their_numbers) {
  const std::vector<Case> cases = {
      {ERROR_DISK_FULL, 61},       {ERROR_HANDLE_DISK_FULL, 61},
      {Quota_Exceeded, 61},        {ERROR_FILE_TOO_LARGE, 61},
      {ERROR_ACCESS_DENIED, 70},   {ERROR_SHARING_VIOLATION, 70},
      {ERROR_LOCK_VIOLATION, 70},  {ERROR_NOT_ENOUGH_MEMORY, 7},
      {ERROR_OUTOFMEMORY, 7},      {ERROR_CRC, 57},
      {ERROR_INVALID_HANDLE, 57},  {ERROR_IO_DEVICE, 57},
      {ERROR_NETNAME_DELETED, 57}, {ERROR_WRITE_PROTECT, 57},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(static_cast<int>(windows::Failure_To_Transfer(one.error)), one.number) << one.error;
  }
}

TEST(FileErrors, Only_a_file_system_that_has_no_locks_may_refuse_one) {
  for (const DWORD error :
       {ERROR_NOT_SUPPORTED, ERROR_INVALID_FUNCTION, ERROR_CALL_NOT_IMPLEMENTED}) {
    EXPECT_TRUE(windows::Is_Without_Locks(error)) << error;
  }
  for (const DWORD error : {ERROR_INVALID_HANDLE, ERROR_LOCK_VIOLATION, ERROR_ACCESS_DENIED}) {
    EXPECT_FALSE(windows::Is_Without_Locks(error)) << error;
  }
}

}  // namespace
}  // namespace quillspeech::tests
