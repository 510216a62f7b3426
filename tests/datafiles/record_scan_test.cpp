#include "datafiles/record_scan.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/headless/data_file.hpp"
#include "tests/support/failures.hpp"
#include "tests/support/numbered_records.hpp"

namespace quillspeech {
namespace {

using tests::Failure_Of;
using tests::Numbered_Records;
using FileBytes = std::vector<std::uint8_t>;

struct RecordScanTest : testing::Test {
  headless::DataFileStore store;
  RecordFile file;
  std::optional<RecordScan> scan{file};

  void Open(int record_bytes = 10) { file.Open(store, "a.say", record_bytes); }
  FileBytes& Content() { return store.files["a.say"]; }
  FileBytes Next(std::size_t bytes = 10, std::uint8_t missing = 0) {
    FileBytes record(bytes, 0xEE);
    scan->Read_Next(record, missing);
    return record;
  }
  // Reads the records 1 to `count` and compares them with Numbered_Records.
  void Expect_Numbered(int count, std::size_t bytes) {
    for (int number = 1; number <= count; ++number) {
      EXPECT_EQ(Next(bytes), FileBytes(bytes, static_cast<std::uint8_t>(number))) << number;
    }
  }
};

TEST_F(RecordScanTest, The_records_come_in_turn_out_of_one_read) {
  Content() = Numbered_Records(100, 10);
  Open();
  Expect_Numbered(100, 10);
  EXPECT_EQ(store.reads, 1);
}

TEST_F(RecordScanTest, Blocks_join_without_a_seam) {
  constexpr int Count = 200;  // more than six blocks
  Content() = Numbered_Records(Count, 8476);
  Open(8476);
  Expect_Numbered(Count, 8476);
  EXPECT_LT(store.reads, 10);
}

TEST_F(RecordScanTest, A_record_larger_than_a_block_is_read_whole) {
  Content() = Numbered_Records(3, 300'000);
  Open(300'000);
  Expect_Numbered(3, 300'000);
}

TEST_F(RecordScanTest, What_the_file_lacks_is_filled_in) {
  Content() = Numbered_Records(3, 10);
  Content().resize(26);
  Open();
  EXPECT_EQ(Next(10, ' '), FileBytes(10, 1));
  EXPECT_EQ(Next(10, ' '), FileBytes(10, 2));
  EXPECT_EQ(Next(10, ' '), (FileBytes{3, 3, 3, 3, 3, 3, ' ', ' ', ' ', ' '}));
  EXPECT_EQ(Next(10, ' '), FileBytes(10, ' '));
  EXPECT_EQ(Next(), FileBytes(10, 0));
}

TEST_F(RecordScanTest, A_block_shows_the_file_as_it_was_at_one_moment) {
  Content() = Numbered_Records(3, 10);
  Open();
  Next();
  Content() = FileBytes(30, 77);  // somebody else writes
  EXPECT_EQ(Next(), FileBytes(10, 2));
  EXPECT_EQ(Next(), FileBytes(10, 3));
}

TEST_F(RecordScanTest, Another_scan_looks_at_the_file_anew) {
  Content() = Numbered_Records(3, 10);
  Open();
  Next();
  Content()[0] = 77;
  FileBytes record(10);
  RecordScan(file).Read_Next(record);
  EXPECT_EQ(record[0], 77);
}

TEST_F(RecordScanTest, A_single_read_between_is_as_fresh_as_ever_and_does_not_move_the_scan) {
  Content() = Numbered_Records(3, 10);
  Open();
  Next();
  Content()[20] = 77;
  FileBytes record(10);
  file.Read(3, record);
  EXPECT_EQ(record[0], 77);
  EXPECT_EQ(Next(), FileBytes(10, 2));
}

TEST_F(RecordScanTest, A_write_of_our_own_shows_in_the_scan_that_reaches_it) {
  Content() = Numbered_Records(3, 10);
  Open();
  Next();
  file.Write(2, FileBytes(10, 99));
  file.Write(4, FileBytes(10, 4));
  EXPECT_EQ(Next(), FileBytes(10, 99));
  EXPECT_EQ(Next(), FileBytes(10, 3));
  EXPECT_EQ(Next(), FileBytes(10, 4));
}

TEST_F(RecordScanTest, A_write_of_our_own_that_was_torn_shows_too) {
  Content() = Numbered_Records(3, 10);
  Open();
  Next();
  store.write_faults[1] = {Failure::Device_Failure, 4};
  EXPECT_EQ(Failure_Of([&] { file.Write(2, FileBytes(10, 99)); }), 57);
  EXPECT_EQ(Next(), (FileBytes{99, 99, 99, 99, 2, 2, 2, 2, 2, 2}));
}

TEST_F(RecordScanTest, A_failure_after_a_write_of_our_own_brings_no_old_block_back) {
  Content() = Numbered_Records(3, 10);
  Open();
  Next();
  file.Write(2, FileBytes(10, 99));
  store.bad_places = {15};
  EXPECT_EQ(Failure_Of([&] { Next(); }), 57);
  store.bad_places.clear();
  EXPECT_EQ(Next(), FileBytes(10, 99));
}

TEST_F(RecordScanTest, Opening_again_leaves_nothing_of_the_old_file) {
  Content() = Numbered_Records(3, 10);
  Open();
  Next();
  store.files["b.say"] = FileBytes(30, 77);
  file.Open(store, "b.say", 10);
  EXPECT_EQ(Next(), FileBytes(10, 77));
}

TEST_F(RecordScanTest, Opening_again_for_larger_records_is_read_whole) {
  Content() = Numbered_Records(3, 10);
  Open();
  Next();
  store.files["b.say"] = Numbered_Records(2, 300'000);
  file.Open(store, "b.say", 300'000);
  EXPECT_EQ(Next(300'000), FileBytes(300'000, 2));
}

TEST_F(RecordScanTest, A_file_that_is_not_open_is_failure_52) {
  EXPECT_EQ(Failure_Of([&] { Next(); }), 52);
  Content() = Numbered_Records(3, 10);
  Open();
  Next();
  file.Close();
  EXPECT_EQ(Failure_Of([&] { Next(); }), 52);
}

TEST_F(RecordScanTest, A_span_of_another_length_than_the_record_is_refused) {
  Content() = Numbered_Records(3, 10);
  Open();
  EXPECT_EQ(Failure_Of([&] { Next(9); }), 5);
  EXPECT_EQ(Failure_Of([&] { Next(11); }), 5);
  EXPECT_EQ(Next(), FileBytes(10, 1));
}

TEST_F(RecordScanTest, A_record_that_could_not_be_read_is_the_next_one_still) {
  Content() = Numbered_Records(3, 10);
  Open();
  store.bad_places = {15};
  EXPECT_EQ(Next(), FileBytes(10, 1));
  EXPECT_EQ(Failure_Of([&] { Next(); }), 57);
  EXPECT_EQ(Failure_Of([&] { Next(); }), 57);
  store.bad_places.clear();
  EXPECT_EQ(Next(), FileBytes(10, 2));
  EXPECT_EQ(Next(), FileBytes(10, 3));
}

TEST_F(RecordScanTest, A_bad_place_in_one_record_keeps_none_of_those_before_it_back) {
  Content() = Numbered_Records(100, 8476);
  Open(8476);
  for (const int bad : {1, 2, 30, 31, 40, 100}) {  // a block ends within record 31
    for (const std::size_t byte : {0U, 8475U}) {
      SCOPED_TRACE(testing::Message() << "byte " << byte << " of record " << bad);
      scan.emplace(file);
      store.bad_places = {static_cast<std::size_t>(bad - 1) * 8476 + byte};
      Expect_Numbered(bad - 1, 8476);
      EXPECT_EQ(Failure_Of([&] { Next(8476); }), 57);
    }
  }
}

TEST_F(RecordScanTest, Blocks_are_read_again_behind_a_bad_place_that_was_passed) {
  Content() = Numbered_Records(100, 10);
  Open();
  store.read_faults[1] = Failure::Device_Failure;
  Expect_Numbered(100, 10);
  EXPECT_EQ(store.reads, 3);  // the block, record 1 by itself, and the rest
}

TEST_F(RecordScanTest, A_failure_is_that_of_the_record_and_not_of_its_block) {
  Content() = Numbered_Records(3, 10);
  Open();
  store.read_faults = {{1, Failure::Device_Failure}, {2, Failure::Out_Of_Memory}};
  EXPECT_EQ(Failure_Of([&] { Next(); }), 7);
  EXPECT_EQ(Next(), FileBytes(10, 1));
}

TEST_F(RecordScanTest, What_the_file_lacks_is_filled_in_also_when_a_block_could_not_be_read) {
  Content() = FileBytes(6, 1);
  Open();
  store.read_faults[1] = Failure::Device_Failure;
  EXPECT_EQ(Next(10, ' '), (FileBytes{1, 1, 1, 1, 1, 1, ' ', ' ', ' ', ' '}));
}

}  // namespace
}  // namespace quillspeech
