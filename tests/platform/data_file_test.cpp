#include "platform/headless/data_file.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/failures.hpp"

namespace quillspeech {
namespace {

using tests::Failure_Of;
using FileBytes = std::vector<std::uint8_t>;

TEST(DataFileInMemory, A_new_name_is_created_empty) {
  headless::DataFileStore store;
  const auto file = store.Open("new.say");
  EXPECT_EQ(file->Length(), 0);
  EXPECT_TRUE(store.files.contains("new.say"));
}

TEST(DataFileInMemory, Opening_an_existing_file_changes_nothing_in_it) {
  headless::DataFileStore store;
  store.files["a.say"] = {1, 2, 3};
  EXPECT_EQ(store.Open("a.say")->Length(), 3);
  EXPECT_EQ(store.files["a.say"], (FileBytes{1, 2, 3}));
}

TEST(DataFileInMemory, Reads_end_where_the_file_ends) {
  headless::DataFileStore store;
  store.files["a.say"] = {1, 2, 3};
  const auto file = store.Open("a.say");
  FileBytes bytes(4);
  EXPECT_EQ(file->Read(1, bytes), 2);
  EXPECT_EQ(bytes, (FileBytes{2, 3, 0, 0}));
  EXPECT_EQ(file->Read(3, bytes), 0);
  EXPECT_EQ(file->Read(std::int64_t{1} << 44, bytes), 0);
}

TEST(DataFileInMemory, Writes_grow_the_file_with_zeros_in_the_gap) {
  headless::DataFileStore store;
  store.files["a.say"] = {1};
  store.Open("a.say")->Write(3, FileBytes{4, 5});
  EXPECT_EQ(store.files["a.say"], (FileBytes{1, 0, 0, 4, 5}));
}

TEST(DataFileInMemory, Two_users_of_a_file_see_the_same_bytes) {
  headless::DataFileStore store;
  const auto one = store.Open("a.say");
  const auto other = store.Open("a.say");
  one->Write(0, FileBytes{7});
  FileBytes bytes(1);
  EXPECT_EQ(other->Read(0, bytes), 1);
  EXPECT_EQ(bytes[0], 7);
}

TEST(DataFileInMemory, Opening_fails_as_told) {
  headless::DataFileStore store;
  store.refused["gone/a.say"] = Failure::Path_Not_Found;
  store.read_only.insert("mine.say");
  EXPECT_EQ(Failure_Of([&] { store.Open("gone/a.say"); }), 76);
  EXPECT_EQ(Failure_Of([&] { store.Open("mine.say"); }), 75);
  EXPECT_EQ(Failure_Of([&] { store.Open(""); }), 52);
  EXPECT_EQ(Failure_Of([&] { store.Open(std::string("a\0b", 3)); }), 52);
  EXPECT_TRUE(store.files.empty());
  EXPECT_EQ(store.opens, 0);
}

TEST(DataFileInMemory, The_chosen_write_fails_and_the_others_go_through) {
  headless::DataFileStore store;
  store.write_faults[2] = {Failure::Disk_Full, 0};
  const auto file = store.Open("a.say");
  file->Write(0, FileBytes{1, 1});
  EXPECT_EQ(Failure_Of([&] { file->Write(2, FileBytes{2, 2}); }), 61);
  file->Write(2, FileBytes{3, 3});
  EXPECT_EQ(store.files["a.say"], (FileBytes{1, 1, 3, 3}));
}

TEST(DataFileInMemory, A_read_fails_when_it_takes_in_a_bad_place_and_only_then) {
  headless::DataFileStore store;
  store.files["a.say"] = {1, 2, 3, 4, 5, 6};
  store.bad_places = {3, 6};  // and one behind the end
  const auto file = store.Open("a.say");
  FileBytes bytes(2);
  for (const std::int64_t offset : {2, 3}) {
    EXPECT_EQ(Failure_Of([&] { file->Read(offset, bytes); }), 57) << offset;
  }
  for (const std::int64_t offset : {0, 1, 4, 5}) {
    EXPECT_EQ(Failure_Of([&] { file->Read(offset, bytes); }), 0) << offset;
  }
}

TEST(DataFileInMemory, A_torn_write_changes_the_start_of_its_span_and_no_length) {
  headless::DataFileStore store;
  store.files["a.say"] = {1, 1, 1, 1};
  store.write_faults[1] = {Failure::Device_Failure, 1};
  store.write_faults[2] = {Failure::Device_Failure, 3};
  store.write_faults[3] = {Failure::Device_Failure, 3};
  const auto file = store.Open("a.say");
  EXPECT_EQ(Failure_Of([&] { file->Write(1, FileBytes{9, 9}); }), 57);
  EXPECT_EQ(store.files["a.say"], (FileBytes{1, 9, 1, 1}));
  EXPECT_EQ(Failure_Of([&] { file->Write(2, FileBytes{8, 8, 8, 8}); }), 57);
  EXPECT_EQ(store.files["a.say"], (FileBytes{1, 9, 8, 8}));
  EXPECT_EQ(Failure_Of([&] { file->Write(9, FileBytes{7, 7, 7}); }), 57);
  EXPECT_EQ(store.files["a.say"], (FileBytes{1, 9, 8, 8}));
}

TEST(DataFileInMemory, A_file_that_vanished_fails_as_a_device) {
  headless::DataFileStore store;
  const auto file = store.Open("a.say");
  store.files.erase("a.say");
  FileBytes bytes(1);
  EXPECT_EQ(Failure_Of([&] { file->Length(); }), 57);
  EXPECT_EQ(Failure_Of([&] { file->Read(0, bytes); }), 57);
  EXPECT_EQ(Failure_Of([&] { file->Write(0, bytes); }), 57);
  EXPECT_TRUE(store.files.empty());
}

TEST(DataFileInMemory, A_place_beyond_any_disk_is_a_full_one) {
  headless::DataFileStore store;
  const auto file = store.Open("a.say");
  EXPECT_EQ(Failure_Of([&] { file->Write(std::int64_t{1} << 44, FileBytes{1}); }), 61);
  EXPECT_EQ(file->Length(), 0);
}

TEST(DataFileInMemory, Open_files_are_counted_until_they_close) {
  headless::DataFileStore store;
  auto one = store.Open("a.say");
  const auto other = store.Open("b.say");
  EXPECT_EQ(store.open_files, 2);
  one.reset();
  EXPECT_EQ(store.open_files, 1);
  EXPECT_EQ(store.opens, 2);
}

}  // namespace
}  // namespace quillspeech
