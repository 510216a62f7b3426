#include "datafiles/record_file.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "base/run_time_failure.hpp"
#include "base/text.hpp"
#include "datafiles/records.hpp"
#include "platform/headless/data_file.hpp"

namespace quillspeech {
namespace {

using datafiles::EgnRecord;
using datafiles::SayRecord;
using datafiles::VocRecord;
using File_Bytes = std::vector<std::uint8_t>;

constexpr int Say_Bytes = SayRecord::Record_Bytes;

int Failure_Number(const std::function<void()>& call) {
  try {
    call();
  } catch (const RunTimeFailure& failure) {
    return failure.Number();
  }
  return 0;
}

// `count` records of `bytes` bytes, the bytes of each holding its number.
File_Bytes Numbered_Records(int count, int bytes) {
  File_Bytes file;
  for (int number = 1; number <= count; ++number) {
    file.insert(file.end(), static_cast<std::size_t>(bytes), static_cast<std::uint8_t>(number));
  }
  return file;
}

struct RecordFileTest : testing::Test {
  headless::DataFileStore store;
  RecordFile file;

  void Open(int record_bytes = 10) { file.Open(store, "a.say", record_bytes); }
  File_Bytes& Content() { return store.files["a.say"]; }
  File_Bytes Record(std::int64_t number, std::size_t bytes = 10, std::uint8_t missing = 0) {
    File_Bytes record(bytes, 0xEE);
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
  file.Read(1, record.Bytes(), ' ');
  EXPECT_EQ(Trim(record.EngineSlots(0)), "");
  EXPECT_EQ(Trim(record.EngineSlots(100)), "");
}

TEST_F(RecordFileTest, Record_n_lies_at_n_minus_1_records) {
  Content() = Numbered_Records(3, 10);
  Open();
  EXPECT_EQ(Record(3), File_Bytes(10, 3));
  EXPECT_EQ(Record(1), File_Bytes(10, 1));
  EXPECT_EQ(Record(2), File_Bytes(10, 2));
}

TEST_F(RecordFileTest, Bytes_that_the_file_lacks_are_filled_in) {
  Content() = Numbered_Records(1, 14);
  Open();
  EXPECT_EQ(Record(2, 10, ' '), (File_Bytes{1, 1, 1, 1, ' ', ' ', ' ', ' ', ' ', ' '}));
  EXPECT_EQ(Record(3, 10, ' '), File_Bytes(10, ' '));
  EXPECT_EQ(Record(2'000'000'000), File_Bytes(10, 0));
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
  file.Write(2, File_Bytes(10, 99));
  File_Bytes expected = Numbered_Records(3, 10);
  std::fill_n(expected.begin() + 10, 10, std::uint8_t{99});
  EXPECT_EQ(Content(), expected);
}

TEST_F(RecordFileTest, A_write_behind_the_end_leaves_zeros_between) {
  Content() = File_Bytes(4, 1);
  Open();
  file.Write(3, File_Bytes(10, 3));
  File_Bytes expected = File_Bytes(4, 1);
  expected.resize(20);
  expected.resize(30, 3);
  EXPECT_EQ(Content(), expected);
}

TEST_F(RecordFileTest, A_new_record_takes_the_next_number_and_nothing_else_moves) {
  Content() = Numbered_Records(2, 10);
  Open();
  file.Write(file.Record_Count() + 1, File_Bytes(10, 3));
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
  EXPECT_NO_THROW(file.Read(1, vocabulary.Bytes()));
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
  EXPECT_NO_THROW(file.Read(1, language.Bytes()));
  EXPECT_EQ(file.Record_Count(), 1);
  EXPECT_EQ(language.FileCopyright().substr(0, 5), "vowel");
}

TEST_F(RecordFileTest, A_record_survives_reading_and_writing_byte_for_byte) {
  for (int i = 0; i < Say_Bytes; ++i) Content().push_back(static_cast<std::uint8_t>(i * 7 + 3));
  const File_Bytes before = Content();
  Open(Say_Bytes);
  SayRecord record;
  file.Read(1, record.Bytes());
  file.Write(1, record.Bytes());
  EXPECT_EQ(Content(), before);
}

TEST_F(RecordFileTest, Record_numbers_below_1_or_above_32_bits_are_failure_63) {
  Open();
  File_Bytes record(10);
  for (const std::int64_t number : {std::int64_t{0}, std::int64_t{-1}, std::int64_t{1} << 31,
                                    std::int64_t{1} << 62, std::int64_t{-1} << 62}) {
    SCOPED_TRACE(number);
    EXPECT_EQ(Failure_Number([&] { file.Read(number, record); }), 63);
    EXPECT_EQ(Failure_Number([&] { file.Write(number, record); }), 63);
  }
  EXPECT_TRUE(Content().empty());
}

TEST_F(RecordFileTest, Using_a_file_that_is_not_open_is_failure_52) {
  File_Bytes record(10);
  EXPECT_EQ(Failure_Number([&] { file.Record_Count(); }), 52);
  EXPECT_EQ(Failure_Number([&] { file.Read(1, record); }), 52);
  EXPECT_EQ(Failure_Number([&] { file.Write(1, record); }), 52);
}

TEST_F(RecordFileTest, A_span_of_another_length_than_the_record_is_refused) {
  Open();
  File_Bytes shorter(9);
  EXPECT_EQ(Failure_Number([&] { file.Read(1, shorter); }), 5);
  EXPECT_EQ(Failure_Number([&] { file.Write(1, shorter); }), 5);
  EXPECT_EQ(Failure_Number([&] { file.Open(store, "a.say", 0); }), 5);
}

TEST_F(RecordFileTest, Opening_another_file_closes_the_first) {
  Open();
  file.Open(store, "b.say", 10);
  EXPECT_EQ(store.open_files, 1);
  file.Write(1, File_Bytes(10, 7));
  EXPECT_TRUE(Content().empty());
  EXPECT_EQ(store.files["b.say"], File_Bytes(10, 7));
}

TEST_F(RecordFileTest, A_file_that_cannot_be_opened_leaves_nothing_open) {
  store.refused["locked.say"] = Failure::Permission_Denied;
  Open();
  EXPECT_EQ(Failure_Number([&] { file.Open(store, "locked.say", 10); }), 70);
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
  EXPECT_EQ(Failure_Number([&] { file.Write(3, File_Bytes(10, 3)); }), 61);
  EXPECT_EQ(Content(), Numbered_Records(2, 10));
  EXPECT_EQ(file.Record_Count(), 2);
}

TEST_F(RecordFileTest, A_torn_write_never_damages_a_neighbour) {
  Content() = Numbered_Records(3, 10);
  Open();
  store.write_faults[1] = {Failure::Device_Failure, 4};
  EXPECT_EQ(Failure_Number([&] { file.Write(2, File_Bytes(10, 99)); }), 57);
  EXPECT_EQ(Record(1), File_Bytes(10, 1));
  EXPECT_EQ(Record(3), File_Bytes(10, 3));
  EXPECT_EQ(file.Record_Count(), 3);
}

TEST_F(RecordFileTest, The_write_after_a_failed_one_succeeds) {
  Open();
  store.write_faults[1] = {Failure::Disk_Full, 0};
  EXPECT_EQ(Failure_Number([&] { file.Write(1, File_Bytes(10, 1)); }), 61);
  file.Write(1, File_Bytes(10, 1));
  EXPECT_EQ(Content(), Numbered_Records(1, 10));
}

TEST_F(RecordFileTest, A_single_read_takes_only_its_record_from_the_file) {
  Content() = Numbered_Records(100, 10);
  Open();
  Record(1);
  Content()[10] = 77;  // somebody else writes record 2
  EXPECT_EQ(Record(2)[0], 77);
}

TEST_F(RecordFileTest, Reading_one_after_another_takes_a_block_at_once) {
  Content() = Numbered_Records(100, 10);
  Open();
  for (int number = 1; number <= 100; ++number) {
    EXPECT_EQ(Record(number), File_Bytes(10, static_cast<std::uint8_t>(number)));
  }
  EXPECT_EQ(store.reads, 2);
}

TEST_F(RecordFileTest, Blocks_join_without_a_seam) {
  constexpr int Count = 200;  // more than six blocks
  Content() = Numbered_Records(Count, Say_Bytes);
  Open(Say_Bytes);
  for (int number = 1; number <= Count; ++number) {
    EXPECT_EQ(Record(number, Say_Bytes), File_Bytes(Say_Bytes, static_cast<std::uint8_t>(number)));
  }
  EXPECT_LT(store.reads, 10);
}

TEST_F(RecordFileTest, A_block_that_meets_the_end_of_the_file_fills_the_torn_tail) {
  Content() = Numbered_Records(3, 10);
  Content().resize(26);
  Open();
  Record(1);
  EXPECT_EQ(Record(2, 10, ' '), File_Bytes(10, 2));
  EXPECT_EQ(Record(3, 10, ' '), (File_Bytes{3, 3, 3, 3, 3, 3, ' ', ' ', ' ', ' '}));
  EXPECT_EQ(Record(4, 10, ' '), File_Bytes(10, ' '));
}

TEST_F(RecordFileTest, A_record_larger_than_a_block_is_read_whole) {
  constexpr int Large = 300'000;
  Content() = Numbered_Records(3, Large);
  Open(Large);
  for (int number = 1; number <= 3; ++number) {
    EXPECT_EQ(Record(number, Large), File_Bytes(Large, static_cast<std::uint8_t>(number)));
  }
}

TEST_F(RecordFileTest, A_write_shows_in_the_reads_that_follow) {
  Content() = Numbered_Records(5, 10);
  Open();
  Record(1);
  Record(2);
  file.Write(3, File_Bytes(10, 99));
  EXPECT_EQ(Record(3), File_Bytes(10, 99));
}

TEST_F(RecordFileTest, A_record_written_at_the_end_shows_in_the_scan_that_reaches_it) {
  Content() = Numbered_Records(3, 10);
  Open();
  Record(1);
  Record(2);
  file.Write(4, File_Bytes(10, 4));
  EXPECT_EQ(Record(3), File_Bytes(10, 3));
  EXPECT_EQ(Record(4), File_Bytes(10, 4));
}

TEST_F(RecordFileTest, A_jump_looks_at_the_file_anew) {
  Content() = Numbered_Records(5, 10);
  Open();
  Record(1);
  Record(2);
  Content()[20] = 77;
  EXPECT_EQ(Record(1)[0], 1);
  Record(2);
  EXPECT_EQ(Record(3)[0], 77);
}

TEST_F(RecordFileTest, Opening_again_looks_at_the_file_anew) {
  Content() = Numbered_Records(5, 10);
  Open();
  Record(1);
  Record(2);
  Content() = Numbered_Records(1, 30);
  Open();
  EXPECT_EQ(Record(3), File_Bytes(10, 1));
}

TEST_F(RecordFileTest, A_read_that_fails_is_tried_again_by_the_next) {
  Content() = Numbered_Records(5, 10);
  Open();
  Record(1);
  store.read_faults[2] = Failure::Device_Failure;
  EXPECT_EQ(Failure_Number([&] { Record(2); }), 57);
  EXPECT_EQ(Record(3), File_Bytes(10, 3));
  EXPECT_EQ(Record(4), File_Bytes(10, 4));
}

}  // namespace
}  // namespace quillspeech
