#include <gtest/gtest.h>

#include <string_view>

#include "base/text.hpp"
#include "tests/recognition/language_matching_fixture.hpp"

namespace quillspeech {
namespace {

using tests::LanguageMatching;
using tests::Record;

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
  EXPECT_EQ(Score_Of(with("", 255, -1)), 25);
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

}  // namespace
}  // namespace quillspeech
