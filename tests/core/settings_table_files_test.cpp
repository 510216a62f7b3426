// The wanted word and the names of files.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "core/settings_table.hpp"
#include "tests/core/settings_table_fixture.hpp"

namespace quillspeech {
namespace {

using namespace tests;

TEST_F(SettingsTable, Words_I_Want_is_trimmed_and_counts_toward_the_start_even_when_empty) {
  Set("Words_I_Want", " f*s ");
  EXPECT_EQ(Get("Words_I_Want"), "f*s");
  Set("Words_I_Want", "");
  EXPECT_EQ(Get("Words_I_Want"), "");
  EXPECT_EQ(session.flags.Settings_Ready_Count, 4);
  EXPECT_EQ(changes, Changes(2, "Words_I_Want"));
}

TEST_F(SettingsTable, A_file_name_gets_the_extension_that_it_lacks_and_announces_it) {
  const std::vector<std::pair<const char*, const char*>> Members = {
      {"Consider_this_Engine_for_Recognition", ".EGN"},
      {"Consider_this_Lang_File_to_match", ".SAY"},
      {"Consider_this_Lang_File_to_Add", ".SAY"}};
  for (const auto& [name, extension] : Members) {
    changes.clear();
    Set(name, "  mine ");
    EXPECT_EQ(Get(name), std::string("mine") + extension);
    EXPECT_EQ(changes, Changes{name});
  }
}

TEST_F(SettingsTable, A_file_name_that_has_its_extension_is_stored_without_an_announcement) {
  Set("Consider_this_Engine_for_Recognition", "mine.EGN");
  Set("Consider_this_Lang_File_to_match", "mine.SAY");
  Set("Consider_this_Lang_File_to_Add", ".SAY");
  EXPECT_EQ(Get("Consider_this_Engine_for_Recognition"), "mine.EGN");
  EXPECT_EQ(Get("Consider_this_Lang_File_to_match"), "mine.SAY");
  EXPECT_EQ(Get("Consider_this_Lang_File_to_Add"), ".SAY");
  EXPECT_EQ(changes, Changes());
}

TEST_F(SettingsTable, An_extension_in_lower_case_is_none) {
  Set("Consider_this_Lang_File_to_match", "mine.say");
  Set("Consider_this_Engine_for_Recognition", "mine.egn");
  EXPECT_EQ(Get("Consider_this_Lang_File_to_match"), "mine.say.SAY");
  EXPECT_EQ(Get("Consider_this_Engine_for_Recognition"), "mine.egn.EGN");
}

TEST_F(SettingsTable, An_empty_engine_name_is_stored_without_an_announcement_in_either_mode) {
  for (const bool run_time : {true, false}) {
    instance.User_Mode = run_time;
    Set("Consider_this_Engine_for_Recognition", "mine.EGN");
    EXPECT_EQ(Set("Consider_this_Engine_for_Recognition", ""), SetResult::Done);
    EXPECT_EQ(Get("Consider_this_Engine_for_Recognition"), "");
  }
  EXPECT_EQ(changes, Changes());
}

TEST_F(SettingsTable, An_empty_file_to_add_to_is_refused_at_run_time) {
  EXPECT_EQ(Set("Consider_this_Lang_File_to_Add", ""), SetResult::Refused);
  EXPECT_EQ(Get("Consider_this_Lang_File_to_Add"), "UserTemp.SAY");
  EXPECT_EQ(Only_Box().title, "Quillspeech User Error");
  EXPECT_EQ(Only_Box().text, "Invalid FileName for Language to add");
  EXPECT_EQ(Only_Box().icon, BoxIcon::Stop);
  EXPECT_EQ(Only_Box().buttons, BoxButtons::OK);
  EXPECT_EQ(changes, Changes());
}

TEST_F(SettingsTable, An_empty_file_to_match_changes_nothing_at_run_time) {
  Set("Consider_this_Lang_File_to_match", "");
  EXPECT_EQ(Get("Consider_this_Lang_File_to_match"), "UserTemp.SAY");
  EXPECT_TRUE(test.boxes.shown.empty());
  EXPECT_EQ(changes, Changes());
}

TEST_F(SettingsTable, A_file_name_of_blanks_is_not_empty_and_becomes_the_extension) {
  for (const bool run_time : {true, false}) {
    instance.User_Mode = run_time;
    for (const auto* blanks : {" ", "     "}) {
      for (const auto* name :
           {"Consider_this_Engine_for_Recognition", "Consider_this_Lang_File_to_match",
            "Consider_this_Lang_File_to_Add"}) {
        changes.clear();
        EXPECT_EQ(Set(name, blanks), SetResult::Done);
        EXPECT_EQ(Get(name),
                  std::string(name).find("Engine") == std::string::npos ? ".SAY" : ".EGN");
        EXPECT_EQ(changes, Changes{name});
      }
    }
  }
  EXPECT_TRUE(test.boxes.shown.empty());
}

TEST_F(SettingsTable, In_design_mode_an_empty_language_name_gets_its_extension) {
  instance.User_Mode = false;
  Set("Consider_this_Lang_File_to_match", "");
  Set("Consider_this_Lang_File_to_Add", "");
  EXPECT_EQ(Get("Consider_this_Lang_File_to_match"), ".SAY");
  EXPECT_EQ(Get("Consider_this_Lang_File_to_Add"), ".SAY");
  EXPECT_TRUE(test.boxes.shown.empty());
  EXPECT_EQ(changes,
            (Changes{"Consider_this_Lang_File_to_match", "Consider_this_Lang_File_to_Add"}));
}

TEST_F(SettingsTable, Other_file_names_are_stored_trimmed_and_announced) {
  for (const auto* name : {"Open_this_Wave_File", "Show_this_Image_for_Start",
                           "Show_this_Image_for_Stop", "Play_this_file_for_Start",
                           "Play_this_file_for_Stop", "Play_this_file_on_Initialization"}) {
    changes.clear();
    Set(name, " a b.wav ");
    EXPECT_EQ(Get(name), "a b.wav");
    Set(name, "");
    EXPECT_EQ(Get(name), "");
    EXPECT_EQ(changes, Changes(2, name));
  }
}

TEST_F(SettingsTable, Open_this_Wave_File_is_answered_as_stored) {
  session.settings.Open_this_Wave_File = " a.wav ";
  EXPECT_EQ(Get("Open_this_Wave_File"), " a.wav ");
}

TEST_F(SettingsTable, Setting_Play_File_plays_the_untrimmed_name_once) {
  Set("Play_File", " ding.wav ");
  EXPECT_EQ(Get("Play_File"), "ding.wav");
  EXPECT_EQ(test.cues.calls, std::vector<std::string>{"play  ding.wav "});
  EXPECT_EQ(changes, Changes{"Play_File"});
}

TEST_F(SettingsTable, Setting_Play_File_to_an_empty_text_plays_that) {
  Set("Play_File", "");
  EXPECT_EQ(test.cues.calls, std::vector<std::string>{"play "});
}

TEST_F(SettingsTable, Each_instance_of_the_control_has_a_Play_File_of_its_own) {
  Set("Play_File", "ding.wav");
  ControlInstance other;
  EXPECT_EQ(Get_Setting(session, other, "Play_File"), "");
}

}  // namespace
}  // namespace quillspeech
