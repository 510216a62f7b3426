// Which names there are, and the results among them.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/settings_table.hpp"
#include "tests/core/settings_table_fixture.hpp"

namespace quillspeech {
namespace {

using namespace tests;

TEST_F(SettingsTable, A_name_that_nobody_has_is_no_setting) {
  EXPECT_EQ(Set("Noise_Sensitivty", "5"), SetResult::No_Such_Setting);
  EXPECT_EQ(Get_Setting(session, "Noise_Sensitivty"), std::nullopt);
}

TEST_F(SettingsTable, The_members_that_need_a_control_are_nobodys_names) {
  EXPECT_EQ(Set("Enabled", "False"), SetResult::No_Such_Setting);
  EXPECT_EQ(Get_Setting(session, instance, "Enabled"), std::nullopt);
  EXPECT_EQ(Get_Setting(session, instance, "hWnd"), std::nullopt);
}

TEST_F(SettingsTable, Names_are_compared_exactly) {
  EXPECT_EQ(Set("noise_sensitivity", "5"), SetResult::No_Such_Setting);
}

TEST_F(SettingsTable, No_two_members_have_the_same_name) {
  std::vector<std::string_view> names;
  for (const Member& member : Member_Table()) {
    if (member.access == Access::Let) names.push_back(member.name);
  }
  std::sort(names.begin(), names.end());
  EXPECT_EQ(std::adjacent_find(names.begin(), names.end()), names.end());
}

TEST_F(SettingsTable, Every_member_of_a_new_control_answers_its_get) {
  for (const Member& member : Member_Table()) {
    if (member.access != Access::Get || member.needs_control) continue;
    EXPECT_NO_THROW(Get(member.name)) << member.name;
  }
}

TEST_F(SettingsTable, A_set_of_any_result_is_dropped_and_announces_nothing) {
  session.results.Platinum_Words_Available = 1;
  session.results.Platinum_Best_Table[1] = "hello";
  int results = 0;
  for (const Member& member : Member_Table()) {
    if (member.access != Access::Let || member.let) continue;
    EXPECT_EQ(Set(member.name, "7"), SetResult::Is_Result) << member.name;
    ++results;
  }
  EXPECT_EQ(results, 35);
  EXPECT_EQ(Get("Platinum_Word_Best"), "hello");
  EXPECT_EQ(changes, Changes());
}

// Results through the table.

TEST_F(SettingsTable, Send_of_no_500_reaches_the_words_but_not_the_shorter_tables) {
  session.results.Platinum_Words_Available = 600;
  session.results.Platinum_Word_Table[500] = "word";
  session.filter.Voice_Words_Explode_Count = 1;
  Set("Send_of_no", "500");
  EXPECT_EQ(Get("Platinum_Words"), "word");
  EXPECT_EQ(Failure_Of_Get("Voice_Word_Matched"), 9);
  EXPECT_EQ(Failure_Of_Get("Voice_Word"), 9);
}

TEST_F(SettingsTable, Words_I_Check_answers_2_for_every_index_as_no_word_is_ever_checked) {
  session.filter.Word_Check_Flags.Fill(1);
  session.filter.Voice_Words_Explode_Count = 1;
  for (const auto* index : {"-1", "0", "1", "100", "101", "500", "2147483647"}) {
    Set("Send_of_no", index);
    EXPECT_EQ(Get("Words_I_Check"), "2") << index;
  }
}

TEST_F(SettingsTable, Reading_a_word_or_a_pattern_announces_a_change_each_time) {
  Get("Platinum_Words");
  Get("Voice_Word");
  Get("Platinum_Word_Percentage");
  EXPECT_EQ(changes, (Changes{"Platinum_Words", ""}));
}

TEST_F(SettingsTable, Audio_Data_is_always_0) { EXPECT_EQ(Get("Audio_Data"), "0"); }

}  // namespace
}  // namespace quillspeech
