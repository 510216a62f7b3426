#include "session/open_records.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "base/text.hpp"
#include "platform/headless/data_file.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech {
namespace {

using datafiles::EgnRecord;
using datafiles::SayRecord;
using datafiles::VocRecord;
using tests::Failure_Of;
using FileBytes = std::vector<std::uint8_t>;

SayRecord& Current(OpenDataFile& data, SayRecord*) { return data.SayRecord; }
EgnRecord& Current(OpenDataFile& data, EgnRecord*) { return data.EgnRecord; }
VocRecord& Current(OpenDataFile& data, VocRecord*) { return data.VocRecord; }

// For each of the three kinds of data file.
template <class Record>
struct OpenRecords : testing::Test {
  headless::DataFileStore store;
  OpenDataFile data;
  Record& current = Current(data, static_cast<Record*>(nullptr));

  void Open() { Open_Records(data, current, store, "a.dat"); }
  FileBytes& Content() { return store.files["a.dat"]; }
  bool Holds_From(std::size_t offset, std::uint8_t byte) const {
    const auto bytes = current.Bytes().subspan(offset);
    return std::count(bytes.begin(), bytes.end(), byte) == std::ssize(bytes);
  }
};
using Kinds = testing::Types<SayRecord, EgnRecord, VocRecord>;
TYPED_TEST_SUITE(OpenRecords, Kinds);

TYPED_TEST(OpenRecords, An_empty_file_gives_an_empty_current_record_with_the_number_1) {
  std::fill(this->current.Bytes().begin(), this->current.Bytes().end(), std::uint8_t{7});
  this->Open();
  EXPECT_EQ(this->data.Main_Record_Count, 0);
  EXPECT_EQ(this->current.RecordNo(), 1);
  EXPECT_TRUE(this->Holds_From(4, TypeParam::Missing_Byte));
  EXPECT_TRUE(this->Content().empty());
}

TYPED_TEST(OpenRecords, Record_1_becomes_the_current_one_with_the_number_that_it_holds) {
  this->Content().assign(2 * TypeParam::Record_Bytes, 5);
  this->Content()[TypeParam::Record_Bytes] = 9;
  this->Open();
  EXPECT_EQ(this->data.Main_Record_Count, 2);
  EXPECT_EQ(this->current.RecordNo(), 0x05050505);
  EXPECT_TRUE(this->Holds_From(4, 5));
}

TYPED_TEST(OpenRecords, Half_a_record_counts_none_and_gives_its_bytes_under_the_number_1) {
  constexpr std::size_t Half = TypeParam::Record_Bytes / 2;
  this->Content().assign(Half, 5);
  this->Open();
  EXPECT_EQ(this->data.Main_Record_Count, 0);
  EXPECT_EQ(this->current.RecordNo(), 1);
  EXPECT_EQ(this->current.Bytes()[Half - 1], 5);
  EXPECT_TRUE(this->Holds_From(Half, TypeParam::Missing_Byte));
}

TYPED_TEST(OpenRecords, The_first_write_creates_record_1) {
  this->Open();
  this->data.Main_File_Number.Write(this->current.RecordNo(), this->current.Bytes());
  EXPECT_EQ(std::ssize(this->Content()), TypeParam::Record_Bytes);
  EXPECT_EQ(this->Content()[0], 1);
}

TYPED_TEST(OpenRecords, What_was_open_in_the_channel_is_closed) {
  this->data.Main_File_Number.Open(this->store, "other.dat", 10);
  this->Open();
  EXPECT_EQ(this->store.opens, 2);
  EXPECT_EQ(this->store.open_files, 1);
}

TYPED_TEST(OpenRecords, A_file_that_cannot_be_opened_leaves_the_count_and_the_record) {
  this->data.Main_Record_Count = 7;
  this->current.RecordNo(7);
  this->store.refused["a.dat"] = Failure::Path_Access;
  EXPECT_EQ(Failure_Of([&] { this->Open(); }), 75);
  EXPECT_EQ(this->data.Main_Record_Count, 7);
  EXPECT_EQ(this->current.RecordNo(), 7);
}

TYPED_TEST(OpenRecords, A_file_that_cannot_be_read_leaves_what_was_open_with_its_count_and_record) {
  this->Open();
  this->data.Main_Record_Count = 7;
  this->current.RecordNo(7);
  this->store.files["b.dat"].assign(3 * TypeParam::Record_Bytes, 5);
  this->store.read_faults[this->store.reads + 1] = Failure::Device_Failure;
  EXPECT_EQ(Failure_Of([&] { Open_Records(this->data, this->current, this->store, "b.dat"); }), 57);
  EXPECT_EQ(this->data.Main_Record_Count, 7);
  EXPECT_EQ(this->current.RecordNo(), 7);
  EXPECT_EQ(this->store.open_files, 1);
  this->data.Main_File_Number.Write(7, this->current.Bytes());
  EXPECT_EQ(std::ssize(this->Content()), 7 * TypeParam::Record_Bytes);
}

TYPED_TEST(OpenRecords, What_was_read_ahead_before_an_opening_no_longer_holds) {
  this->Open();
  const std::int64_t first = this->data.Main_File_Number.Edition();
  this->Open();
  EXPECT_GT(this->data.Main_File_Number.Edition(), first);
}

TYPED_TEST(OpenRecords, A_record_that_is_written_behind_the_last_one_is_counted) {
  this->Content().assign(2 * TypeParam::Record_Bytes, 5);
  this->Open();
  const std::pair<int, int> cases[] = {{1, 2}, {2, 2}, {3, 3}, {9, 9}, {4, 9}};
  for (const auto& [number, count] : cases) {
    this->current.RecordNo(number);
    Write_At_Its_Number(this->data, this->current);
    EXPECT_EQ(this->data.Main_Record_Count, count) << number;
  }
}

TYPED_TEST(OpenRecords, A_write_that_fails_counts_nothing) {
  this->Open();
  this->store.write_faults[1] = {Failure::Disk_Full, 0};
  EXPECT_EQ(Failure_Of([&] { Write_At_Its_Number(this->data, this->current); }), 61);
  EXPECT_EQ(this->data.Main_Record_Count, 0);
}

TEST(OpenRecordsByKind, Missing_bytes_are_blanks_in_an_engine_file_and_zeros_in_the_others) {
  EXPECT_EQ(SayRecord::Missing_Byte, 0x00);
  EXPECT_EQ(EgnRecord::Missing_Byte, 0x20);
  EXPECT_EQ(VocRecord::Missing_Byte, 0x00);
}

TEST(OpenRecordsByKind, An_empty_vocabulary_has_no_name_and_no_values) {
  headless::DataFileStore store;
  OpenDataFile data;
  Open_Records(data, data.VocRecord, store, "curves.SAY");
  EXPECT_EQ(data.VocRecord.VocabularySampleCount(), 0);
  EXPECT_EQ(data.VocRecord.VocabularySamples(1200), 0.0);
  EXPECT_EQ(data.VocRecord.VocabularyName(), std::string(20, '\0'));
}

TEST(OpenRecordsByKind, An_empty_engine_file_is_a_table_of_blanks) {
  headless::DataFileStore store;
  OpenDataFile data;
  Open_Records(data, data.EgnRecord, store, "new.EGN");
  for (int category = 0; category <= 100; ++category) {
    EXPECT_EQ(Trim(data.EgnRecord.EngineSlots(category)), "") << category;
  }
}

}  // namespace
}  // namespace quillspeech
