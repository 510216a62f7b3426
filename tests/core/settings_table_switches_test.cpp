// The settings that are switches.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "core/settings_table.hpp"
#include "tests/core/settings_table_fixture.hpp"

namespace quillspeech {
namespace {

using namespace tests;

TEST_F(SettingsTable, Some_switches_keep_their_value_on_any_text_but_YES_and_NO) {
  for (const auto* name :
       {"Stop_everything_now", "Send_words_one_by_one", "This_Audio_Process", "Show_Audio_Graph",
        "Speech_echo_feature", "This_speech_sample_process_Start_only",
        "This_speech_sample_process_middle_only", "This_speech_sample_process_end_only"}) {
    for (const auto* value : {"YES", "NO"}) {
      changes.clear();
      EXPECT_EQ(Set(name, value), SetResult::Done);
      EXPECT_EQ(Get(name), value) << name;
      for (const auto* other : {"yes", "no", "", " YES", "NO ", "1"}) {
        Set(name, other);
        EXPECT_EQ(Get(name), value) << name << " := " << other;
      }
      EXPECT_EQ(changes, Changes(7, name));
    }
  }
}

TEST_F(SettingsTable, Some_switches_take_everything_but_NO_for_YES) {
  for (const auto* name :
       {"Always_Restart_on_Error", "I_want_Status_Animation", "Enable_Speech_Engine"}) {
    for (const auto* text : {"YES", "no", "", "maybe"}) {
      Set(name, "NO");
      EXPECT_EQ(Get(name), "NO") << name;
      Set(name, text);
      EXPECT_EQ(Get(name), "YES") << name << " := " << text;
    }
  }
}

TEST_F(SettingsTable, Some_switches_take_everything_but_YES_for_NO) {
  for (const auto* name : {"Explode_out_all_Engine", "Notify_if_no_language_match",
                           "Enable_Artificial_Intelligence", "Add_To_Language"}) {
    for (const auto* text : {"NO", "yes", "", "maybe"}) {
      Set(name, "YES");
      EXPECT_EQ(Get(name), "YES") << name;
      Set(name, text);
      EXPECT_EQ(Get(name), "NO") << name << " := " << text;
    }
  }
}

TEST_F(SettingsTable, An_unknown_filter_mode_becomes_Filter_All) {
  for (const auto* mode : {"Pass All", "Filter Same", "Filter All"}) {
    Set("Keep_Engine_Frequency_Input_Flow", mode);
    EXPECT_EQ(Get("Keep_Engine_Frequency_Input_Flow"), mode);
  }
  Set("Keep_Engine_Frequency_Input_Flow", "Pass All");
  Set("Keep_Engine_Frequency_Input_Flow", "pass all");
  EXPECT_EQ(Get("Keep_Engine_Frequency_Input_Flow"), "Filter All");
}

TEST_F(SettingsTable, The_processing_level_follows_its_text) {
  const std::vector<std::pair<const char*, int>> Levels = {
      {"Top", 256}, {"Up", 128}, {"Middle", 100}, {"Down", 80}, {"top", 80}, {"", 80}};
  for (const auto& [text, level] : Levels) {
    Set("Keep_Digital_Signal_Processing_level", text);
    EXPECT_EQ(session.settings.Digital_Signal_Processing_Level, level) << text;
  }
}

TEST_F(SettingsTable, The_text_of_the_processing_level_stays_what_the_last_load_stored) {
  session.settings.Keep_Digital_Signal_Processing_level = "Up";
  Set("Keep_Digital_Signal_Processing_level", "Top");
  EXPECT_EQ(Get("Keep_Digital_Signal_Processing_level"), "Up");
  EXPECT_EQ(changes, Changes{"Keep_Digital_Signal_Processing_level"});
}

TEST_F(SettingsTable, Memory_Clean_YES_forgets_the_words_and_announces_two_changes) {
  session.results.Platinum_Words_Available = 3;
  Set("Memory_Clean", "YES");
  EXPECT_EQ(session.results.Platinum_Words_Available, 0);
  EXPECT_EQ(changes, Changes(2, "Memory_Clean"));
}

TEST_F(SettingsTable, Memory_Clean_NO_keeps_the_words_and_announces_two_changes) {
  session.results.Platinum_Words_Available = 3;
  Set("Memory_Clean", "NO");
  EXPECT_EQ(Get("Memory_Clean"), "NO");
  EXPECT_EQ(session.results.Platinum_Words_Available, 3);
  EXPECT_EQ(changes, Changes(2, "Memory_Clean"));
}

TEST_F(SettingsTable, Memory_Clean_stores_no_other_text_and_announces_one_change) {
  session.results.Platinum_Words_Available = 3;
  Set("Memory_Clean", "yes");
  EXPECT_EQ(Get("Memory_Clean"), "YES");
  EXPECT_EQ(session.results.Platinum_Words_Available, 3);
  EXPECT_EQ(changes, Changes{"Memory_Clean"});
}

TEST_F(SettingsTable, On_speech_show_activities_is_never_switched_off_by_a_set) {
  Set("On_speech_show_activities", "NO");
  EXPECT_EQ(session.flags.Show_Activities, 0);
  EXPECT_EQ(changes, Changes());
  Set("On_speech_show_activities", "YES");
  Set("On_speech_show_activities", "NO");
  EXPECT_EQ(session.flags.Show_Activities, 1);
  EXPECT_EQ(Get("On_speech_show_activities"), "YES");
}

TEST_F(SettingsTable, Only_Stop_everything_now_is_answered_untrimmed) {
  session.settings.Stop_everything_now = " YES ";
  session.settings.Add_To_Language = " YES ";
  EXPECT_EQ(Get("Stop_everything_now"), " YES ");
  EXPECT_EQ(Get("Add_To_Language"), "YES");
}

TEST_F(SettingsTable, Seven_switches_announce_every_set_whatever_the_text_is) {
  for (const auto* name :
       {"Always_Restart_on_Error", "I_want_Status_Animation", "Enable_Speech_Engine",
        "Explode_out_all_Engine", "Notify_if_no_language_match", "Enable_Artificial_Intelligence",
        "Add_To_Language"}) {
    for (const auto* text : {"YES", "YES", "NO", "NO", "maybe", ""}) {
      changes.clear();
      EXPECT_EQ(Set(name, text), SetResult::Done);
      EXPECT_EQ(changes, Changes{name}) << name << " := " << text;
    }
  }
}

TEST_F(SettingsTable, The_filter_mode_announces_every_set_whatever_the_text_is) {
  for (const auto* text : {"Pass All", "Filter Same", "Filter All", "Filter All", "pass all", ""}) {
    changes.clear();
    EXPECT_EQ(Set("Keep_Engine_Frequency_Input_Flow", text), SetResult::Done);
    EXPECT_EQ(changes, Changes{"Keep_Engine_Frequency_Input_Flow"}) << text;
  }
}

TEST_F(SettingsTable, On_speech_show_activities_announces_each_YES_and_nothing_else) {
  for (const auto* text : {"NO", "yes", "", " YES"}) {
    EXPECT_EQ(Set("On_speech_show_activities", text), SetResult::Done);
    EXPECT_EQ(session.flags.Show_Activities, 0) << text;
  }
  EXPECT_EQ(changes, Changes());
  Set("On_speech_show_activities", "YES");
  Set("On_speech_show_activities", "YES");
  EXPECT_EQ(changes, Changes(2, "On_speech_show_activities"));
}

}  // namespace
}  // namespace quillspeech
