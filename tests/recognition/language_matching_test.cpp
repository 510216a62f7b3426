#include "recognition/language_matching.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <random>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "base/text.hpp"
#include "tests/support/plain_language_scan.hpp"
#include "tests/support/record_builder.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech {
namespace {

using datafiles::SayRecord;
using tests::Record;

constexpr int Record_Bytes = SayRecord::Record_Bytes;

struct LanguageMatching : testing::Test {
  tests::TestSession test;
  Session& session = test.session;
  Results& results = session.results;
  int recoveries = 0;

  LanguageMatching() {
    session.settings.Consider_this_Lang_File_to_match = "a.SAY";
    session.operations.Stop_And_Recover = [this](Session& stopped) {
      ++recoveries;
      stopped.data.Main_File_Number.Close();
    };
  }

  void Put(const std::vector<Record>& records) {
    tests::Put_Language_File(test.data_files, "a.SAY", records);
  }
  std::vector<std::uint8_t>& File() { return test.data_files.files["a.SAY"]; }
  SayRecord On_Disk(std::int64_t number) {
    return tests::Language_Record(test.data_files, "a.SAY", number);
  }
  void Match(const std::string& text) {
    session.filter.Current_Voice_Word = text;
    Match_Language(session);
  }
  void Fill_Slot(int slot, const std::string& group, int weight) {
    session.filter.Filter_Slot_Table[slot] = group;
    session.filter.Filter_Weight_Table[slot] = weight;
  }
  // The score of the one word that this record yields for "s".
  std::int64_t Score_Of(const Record& record) {
    results.Platinum_Words_Available = 0;
    Put({record});
    Match("s");
    EXPECT_EQ(results.Platinum_Words_Available, 1);
    return results.Platinum_Score_Table[1];
  }
  // The words entered, trimmed, in order.
  std::vector<std::string> Entered() const {
    std::vector<std::string> words;
    for (std::int64_t i = 1; i <= results.Platinum_Words_Available; ++i) {
      words.push_back(Trimmed(results.Platinum_Word_Table[i]));
    }
    return words;
  }
  void Expect_Failure(int number) {
    EXPECT_EQ(session.trace.failures, std::vector<int>{number});
    EXPECT_EQ(recoveries, 1);
    EXPECT_EQ(test.data_files.open_files, 0);
  }
};

using Words = std::vector<std::string>;

TEST_F(LanguageMatching, Every_word_of_a_matching_record_is_entered) {
  Put({Record().Word("yes").Word("yeah").Pattern("fth*s"), Record().Word("no").Pattern("oa*")});
  Match("fthjjs");
  EXPECT_EQ(Entered(), (Words{"yes", "yeah"}));
  EXPECT_EQ(results.No_Language_Match, False);
  EXPECT_EQ(results.Language_Matched, 1);
  EXPECT_EQ(session.flags.Operation_Status, "IntelligentFinish");
  EXPECT_EQ(results.Platinum_Best_Table[1], "yes");
  EXPECT_EQ(results.Platinum_Best_Table[2], "yeah");
  EXPECT_TRUE(session.trace.failures.empty());
  EXPECT_TRUE(test.boxes.shown.empty());
}

TEST_F(LanguageMatching, Every_pattern_that_fits_enters_the_words_again) {
  Put({Record().Word("yes").Pattern("fth*", 50).Pattern("x*").Pattern("*s", 100)});
  Match("fthjjs");
  EXPECT_EQ(Entered(), (Words{"yes", "yes"}));
  EXPECT_EQ(results.Platinum_Score_Table[1], 55);
  EXPECT_EQ(results.Platinum_Score_Table[2], 80);
}

TEST_F(LanguageMatching, Words_keep_their_padding_and_the_rank_is_the_score) {
  Put({Record().Word("hello", 100).Pattern("s", 100)});
  Match("s");
  EXPECT_EQ(results.Platinum_Word_Table[1], Fixed("hello", 40));
  EXPECT_EQ(results.Platinum_Score_Table[1], 80);
  EXPECT_EQ(results.Platinum_Rank_Table[1], 80);
}

TEST_F(LanguageMatching, Full_ratings_score_80_and_with_the_bonus_100) {
  EXPECT_EQ(Score_Of(Record().Word("a", 100).Pattern("s", 100)), 80);
  Fill_Slot(1, "oa", 3);
  EXPECT_EQ(Score_Of(Record().Word("a", 100).Pattern("s", 100).Differentiator("oa", 1, 3)), 100);
}

TEST_F(LanguageMatching, Each_rating_is_rounded_by_itself_a_half_to_the_even_number) {
  struct Case {
    int word_rating;
    int pattern_rating;
    int score;
  };
  for (const Case c : {Case{0, 0, 5},
                       {1, 0, 5},
                       {2, 0, 5},  // 0.5 is 0
                       {3, 0, 6},
                       {6, 0, 7},   // 1.5 is 2
                       {10, 0, 7},  // 2.5 is 2
                       {0, 1, 5},   // 0.5 is 0
                       {0, 3, 7},   // 1.5 is 2
                       {0, 5, 7},   // 2.5 is 2
                       {2, 1, 5},   // 0.5 and 0.5 are 0 and 0
                       {6, 3, 9},
                       {255, 0, 69},
                       {0, -1, 5},  // -0.5 is 0
                       {0, -3, 3},  // -1.5 is -2
                       {0, -10, 0},
                       {255, 372, 255}}) {
    EXPECT_EQ(Score_Of(Record().Word("a", c.word_rating).Pattern("s", c.pattern_rating)), c.score)
        << c.word_rating << ' ' << c.pattern_rating;
  }
  EXPECT_TRUE(session.trace.failures.empty());
}

TEST_F(LanguageMatching, A_score_that_fits_no_byte_is_an_overflow) {
  struct Case {
    int word_rating;
    int pattern_rating;
  };
  for (const Case c : {Case{255, 374}, {0, -12}, {0, 32767}, {0, -32768}}) {
    session.trace.failures.clear();
    recoveries = 0;
    Put({Record().Word("a", c.word_rating).Pattern("s", c.pattern_rating)});
    Match("s");
    Expect_Failure(6);
  }
}

TEST_F(LanguageMatching,
       A_score_that_fits_no_byte_is_in_the_table_that_hosts_read_and_in_no_other) {
  struct Case {
    int word_rating;
    int pattern_rating;
    int score;
  };
  for (const Case c : {Case{255, 374, 256}, {0, -12, -1}, {0, 32767, 16389}, {0, -32768, -16379}}) {
    results.Platinum_Words_Available = 2;
    results.Platinum_Rank_Table[3] = 9;
    Put({Record().Word("a", c.word_rating).Pattern("  s", c.pattern_rating)});
    const auto before = File();
    Match("s");
    EXPECT_EQ(results.Platinum_Words_Available, 3);
    EXPECT_EQ(Trimmed(results.Platinum_Word_Table[3]), "a");
    EXPECT_EQ(results.Platinum_Score_Table[3], c.score);
    EXPECT_EQ(results.Platinum_Rank_Table[3], 9);
    EXPECT_EQ(results.Language_Matched, 0);
    EXPECT_EQ(File(), before);
  }
  EXPECT_EQ(test.data_files.writes, 0);
}

TEST_F(LanguageMatching, The_bonus_is_for_a_slot_at_least_as_heavy_as_asked) {
  Fill_Slot(2, "oa", 3);
  const auto with = [](std::string_view code, int slot, int weight) {
    return Record().Word("a", 0).Pattern("s", 0).Differentiator(code, slot, weight);
  };
  EXPECT_EQ(Score_Of(with("oa", 2, 2)), 25);
  EXPECT_EQ(Score_Of(with("oa", 2, 3)), 25);
  EXPECT_EQ(Score_Of(with("oa", 2, 4)), 5);
  EXPECT_EQ(Score_Of(with("oa", 1, 3)), 5);  // another slot
  EXPECT_EQ(Score_Of(with("Oa", 2, 3)), 5);  // another code
  EXPECT_EQ(Score_Of(with("oaA", 2, 3)), 5);
  EXPECT_EQ(Score_Of(with("  oa", 2, 3)), 25);
  EXPECT_EQ(Score_Of(with("", 255, 0)), 25);  // an empty slot holds the empty code
}

TEST_F(LanguageMatching, Among_the_differentiators_that_name_their_slot_the_last_one_decides) {
  Fill_Slot(1, "oa", 3);
  Fill_Slot(2, "s", 1);
  const auto record = [] { return Record().Word("a", 0).Pattern("s", 0); };
  EXPECT_EQ(Score_Of(record().Differentiator("oa", 1, 9).Differentiator("s", 2, 1)), 25);
  EXPECT_EQ(Score_Of(record().Differentiator("s", 2, 1).Differentiator("oa", 1, 9)), 5);
  EXPECT_EQ(Score_Of(record().Differentiator("s", 2, 1).Differentiator("x", 1, 9)), 25);
}

TEST_F(LanguageMatching, Differentiators_above_the_count_are_not_looked_at) {
  Fill_Slot(1, "oa", 3);
  Record record = Record().Word("a", 0).Pattern("s", 0).Differentiator("oa", 1, 3);
  record.Fields().DifferentiatorCount(0);
  EXPECT_EQ(Score_Of(record), 5);
}

TEST_F(LanguageMatching, Font_and_record_number_are_those_of_the_record_that_matched_last) {
  Put({Record().Word("a").Pattern("s").Font("Arial"), Record().Word("b").Pattern("*").Font("Tamil"),
       Record().Word("c").Pattern("x").Font("Other")});
  Match("s");
  EXPECT_EQ(results.Platinum_Word_Font, Fixed("Tamil", 20));
  EXPECT_EQ(results.Matched_Record_No, 2);
}

TEST_F(LanguageMatching, The_number_of_a_match_is_the_one_that_the_record_holds) {
  Put({Record().Number(77).Word("a").Pattern("s"), Record().Word("b").Pattern("x")});
  Match("s");
  EXPECT_EQ(results.Matched_Record_No, 77);
}

TEST_F(LanguageMatching, The_string_is_compared_without_its_blanks) {
  Put({Record().Word("a").Pattern("fth")});
  Match("  fth ");
  EXPECT_EQ(Entered(), Words{"a"});
}

TEST_F(LanguageMatching, Bytes_above_127_are_characters_like_others) {
  Put({Record().Word("a").Pattern("[\xC0-\xDF]\xFF")});
  Match("\xC9\xFF");
  EXPECT_EQ(Entered(), Words{"a"});
}

TEST_F(LanguageMatching, A_pattern_is_compared_without_the_blanks_at_its_ends) {
  Put({Record().Word("a").Pattern("   f h ")});
  Match("f h");
  EXPECT_EQ(Entered(), Words{"a"});
}

TEST_F(LanguageMatching, A_blank_pattern_matches_only_an_empty_string) {
  Put({Record().Word("a").Pattern("")});
  Match("s");
  EXPECT_EQ(Entered(), Words{});
  Match("   ");
  EXPECT_EQ(Entered(), Words{"a"});
}

TEST_F(LanguageMatching, A_pattern_of_zero_characters_matches_nothing) {
  Record record = Record().Word("a");
  record.Fields().LikeCount(1);
  Put({record});
  for (const std::string text : {"", "s", "*"}) Match(text);
  EXPECT_EQ(Entered(), Words{});
  EXPECT_EQ(results.No_Language_Match, True);
}

TEST_F(LanguageMatching, Patterns_above_the_count_are_not_looked_at) {
  Record record = Record().Word("a").Pattern("x").Pattern("s");
  record.Fields().LikeCount(1);
  Put({record});
  Match("s");
  EXPECT_EQ(Entered(), Words{});
}

TEST_F(LanguageMatching, Two_records_with_the_same_word_take_two_places) {
  Put({Record().Word("hello", 60).Pattern("s"), Record().Word("hello", 100).Pattern("s")});
  Match("s");
  EXPECT_EQ(Entered(), (Words{"hello", "hello"}));
  EXPECT_EQ(results.Platinum_Best_Table[1], "hello");
  EXPECT_EQ(results.Platinum_Best_Table[2], "hello");
  EXPECT_EQ(results.Best_Word_Index[1], 2);
}

TEST_F(LanguageMatching, Eight_words_with_equal_scores_give_the_first_seven_in_their_order) {
  std::vector<Record> records;
  for (int n = 1; n <= 8; ++n) {
    records.push_back(Record().Word("w" + std::to_string(n)).Pattern("s"));
  }
  Put(records);
  Match("s");
  for (int place = 1; place <= 7; ++place) {
    EXPECT_EQ(results.Platinum_Best_Table[place], "w" + std::to_string(place));
  }
}

TEST_F(LanguageMatching, A_match_in_a_record_without_words_counts_as_no_match) {
  Put({Record().Pattern("s").Font("Arial")});
  Match("s");
  EXPECT_EQ(results.Platinum_Words_Available, 0);
  EXPECT_EQ(results.Language_Matched, 1);
  EXPECT_EQ(results.No_Language_Match, True);
  EXPECT_EQ(results.Matched_Record_No, 0);
  EXPECT_EQ(results.Platinum_Word_Font, Fixed("Arial", 20));
}

TEST_F(LanguageMatching, The_words_of_several_scans_add_up_in_one_table) {
  Put({Record().Word("low", 0).Pattern("a"), Record().Word("high", 100).Pattern("b")});
  Match("a");
  Match("b");
  Match("x");
  EXPECT_EQ(Entered(), (Words{"low", "high"}));
  EXPECT_EQ(results.Platinum_Best_Table[1], "high");
  EXPECT_EQ(results.Platinum_Best_Table[2], "low");
  EXPECT_EQ(results.No_Language_Match, True);
}

TEST_F(LanguageMatching, A_change_of_the_file_takes_effect_at_the_next_scan) {
  Put({Record().Word("old").Pattern("s")});
  Match("s");
  Put({Record().Word("new").Pattern("s")});
  Match("s");
  EXPECT_EQ(Entered(), (Words{"old", "new"}));
}

// The head of a scan.

TEST_F(LanguageMatching, Pending_events_run_once_and_a_stop_among_them_is_obeyed) {
  test.events.At_Yield = [this] { session.settings.Stop_everything_now = "YES"; };
  results.No_Language_Match = True;
  Match("s");
  EXPECT_EQ(test.events.yields, 1);
  EXPECT_EQ(test.data_files.opens, 0);
  EXPECT_EQ(results.No_Language_Match, False);
}

TEST_F(LanguageMatching, A_loaded_Language_Editor_is_unloaded_before_the_file_is_opened) {
  int unloads = 0;
  session.operations.Unload_Database = [&](Session& unloading) {
    ++unloads;
    EXPECT_EQ(test.data_files.opens, 0);
    unloading.flags.Language_Editor_Loaded = False;
  };
  Match("s");
  EXPECT_EQ(unloads, 0);
  test.data_files.opens = 0;
  session.flags.Language_Editor_Loaded = True;
  Match("s");
  EXPECT_EQ(unloads, 1);
  EXPECT_EQ(test.data_files.opens, 1);
}

TEST_F(LanguageMatching, A_file_run_without_a_word_yet_has_nothing_to_match) {
  struct Case {
    int first_entry;
    int file_run;
    int opens;
  };
  for (const Case c : {Case{0, 1, 0}, {-1, 1, 0}, {1, 1, 1}, {0, 0, 1}, {1, 0, 1}}) {
    test.data_files.opens = 0;
    session.words.Word_Count_Log[0] = c.first_entry;
    session.flags.File_Run_Active = c.file_run;
    Match("s");
    EXPECT_EQ(test.data_files.opens, c.opens) << c.first_entry << ' ' << c.file_run;
    EXPECT_EQ(results.No_Language_Match, c.opens ? True : False);
  }
}

TEST_F(LanguageMatching, Without_a_file_name_the_user_is_asked_for_one_and_no_event_follows) {
  session.settings.Consider_this_Lang_File_to_match = "";
  Match("s");
  ASSERT_EQ(test.boxes.shown.size(), 1U);
  const MessageBox& box = test.boxes.shown[0].box;
  EXPECT_EQ(box.text, "Please specify your language files location");
  EXPECT_EQ(box.title, "Quillspeech Info");
  EXPECT_EQ(box.icon, BoxIcon::Information);
  EXPECT_EQ(box.buttons, BoxButtons::OK);
  EXPECT_EQ(results.No_Language_Match, False);
  EXPECT_EQ(test.data_files.opens, 0);
}

TEST_F(LanguageMatching, A_scan_that_does_not_begin_leaves_the_last_match) {
  struct Case {
    const char* reason;
    std::function<void(Session&)> set;
  };
  const std::vector<Case> cases = {
      {"stopped", [](Session& s) { s.settings.Stop_everything_now = "YES"; }},
      {"no word yet", [](Session& s) { s.flags.File_Run_Active = 1; }},
      {"no file name", [](Session& s) { s.settings.Consider_this_Lang_File_to_match = ""; }}};
  for (const Case& c : cases) {
    tests::TestSession fresh;
    fresh.session.results.Matched_Record_No = 4;
    fresh.session.results.Language_Matched = 1;
    fresh.session.flags.Operation_Status = "Processing...";
    c.set(fresh.session);
    Match_Language(fresh.session);
    EXPECT_EQ(fresh.session.results.Matched_Record_No, 4) << c.reason;
    EXPECT_EQ(fresh.session.results.Language_Matched, 1) << c.reason;
    EXPECT_EQ(fresh.session.flags.Operation_Status, "Processing...") << c.reason;
    EXPECT_EQ(fresh.data_files.opens, 0) << c.reason;
  }
}

// The file.

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
                        test.wave_input, test.wave_output, files});
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
                        test.wave_input, test.wave_output, files});
    Match_Language(other);
    EXPECT_EQ(other.trace.failures, c.failures);
    EXPECT_EQ(other.data.Main_Record_Count, c.records);
    EXPECT_EQ(other.results.No_Language_Match, c.no_match);
  }
}

// What goes wrong.

TEST_F(LanguageMatching, A_record_that_counts_more_than_30_patterns_fails_after_the_thirtieth) {
  Record record = Record().Word("a");
  for (int j = 1; j <= 30; ++j) record.Pattern(j == 30 ? "s" : "x");
  record.Fields().LikeCount(31);
  Put({record});
  Match("s");
  Expect_Failure(9);
  EXPECT_EQ(Entered(), Words{"a"});
}

TEST_F(LanguageMatching, A_record_that_counts_more_than_100_words_fails_after_the_hundredth) {
  Record record = Record().Pattern("s");
  for (int k = 1; k <= 100; ++k) record.Word("w");
  record.Fields().WordCount(101);
  Put({record});
  Match("s");
  Expect_Failure(9);
  EXPECT_EQ(results.Platinum_Words_Available, 101);
  EXPECT_EQ(Trimmed(results.Platinum_Word_Table[100]), "w");
  EXPECT_EQ(results.Platinum_Word_Table[101], "");
}

TEST_F(LanguageMatching, More_than_50_differentiators_fail_once_a_pattern_fits) {
  Record record = Record().Word("a").Pattern("s");
  for (int k = 1; k <= 50; ++k) record.Differentiator("x", 1, 1);
  record.Fields().DifferentiatorCount(51);
  Put({record});
  Match("t");
  EXPECT_TRUE(session.trace.failures.empty());
  Match("s");
  Expect_Failure(9);
  EXPECT_EQ(results.Platinum_Words_Available, 0);
}

TEST_F(LanguageMatching, A_bad_pattern_is_failure_93_whatever_the_string_is) {
  Put({Record().Word("a").Pattern("x[a-")});
  Match("");
  Expect_Failure(93);
  EXPECT_EQ(results.No_Language_Match, False);
}

TEST_F(LanguageMatching, A_file_that_cannot_be_opened_read_or_written_ends_in_the_recovery) {
  Put({Record().Word("a").Pattern("x")});
  test.data_files.refused["a.SAY"] = Failure::Path_Not_Found;
  Match("s");
  Expect_Failure(76);
  test.data_files.refused.clear();

  session.trace.failures.clear();
  recoveries = 0;
  test.data_files.read_faults[test.data_files.reads + 1] = Failure::Device_Failure;
  Match("s");
  Expect_Failure(57);

  session.trace.failures.clear();
  recoveries = 0;
  test.data_files.write_faults[test.data_files.writes + 1] = {Failure::Disk_Full, 0};
  Match("s");
  Expect_Failure(61);
  EXPECT_EQ(results.No_Language_Match, False);  // the scan did not come to its end
}

// A full table.

TEST_F(LanguageMatching, The_thousandth_word_is_entered_without_a_message) {
  results.Platinum_Words_Available = 999;
  Put({Record().Word("last").Pattern("s")});
  Match("s");
  EXPECT_TRUE(test.boxes.shown.empty());
  EXPECT_EQ(Trimmed(results.Platinum_Word_Table[1000]), "last");
  EXPECT_TRUE(session.trace.failures.empty());
}

TEST_F(LanguageMatching, One_word_more_shows_the_message_and_the_ranking_fails) {
  results.Platinum_Words_Available = 1000;
  results.Platinum_Word_Table[1000] = "valid";
  Put({Record().Word("too").Word("many").Pattern("s").Font("Arial")});
  Match("s");
  ASSERT_EQ(test.boxes.shown.size(), 1U);
  const MessageBox& box = test.boxes.shown[0].box;
  EXPECT_EQ(box.text, "Overflow! Too many similar words...Please try a better Intelligence on it");
  EXPECT_EQ(box.title, "Quillspeech");
  EXPECT_EQ(box.buttons, BoxButtons::OK);
  EXPECT_EQ(box.icon, BoxIcon::None);
  EXPECT_EQ(results.Platinum_Words_Available, 1001);
  EXPECT_EQ(results.Platinum_Word_Table[1000], "valid");
  EXPECT_EQ(results.Platinum_Word_Font, "MS Sans Serif");  // the match is not noted
  EXPECT_EQ(results.Language_Matched, 0);
  Expect_Failure(9);
}

TEST_F(LanguageMatching,
       A_ranking_that_fails_leaves_the_status_of_a_match_over_that_of_the_recovery) {
  session.operations.Stop_And_Recover = [this](Session& stopped) {
    ++recoveries;
    stopped.flags.Operation_Status = "Sleeping";
  };
  results.Platinum_Words_Available = 1000;
  Put({Record().Word("too many").Pattern("s")});
  Match("s");
  Expect_Failure(9);
  EXPECT_EQ(session.flags.Operation_Status, "IntelligentFinish");
}

TEST_F(LanguageMatching, The_message_comes_once_for_each_further_pattern_that_fits) {
  results.Platinum_Words_Available = 999;
  Put({Record().Word("a").Word("b").Word("c").Pattern("s").Pattern("x").Pattern("*"),
       Record().Word("d").Pattern("?")});
  Match("s");
  EXPECT_EQ(test.boxes.shown.size(), 3U);
  EXPECT_EQ(results.Platinum_Words_Available, 1003);
  EXPECT_EQ(Trimmed(results.Platinum_Word_Table[1000]), "a");
}

// No match.

TEST_F(LanguageMatching, Without_a_match_the_status_stays_and_no_question_is_asked) {
  session.flags.Operation_Status = "Processing...";
  results.Matched_Record_No = 4;
  Put({Record().Word("a").Pattern("x")});
  Match("s");
  EXPECT_EQ(results.No_Language_Match, True);
  EXPECT_EQ(results.Matched_Record_No, 0);
  EXPECT_EQ(session.flags.Operation_Status, "Processing...");
  EXPECT_TRUE(test.boxes.shown.empty());
}

TEST_F(LanguageMatching, Without_a_match_nothing_is_ranked_although_there_are_words) {
  results.Platinum_Words_Available = 1;
  results.Platinum_Rank_Table[1] = 80;
  results.Platinum_Word_Table[1] = "earlier";
  results.Platinum_Best_Table[1] = "as it was";
  results.Best_Word_Index[1] = 5;
  Put({Record().Word("a").Pattern("x")});
  Match("s");
  EXPECT_EQ(results.Platinum_Best_Table[1], "as it was");
  EXPECT_EQ(results.Best_Word_Index[1], 5);
}

TEST_F(LanguageMatching, The_question_is_asked_only_when_wanted_and_nothing_is_added_anyway) {
  struct Case {
    std::string notify;
    std::string add;
    std::size_t boxes;
  };
  for (const Case& c : std::vector<Case>{{"YES", "NO", 1},
                                         {"YES", "YES", 0},
                                         {"YES", "", 0},
                                         {"YES", "no", 0},
                                         {"yes", "NO", 0},
                                         {"NO", "NO", 0},
                                         {"", "NO", 0}}) {
    test.boxes.shown.clear();
    session.settings.Notify_if_no_language_match = c.notify;
    session.settings.Add_To_Language = c.add;
    Match("s");
    EXPECT_EQ(test.boxes.shown.size(), c.boxes) << c.notify << ' ' << c.add;
  }
}

struct NoMatchQuestion : LanguageMatching {
  std::vector<std::string> calls;

  NoMatchQuestion() {
    session.settings.Notify_if_no_language_match = "YES";
    session.settings.Consider_this_Lang_File_to_Add = "add.SAY";
    session.operations.Load_Database = [this](Session&) { calls.push_back("load"); };
    session.operations.Show_Database = [this](Session&, bool modally) {
      EXPECT_EQ(test.data_files.open_files, 0);
      calls.push_back(modally ? "show modally" : "show");
    };
  }
};

TEST_F(NoMatchQuestion, It_names_the_file_to_add_to) {
  Match("s");
  ASSERT_EQ(test.boxes.shown.size(), 1U);
  const MessageBox& box = test.boxes.shown[0].box;
  EXPECT_EQ(box.text,
            "You have enabled Artificial Intelligence matching. And no match was found in the "
            "specified Lang file : add.SAY  Do you want to add the characters to Quillspeech "
            "Language Database ? ");
  EXPECT_EQ(box.title, "Quillspeech Language Development");
  EXPECT_EQ(box.buttons, BoxButtons::YesNo);
  EXPECT_EQ(box.icon, BoxIcon::None);
}

TEST_F(NoMatchQuestion, No_opens_nothing) {
  Match("s");
  EXPECT_TRUE(calls.empty());
}

TEST_F(NoMatchQuestion, Yes_shows_the_Language_Editor_modally) {
  test.boxes.answers.push_back(BoxAnswer::Yes);
  Match("s");
  EXPECT_EQ(calls, (Words{"load", "show modally"}));
}

TEST_F(NoMatchQuestion, Yes_in_a_design_environment_shows_it_beside_the_others) {
  test.host.path = "C:\\tools\\vb6.exe";
  test.boxes.answers.push_back(BoxAnswer::Yes);
  Match("s");
  EXPECT_EQ(calls, (Words{"load", "show"}));
}

TEST_F(NoMatchQuestion, A_failure_in_the_showing_is_ignored) {
  test.boxes.answers = {BoxAnswer::Yes, BoxAnswer::Yes};
  session.operations.Show_Database = [](Session&, bool) { Fail(Failure::Invalid_Call); };
  Match("s");
  session.operations.Load_Database = [](Session&) { Fail(Failure::Out_Of_Memory); };
  Match("s");
  EXPECT_EQ(calls, Words{"load"});
  EXPECT_EQ(recoveries, 0);
  EXPECT_EQ(results.No_Language_Match, True);
}

// The whole scan against its definition.

std::string Random_Pattern(std::mt19937& random) {
  const std::vector<std::string> pieces = {"a", "s", "fth", "*", "?", "[a-f]", "[!s]", " ", "oa"};
  std::string pattern;
  for (auto count = random() % 5; count > 0; --count) pattern += pieces[random() % pieces.size()];
  return pattern;
}

Record Random_Record(std::mt19937& random) {
  Record record;
  const auto number = [&](int below) {
    return static_cast<int>(random() % static_cast<unsigned>(below));
  };
  for (int k = number(4); k > 0; --k) record.Word("w" + std::to_string(number(1000)), number(256));
  for (int j = number(6); j > 0; --j) record.Pattern(Random_Pattern(random), number(200) - 5);
  const std::vector<std::string> codes = {"a", " a", "s", "oa"};
  for (int k = number(4); k > 0; --k) {
    record.Differentiator(codes[random() % codes.size()], number(3), number(4));
  }
  return record.Font("font " + std::to_string(number(9)));
}

TEST_F(LanguageMatching, It_agrees_with_the_plain_scan_on_generated_files) {
  std::mt19937 random(1);
  Fill_Slot(0, "s", 1);
  Fill_Slot(1, "a", 2);
  Fill_Slot(2, "oa", 1);
  for (int run = 0; run < 60; ++run) {
    std::vector<Record> records;
    for (auto count = 1 + random() % 40; count > 0; --count) {
      records.push_back(Random_Record(random));
    }
    Put(records);
    const std::string text = run % 4 == 0 ? "" : run % 4 == 1 ? "a" : run % 4 == 2 ? "fths" : "oas";
    const auto plain = tests::Plain_Language_Scan(File(), text, session.filter);
    Clear_Result_Tables(results);
    results.Language_Matched = 0;
    Match(text);
    ASSERT_TRUE(session.trace.failures.empty());
    ASSERT_EQ(results.Platinum_Words_Available, std::ssize(plain.words));
    for (std::int64_t i = 1; i <= results.Platinum_Words_Available; ++i) {
      const auto at = static_cast<std::size_t>(i - 1);
      ASSERT_EQ(results.Platinum_Word_Table[i], plain.words[at]);
      ASSERT_EQ(results.Platinum_Score_Table[i], plain.scores[at]);
    }
    EXPECT_EQ(results.Language_Matched, plain.matched ? 1 : 0);
    EXPECT_EQ(results.Matched_Record_No, plain.record_no);
    EXPECT_EQ(results.Platinum_Word_Font, plain.font);
    EXPECT_EQ(results.No_Language_Match, plain.words.empty() ? True : False);
    EXPECT_EQ(File(), plain.file);
  }
}

}  // namespace
}  // namespace quillspeech
