#include "recognition/engine_filter.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/recognition/engine_filter_fixture.hpp"

namespace quillspeech {
namespace {

using tests::EngineFilter;
using tests::Words;

TEST_F(EngineFilter, The_worked_example) {
  struct Row {
    char letter;
    int weight;
    std::string slots;
    std::string word;
  };
  settings.Filter_Pass_Value = 2;
  session.words.No_of_Processings = 7;
  for (const Row& row : std::vector<Row>{{'A', 1, "", ""},
                                         {'A', 2, "", ""},
                                         {'A', 3, "", ""},
                                         {'B', 0, "A3 ", "A"},
                                         {'B', 1, "A3 ", "A"},
                                         {'B', 2, "A3 ", "A"},
                                         {'C', 0, "A3 B2 ", "AB"}}) {
    EXPECT_TRUE(matched.empty());
    Deliver(row.letter - 'A');
    EXPECT_EQ(filter.Engine_Category_Weight, row.weight);
    EXPECT_EQ(Slots(), row.slots);
    EXPECT_EQ(filter.Current_Voice_Word, row.word);
  }
  EXPECT_EQ(matched, Words{"AB"});
  EXPECT_EQ(filter.Voice_Magic_Elements, "_3_2");
  EXPECT_EQ(filter.Voice_Word_Table[1], "AB");
  EXPECT_EQ(filter.Voice_Words_Explode_Count, 1);
  EXPECT_TRUE(Failures().empty());
}

TEST_F(EngineFilter, A_stopped_session_filters_nothing) {
  settings.Stop_everything_now = "YES";
  Deliver("AAB");
  EXPECT_EQ(filter.Processings_Delivered, 0);
  EXPECT_EQ(session.flags.Operation_Status, "");
}

TEST_F(EngineFilter, A_slice_sets_the_status) {
  Deliver("A");
  EXPECT_EQ(session.flags.Operation_Status, "Processing...");
}

TEST_F(EngineFilter, A_short_stretch_keeps_its_weight_for_the_next) {
  settings.Filter_Pass_Value = 3;
  Deliver("AAB");  // too light: two A
  EXPECT_EQ(filter.Engine_Category_Weight, 2);
  EXPECT_EQ(filter.Filter_Run_Length, 3);
  Deliver("BC");  // one more B, and the run of three ends
  EXPECT_EQ(Slots(), "B3 ");
  EXPECT_EQ(filter.Engine_Category_Weight, 0);
  EXPECT_EQ(filter.Filter_Run_Length, 0);
}

TEST_F(EngineFilter, The_slice_that_ends_a_run_is_dropped_with_it) {
  settings.Filter_Pass_Value = 1;
  Deliver("AAB");
  EXPECT_EQ(filter.Filter_Run_Length, 0);
  Deliver("CCD");
  EXPECT_EQ(Slots(), "A2 C2 ");
  EXPECT_EQ(filter.Current_Voice_Word, "AC");
}

TEST_F(EngineFilter, The_code_of_a_slot_is_that_of_the_run_and_not_of_the_slice_that_ended_it) {
  Deliver("AAB");
  EXPECT_EQ(filter.Current_Engine_Code, 0);
  EXPECT_EQ(filter.Filter_Run_Codes[3], 1);
}

TEST_F(EngineFilter, The_first_slice_of_a_run_equals_itself) {
  Deliver("B");
  EXPECT_EQ(filter.Engine_Category_Weight, 1);
  EXPECT_EQ(filter.Filter_Run_Data[0], "B");
  EXPECT_EQ(filter.Filter_Run_Data[1], "B");
}

TEST_F(EngineFilter, A_word_whose_first_run_never_weighs_enough_matches_the_word_before) {
  settings.Filter_Pass_Value = 5;
  filter.Current_Voice_Word = "old";
  Deliver_Word("AABB");
  EXPECT_EQ(filter.Filter_Filled_Slots, 0);
  EXPECT_EQ(filter.Voice_Words_Explode_Count, 0);
  EXPECT_EQ(filter.Voice_Word_Table[1], "");
  EXPECT_EQ(matched, Words{"old"});
}

TEST_F(EngineFilter, With_a_pass_value_of_0_a_run_of_weight_0_survives) {
  settings.Filter_Pass_Value = 0;
  Deliver_Word("B");  // alone, it is the slice that ends the run and the run itself
  EXPECT_EQ(Slots(), "B0 ");
  EXPECT_EQ(filter.Current_Engine_Code, 1);
  EXPECT_EQ(filter.Voice_Magic_Elements, "_0");
  EXPECT_EQ(matched, Words{"B"});
}

TEST_F(EngineFilter, A_single_slice_is_first_and_last_and_weighs_nothing) {
  settings.Filter_Pass_Value = 1;
  filter.Current_Voice_Word = "old";
  Deliver_Word("A");
  EXPECT_EQ(filter.Engine_Category_Weight, 0);
  EXPECT_EQ(filter.Filter_Filled_Slots, 0);
  EXPECT_EQ(filter.Filter_Run_Length, 1);
  EXPECT_EQ(matched, Words{"old"});
}

TEST_F(EngineFilter, Neighbouring_categories_of_one_group_are_one_run_in_Filter_All) {
  filter.Engine_Table[1] = "A";
  Deliver("ABABC");
  EXPECT_EQ(Slots(), "A4 ");
}

TEST_F(EngineFilter, Neighbouring_categories_of_one_group_are_two_changes_in_Filter_Same) {
  settings.Keep_Engine_Frequency_Input_Flow = "Filter Same";
  filter.Engine_Table[2] = "B";
  Deliver("BC");
  EXPECT_EQ(filter.Current_Voice_Word, "BB");
}

TEST_F(EngineFilter, Groups_are_compared_without_their_padding) {
  filter.Engine_Table[0] = "A                   ";
  filter.Engine_Table[1] = "A";
  Deliver("ABC");
  EXPECT_EQ(Slots(), "A2 ");
}

TEST_F(EngineFilter, A_stretch_equal_to_the_slot_before_it_is_merged_into_it) {
  settings.Filter_Pass_Value = 2;
  Deliver("AAAB");            // slot 1 is A with weight 3
  Deliver("BC");              // weight 1: too light, the weight stays
  Deliver("AAB");             // one A counts on to 2: the run of A survives
  EXPECT_EQ(Slots(), "A6 ");  // 3 and 2 and 1
  EXPECT_EQ(filter.Filter_Filled_Slots, 1);
  EXPECT_EQ(filter.Engine_Category_Weight, 3);  // weight and run stay
  EXPECT_EQ(filter.Filter_Run_Length, 5);
  EXPECT_EQ(filter.Current_Voice_Word, "A");
  EXPECT_EQ(filter.Voice_Magic_Elements, "_3");
  EXPECT_TRUE(matched.empty());
}

TEST_F(EngineFilter, A_merge_on_the_last_slice_ends_the_run_and_matches) {
  settings.Filter_Pass_Value = 1;
  Deliver("AAB");
  Deliver_Word("AAB");
  EXPECT_EQ(Slots(), "A5 ");  // 2 and 2 and 1
  EXPECT_EQ(filter.Engine_Category_Weight, 0);
  EXPECT_EQ(filter.Filter_Run_Length, 0);
  EXPECT_EQ(filter.Voice_Magic_Elements, "_2_3");
  EXPECT_EQ(matched, Words{"A"});
}

TEST_F(EngineFilter, Weight_and_run_are_cleared_before_the_language_stage_runs_events) {
  int calls = 0;
  test.events.At_Yield = [&] {
    ++calls;
    EXPECT_EQ(filter.Engine_Category_Weight, 0) << calls;
    EXPECT_EQ(filter.Filter_Run_Length, 0) << calls;
  };
  Deliver_Word("AAB");  // a new stretch
  EXPECT_EQ(calls, 1);
  Deliver_Word("AAB");  // a merge
  EXPECT_EQ(calls, 2);
}

TEST_F(EngineFilter, The_first_run_merges_only_when_its_group_is_empty) {
  filter.Engine_Table[0] = "";
  Deliver("AAB");
  EXPECT_EQ(filter.Filter_Filled_Slots, 0);
  EXPECT_EQ(filter.Filter_Weight_Table[0], 3);
  EXPECT_EQ(filter.Filter_Slot_Table[0], "");
  EXPECT_EQ(filter.Voice_Words_Explode_Count, 0);
}

TEST_F(EngineFilter, An_unknown_mode_behaves_as_Filter_All) {
  for (const std::string mode : {"Filter All", "", "pass all", "Pass All ", "filter same"}) {
    Reset_Filter_For_Live(filter, session.results);
    settings.Keep_Engine_Frequency_Input_Flow = mode;
    Deliver("AAB");
    EXPECT_EQ(Slots(), "A2 ") << mode;
    EXPECT_EQ(filter.Processings_Delivered, 3) << mode;
  }
}

TEST_F(EngineFilter, Pass_All_strings_every_slice_and_traces_its_code) {
  settings.Keep_Engine_Frequency_Input_Flow = "Pass All";
  session.words.No_of_Processings = 4;
  Deliver("ABBC");
  EXPECT_EQ(filter.Current_Voice_Word, "ABBC");
  EXPECT_EQ(filter.Voice_Word_Table[1], "ABBC");
  EXPECT_EQ(filter.Voice_Word_Previous_Table[1], "ABB");
  EXPECT_EQ(filter.Voice_Magic_Elements, "_0_1_1_2");
  EXPECT_EQ(filter.Processings_Delivered, 0);
  EXPECT_EQ(filter.Filter_Run_Length, 0);
  EXPECT_TRUE(matched.empty());
}

TEST_F(EngineFilter, Pass_All_and_Filter_Same_match_when_0_deliveries_equal_0_processings) {
  for (const std::string mode : {"Pass All", "Filter Same"}) {
    matched.clear();
    Reset_Filter_For_Live(filter, session.results);
    settings.Keep_Engine_Frequency_Input_Flow = mode;
    session.words.No_of_Processings = 0;
    Deliver("BC");
    EXPECT_EQ(matched, (Words{"B", "BC"})) << mode;
  }
}

TEST_F(EngineFilter, Filter_Same_drops_repeats_and_traces_their_number) {
  settings.Keep_Engine_Frequency_Input_Flow = "Filter Same";
  session.words.No_of_Processings = 6;
  Deliver("BBBCCB");
  EXPECT_EQ(filter.Current_Voice_Word, "BCB");
  EXPECT_EQ(filter.Voice_Magic_Elements, "(0)_1(2)_2(1)_1");
  EXPECT_EQ(filter.Filter_Filled_Slots, 0);
  EXPECT_EQ(filter.Previous_Engine_Category, 1);
  EXPECT_EQ(filter.Processings_Delivered, 0);
  EXPECT_TRUE(matched.empty());
}

TEST_F(EngineFilter, Filter_Same_takes_category_0_after_a_reset_for_a_repeat) {
  settings.Keep_Engine_Frequency_Input_Flow = "Filter Same";
  Deliver("AA");
  EXPECT_EQ(filter.Filter_Filled_Slots, 2);
  EXPECT_EQ(filter.Voice_Words_Explode_Count, 0);
  EXPECT_EQ(filter.Voice_Magic_Elements, "");
}

TEST_F(EngineFilter, Slots_are_overwritten_by_the_next_sample) {
  Deliver("AABCCD");
  Reset_Filter_For_Live(filter, session.results);
  Deliver("EEF");
  EXPECT_EQ(Slots(), "E2 ");
  EXPECT_EQ(filter.Filter_Slot_Table[2], "C");
}

TEST_F(EngineFilter, The_language_stage_is_reached_only_with_artificial_intelligence) {
  for (const std::string choice : {"NO", "", "yes"}) {
    settings.Enable_Artificial_Intelligence = choice;
    Deliver_Word("AAB");  // a new stretch
    Deliver_Word("AAB");  // a merge
    settings.Filter_Pass_Value = 9;
    Deliver_Word("CCD");  // too light
    settings.Filter_Pass_Value = 1;
  }
  EXPECT_TRUE(matched.empty());
}

TEST_F(EngineFilter, The_last_slice_is_told_by_the_totals_of_the_whole_sample) {
  session.words.No_of_Processings = 3;
  Deliver("AAB");
  EXPECT_EQ(matched.size(), 1U);
  session.words.No_of_Processings = 3;  // the second word has three slices too
  Deliver("CCD");
  EXPECT_EQ(filter.Processings_Delivered, 6);
  EXPECT_EQ(matched.size(), 1U);
}

TEST_F(EngineFilter, The_trace_goes_on_growing_from_word_to_word) {
  filter.Voice_Magic_Elements = "_9";
  Deliver("AAB");
  EXPECT_EQ(filter.Voice_Magic_Elements, "_9_2");
}

}  // namespace
}  // namespace quillspeech
