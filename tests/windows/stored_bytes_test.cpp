#include "platform/windows/stored_bytes.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "tests/support/failures.hpp"

namespace quillspeech::tests {
namespace {

using FileBytes = std::vector<std::uint8_t>;

// A device on which little goes through in one call, and on which things go wrong.
class Device final : public windows::StoredBytes {
 public:
  explicit Device(FileBytes content) : bytes(std::move(content)) {}

  DWORD Measure(std::int64_t& length) override {
    length = std::ssize(bytes);
    return measure_error;
  }
  DWORD Read_Part(std::int64_t offset, std::span<std::uint8_t> into, DWORD& got) override {
    if (read_error != ERROR_SUCCESS) return read_error;
    const std::int64_t left = std::max<std::int64_t>(std::ssize(bytes) - offset, 0);
    const auto count = std::min({static_cast<std::size_t>(left), into.size(), part});
    for (std::size_t i = 0; i < count; ++i) into[i] = bytes[static_cast<std::size_t>(offset) + i];
    got = static_cast<DWORD>(count);
    return ERROR_SUCCESS;
  }
  DWORD Write_Part(std::int64_t offset, std::span<const std::uint8_t> from, DWORD& put) override {
    const auto place = static_cast<std::size_t>(offset);
    const std::size_t room = place < largest ? largest - place : 0;
    const std::size_t count = std::min({from.size(), part, room});
    if (count == 0) {
      put = 0;
      return full_error;
    }
    if (bytes.size() < place + count) bytes.resize(place + count);
    std::copy_n(from.begin(), count, bytes.data() + place);
    put = static_cast<DWORD>(count);
    return ERROR_SUCCESS;
  }
  DWORD Cut_To(std::int64_t length) override {
    if (cut_error == ERROR_SUCCESS) bytes.resize(static_cast<std::size_t>(length));
    return cut_error;
  }

  FileBytes bytes;
  std::size_t part = 7;         // bytes that a call moves at most
  std::size_t largest = 1'000;  // bytes that the file can have
  DWORD measure_error = ERROR_SUCCESS;
  DWORD read_error = ERROR_SUCCESS;
  DWORD full_error = ERROR_DISK_FULL;
  DWORD cut_error = ERROR_SUCCESS;
};

int Failure_Of_Write(Device& device, std::int64_t offset, const FileBytes& bytes) {
  return Failure_Of([&] { windows::Write_Or_Put_Back(device, offset, bytes); });
}

TEST(StoredBytes, What_goes_through_in_parts_is_whole_in_the_end) {
  Device device(FileBytes(100, 1));
  EXPECT_EQ(Failure_Of_Write(device, 90, FileBytes(50, 9)), 0);
  FileBytes bytes(60);
  EXPECT_EQ(windows::Read_Whole(device, 85, bytes), 55);
  FileBytes expected(60, 9);
  std::fill_n(expected.begin(), 5, std::uint8_t{1});
  std::fill_n(expected.begin() + 55, 5, std::uint8_t{0});
  EXPECT_EQ(bytes, expected);
}

// A write of 50 bytes to a file of 100, on a device with room for so many.
void Expect_Write_Without_A_Trace(std::size_t room, std::int64_t offset) {
  Device device(FileBytes(100, 1));
  device.largest = room;
  EXPECT_EQ(Failure_Of_Write(device, offset, FileBytes(50, 9)), 61);
  EXPECT_EQ(device.bytes, FileBytes(100, 1));
}

TEST(StoredBytes, A_write_torn_while_the_file_grows_leaves_it_as_it_was) {
  Expect_Write_Without_A_Trace(120, 90);
}

TEST(StoredBytes, A_write_torn_within_the_file_puts_the_old_bytes_back) {
  Expect_Write_Without_A_Trace(60, 40);
}

TEST(StoredBytes, A_write_that_cannot_begin_leaves_the_file_as_it_was) {
  Expect_Write_Without_A_Trace(100, 200);
}

TEST(StoredBytes, A_write_that_does_nothing_and_says_nothing_is_a_full_disk) {
  Device device(FileBytes(100, 1));
  device.largest = 95;
  device.full_error = ERROR_SUCCESS;
  EXPECT_EQ(Failure_Of_Write(device, 90, FileBytes(10, 9)), 61);
  EXPECT_EQ(device.bytes, FileBytes(100, 1));
}

TEST(StoredBytes, The_first_failure_is_told_when_the_file_cannot_be_cut_again) {
  Device device(FileBytes(100, 1));
  device.largest = 120;
  device.full_error = ERROR_ACCESS_DENIED;
  device.cut_error = ERROR_IO_DEVICE;
  EXPECT_EQ(Failure_Of_Write(device, 90, FileBytes(50, 9)), 70);
  ASSERT_EQ(device.bytes.size(), 120u);
  device.bytes.resize(100);
  EXPECT_EQ(device.bytes, FileBytes(100, 1));
}

TEST(StoredBytes, Nothing_is_written_over_bytes_that_cannot_be_read) {
  Device device(FileBytes(100, 1));
  device.read_error = ERROR_CRC;
  EXPECT_EQ(Failure_Of_Write(device, 0, FileBytes(50, 9)), 57);
  EXPECT_EQ(device.bytes, FileBytes(100, 1));
  FileBytes bytes(1);
  EXPECT_EQ(Failure_Of([&] { windows::Read_Whole(device, 0, bytes); }), 57);
}

TEST(StoredBytes, Nothing_is_written_to_a_file_that_cannot_be_measured) {
  Device device(FileBytes(100, 1));
  device.measure_error = ERROR_INVALID_HANDLE;
  EXPECT_EQ(Failure_Of_Write(device, 0, FileBytes(50, 9)), 57);
  EXPECT_EQ(device.bytes, FileBytes(100, 1));
}

}  // namespace
}  // namespace quillspeech::tests
