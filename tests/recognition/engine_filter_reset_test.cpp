#include <gtest/gtest.h>

#include "tests/recognition/engine_filter_fixture.hpp"

namespace quillspeech {
namespace {

using tests::EngineFilter;

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
  filter.Words_Checked = 11;
  results.Language_Matched = 1;
}

void Expect_Run_Is_Reset(const Filter& filter, const Results& results) {
  EXPECT_EQ(filter.Voice_Words_Explode_Count, 0);
  EXPECT_EQ(filter.Voice_Words_Matched_Count, 0);
  EXPECT_EQ(filter.Previous_Engine_Category, 0);
  EXPECT_EQ(filter.Filter_Run_Length, 0);
  EXPECT_EQ(filter.Engine_Category_Weight, 0);
  EXPECT_EQ(filter.Words_Checked, 0);
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
