#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/recognition/engine_filter_fixture.hpp"
#include "tests/support/record_builder.hpp"

namespace quillspeech {
namespace {

using tests::EngineFilter;
using tests::Words;

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

TEST_F(EngineFilter, The_word_scan_ends_at_the_entry_that_was_the_last_one_when_it_began) {
  settings.Words_I_Want[1] = "A*";
  settings.Words_I_Want[2] = "B*";
  settings.Words_I_Want[3] = "*A";
  settings.Words_I_Want[4] = "?";
  for (const int changed : {1, 4}) {
    Reset_Filter_For_Live(filter, session.results);
    settings.Words_to_Scan = 3;
    int calls = 0;
    test.events.At_Yield = [&] {
      ++calls;
      settings.Words_to_Scan = changed;
    };
    Deliver_Word("AAB");
    EXPECT_EQ(calls, 2) << changed;  // for the entries 1 and 3
    EXPECT_EQ(filter.Voice_Words_Matched_Count, 2) << changed;
    EXPECT_EQ(settings.Words_to_Scan, changed);
  }
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

// The step is built for more strings than the one that there ever is.

TEST_F(EngineFilter, Each_of_two_strings_is_copied_grown_and_matched) {
  filter.Voice_Words_Explode_Count = 2;
  filter.Voice_Word_Table[1] = "X";
  filter.Voice_Word_Table[2] = "Y";
  filter.Voice_Word_Table[3] = "Z";  // behind the count
  Deliver("AAB");
  EXPECT_EQ(filter.Voice_Word_Previous_Table[1], "X");
  EXPECT_EQ(filter.Voice_Word_Previous_Table[2], "Y");
  EXPECT_EQ(filter.Voice_Word_Previous_Table[3], "");
  EXPECT_EQ(filter.Voice_Word_Table[1], "XA");
  EXPECT_EQ(filter.Voice_Word_Table[2], "YA");
  EXPECT_EQ(filter.Voice_Word_Table[3], "Z");
  EXPECT_EQ(filter.Voice_Words_Explode_Count, 2);
  EXPECT_EQ(filter.Current_Voice_Word, "YA");
  EXPECT_EQ(filter.Voice_Words_Matched_Count, 2);
  EXPECT_EQ(filter.Voice_Word_Matched_Table[1], "XA");
  EXPECT_EQ(filter.Voice_Word_Matched_Table[2], "YA");
}

TEST_F(EngineFilter, A_hundred_strings_can_be_copied_and_one_more_fails_before_any_grows) {
  filter.Voice_Word_Table[100] = "X";
  filter.Voice_Words_Explode_Count = 100;
  Deliver("AAB");
  EXPECT_TRUE(Failures().empty());
  EXPECT_EQ(filter.Voice_Word_Table[100], "XA");
  filter.Voice_Words_Explode_Count = 101;
  Deliver("CCD");
  EXPECT_EQ(Failures(), std::vector<int>{9});
  EXPECT_EQ(filter.Voice_Words_Explode_Count, 101);
  EXPECT_EQ(filter.Voice_Word_Previous_Table[100], "XA");
  EXPECT_EQ(filter.Current_Voice_Word, "XA");
}

}  // namespace
}  // namespace quillspeech
