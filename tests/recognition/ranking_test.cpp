#include "recognition/ranking.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/text.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech {
namespace {

struct Entry {
  std::string word;
  int rank;
};

void Enter(Results& results, const std::vector<Entry>& entries) {
  for (const Entry& entry : entries) {
    const std::int64_t i = ++results.Platinum_Words_Available;
    results.Platinum_Word_Table[i] = Fixed(entry.word, 40);
    results.Platinum_Rank_Table[i] = entry.rank;
  }
}

using Texts = std::vector<std::string>;

Texts Best(const Results& results) {
  Texts best;
  for (int place = 1; place <= 7; ++place) best.push_back(results.Platinum_Best_Table[place]);
  return best;
}

std::vector<std::int64_t> Indices(const Results& results) {
  std::vector<std::int64_t> indices;
  for (int place = 1; place <= 7; ++place) indices.push_back(results.Best_Word_Index[place]);
  return indices;
}

struct Ranking : testing::Test {
  tests::TestSession test;
  Results& results = test.session.results;
  int recoveries = 0;

  Ranking() {
    test.session.operations.Stop_And_Recover = [this](Session&) { ++recoveries; };
  }
  void Rank() { Rank_Platinum_Words(test.session); }
};

TEST_F(Ranking, The_highest_ranks_come_first) {
  Enter(results, {{"a", 30},
                  {"b", 80},
                  {"c", 5},
                  {"d", 100},
                  {"e", 31},
                  {"f", 6},
                  {"g", 79},
                  {"h", 7},
                  {"i", 50}});
  Rank();
  EXPECT_EQ(Best(results), (Texts{"d", "b", "g", "i", "e", "a", "h"}));
  EXPECT_EQ(Indices(results), (std::vector<std::int64_t>{4, 2, 7, 9, 5, 1, 8}));
}

TEST_F(Ranking, Of_eight_equal_words_the_first_seven_stand_in_the_order_of_the_scan) {
  Enter(results,
        {{"a", 80}, {"b", 80}, {"c", 80}, {"d", 80}, {"e", 80}, {"f", 80}, {"g", 80}, {"h", 80}});
  Rank();
  EXPECT_EQ(Best(results), (Texts{"a", "b", "c", "d", "e", "f", "g"}));
}

TEST_F(Ranking, A_later_word_of_equal_rank_stands_behind_the_earlier) {
  Enter(results, {{"low", 5}, {"first", 80}, {"top", 81}, {"second", 80}});
  Rank();
  EXPECT_EQ(Best(results), (Texts{"top", "first", "second", "low", "", "", ""}));
}

TEST_F(Ranking, Places_without_a_word_hold_index_0_and_an_empty_text) {
  Enter(results, {{"only", 80}});
  Rank();
  EXPECT_EQ(Best(results), (Texts{"only", "", "", "", "", "", ""}));
  EXPECT_EQ(Indices(results), (std::vector<std::int64_t>{1, 0, 0, 0, 0, 0, 0}));
}

TEST_F(Ranking, Without_words_every_place_is_empty) {
  results.Best_Word_Index[3] = 9;
  results.Platinum_Best_Table[3] = "old";
  Rank();
  EXPECT_EQ(Best(results), (Texts(7)));
  EXPECT_EQ(Indices(results), (std::vector<std::int64_t>(7, 0)));
}

TEST_F(Ranking, The_same_word_twice_takes_two_places) {
  Enter(results, {{"hello", 70}, {"hello", 80}});
  Rank();
  EXPECT_EQ(Best(results), (Texts{"hello", "hello", "", "", "", "", ""}));
}

TEST_F(Ranking, Ranks_above_127_are_the_highest) {
  Enter(results, {{"middle", 127}, {"top", 255}, {"high", 128}});
  Rank();
  EXPECT_EQ(Best(results), (Texts{"top", "high", "middle", "", "", "", ""}));
}

TEST_F(Ranking, A_word_of_rank_0_takes_no_place) {
  Enter(results, {{"nothing", 0}, {"one", 1}});
  Rank();
  EXPECT_EQ(Best(results), (Texts{"one", "", "", "", "", "", ""}));
}

TEST_F(Ranking, The_scores_that_hosts_read_are_not_compared) {
  Enter(results, {{"a", 10}, {"b", 20}});
  results.Platinum_Score_Table[1] = 100;
  Rank();
  EXPECT_EQ(results.Platinum_Best_Table[1], "b");
}

TEST_F(Ranking, It_starts_from_nothing_each_time) {
  Enter(results, {{"a", 80}, {"b", 70}});
  Rank();
  results.Platinum_Words_Available = 0;
  Enter(results, {{"c", 5}});
  Rank();
  EXPECT_EQ(Best(results), (Texts{"c", "", "", "", "", "", ""}));
}

TEST_F(Ranking, A_full_table_is_ranked_and_one_word_more_ends_in_the_recovery_with_failure_9) {
  for (int i = 1; i <= 1000; ++i) Enter(results, {{"w" + std::to_string(i), i == 1000 ? 90 : 80}});
  Rank();
  EXPECT_EQ(results.Platinum_Best_Table[1], "w1000");
  EXPECT_EQ(results.Platinum_Best_Table[2], "w1");
  EXPECT_TRUE(test.session.trace.failures.empty());
  results.Platinum_Words_Available = 1001;
  Rank();
  EXPECT_EQ(recoveries, 1);
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{9});
}

}  // namespace
}  // namespace quillspeech
