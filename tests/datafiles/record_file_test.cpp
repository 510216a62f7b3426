#include "datafiles/record_file.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/text.hpp"
#include "datafiles/records.hpp"
#include "platform/headless/data_file.hpp"
#include "tests/support/failures.hpp"
#include "tests/support/numbered_records.hpp"

namespace quillspeech {
namespace {

using datafiles::EgnRecord;
using datafiles::SayRecord;
using datafiles::VocRecord;
using tests::Failure_Of;
using tests::Numbered_Records;
using FileBytes = std::vector<std::uint8_t>;

constexpr int Say_Bytes = SayRecord::Record_Bytes;

struct RecordFileTest : testing::Test {
  headless::DataFileStore store;
  RecordFile file;

  void Open(int record_bytes = 10) { file.Open(store, "a.say", record_bytes); }
  FileBytes& Content() { return store.files["a.say"]; }
  FileBytes Record(std::int64_t number, std::size_t bytes = 10, std::uint8_t missing = 0) {
    FileBytes record(bytes, 0xEE);
    file.Read(number, record, missing);
    return record;
  }
};

TEST_F(RecordFileTest, A_tail_of_more_than_half_a_record_counts_as_one) {
  struct Case {
    std::size_t length;
    int record_bytes;
    int count;
  };
  const std::vector<Case> cases = {
      {0, Say_Bytes, 0},
      {4238, Say_Bytes, 0},
      {4239, Say_Bytes, 1},
      {8476, Say_Bytes, 1},
      {8476 + 4237, Say_Bytes, 1},
      {8476 + 4238, Say_Bytes, 2},  // one and a half goes to the even 2
      {8476 * 2, Say_Bytes, 2},
      {8476 * 2 + 4238, Say_Bytes, 2},
      {8476 * 2 + 4239, Say_Bytes, 3},
      {1012, 2024, 0},
      {1013, 2024, 1},
      {2024, 2024, 1},
      {4817, 9634, 0},
      {4818, 9634, 1},
      {9634 * 3, 9634, 3},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(testing::Message() << one.length << " bytes in records of " << one.record_bytes);
    Content().resize(one.length);
    Open(one.record_bytes);
    EXPECT_EQ(file.Record_Count(), one.count);
  }
}

TEST_F(RecordFileTest, A_name_that_does_not_exist_becomes_an_empty_file) {
  Open(Say_Bytes);
  EXPECT_TRUE(store.files.contains("a.say"));
  EXPECT_EQ(file.Record_Count(), 0);
}

TEST_F(RecordFileTest, Record_1_of_an_empty_file_is_all_missing_and_the_first_write_creates_it) {
  Open(Say_Bytes);
  SayRecord record;
  record.WordCount(5);
  file.Read(1, record.Bytes());
  EXPECT_EQ(record.WordCount(), 0);
  record.RecordNo(1);
  record.Words(1, "hello");
  file.Write(record.RecordNo(), record.Bytes());
  EXPECT_EQ(file.Record_Count(), 1);
  EXPECT_EQ(Content().size(), 8476u);
  EXPECT_EQ(Content()[134], 'h');
}

TEST_F(RecordFileTest, An_empty_engine_file_reads_as_a_table_of_blanks) {
  Open(EgnRecord::Record_Bytes);
  EgnRecord record;
  file.Read(1, record.Bytes(), EgnRecord::Missing_Byte);
  EXPECT_EQ(Trim(record.EngineSlots(0)), "");
  EXPECT_EQ(Trim(record.EngineSlots(100)), "");
}

TEST_F(RecordFileTest, Record_n_lies_at_n_minus_1_records) {
  Content() = Numbered_Records(3, 10);
  Open();
  EXPECT_EQ(Record(3), FileBytes(10, 3));
  EXPECT_EQ(Record(1), FileBytes(10, 1));
  EXPECT_EQ(Record(2), FileBytes(10, 2));
}

TEST_F(RecordFileTest, Bytes_that_the_file_lacks_are_filled_in) {
  Content() = Numbered_Records(1, 14);
  Open();
  EXPECT_EQ(Record(2, 10, ' '), (FileBytes{1, 1, 1, 1, ' ', ' ', ' ', ' ', ' ', ' '}));
  EXPECT_EQ(Record(3, 10, ' '), FileBytes(10, ' '));
  EXPECT_EQ(Record(2'000'000'000), FileBytes(10, 0));
}

TEST_F(RecordFileTest, Reading_past_the_end_changes_nothing_in_the_file) {
  Content() = Numbered_Records(1, 14);
  Open();
  Record(2);
  Record(9);
  EXPECT_EQ(Content(), Numbered_Records(1, 14));
}

TEST_F(RecordFileTest, A_write_changes_its_own_record_and_no_other_byte) {
  Content() = Numbered_Records(3, 10);
  Open();
  file.Write(2, FileBytes(10, 99));
  FileBytes expected = Numbered_Records(3, 10);
  std::fill_n(expected.begin() + 10, 10, std::uint8_t{99});
  EXPECT_EQ(Content(), expected);
}

TEST_F(RecordFileTest, A_write_behind_the_end_leaves_zeros_between) {
  Content() = FileBytes(4, 1);
  Open();
  file.Write(3, FileBytes(10, 3));
  FileBytes expected = FileBytes(4, 1);
  expected.resize(20);
  expected.resize(30, 3);
  EXPECT_EQ(Content(), expected);
}

TEST_F(RecordFileTest, A_new_record_takes_the_next_number_and_nothing_else_moves) {
  Content() = Numbered_Records(2, 10);
  Open();
  file.Write(file.Record_Count() + 1, FileBytes(10, 3));
  EXPECT_EQ(Content(), Numbered_Records(3, 10));
  EXPECT_EQ(file.Record_Count(), 3);
}

TEST_F(RecordFileTest, A_record_that_names_another_position_is_written_there) {
  EgnRecord record;
  record.RecordNo(3);
  record.EngineSlots(0, "ka");
  Content().assign(record.Bytes().begin(), record.Bytes().end());
  Open(EgnRecord::Record_Bytes);
  file.Read(1, record.Bytes());
  record.EngineSlots(0, "kha");
  file.Write(record.RecordNo(), record.Bytes());
  EXPECT_EQ(file.Record_Count(), 3);
  file.Read(1, record.Bytes());
  EXPECT_EQ(Trim(record.EngineSlots(0)), "ka");
  file.Read(3, record.Bytes());
  EXPECT_EQ(Trim(record.EngineSlots(0)), "kha");
}

TEST_F(RecordFileTest, A_language_file_is_read_as_a_vocabulary_without_complaint) {
  SayRecord language;
  language.RecordNo(1);
  language.FileCopyright("Somebody");
  Content().assign(language.Bytes().begin(), language.Bytes().end());
  Open(VocRecord::Record_Bytes);
  VocRecord vocabulary;
  file.Read(1, vocabulary.Bytes());
  EXPECT_EQ(file.Record_Count(), 1);
  EXPECT_EQ(vocabulary.VocabularyName(), "Somebody            ");
}

TEST_F(RecordFileTest, A_vocabulary_is_read_as_a_language_file_without_complaint) {
  VocRecord vocabulary;
  vocabulary.RecordNo(1);
  vocabulary.VocabularyName("vowel");
  Content().assign(vocabulary.Bytes().begin(), vocabulary.Bytes().end());
  Open(SayRecord::Record_Bytes);
  SayRecord language;
  file.Read(1, language.Bytes());
  EXPECT_EQ(file.Record_Count(), 1);
  EXPECT_EQ(language.FileCopyright().substr(0, 5), "vowel");
}

TEST_F(RecordFileTest, A_record_survives_reading_and_writing_byte_for_byte) {
  for (int i = 0; i < Say_Bytes; ++i) Content().push_back(static_cast<std::uint8_t>(i * 7 + 3));
  const FileBytes before = Content();
  Open(Say_Bytes);
  SayRecord record;
  file.Read(1, record.Bytes());
  file.Write(1, record.Bytes());
  EXPECT_EQ(Content(), before);
}

TEST_F(RecordFileTest, Record_numbers_below_1_or_above_32_bits_are_failure_63) {
  Open();
  FileBytes record(10);
  for (const std::int64_t number : {std::int64_t{0}, std::int64_t{-1}, std::int64_t{1} << 31,
                                    std::int64_t{1} << 62, std::int64_t{-1} << 62}) {
    SCOPED_TRACE(number);
    EXPECT_EQ(Failure_Of([&] { file.Read(number, record); }), 63);
    EXPECT_EQ(Failure_Of([&] { file.Read_Run(number, record); }), 63);
    EXPECT_EQ(Failure_Of([&] { file.Write(number, record); }), 63);
  }
  EXPECT_TRUE(Content().empty());
}

TEST_F(RecordFileTest, The_largest_record_number_is_2_147_483_647) {
  Open();
  EXPECT_EQ(Record(2'147'483'647), FileBytes(10, 0));
  // The number is in order, and only the disk of this test is too small for it.
  EXPECT_EQ(Failure_Of([&] { file.Write(2'147'483'647, FileBytes(10)); }), 61);
  EXPECT_TRUE(Content().empty());
}

TEST_F(RecordFileTest, Using_a_file_that_is_not_open_is_failure_52) {
  FileBytes record(10);
  EXPECT_EQ(Failure_Of([&] { file.Record_Count(); }), 52);
  EXPECT_EQ(Failure_Of([&] { file.Read(1, record); }), 52);
  EXPECT_EQ(Failure_Of([&] { file.Read_Run(1, record); }), 52);
  EXPECT_EQ(Failure_Of([&] { file.Write(1, record); }), 52);
}

TEST_F(RecordFileTest, A_span_of_another_length_than_the_record_is_refused) {
  Open();
  FileBytes shorter(9);
  EXPECT_EQ(Failure_Of([&] { file.Read(1, shorter); }), 5);
  EXPECT_EQ(Failure_Of([&] { file.Write(1, shorter); }), 5);
  EXPECT_EQ(Failure_Of([&] { file.Open(store, "a.say", 0); }), 5);
}

TEST_F(RecordFileTest, Opening_another_file_closes_the_first) {
  Open();
  file.Open(store, "b.say", 10);
  EXPECT_EQ(store.open_files, 1);
  file.Write(1, FileBytes(10, 7));
  EXPECT_TRUE(Content().empty());
  EXPECT_EQ(store.files["b.say"], FileBytes(10, 7));
}

TEST_F(RecordFileTest, A_file_that_cannot_be_opened_leaves_nothing_open) {
  store.refused["locked.say"] = Failure::Permission_Denied;
  Open();
  EXPECT_EQ(Failure_Of([&] { file.Open(store, "locked.say", 10); }), 70);
  EXPECT_FALSE(file.Is_Open());
  EXPECT_EQ(store.open_files, 0);
}

TEST_F(RecordFileTest, Closing_twice_is_harmless) {
  Open();
  file.Close();
  file.Close();
  EXPECT_FALSE(file.Is_Open());
  EXPECT_EQ(store.open_files, 0);
}

TEST_F(RecordFileTest, A_full_disk_is_failure_61_and_the_file_stays_as_it_was) {
  Content() = Numbered_Records(2, 10);
  Open();
  store.write_faults[1] = {Failure::Disk_Full, 6};
  EXPECT_EQ(Failure_Of([&] { file.Write(3, FileBytes(10, 3)); }), 61);
  EXPECT_EQ(Content(), Numbered_Records(2, 10));
  EXPECT_EQ(file.Record_Count(), 2);
}

TEST_F(RecordFileTest, A_torn_write_never_damages_a_neighbour) {
  Content() = Numbered_Records(3, 10);
  Open();
  store.write_faults[1] = {Failure::Device_Failure, 4};
  EXPECT_EQ(Failure_Of([&] { file.Write(2, FileBytes(10, 99)); }), 57);
  EXPECT_EQ(Record(1), FileBytes(10, 1));
  EXPECT_EQ(Record(3), FileBytes(10, 3));
  EXPECT_EQ(file.Record_Count(), 3);
}

TEST_F(RecordFileTest, The_write_after_a_failed_one_succeeds) {
  Open();
  store.write_faults[1] = {Failure::Disk_Full, 0};
  EXPECT_EQ(Failure_Of([&] { file.Write(1, FileBytes(10, 1)); }), 61);
  file.Write(1, FileBytes(10, 1));
  EXPECT_EQ(Content(), Numbered_Records(1, 10));
}

TEST_F(RecordFileTest, Every_read_goes_to_the_file) {
  Content() = Numbered_Records(100, 10);
  Open();
  for (int number = 1; number < 100; ++number) {
    Record(number);
    Content()[static_cast<std::size_t>(number) * 10] = 200;  // somebody else writes the next record
    EXPECT_EQ(Record(number + 1)[0], 200) << number;
  }
}

TEST_F(RecordFileTest, A_record_read_again_is_read_anew) {
  Content() = Numbered_Records(2, 10);
  Open();
  Record(2);
  Content()[10] = 77;
  EXPECT_EQ(Record(2)[0], 77);
}

TEST_F(RecordFileTest, Opening_again_looks_at_the_file_anew) {
  Content() = Numbered_Records(5, 10);
  Open();
  Record(1);
  Content() = Numbered_Records(1, 30);
  Open();
  EXPECT_EQ(file.Record_Count(), 3);
  EXPECT_EQ(Record(2), FileBytes(10, 1));
}

TEST_F(RecordFileTest, A_read_that_fails_leaves_the_file_open_for_the_next) {
  Content() = Numbered_Records(5, 10);
  Open();
  store.read_faults[1] = Failure::Device_Failure;
  EXPECT_EQ(Failure_Of([&] { Record(2); }), 57);
  EXPECT_EQ(Record(2), FileBytes(10, 2));
}

TEST_F(RecordFileTest, A_run_of_records_ends_with_the_span_or_with_the_file) {
  Content() = Numbered_Records(3, 10);
  Content().resize(26);
  Open();
  FileBytes bytes(15, 0xEE);
  EXPECT_EQ(file.Read_Run(1, bytes), 15);
  EXPECT_EQ(bytes, (FileBytes{1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 2, 2, 2, 2, 2}));
  EXPECT_EQ(file.Read_Run(3, bytes), 6);
  EXPECT_EQ(file.Read_Run(4, bytes), 0);
}

}  // namespace
}  // namespace quillspeech
