#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "base/text.hpp"
#include "tests/recognition/language_matching_fixture.hpp"

namespace quillspeech {
namespace {

using datafiles::SayRecord;
using tests::LanguageMatching;
using tests::Record;
using tests::Record_Bytes;
using tests::Words;

TEST_F(LanguageMatching, A_scan_of_a_new_file_finds_nothing_and_leaves_one_record) {
  Match("s");
  ASSERT_EQ(File().size(), static_cast<std::size_t>(Record_Bytes));
  EXPECT_EQ(On_Disk(1).RecordNo(), 1);
  EXPECT_EQ(On_Disk(1).LikeCount(), 0);
  EXPECT_EQ(session.data.Main_Record_Count, 0);
  EXPECT_EQ(results.No_Language_Match, True);
  EXPECT_EQ(test.data_files.open_files, 0);
  EXPECT_EQ(recoveries, 0);
}

TEST_F(LanguageMatching, A_tail_of_more_than_half_a_record_counts_as_a_record) {
  struct Case {
    std::size_t length;
    int count;
  };
  for (const Case c : {Case{4238, 0},
                       {4239, 1},
                       {8476, 1},
                       {8476 + 4238, 2},
                       {8476 * 2 + 4238, 2},
                       {8476 * 2 + 4239, 3}}) {
    Put({Record().Word("a").Pattern("x"), Record().Word("b").Pattern("x"),
         Record().Word("c").Pattern("x")});
    File().resize(c.length);
    Match("s");
    EXPECT_EQ(session.data.Main_Record_Count, c.count) << c.length;
  }
}

TEST_F(LanguageMatching, A_file_that_counts_no_record_becomes_record_1_with_the_bytes_that_it_had) {
  for (const std::size_t length : {1U, 4U, 100U, 4238U}) {
    Put({Record().Number(7).Word("hello")});
    File().resize(length);
    auto expected = File();
    expected.resize(static_cast<std::size_t>(Record_Bytes));
    expected[0] = 1;
    Match("s");
    EXPECT_EQ(File(), expected) << length;
    EXPECT_EQ(On_Disk(1).RecordNo(), 1);
    EXPECT_EQ(results.No_Language_Match, True);
  }
  EXPECT_EQ(recoveries, 0);
}

TEST_F(LanguageMatching, A_torn_last_record_is_scanned_and_made_whole_with_zeros) {
  Record last = Record().Number(2).Word("b");
  Put({Record().Word("a").Pattern("s"), last});
  File().resize(static_cast<std::size_t>(Record_Bytes) + 5000);
  Match("s");
  EXPECT_EQ(Entered(), Words{"a"});
  EXPECT_EQ(File().size(), static_cast<std::size_t>(2 * Record_Bytes));
  EXPECT_EQ(Trimmed(On_Disk(2).Words(1)), "b");
  EXPECT_EQ(On_Disk(2).LikeCount(), 0);
}

TEST_F(LanguageMatching, A_scan_aligns_the_patterns_of_the_last_record_on_disk_and_of_no_other) {
  Put({Record().Word("a").Pattern("  x"), Record().Word("b").Pattern("  y ").Pattern(" z")});
  Match("s");
  EXPECT_EQ(On_Disk(1).LikeProtocols(1), Fixed("  x", 100));
  EXPECT_EQ(On_Disk(2).LikeProtocols(1), Fixed("y", 100));
  EXPECT_EQ(On_Disk(2).LikeProtocols(2), Fixed("z", 100));
}

TEST_F(LanguageMatching, Codes_are_aligned_only_where_a_pattern_fitted) {
  Put({Record().Word("a").Pattern("x").Differentiator("  oa", 1, 1)});
  Match("s");
  EXPECT_EQ(On_Disk(1).EngineCodes(1), Fixed("  oa", 20));
  Match("x");
  EXPECT_EQ(On_Disk(1).EngineCodes(1), Fixed("oa", 20));
}

TEST_F(LanguageMatching, A_scan_changes_no_other_byte_of_the_file) {
  Record record = Record().Word("b").Pattern("s").Differentiator("oa", 1, 1);
  record.Fields().LikeProtocols(7, "  above the count");
  record.Fields().WordCount(1);
  Put({Record().Word("a").Pattern("  s"), record});
  const auto before = File();
  Match("s");
  EXPECT_EQ(File(), before);
}

TEST_F(LanguageMatching, The_record_read_last_is_written_to_the_number_that_it_holds) {
  Put({Record().Word("a").Pattern("s"), Record().Word("b").Pattern("x"),
       Record().Number(1).Word("c").Pattern(" x")});
  Match("s");
  EXPECT_EQ(Trimmed(On_Disk(1).Words(1)), "c");
  EXPECT_EQ(On_Disk(1).LikeProtocols(1), Fixed("x", 100));
  EXPECT_EQ(On_Disk(3).LikeProtocols(1), Fixed(" x", 100));
  EXPECT_EQ(Entered(), Words{"a"});
}

TEST_F(LanguageMatching, A_number_beyond_the_end_makes_the_file_longer) {
  Put({Record().Number(3).Word("a").Pattern("x")});
  Match("s");
  ASSERT_EQ(File().size(), static_cast<std::size_t>(3 * Record_Bytes));
  EXPECT_EQ(On_Disk(2).RecordNo(), 0);
  EXPECT_EQ(Trimmed(On_Disk(3).Words(1)), "a");
}

TEST_F(LanguageMatching, A_record_without_a_number_cannot_be_written_back) {
  Put({Record().Word("a").Pattern("s")});
  File()[0] = 0;
  Match("s");
  Expect_Failure(63);
  EXPECT_EQ(Entered(), Words{"a"});
  EXPECT_EQ(session.flags.Operation_Status, "");
}

TEST_F(LanguageMatching,
       An_engine_file_is_too_short_to_count_and_becomes_a_record_without_patterns) {
  for (const std::size_t length : {2024U, 1500U}) {
    auto expected = tests::Engine_File({{0, "_"}, {50, "s"}});
    expected.resize(length);
    File() = expected;
    expected.resize(static_cast<std::size_t>(Record_Bytes));
    Match("s");
    EXPECT_EQ(File(), expected) << length;
    EXPECT_EQ(results.No_Language_Match, True);
    EXPECT_TRUE(session.trace.failures.empty());
  }
}

TEST_F(LanguageMatching, A_long_foreign_file_fails_behind_the_last_pattern_and_is_not_written) {
  std::vector<std::uint8_t> blanks(static_cast<std::size_t>(Record_Bytes), ' ');
  for (const std::size_t length : {6072U, 8476U}) {
    File() = blanks;
    File().resize(length);
    const auto before = File();
    session.trace.failures.clear();
    recoveries = 0;
    Match("s");
    Expect_Failure(9);
    EXPECT_EQ(File(), before) << length;
    EXPECT_EQ(test.data_files.writes, 0);
  }
}

// Files that somebody else writes after a certain read.
struct SharedFiles final : DataFileStore {
  DataFileStore& store;
  int reads = 0;
  int read_before;
  std::function<void()> others_write;

  SharedFiles(DataFileStore& under, int read, std::function<void()> write)
      : store(under), read_before(read), others_write(std::move(write)) {}
  std::unique_ptr<DataFile> Open(const std::string& name) override;
};

struct SharedFile final : DataFile {
  SharedFiles& files;
  std::unique_ptr<DataFile> file;

  SharedFile(SharedFiles& all, std::unique_ptr<DataFile> opened)
      : files(all), file(std::move(opened)) {}
  std::int64_t Length() const override { return file->Length(); }
  std::int64_t Read(std::int64_t offset, std::span<std::uint8_t> bytes) override {
    const auto got = file->Read(offset, bytes);
    if (++files.reads == files.read_before) files.others_write();
    return got;
  }
  void Write(std::int64_t offset, std::span<const std::uint8_t> bytes) override {
    file->Write(offset, bytes);
  }
};

std::unique_ptr<DataFile> SharedFiles::Open(const std::string& name) {
  return std::make_unique<SharedFile>(*this, store.Open(name));
}

TEST_F(LanguageMatching, What_others_write_into_the_last_record_during_a_scan_is_seen_and_stays) {
  struct Case {
    std::size_t records;
    int reads;  // before the last record's own: record 1 by itself, and blocks
  };
  for (const Case c : {Case{1, 1}, {2, 2}, {3, 2}, {40, 3}}) {
    std::vector<Record> records(c.records, Record().Word("old").Pattern("  x"));
    Put(records);
    records.back() = Record().Word("new").Pattern("  s");
    SharedFiles files(test.data_files, c.reads, [&] { Put(records); });
    Session other(Ports{test.events, test.boxes, test.host, test.cues, test.shell, test.riff_files,
                        test.wave_input, test.wave_output, files, test.dialogs, test.views});
    other.settings.Consider_this_Lang_File_to_match = "a.SAY";
    other.filter.Current_Voice_Word = "s";
    Match_Language(other);
    EXPECT_EQ(files.reads, c.reads + 1) << c.records;
    EXPECT_EQ(other.results.Platinum_Best_Table[1], "new") << c.records;
    const SayRecord last = On_Disk(static_cast<std::int64_t>(c.records));
    EXPECT_EQ(Trimmed(last.Words(1)), "new") << c.records;
    EXPECT_EQ(last.LikeProtocols(1), Fixed("s", 100)) << c.records;
  }
}

// A file of which only the length is kept: its records are empty but for a number 1.
struct LongFile final : DataFile {
  std::int64_t length;
  explicit LongFile(std::int64_t bytes) : length(bytes) {}
  std::int64_t Length() const override { return length; }
  std::int64_t Read(std::int64_t offset, std::span<std::uint8_t> bytes) override {
    const auto got = std::min<std::int64_t>(std::ssize(bytes), length - offset);
    for (std::int64_t i = 0; i < got; ++i) {
      bytes[static_cast<std::size_t>(i)] = (offset + i) % Record_Bytes == 0 ? 1 : 0;
    }
    return got;
  }
  void Write(std::int64_t, std::span<const std::uint8_t>) override {}
};

struct LongFiles final : DataFileStore {
  std::int64_t records = 0;
  std::unique_ptr<DataFile> Open(const std::string&) override {
    return std::make_unique<LongFile>(records * Record_Bytes);
  }
};

TEST_F(LanguageMatching, A_file_of_32767_records_is_scanned_and_one_of_more_is_an_overflow) {
  struct Case {
    std::int64_t records;
    std::vector<int> failures;
    std::int16_t no_match;
  };
  for (const Case& c : {Case{32767, {}, True}, {32768, {6}, False}}) {
    LongFiles files;
    files.records = c.records;
    Session other(Ports{test.events, test.boxes, test.host, test.cues, test.shell, test.riff_files,
                        test.wave_input, test.wave_output, files, test.dialogs, test.views});
    Match_Language(other);
    EXPECT_EQ(other.trace.failures, c.failures);
    EXPECT_EQ(other.data.Main_Record_Count, c.records);
    EXPECT_EQ(other.results.No_Language_Match, c.no_match);
  }
}

}  // namespace
}  // namespace quillspeech
