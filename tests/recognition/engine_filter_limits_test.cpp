#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/recognition/engine_filter_fixture.hpp"

namespace quillspeech {
namespace {

using tests::EngineFilter;
using tests::Words;

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

TEST_F(EngineFilter, A_count_of_full_slots_above_32767_is_an_overflow_without_a_message) {
  filter.Filter_Filled_Slots = 32766;
  Deliver("AAB");
  EXPECT_EQ(test.boxes.shown.size(), 1U);
  EXPECT_EQ(filter.Filter_Filled_Slots, 32767);
  EXPECT_TRUE(Failures().empty());
  Deliver("C");
  EXPECT_EQ(test.boxes.shown.size(), 1U);
  EXPECT_EQ(filter.Filter_Filled_Slots, 32767);
  EXPECT_EQ(Failures(), std::vector<int>{6});
  EXPECT_EQ(recoveries, 1);
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

}  // namespace
}  // namespace quillspeech
