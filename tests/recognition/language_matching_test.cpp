#include "recognition/language_matching.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "base/text.hpp"
#include "tests/recognition/language_matching_fixture.hpp"
#include "tests/support/plain_language_scan.hpp"

namespace quillspeech {
namespace {

using tests::LanguageMatching;
using tests::Record;
using tests::Words;

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
