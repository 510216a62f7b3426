#include "core/results_view.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "core/settings_table.hpp"
#include "tests/support/failures.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech::results_view {
namespace {

using tests::Failure_Of;

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
  for (const std::int64_t send :
       {std::int64_t{0}, std::int64_t{1}, std::int64_t{-1}, std::int64_t{INT32_MIN}}) {
    EXPECT_EQ(Platinum_Words(results, send), "hello     ");
    EXPECT_EQ(Platinum_Word_Percentage(results, send), 55);
  }
  EXPECT_EQ(Platinum_Words(results, 2), "world     ");
  EXPECT_EQ(Platinum_Word_Percentage(results, 2), 80);
}

TEST(ResultsView, The_words_end_at_1000) {
  Results results = Two_Words();
  results.Platinum_Word_Table[1000] = "last";
  results.Platinum_Score_Table[1000] = 3;
  EXPECT_EQ(Platinum_Words(results, 1000), "last");
  EXPECT_EQ(Platinum_Word_Percentage(results, 1000), 3);
  EXPECT_EQ(Failure_Of([&] { Platinum_Words(results, 1001); }), 9);
  EXPECT_EQ(Failure_Of([&] { Platinum_Word_Percentage(results, 1001); }), 9);
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
  EXPECT_EQ(Failure_Of([&] { Voice_Word(filter, 101); }), 9);
  EXPECT_EQ(Failure_Of([&] { Voice_Word(filter, -1); }), 9);
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
  filter.Voice_Word_Matched_Table[100] = "last";
  EXPECT_EQ(Voice_Word_Matched(filter, 100), "last");
  for (const int send : {-1, 101, 500}) {
    EXPECT_EQ(Failure_Of([&] { Voice_Word_Matched(filter, send); }), 9) << send;
  }
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

TEST(ResultsView, Words_I_Check_answers_2_for_every_index_while_no_word_is_checked) {
  Filter filter;
  filter.Word_Check_Flags.Fill(1);
  for (const int checked : {0, -1}) {
    filter.Words_Checked = checked;
    for (const int send : {-1, 0, 100, 101, 500}) EXPECT_EQ(Words_I_Check(filter, send), 2);
  }
}

TEST(ResultsView, Words_I_Check_is_the_flag_of_the_word_once_one_is_checked) {
  Filter filter;
  filter.Words_Checked = 1;
  filter.Word_Check_Flags[0] = 255;
  filter.Word_Check_Flags[100] = 1;
  EXPECT_EQ(Words_I_Check(filter, 0), 255);
  EXPECT_EQ(Words_I_Check(filter, 1), 0);
  EXPECT_EQ(Words_I_Check(filter, 100), 1);
  for (const int send : {-1, 101, 500}) {
    EXPECT_EQ(Failure_Of([&] { Words_I_Check(filter, send); }), 9) << send;
  }
}

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
}

TEST(ResultsView, The_slots_reach_from_0_to_1000) {
  Filter filter;
  filter.Filter_Filled_Slots = 1;
  filter.Filter_Slot_Table[0] = "zero";
  filter.Filter_Weight_Table[0] = 4;
  filter.Filter_Slot_Table[1000] = "last";
  filter.Filter_Weight_Table[1000] = 5;
  EXPECT_EQ(Filter_Slot_Data(filter, 0), "zero");
  EXPECT_EQ(Filter_Slot_Data_Weight(filter, 0), 4);
  EXPECT_EQ(Filter_Slot_Data(filter, 1000), "last");
  EXPECT_EQ(Filter_Slot_Data_Weight(filter, 1000), 5);
  for (const int send : {-1, 1001}) {
    EXPECT_EQ(Failure_Of([&] { Filter_Slot_Data(filter, send); }), 9) << send;
    EXPECT_EQ(Failure_Of([&] { Filter_Slot_Data_Weight(filter, send); }), 9) << send;
  }
}

TEST(ResultsView, A_negative_count_is_none) {
  Filter filter;
  filter.Voice_Words_Explode_Count = -1;
  filter.Filter_Filled_Slots = -1;
  filter.Voice_Word_Table[1] = "a";
  filter.Voice_Word_Matched_Table[1] = "b";
  filter.Filter_Slot_Table[1] = "c";
  filter.Filter_Weight_Table[1] = 4;
  EXPECT_EQ(Voice_Word(filter, 1), "");
  EXPECT_EQ(Voice_Word_Matched(filter, 1), "");
  EXPECT_EQ(Filter_Slot_Data(filter, 1), "");
  EXPECT_EQ(Filter_Slot_Data_Weight(filter, 1), 0);
  WordTables words;
  words.Current_Word_no_Processed = -1;
  words.Current_DeepWord_no_Processed = -1;
  words.Current_TooDeepWord_no_Processed = -1;
  EXPECT_EQ(Current_Word_no_Timelength(words), 0);
  EXPECT_EQ(Current_DeepWord_no_Timelength(words), 0);
  EXPECT_EQ(Current_TooDeepWord_no_Timelength(words), 0);
}

TEST(ResultsView, A_time_length_is_that_of_the_current_word) {
  WordTables words;
  words.Word_Length.Resize(5);
  words.Word_Length.Put(2, 1234);
  EXPECT_EQ(Current_Word_no_Timelength(words), 0);
  words.Current_Word_no_Processed = 2;
  EXPECT_EQ(Current_Word_no_Timelength(words), 1234);
}

TEST(ResultsView, A_time_length_of_a_deep_or_too_deep_word_comes_from_the_list_of_its_own) {
  WordTables words;
  words.Word_Length.Resize(5);
  words.Deep_Word_Length.Resize(5);
  words.Too_Deep_Word_Length.Resize(5);
  for (int number = 0; number <= 5; ++number) {
    words.Word_Length.Put(number, 1000 + number);
    words.Deep_Word_Length.Put(number, 2000 + number);
    words.Too_Deep_Word_Length.Put(number, 3000 + number);
  }
  EXPECT_EQ(Current_DeepWord_no_Timelength(words), 0);
  EXPECT_EQ(Current_TooDeepWord_no_Timelength(words), 0);
  words.Current_Word_no_Processed = 1;
  words.Current_DeepWord_no_Processed = 2;
  words.Current_TooDeepWord_no_Processed = 5;
  EXPECT_EQ(Current_Word_no_Timelength(words), 1001);
  EXPECT_EQ(Current_DeepWord_no_Timelength(words), 2002);
  EXPECT_EQ(Current_TooDeepWord_no_Timelength(words), 3005);
  words.Current_DeepWord_no_Processed = 6;
  words.Current_TooDeepWord_no_Processed = 6;
  EXPECT_EQ(Failure_Of([&] { Current_DeepWord_no_Timelength(words); }), 9);
  EXPECT_EQ(Failure_Of([&] { Current_TooDeepWord_no_Timelength(words); }), 9);
}

TEST(ResultsView, A_time_length_from_an_empty_list_fails) {
  WordTables words;
  words.Current_Word_no_Processed = 1;
  words.Current_DeepWord_no_Processed = 1;
  words.Current_TooDeepWord_no_Processed = 1;
  EXPECT_EQ(Failure_Of([&] { Current_Word_no_Timelength(words); }), 9);
  EXPECT_EQ(Failure_Of([&] { Current_DeepWord_no_Timelength(words); }), 9);
  EXPECT_EQ(Failure_Of([&] { Current_TooDeepWord_no_Timelength(words); }), 9);
}

// Behind every name a value that no other name has.

void Fill_Words(Results& results) {
  const std::vector<std::string> places = {"first", "second", "third",  "fourth",
                                           "fifth", "sixth",  "seventh"};
  for (std::size_t i = 0; i < places.size(); ++i) {
    results.Platinum_Best_Table[static_cast<std::int64_t>(i) + 1] = places[i];
  }
  results.Platinum_Words_Available = 11;
  results.Platinum_Word_Table[3] = "word";
  results.Platinum_Score_Table[3] = 12;
  results.Platinum_Word_Font = "Arial";
}

void Fill_Patterns(Filter& filter) {
  filter.Voice_Word_Table[1] = "heard";
  filter.Voice_Word_Matched_Table[3] = "matched";
  filter.Voice_Words_Explode_Count = 13;
  filter.Voice_Words_Matched_Count = 14;
  filter.Voice_Magic_Elements = "_4";
  filter.Engine_Table[15] = "group";
  filter.Engine_Category_Weight = 16;
  filter.Filter_Filled_Slots = 17;
  filter.Filter_Slot_Table[3] = "slot";
  filter.Filter_Weight_Table[3] = 18;
}

void Fill_Counters(WordTables& words) {
  words.Probable_no_of_words_recognized = 19;
  words.Current_Processings_Available = 20;
  words.No_of_Processings = 21;
  words.Current_Vyanjana_no_Processed = 22;
  words.Current_Word_no_Processed = 23;
  words.Current_DeepWord_no_Processed = 24;
  words.Current_TooDeepWord_no_Processed = 25;
  for (auto* lengths : {&words.Word_Length, &words.Deep_Word_Length, &words.Too_Deep_Word_Length}) {
    lengths->Resize(25);
  }
  words.Word_Length.Put(23, 26);
  words.Deep_Word_Length.Put(24, 27);
  words.Too_Deep_Word_Length.Put(25, 28);
}

using Answers = std::vector<std::pair<std::string, std::string>>;

const Answers Distinct_Answers = {{"Platinum_Word_Best", "first"},
                                  {"Platinum_Word_Second_Best", "second"},
                                  {"Platinum_Word_Third_Best", "third"},
                                  {"Platinum_Word_Fourth_Best", "fourth"},
                                  {"Platinum_Word_Fifth_Best", "fifth"},
                                  {"Platinum_Word_Sixth_Best", "sixth"},
                                  {"Platinum_Word_Seventh_Best", "seventh"},
                                  {"Platinum_Words", "word"},
                                  {"Platinum_Word_Percentage", "12"},
                                  {"Platinum_Words_Available", "11"},
                                  {"Platinum_Word_Font", "Arial"},
                                  {"Voice_Word", "heard"},
                                  {"Voice_Word_Matched", "matched"},
                                  {"Voice_Words_Explode_Count", "13"},
                                  {"Voice_Words_Matched_Count", "14"},
                                  {"Voice_Magic_Elements", "_4"},
                                  {"Operation_Status", "Finish"},
                                  {"Words_I_Check", "2"},
                                  {"Engine_Category", "15"},
                                  {"Engine_Category_Weight", "16"},
                                  {"Engine_Category_Code", "group"},
                                  {"Filter_Filled_Slots", "17"},
                                  {"Filter_Slot_Data", "slot"},
                                  {"Filter_Slot_Data_Weight", "18"},
                                  {"Probable_no_of_words_recognized", "19"},
                                  {"Current_Processings_Available", "20"},
                                  {"No_of_Processings", "21"},
                                  {"Current_Vyanjana_no_Processed", "22"},
                                  {"Current_Word_no_Processed", "23"},
                                  {"Current_DeepWord_no_Processed", "24"},
                                  {"Current_TooDeepWord_no_Processed", "25"},
                                  {"Current_Word_no_Timelength", "26"},
                                  {"Current_DeepWord_no_Timelength", "27"},
                                  {"Current_TooDeepWord_no_Timelength", "28"},
                                  {"Audio_Data", "0"}};

TEST(ResultMembers, Each_of_the_35_names_answers_its_own_result_and_no_other) {
  tests::TestSession test;
  test.session.settings.Send_of_no = 3;
  test.session.flags.Operation_Status = "Finish";
  test.session.slice.Engine_Category = 15;
  Fill_Words(test.session.results);
  Fill_Patterns(test.session.filter);
  Fill_Counters(test.session.words);
  for (const auto& [name, answer] : Distinct_Answers) {
    EXPECT_EQ(Get_Setting(test.session, name), answer) << name;
  }
}

TEST(ResultMembers, There_are_35_and_each_has_a_distinct_answer_above) {
  std::set<std::string> names;
  std::set<std::string> answers;
  for (const auto& [name, answer] : Distinct_Answers) {
    names.insert(name);
    answers.insert(answer);
  }
  EXPECT_EQ(answers.size(), 35U);
  std::set<std::string> members;
  for (const Member& member : Member_Table()) {
    if (member.access == Access::Let && !member.let) members.emplace(member.name);
  }
  EXPECT_EQ(members, names);
  EXPECT_EQ(members.size(), 35U);
}

}  // namespace
}  // namespace quillspeech::results_view
