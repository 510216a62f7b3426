#include "core/results_view.hpp"

#include <gtest/gtest.h>

#include <functional>

#include "base/run_time_failure.hpp"

namespace quillspeech::results_view {
namespace {

int Failure_Number(const std::function<void()>& action) {
  try {
    action();
  } catch (const RunTimeFailure& failure) {
    return failure.Number();
  }
  return 0;
}

Results Two_Words() {
  Results results;
  results.Platinum_Words_Available = 2;
  results.Platinum_Word_Table[1] = "hello     ";
  results.Platinum_Word_Table[2] = "world     ";
  results.Platinum_Score_Table[1] = 55;
  results.Platinum_Score_Table[2] = 80;
  results.Platinum_Best_Table[1] = " world ";
  results.Platinum_Best_Table[2] = "hello";
  return results;
}

TEST(ResultsView, The_best_words_are_answered_trimmed) {
  const Results results = Two_Words();
  EXPECT_EQ(Platinum_Best(results, 1), "world");
  EXPECT_EQ(Platinum_Best(results, 2), "hello");
  EXPECT_EQ(Platinum_Best(results, 7), "");
}

TEST(ResultsView, Without_a_word_available_all_word_results_are_empty_or_0) {
  Results results = Two_Words();
  for (const int available : {0, -1}) {
    results.Platinum_Words_Available = available;
    EXPECT_EQ(Platinum_Best(results, 1), "");
    EXPECT_EQ(Platinum_Words(results, 1), "");
    EXPECT_EQ(Platinum_Word_Percentage(results, 1), 0);
  }
}

TEST(ResultsView, An_index_below_2_means_the_first_word) {
  const Results results = Two_Words();
  for (const int send : {0, 1, -1}) {
    EXPECT_EQ(Platinum_Words(results, send), "hello     ");
    EXPECT_EQ(Platinum_Word_Percentage(results, send), 55);
  }
  EXPECT_EQ(Platinum_Words(results, 2), "world     ");
  EXPECT_EQ(Platinum_Word_Percentage(results, 2), 80);
}

TEST(ResultsView, The_words_end_at_1000) {
  const Results results = Two_Words();
  EXPECT_EQ(Platinum_Words(results, 1000), "");
  EXPECT_EQ(Failure_Number([&] { Platinum_Words(results, 1001); }), 9);
  EXPECT_EQ(Failure_Number([&] { Platinum_Word_Percentage(results, 1001); }), 9);
}

TEST(ResultsView, A_font_that_is_empty_or_blank_is_MS_Sans_Serif) {
  Results results;
  EXPECT_EQ(Platinum_Word_Font(results), "MS Sans Serif");
  results.Platinum_Word_Font = "    ";
  EXPECT_EQ(Platinum_Word_Font(results), "MS Sans Serif");
  results.Platinum_Word_Font = "Arial    ";
  EXPECT_EQ(Platinum_Word_Font(results), "Arial");
}

TEST(ResultsView, The_pattern_is_element_1_whatever_the_index_is) {
  Filter filter;
  filter.Voice_Words_Explode_Count = 1;
  filter.Voice_Word_Table[1] = "fths";
  filter.Voice_Word_Table[2] = "other";
  for (const int send : {0, 1, 2, 100}) EXPECT_EQ(Voice_Word(filter, send), "fths");
}

TEST(ResultsView, The_pattern_still_checks_the_index_it_does_not_use) {
  Filter filter;
  filter.Voice_Words_Explode_Count = 1;
  EXPECT_EQ(Failure_Number([&] { Voice_Word(filter, 101); }), 9);
  EXPECT_EQ(Failure_Number([&] { Voice_Word(filter, -1); }), 9);
}

TEST(ResultsView, Without_an_exploded_word_there_is_no_pattern_and_no_check) {
  Filter filter;
  filter.Voice_Word_Table[1] = "fths";
  filter.Voice_Word_Matched_Table[1] = "fths";
  EXPECT_EQ(Voice_Word(filter, 101), "");
  EXPECT_EQ(Voice_Word_Matched(filter, 101), "");
}

TEST(ResultsView, A_matched_pattern_is_taken_at_the_index_0_included) {
  Filter filter;
  filter.Voice_Words_Explode_Count = 1;
  filter.Voice_Word_Matched_Table[0] = "zero";
  filter.Voice_Word_Matched_Table[1] = "one";
  EXPECT_EQ(Voice_Word_Matched(filter, 0), "zero");
  EXPECT_EQ(Voice_Word_Matched(filter, 1), "one");
  EXPECT_EQ(Failure_Number([&] { Voice_Word_Matched(filter, 500); }), 9);
}

TEST(ResultsView, Counts_below_1_are_0) {
  Filter filter;
  WordTables words;
  filter.Voice_Words_Explode_Count = -3;
  filter.Voice_Words_Matched_Count = -3;
  words.Current_Vyanjana_no_Processed = -3;
  words.Current_Word_no_Processed = -3;
  words.Current_DeepWord_no_Processed = -3;
  words.Current_TooDeepWord_no_Processed = -3;
  EXPECT_EQ(Voice_Words_Explode_Count(filter), 0);
  EXPECT_EQ(Voice_Words_Matched_Count(filter), 0);
  EXPECT_EQ(Current_Vyanjana_no_Processed(words), 0);
  EXPECT_EQ(Current_Word_no_Processed(words), 0);
  EXPECT_EQ(Current_DeepWord_no_Processed(words), 0);
  EXPECT_EQ(Current_TooDeepWord_no_Processed(words), 0);
  words.Current_Word_no_Processed = 4;
  EXPECT_EQ(Current_Word_no_Processed(words), 4);
}

TEST(ResultsView, Words_I_Check_always_answers_2) { EXPECT_EQ(Words_I_Check(), 2); }

TEST(ResultsView, The_trace_and_the_status_are_trimmed) {
  Filter filter;
  Flags flags;
  filter.Voice_Magic_Elements = " _3_4 ";
  flags.Operation_Status = "Finish ";
  EXPECT_EQ(Voice_Magic_Elements(filter), "_3_4");
  EXPECT_EQ(Operation_Status(flags), "Finish");
}

TEST(ResultsView, A_negative_category_is_0) {
  EXPECT_EQ(Engine_Category(-1), 0);
  EXPECT_EQ(Engine_Category(37), 37);
}

TEST(ResultsView, A_category_code_stands_from_1_to_100) {
  Filter filter;
  filter.Engine_Table[0] = "_";
  filter.Engine_Table[1] = "dbtrvgp";
  filter.Engine_Table[100] = "last";
  EXPECT_EQ(Engine_Category_Code(filter, 0), "");
  EXPECT_EQ(Engine_Category_Code(filter, 1), "dbtrvgp");
  EXPECT_EQ(Engine_Category_Code(filter, 100), "last");
  EXPECT_EQ(Engine_Category_Code(filter, 101), "");
}

TEST(ResultsView, Slots_are_answered_while_one_is_filled) {
  Filter filter;
  filter.Filter_Slot_Table[2] = "s";
  filter.Filter_Weight_Table[2] = 9;
  EXPECT_EQ(Filter_Slot_Data(filter, 2), "");
  EXPECT_EQ(Filter_Slot_Data_Weight(filter, 2), 0);
  filter.Filter_Filled_Slots = 1;
  EXPECT_EQ(Filter_Slot_Data(filter, 2), "s");
  EXPECT_EQ(Filter_Slot_Data_Weight(filter, 2), 9);
  EXPECT_EQ(Failure_Number([&] { Filter_Slot_Data(filter, 1001); }), 9);
}

TEST(ResultsView, A_time_length_is_that_of_the_current_word) {
  WordTables words;
  words.Word_Length.Resize(5);
  words.Word_Length.Put(2, 1234);
  EXPECT_EQ(Current_Word_no_Timelength(words), 0);
  words.Current_Word_no_Processed = 2;
  EXPECT_EQ(Current_Word_no_Timelength(words), 1234);
}

TEST(ResultsView, A_time_length_from_an_empty_list_fails) {
  WordTables words;
  words.Current_Word_no_Processed = 1;
  words.Current_DeepWord_no_Processed = 1;
  words.Current_TooDeepWord_no_Processed = 1;
  EXPECT_EQ(Failure_Number([&] { Current_Word_no_Timelength(words); }), 9);
  EXPECT_EQ(Failure_Number([&] { Current_DeepWord_no_Timelength(words); }), 9);
  EXPECT_EQ(Failure_Number([&] { Current_TooDeepWord_no_Timelength(words); }), 9);
}

}  // namespace
}  // namespace quillspeech::results_view
