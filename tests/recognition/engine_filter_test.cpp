#include "recognition/engine_filter.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/record_builder.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech {
namespace {

// Categories 0 to 6 stand for the letters A to G. Every call of the language stage yields once, so
// the yields tell of its calls; its file is empty and it finds nothing.
struct EngineFilter : testing::Test {
  tests::TestSession test;
  Session& session = test.session;
  Filter& filter = session.filter;
  Settings& settings = session.settings;
  std::vector<std::string> matched;  // Current_Voice_Word at each call of the language stage
  int recoveries = 0;

  EngineFilter() {
    tests::Set_Engine_Letters(filter, "ABCDEFG");
    settings.Words_to_Scan_Start = 1;
    test.events.At_Yield = [this] { matched.push_back(filter.Current_Voice_Word); };
    session.operations.Stop_And_Recover = [this](Session&) { ++recoveries; };
  }

  void Deliver(int category) {
    session.slice.Engine_Category = category;
    Run_Engine_Filter(session);
  }
  void Deliver(std::string_view letters) {
    for (const char letter : letters) Deliver(letter - 'A');
  }
  // The slices of one word.
  void Deliver_Word(std::string_view letters) {
    session.words.No_of_Processings = filter.Processings_Delivered + std::ssize(letters);
    Deliver(letters);
  }
  std::string Slots() const {
    std::string slots;
    for (std::int64_t n = 1; n <= filter.Filter_Filled_Slots; ++n) {
      slots += filter.Filter_Slot_Table[n] + std::to_string(filter.Filter_Weight_Table[n]) + " ";
    }
    return slots;
  }
  std::vector<int>& Failures() { return session.trace.failures; }
};

using Words = std::vector<std::string>;

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

TEST_F(EngineFilter, A_repeat_counter_above_32767_is_an_overflow) {
  settings.Keep_Engine_Frequency_Input_Flow = "Filter Same";
  filter.Filter_Filled_Slots = 32766;
  Deliver("A");
  EXPECT_TRUE(Failures().empty());
  Deliver("A");
  EXPECT_EQ(Failures(), std::vector<int>{6});
  EXPECT_EQ(recoveries, 1);
}

TEST_F(EngineFilter, A_run_that_weighs_more_than_32767_is_an_overflow) {
  Deliver("A");
  filter.Engine_Category_Weight = 32767;
  Deliver("A");
  EXPECT_EQ(Failures(), std::vector<int>{6});
  EXPECT_EQ(filter.Engine_Category_Weight, 32767);
  EXPECT_EQ(filter.Filter_Run_Length, 2);
}

TEST_F(EngineFilter, A_merge_that_weighs_more_than_32767_keeps_the_slot_that_it_counted) {
  struct Case {
    int run;
    int slot;
    int run_after;
  };
  for (const Case c : {Case{32767, 2, 32767},  // the run by itself
                       {2, 32765, 3},          // the run and the slot
                       {32766, 1, 32767}}) {
    Reset_Filter_For_Live(filter, session.results);
    Failures().clear();
    Deliver("AAB");
    Deliver("A");
    filter.Engine_Category_Weight = c.run;
    filter.Filter_Weight_Table[1] = c.slot;
    Deliver("B");
    EXPECT_EQ(Failures(), std::vector<int>{6}) << c.run;
    EXPECT_EQ(filter.Filter_Filled_Slots, 2) << c.run;
    EXPECT_EQ(filter.Engine_Category_Weight, c.run_after);
    EXPECT_EQ(filter.Filter_Weight_Table[1], c.slot);
  }
  EXPECT_EQ(recoveries, 3);
}

TEST_F(EngineFilter, A_merge_may_weigh_32767) {
  Deliver("AABA");
  filter.Engine_Category_Weight = 2;
  filter.Filter_Weight_Table[1] = 32764;
  Deliver("B");
  EXPECT_TRUE(Failures().empty());
  EXPECT_EQ(Slots(), "A32767 ");
}

TEST_F(EngineFilter, Full_slots_show_the_message_at_every_surviving_run) {
  filter.Filter_Filled_Slots = 998;
  Deliver("AAB");
  EXPECT_TRUE(test.boxes.shown.empty());
  EXPECT_EQ(filter.Filter_Filled_Slots, 999);
  EXPECT_EQ(filter.Filter_Slot_Table[999], "A");
  Deliver("CCD");
  ASSERT_EQ(test.boxes.shown.size(), 1U);
  const MessageBox& box = test.boxes.shown[0].box;
  EXPECT_EQ(box.text, "Please use  a  higher 'Category Pass Threshold'");
  EXPECT_EQ(box.title, "Quillspeech Engine Filter");
  EXPECT_EQ(box.buttons, BoxButtons::OK);
  EXPECT_EQ(box.icon, BoxIcon::None);
  EXPECT_EQ(filter.Filter_Filled_Slots, 1000);  // not taken back
  EXPECT_EQ(filter.Engine_Category_Weight, 2);
  EXPECT_EQ(filter.Current_Voice_Word, "A");
  Deliver("E");
  EXPECT_EQ(test.boxes.shown.size(), 2U);
  EXPECT_EQ(filter.Filter_Filled_Slots, 1001);
  EXPECT_TRUE(matched.empty());
}

TEST_F(EngineFilter, Full_slots_on_the_last_slice_still_match) {
  filter.Filter_Filled_Slots = 999;
  filter.Current_Voice_Word = "so far";
  Deliver_Word("AAB");
  EXPECT_EQ(test.boxes.shown.size(), 1U);
  EXPECT_EQ(matched, Words{"so far"});
}

TEST_F(EngineFilter, Full_slots_on_the_last_slice_do_not_match_without_artificial_intelligence) {
  settings.Enable_Artificial_Intelligence = "NO";
  filter.Filter_Filled_Slots = 999;
  Deliver_Word("AAB");
  EXPECT_EQ(test.boxes.shown.size(), 1U);
  EXPECT_TRUE(matched.empty());
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

TEST_F(EngineFilter, Each_wanted_pattern_that_fits_counts_the_word_and_matches) {
  settings.Words_I_Want[1] = "*";
  settings.Words_I_Want[2] = "B*";
  settings.Words_I_Want[3] = "A*";
  settings.Words_to_Scan = 3;
  Deliver_Word("AAB");
  EXPECT_EQ(filter.Voice_Words_Matched_Count, 2);
  EXPECT_EQ(filter.Voice_Word_Matched_Table[1], "A");
  EXPECT_EQ(filter.Voice_Word_Matched_Table[2], "A");
  EXPECT_EQ(matched, (Words{"A", "A"}));
}

TEST_F(EngineFilter, Each_wanted_pattern_that_fits_enters_the_words_of_the_language_again) {
  tests::Put_Language_File(test.data_files, "UserTemp.SAY",
                           {tests::Record().Word("hello").Pattern("A")});
  settings.Words_I_Want[1] = "*";
  settings.Words_I_Want[2] = "B*";
  settings.Words_I_Want[3] = "A*";
  settings.Words_to_Scan = 3;
  Deliver_Word("AAB");
  EXPECT_EQ(session.results.Platinum_Words_Available, 2);
  EXPECT_EQ(session.results.Platinum_Best_Table[1], "hello");
  EXPECT_EQ(session.results.Platinum_Best_Table[2], "hello");
  EXPECT_EQ(session.results.Platinum_Best_Table[3], "");
}

TEST_F(EngineFilter, A_new_stretch_that_no_wanted_pattern_fits_is_not_matched) {
  settings.Words_I_Want[1] = "B*";
  Deliver_Word("AAB");
  EXPECT_EQ(filter.Current_Voice_Word, "A");
  EXPECT_EQ(filter.Voice_Words_Matched_Count, 0);
  EXPECT_TRUE(matched.empty());
}

TEST_F(EngineFilter, The_word_scan_starts_at_entry_0_until_the_last_entry_was_set) {
  settings.Words_to_Scan_Start = 0;
  settings.Words_I_Want[0] = "A";
  Deliver("AAB");
  EXPECT_EQ(filter.Voice_Words_Matched_Count, 2);  // entries 0 and 1
}

TEST_F(EngineFilter, A_wanted_pattern_is_taken_with_its_blanks) {
  settings.Words_I_Want[1] = "A ";
  Deliver("AAB");
  EXPECT_EQ(filter.Voice_Words_Matched_Count, 0);
}

TEST_F(EngineFilter, The_matched_count_is_that_of_the_last_string) {
  settings.Words_I_Want[1] = "A";
  Deliver("AAB");
  EXPECT_EQ(filter.Voice_Words_Matched_Count, 1);
  Deliver("CCD");
  EXPECT_EQ(filter.Current_Voice_Word, "AC");
  EXPECT_EQ(filter.Voice_Words_Matched_Count, 0);
}

TEST_F(EngineFilter, No_entry_is_barred_from_the_word_scan_in_the_end) {
  tests::Put_Language_File(test.data_files, "UserTemp.SAY",
                           {tests::Record().Word("a").Pattern("A")});
  session.words.Word_Count_Log[0] = 1;
  Deliver_Word("AAB");
  EXPECT_EQ(session.results.Language_Matched, 1);
  EXPECT_EQ(filter.Word_Check_Flags[1], 0);
}

TEST_F(EngineFilter, A_set_flag_bars_its_entry) {
  filter.Word_Check_Flags[1] = 1;
  Deliver_Word("AAB");
  EXPECT_EQ(filter.Voice_Words_Matched_Count, 0);
  EXPECT_EQ(filter.Word_Check_Flags[1], 1);
  EXPECT_TRUE(matched.empty());
}

TEST_F(EngineFilter, The_word_scan_clears_an_old_match_before_it_goes_on) {
  session.results.Language_Matched = 1;
  Deliver("AAB");
  EXPECT_EQ(session.results.Language_Matched, 0);
}

TEST_F(EngineFilter, Any_other_explode_setting_grows_the_string_and_counts_nothing) {
  for (const std::string setting : {"", "yes", "No", "YES "}) {
    matched.clear();
    Reset_Filter_For_Live(filter, session.results);
    settings.Explode_out_all_Engine = setting;
    Deliver("AAB");
    Deliver_Word("CCD");  // a new stretch on the last slice
    EXPECT_EQ(filter.Current_Voice_Word, "AC") << setting;
    EXPECT_EQ(filter.Voice_Words_Matched_Count, 0) << setting;
    EXPECT_TRUE(matched.empty()) << setting;
    Deliver_Word("CCD");  // a merge
    EXPECT_EQ(matched, Words{"AC"}) << setting;
  }
}

TEST_F(EngineFilter, Any_other_explode_setting_still_matches_a_light_run_full_slots_and_a_merge) {
  settings.Explode_out_all_Engine = "OFF";
  filter.Current_Voice_Word = "so far";
  Deliver("AAB");  // slot 1
  settings.Filter_Pass_Value = 9;
  Deliver_Word("CCD");
  EXPECT_EQ(matched, Words{"A"}) << "a light run";
  settings.Filter_Pass_Value = 1;
  filter.Filter_Run_Length = 0;
  Deliver_Word("AAB");
  EXPECT_EQ(matched, (Words{"A", "A"})) << "a merge";
  filter.Filter_Filled_Slots = 999;
  Deliver_Word("CCD");
  EXPECT_EQ(matched, (Words{"A", "A", "A"})) << "full slots";
  EXPECT_EQ(test.boxes.shown.size(), 1U);
  EXPECT_EQ(filter.Voice_Words_Matched_Count, 0);
}

TEST_F(EngineFilter, YES_and_NO_both_keep_the_word_scan_on) {
  for (const std::string setting : {"YES", "NO"}) {
    Reset_Filter_For_Live(filter, session.results);
    settings.Explode_out_all_Engine = setting;
    Deliver("AAB");
    EXPECT_EQ(filter.Voice_Words_Matched_Count, 1) << setting;
  }
}

TEST_F(EngineFilter, The_explode_limit_changes_nothing) {
  for (const int limit : {0, 1, -5, 1'000'000}) {
    Reset_Filter_For_Live(filter, session.results);
    settings.Engine_Explode_Limit = limit;
    Deliver("AABCCD");
    EXPECT_EQ(filter.Current_Voice_Word, "AC") << limit;
    EXPECT_EQ(filter.Voice_Words_Explode_Count, 1) << limit;
  }
}

TEST_F(EngineFilter, An_empty_group_adds_nothing_to_the_string) {
  filter.Engine_Table[2] = "     ";
  Deliver("AABCCD");
  EXPECT_EQ(filter.Current_Voice_Word, "A");
  EXPECT_EQ(Slots(), "A2 2 ");
}

TEST_F(EngineFilter, A_category_that_is_no_byte_is_an_overflow_in_every_mode) {
  for (const std::string mode : {"Pass All", "Filter Same", "Filter All"}) {
    for (const int category : {256, -1, 1200}) {
      Failures().clear();
      settings.Keep_Engine_Frequency_Input_Flow = mode;
      Deliver(category);
      EXPECT_EQ(Failures(), std::vector<int>{6}) << mode << ' ' << category;
    }
  }
  EXPECT_EQ(filter.Processings_Delivered, 0);
  EXPECT_EQ(recoveries, 9);
}

TEST_F(EngineFilter, A_code_above_100_fails_the_engine_table) {
  for (const std::string mode : {"Pass All", "Filter Same", "Filter All"}) {
    for (const int category : {101, 255}) {
      Failures().clear();
      settings.Keep_Engine_Frequency_Input_Flow = mode;
      Deliver(category);
      EXPECT_EQ(Failures(), std::vector<int>{9}) << mode << ' ' << category;
    }
  }
  Failures().clear();
  filter.Engine_Table[100] = "Z";
  Deliver(100);
  EXPECT_TRUE(Failures().empty());
}

TEST_F(EngineFilter, A_code_above_100_fails_in_the_explode_step_of_Pass_All) {
  settings.Keep_Engine_Frequency_Input_Flow = "Pass All";
  Deliver("AB");
  Deliver(101);
  EXPECT_EQ(filter.Current_Engine_Code, 101);
  EXPECT_EQ(filter.Voice_Magic_Elements, "_0_1_101");
  EXPECT_EQ(filter.Voice_Word_Previous_Table[1], "AB");
  EXPECT_EQ(filter.Voice_Word_Table[1], "AB");
  EXPECT_EQ(filter.Current_Voice_Word, "AB");
  EXPECT_EQ(filter.Voice_Words_Explode_Count, 0);
  EXPECT_EQ(filter.Voice_Words_Matched_Count, 0);
}

TEST_F(EngineFilter, A_code_above_100_fails_in_the_explode_step_of_Filter_Same) {
  settings.Keep_Engine_Frequency_Input_Flow = "Filter Same";
  Deliver("BB");
  Deliver(101);
  EXPECT_EQ(filter.Current_Engine_Code, 101);
  EXPECT_EQ(filter.Previous_Engine_Category, 101);
  EXPECT_EQ(filter.Filter_Filled_Slots, 0);
  EXPECT_EQ(filter.Voice_Magic_Elements, "(0)_1(1)_101");
  EXPECT_EQ(filter.Current_Voice_Word, "B");
  EXPECT_EQ(filter.Voice_Words_Explode_Count, 0);
  EXPECT_EQ(filter.Voice_Words_Matched_Count, 0);
}

TEST_F(EngineFilter, A_run_of_more_than_1000_slices_fails) {
  settings.Filter_Pass_Value = 2000;
  for (int i = 0; i < 1000; ++i) Deliver("A");
  EXPECT_TRUE(Failures().empty());
  Deliver("A");
  EXPECT_EQ(Failures(), std::vector<int>{9});
  EXPECT_EQ(filter.Filter_Run_Length, 1001);
}

TEST_F(EngineFilter, More_than_100_matched_strings_fail) {
  settings.Words_to_Scan_Start = 0;
  settings.Words_to_Scan = 100;
  for (int j = 0; j <= 100; ++j) settings.Words_I_Want[j] = "*";
  Deliver("AAB");  // 101 entries fit
  EXPECT_EQ(Failures(), std::vector<int>{9});
  EXPECT_EQ(filter.Voice_Words_Matched_Count, 101);
  EXPECT_EQ(filter.Voice_Word_Matched_Table[100], "A");
}

TEST_F(EngineFilter, A_word_scan_beyond_entry_100_fails) {
  settings.Words_to_Scan = 101;
  Deliver("AAB");
  EXPECT_EQ(Failures(), std::vector<int>{9});
}

TEST_F(EngineFilter, A_bad_wanted_pattern_is_failure_93) {
  settings.Words_I_Want[1] = "[";
  Deliver("AAB");
  EXPECT_EQ(Failures(), std::vector<int>{93});
  EXPECT_EQ(recoveries, 1);
}

TEST_F(EngineFilter, The_trace_goes_on_growing_from_word_to_word) {
  filter.Voice_Magic_Elements = "_9";
  Deliver("AAB");
  EXPECT_EQ(filter.Voice_Magic_Elements, "_9_2");
}

void Spoil(Filter& filter, Results& results) {
  filter.Voice_Words_Explode_Count = 1;
  filter.Voice_Words_Matched_Count = 2;
  filter.Previous_Engine_Category = 3;
  filter.Filter_Run_Length = 4;
  filter.Engine_Category_Weight = 5;
  filter.Processings_Delivered = 6;
  filter.Filter_Filled_Slots = 7;
  filter.Current_Engine_Code = 8;
  filter.Current_Voice_Word = "word";
  filter.Voice_Magic_Elements = "_1";
  filter.Voice_Word_Table.Fill("a");
  filter.Voice_Word_Previous_Table.Fill("b");
  filter.Voice_Word_Matched_Table.Fill("c");
  filter.Word_Check_Flags.Fill(1);
  filter.Filter_Run_Data.Fill("d");
  filter.Filter_Run_Codes.Fill(9);
  filter.Filter_Slot_Table.Fill("e");
  filter.Filter_Weight_Table.Fill(10);
  results.Language_Matched = 1;
}

void Expect_Run_Is_Reset(const Filter& filter, const Results& results) {
  EXPECT_EQ(filter.Voice_Words_Explode_Count, 0);
  EXPECT_EQ(filter.Voice_Words_Matched_Count, 0);
  EXPECT_EQ(filter.Previous_Engine_Category, 0);
  EXPECT_EQ(filter.Filter_Run_Length, 0);
  EXPECT_EQ(filter.Engine_Category_Weight, 0);
  EXPECT_EQ(results.Language_Matched, 0);
  for (const int i : {0, 1, 100}) {
    EXPECT_EQ(filter.Voice_Word_Table[i], "");
    EXPECT_EQ(filter.Voice_Word_Previous_Table[i], "");
    EXPECT_EQ(filter.Voice_Word_Matched_Table[i], "");
    EXPECT_EQ(filter.Word_Check_Flags[i], 0);
  }
  for (const int i : {0, 1, 1000}) {
    EXPECT_EQ(filter.Filter_Run_Data[i], "");
    EXPECT_EQ(filter.Filter_Run_Codes[i], 0);
    EXPECT_EQ(filter.Filter_Slot_Table[i], "e");
    EXPECT_EQ(filter.Filter_Weight_Table[i], 10);
  }
  EXPECT_EQ(filter.Current_Voice_Word, "word");
  EXPECT_EQ(filter.Current_Engine_Code, 8);
  EXPECT_EQ(filter.Voice_Magic_Elements, "_1");
}

TEST_F(EngineFilter, The_head_of_a_live_sample_resets_the_run_and_the_counts) {
  Spoil(filter, session.results);
  Reset_Filter_For_Live(filter, session.results);
  Expect_Run_Is_Reset(filter, session.results);
  EXPECT_EQ(filter.Processings_Delivered, 0);
  EXPECT_EQ(filter.Filter_Filled_Slots, 0);
}

TEST_F(EngineFilter, The_head_of_a_file_run_leaves_the_slices_delivered_and_the_filled_slots) {
  Spoil(filter, session.results);
  Reset_Filter_For_File(filter, session.results);
  Expect_Run_Is_Reset(filter, session.results);
  EXPECT_EQ(filter.Processings_Delivered, 6);
  EXPECT_EQ(filter.Filter_Filled_Slots, 7);
}

}  // namespace
}  // namespace quillspeech
