#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <vector>

#include "base/text.hpp"
#include "tests/recognition/language_matching_fixture.hpp"

namespace quillspeech {
namespace {

using tests::LanguageMatching;
using tests::Record;
using tests::Record_Bytes;
using tests::Words;

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

TEST_F(LanguageMatching, A_record_that_cannot_be_read_ends_the_scan_after_those_before_it) {
  struct Case {
    int records;
    int bad;
  };
  for (const Case c : {Case{2, 2}, {3, 3}, {4, 3}, {40, 31}, {40, 35}, {40, 40}}) {
    SCOPED_TRACE(testing::Message() << "record " << c.bad << " of " << c.records);
    results.Platinum_Words_Available = 0;
    results.Language_Matched = 0;
    session.trace.failures.clear();
    recoveries = 0;
    Put(std::vector<Record>(static_cast<std::size_t>(c.records),
                            Record().Word("a").Pattern("  s")));
    const auto before = File();
    test.data_files.bad_places = {static_cast<std::size_t>((c.bad - 1) * Record_Bytes + 100)};
    Match("s");
    Expect_Failure(57);
    EXPECT_EQ(Entered(), Words(static_cast<std::size_t>(c.bad - 1), "a"));
    EXPECT_EQ(results.Language_Matched, 1);
    EXPECT_EQ(results.Matched_Record_No, c.bad - 1);
    EXPECT_EQ(results.No_Language_Match, False);
    EXPECT_EQ(File(), before);
  }
  EXPECT_EQ(test.data_files.writes, 0);
}

TEST_F(LanguageMatching, Record_1_may_fail_when_the_scan_reads_it_anew) {
  struct Case {
    std::size_t records;
    std::map<int, Failure> faults;  // behind the read at the opening
  };
  for (const Case& c : {Case{1, {{2, Failure::Device_Failure}}},
                        Case{2, {{2, Failure::Device_Failure}, {3, Failure::Device_Failure}}}}) {
    session.trace.failures.clear();
    recoveries = 0;
    Put(std::vector<Record>(c.records, Record().Word("a").Pattern("s")));
    test.data_files.reads = 0;
    test.data_files.read_faults = c.faults;
    Match("s");
    Expect_Failure(57);
    EXPECT_EQ(Entered(), Words{}) << c.records;
    EXPECT_EQ(test.data_files.writes, 0);
  }
}

TEST_F(LanguageMatching, A_scan_or_write_that_fails_leaves_the_number_of_the_last_match) {
  results.Matched_Record_No = 4;
  Put({Record().Word("a").Pattern("x[a-")});
  Match("s");
  Expect_Failure(93);
  EXPECT_EQ(results.Matched_Record_No, 4);

  session.trace.failures.clear();
  recoveries = 0;
  Put({Record().Word("a").Pattern("x")});
  test.data_files.write_faults[1] = {Failure::Disk_Full, 0};
  Match("s");
  Expect_Failure(61);
  EXPECT_EQ(results.Matched_Record_No, 4);
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

}  // namespace
}  // namespace quillspeech
