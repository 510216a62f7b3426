#include "core/settings_table.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "base/run_time_failure.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech {
namespace {

// A session, an instance of the control, and the changes that it announced.
class SettingsTable : public testing::Test {
 protected:
  SettingsTable() {
    instance.Property_Changed = [this](std::string_view name) { changes.emplace_back(name); };
  }
  SetResult Set(std::string_view name, std::string_view text) {
    return Set_Setting(session, instance, name, text);
  }
  std::string Get(std::string_view name) { return Get_Setting(session, instance, name).value(); }
  int Failure_Of_Set(std::string_view name, std::string_view text) {
    try {
      Set(name, text);
    } catch (const RunTimeFailure& failure) {
      return failure.Number();
    }
    return 0;
  }
  int Failure_Of_Get(std::string_view name) {
    try {
      Get(name);
    } catch (const RunTimeFailure& failure) {
      return failure.Number();
    }
    return 0;
  }
  const MessageBox& Only_Box() {
    EXPECT_EQ(test.boxes.shown.size(), 1U);
    return test.boxes.shown.at(0).box;
  }

  tests::TestSession test;
  Session& session = test.session;
  ControlInstance instance;
  std::vector<std::string> changes;
};

using Changes = std::vector<std::string>;

// Names.

TEST_F(SettingsTable, A_name_that_nobody_has_is_no_setting) {
  EXPECT_EQ(Set("Noise_Sensitivty", "5"), SetResult::No_Such_Setting);
  EXPECT_EQ(Get_Setting(session, "Noise_Sensitivty"), std::nullopt);
}

TEST_F(SettingsTable, Names_are_compared_exactly) {
  EXPECT_EQ(Set("noise_sensitivity", "5"), SetResult::No_Such_Setting);
}

TEST_F(SettingsTable, No_two_members_have_the_same_name) {
  std::vector<std::string_view> names;
  for (const auto rows : {Setting_Members(), Result_Members()}) {
    for (const Member& member : rows) names.push_back(member.name);
  }
  std::sort(names.begin(), names.end());
  EXPECT_EQ(std::adjacent_find(names.begin(), names.end()), names.end());
}

TEST_F(SettingsTable, Every_member_of_a_new_control_answers_its_get) {
  for (const auto rows : {Setting_Members(), Result_Members()}) {
    for (const Member& member : rows) EXPECT_NO_THROW(Get(member.name)) << member.name;
  }
}

TEST_F(SettingsTable, A_set_of_any_result_is_dropped_and_announces_nothing) {
  session.results.Platinum_Words_Available = 1;
  session.results.Platinum_Best_Table[1] = "hello";
  for (const Member& member : Result_Members()) {
    EXPECT_EQ(Set(member.name, "7"), SetResult::Is_Result) << member.name;
  }
  EXPECT_EQ(Get("Platinum_Word_Best"), "hello");
  EXPECT_EQ(changes, Changes());
}

// Switches.

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

// Numbers.

TEST_F(SettingsTable, Numbers_are_stored_and_most_announce_a_change) {
  for (const auto* name : {"Sample_Overlap_Bytes", "Noise_Sensitivity", "Noise_Word_No_CutOff",
                           "Voice_Capture_Delay", "Voice_Processing_Delay", "Send_of_no",
                           "Sample_processing_resolution", "Words_to_Scan", "Direct_Add"}) {
    changes.clear();
    EXPECT_EQ(Set(name, "12"), SetResult::Done);
    EXPECT_EQ(Get(name), "12") << name;
    EXPECT_EQ(changes, Changes{name});
  }
}

TEST_F(SettingsTable, Two_numbers_announce_no_change) {
  Set("Filter_Pass_Value", "12");
  Set("Engine_Explode_Limit", "13");
  EXPECT_EQ(Get("Filter_Pass_Value"), "12");
  EXPECT_EQ(Get("Engine_Explode_Limit"), "13");
  EXPECT_EQ(changes, Changes());
}

TEST_F(SettingsTable, A_text_that_is_no_number_is_refused_with_the_message_of_the_member) {
  const std::vector<std::pair<const char*, const char*>> Messages = {
      {"Filter_Pass_Value", "Incorrect Settings for Filter_Pass_Value "},
      {"Noise_Word_No_CutOff", "Incorrect Settings for Noise_Word_No_CutOff "},
      {"Voice_Capture_Delay", "Incorrect Settings for Voice_Capture_Delay "},
      {"Engine_Explode_Limit", "Incorrect Settings for Engine_Explode_Limit "},
      {"Voice_Processing_Delay", "Incorrect Settings for Voice_processing_Delay "},
      {"Send_of_no", "Incorrect Settings for Send_of_no "},
      {"Sample_processing_resolution", "Incorrect Settings for Sample_processing_resolution "}};
  for (const auto& [name, message] : Messages) {
    test.boxes.shown.clear();
    const std::string before = Get(name);
    EXPECT_EQ(Set(name, "many"), SetResult::Refused);
    EXPECT_EQ(Get(name), before);
    EXPECT_EQ(Only_Box().text, message);
    EXPECT_EQ(Only_Box().title, "Quillspeech Settings");
    EXPECT_EQ(Only_Box().buttons, BoxButtons::OK);
    EXPECT_EQ(Only_Box().icon, BoxIcon::None);
  }
  EXPECT_EQ(changes, Changes());
}

TEST_F(SettingsTable, Members_without_a_numeric_test_fail_on_a_text_that_is_no_number) {
  for (const auto* name : {"Sample_Overlap_Bytes", "Noise_Sensitivity", "Words_to_Scan",
                           "Direct_Add", "Set_Recording_Frequency", "Speech_sampling_time_in_ms"}) {
    const std::string before = Get(name);
    EXPECT_EQ(Failure_Of_Set(name, "many"), 13) << name;
    EXPECT_EQ(Get(name), before);
  }
  EXPECT_TRUE(test.boxes.shown.empty());
}

TEST_F(SettingsTable, A_number_beyond_its_member_is_an_overflow) {
  const std::vector<std::pair<const char*, const char*>> Too_Large = {
      {"Sample_Overlap_Bytes", "32768"},
      {"Noise_Sensitivity", "-32769"},
      {"Filter_Pass_Value", "32768"},
      {"Noise_Word_No_CutOff", "256"},
      {"Noise_Word_No_CutOff", "-1"},
      {"Voice_Capture_Delay", "2147483648"},
      {"Sample_processing_resolution", "32768"},
      {"Words_to_Scan", "-2147483649"},
      {"Direct_Add", "32768"},
      {"Speech_sampling_time_in_ms", "1e10"}};
  for (const auto& [name, text] : Too_Large) {
    const std::string before = Get(name);
    EXPECT_EQ(Failure_Of_Set(name, text), 6) << name;
    EXPECT_EQ(Get(name), before) << name;
  }
  EXPECT_EQ(changes, Changes());
}

TEST_F(SettingsTable, The_ends_of_each_width_are_stored) {
  const std::vector<std::pair<const char*, const char*>> Ends = {
      {"Noise_Word_No_CutOff", "255"},       {"Noise_Word_No_CutOff", "0"},
      {"Noise_Sensitivity", "-32768"},       {"Sample_processing_resolution", "32767"},
      {"Voice_Capture_Delay", "2147483647"}, {"Send_of_no", "-2147483648"}};
  for (const auto& [name, text] : Ends) {
    Set(name, text);
    EXPECT_EQ(Get(name), text) << name;
  }
}

TEST_F(SettingsTable, Fractions_are_rounded_half_to_even) {
  Set("Noise_Sensitivity", "2.5");
  EXPECT_EQ(Get("Noise_Sensitivity"), "2");
  Set("Noise_Sensitivity", " 3.5 ");
  EXPECT_EQ(Get("Noise_Sensitivity"), "4");
}

TEST_F(SettingsTable, Words_to_Scan_moves_the_start_of_the_scan_to_1) {
  ASSERT_EQ(session.settings.Words_to_Scan_Start, 0);
  Set("Words_to_Scan", "5");
  EXPECT_EQ(session.settings.Words_to_Scan_Start, 1);
  EXPECT_EQ(session.settings.Words_to_Scan, 5);
}

TEST_F(SettingsTable, Direct_Add_is_enabled_from_1_on) {
  const std::vector<std::pair<const char*, const char*>> Cases = {
      {"1", "YES"}, {"0", "NO"}, {"7", "YES"}, {"-1", "NO"}};
  for (const auto& [number, enabled] : Cases) {
    Set("Direct_Add", number);
    EXPECT_EQ(session.settings.Direct_Add_Enabled, enabled) << number;
    EXPECT_EQ(Get("Direct_Add"), number);
  }
}

TEST_F(SettingsTable, A_frequency_that_is_not_known_becomes_22050_silently) {
  for (const auto* known : {"5500", "8000", "11025", "22050", "44100"}) {
    Set("Set_Recording_Frequency", known);
    EXPECT_EQ(Get("Set_Recording_Frequency"), known);
  }
  for (const auto* unknown : {"16000", "0", "-1", "22051"}) {
    Set("Set_Recording_Frequency", "8000");
    EXPECT_EQ(Set("Set_Recording_Frequency", unknown), SetResult::Done);
    EXPECT_EQ(Get("Set_Recording_Frequency"), "22050") << unknown;
  }
  EXPECT_TRUE(test.boxes.shown.empty());
}

TEST_F(SettingsTable, A_frequency_alone_does_not_change_the_capture_length) {
  Set("Set_Recording_Frequency", "8000");
  EXPECT_EQ(session.sample.Samples_Per_Capture, 154350);
  EXPECT_EQ(changes, Changes{"Set_Recording_Frequency"});
}

// The sampling time.

TEST_F(SettingsTable, A_sampling_time_sets_the_capture_length_and_counts_toward_the_start) {
  EXPECT_EQ(Set("Speech_sampling_time_in_ms", "4000"), SetResult::Done);
  EXPECT_EQ(session.sample.Samples_Per_Capture, 88200);
  EXPECT_EQ(session.flags.Settings_Ready_Count, 3);
  EXPECT_EQ(session.flags.Sampling_Time_Set, 1);
  EXPECT_EQ(changes, Changes{"Speech_sampling_time_in_ms"});
}

TEST_F(SettingsTable, A_sampling_time_of_60000_is_not_clamped) {
  Set("Speech_sampling_time_in_ms", "60000");
  EXPECT_EQ(session.sample.Samples_Per_Capture, 1323000);
  EXPECT_TRUE(test.boxes.shown.empty());
}

TEST_F(SettingsTable, A_short_sampling_time_is_clamped_at_run_time_and_counts_nowhere) {
  EXPECT_EQ(Set("Speech_sampling_time_in_ms", "3000"), SetResult::Replaced);
  EXPECT_EQ(Get("Speech_sampling_time_in_ms"), "4000");
  EXPECT_EQ(Only_Box().title, "Quillspeech Info.");
  EXPECT_EQ(Only_Box().text, "Invalid sample time. Assigning default 4000 ms");
  EXPECT_EQ(Only_Box().icon, BoxIcon::Information);
  EXPECT_EQ(session.flags.Settings_Ready_Count, 2);
  EXPECT_EQ(session.sample.Samples_Per_Capture, 154350);
  EXPECT_EQ(session.flags.Sampling_Time_Set, 1);
  EXPECT_EQ(changes, Changes());
}

TEST_F(SettingsTable, A_long_sampling_time_is_clamped_at_run_time_and_counts_nowhere) {
  EXPECT_EQ(Set("Speech_sampling_time_in_ms", "60001"), SetResult::Replaced);
  EXPECT_EQ(Get("Speech_sampling_time_in_ms"), "60000");
  EXPECT_EQ(Only_Box().title, "Quillspeech Info.");
  EXPECT_EQ(Only_Box().text, "Maximum recommended sample time is 60000 ms.");
  EXPECT_EQ(Only_Box().icon, BoxIcon::Information);
  EXPECT_EQ(session.flags.Settings_Ready_Count, 2);
  EXPECT_EQ(session.sample.Samples_Per_Capture, 154350);
}

TEST_F(SettingsTable, In_design_mode_every_sampling_time_is_taken_as_it_is) {
  instance.User_Mode = false;
  EXPECT_EQ(Set("Speech_sampling_time_in_ms", "3000"), SetResult::Done);
  EXPECT_EQ(Get("Speech_sampling_time_in_ms"), "3000");
  EXPECT_EQ(session.sample.Samples_Per_Capture, 66150);
  EXPECT_EQ(session.flags.Settings_Ready_Count, 3);
  EXPECT_TRUE(test.boxes.shown.empty());
}

TEST_F(SettingsTable, A_time_of_design_mode_stands_at_run_time_until_a_new_set_clamps_it) {
  instance.User_Mode = false;
  Set("Speech_sampling_time_in_ms", "3000");
  instance.User_Mode = true;
  Set("Words_I_Want", "*");
  Set("Set_Recording_Frequency", "8000");
  EXPECT_EQ(Get("Speech_sampling_time_in_ms"), "3000");
  EXPECT_EQ(session.sample.Samples_Per_Capture, 66150);
  EXPECT_TRUE(test.boxes.shown.empty());
  EXPECT_EQ(Set("Speech_sampling_time_in_ms", "3000"), SetResult::Replaced);
  EXPECT_EQ(Get("Speech_sampling_time_in_ms"), "4000");
  EXPECT_EQ(session.sample.Samples_Per_Capture, 66150);
  EXPECT_EQ(Only_Box().text, "Invalid sample time. Assigning default 4000 ms");
}

TEST_F(SettingsTable, A_sampling_time_repairs_a_frequency_of_0) {
  session.settings.Set_Recording_Frequency = 0;
  Set("Speech_sampling_time_in_ms", "5000");
  EXPECT_EQ(session.settings.Set_Recording_Frequency, 22050);
  EXPECT_EQ(session.sample.Samples_Per_Capture, 110250);
}

TEST_F(SettingsTable, A_capture_length_is_rounded_half_to_even) {
  session.settings.Set_Recording_Frequency = 5500;
  Set("Speech_sampling_time_in_ms", "4001");  // 22005.5 bytes
  EXPECT_EQ(session.sample.Samples_Per_Capture, 22006);
  Set("Speech_sampling_time_in_ms", "4003");  // 22016.5 bytes
  EXPECT_EQ(session.sample.Samples_Per_Capture, 22016);
}

TEST_F(SettingsTable, A_product_of_time_and_frequency_beyond_32_bits_is_an_overflow) {
  session.settings.Set_Recording_Frequency = 44100;
  EXPECT_EQ(Failure_Of_Set("Speech_sampling_time_in_ms", "48696"), 6);
  EXPECT_EQ(Failure_Of_Set("Speech_sampling_time_in_ms", "48695"), 0);
}

TEST_F(SettingsTable, The_start_gate_overflows_past_32767_sets) {
  session.flags.Settings_Ready_Count = 32767;
  EXPECT_EQ(Failure_Of_Set("Words_I_Want", "*"), 6);
}

// Texts and file names.

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

TEST_F(SettingsTable, An_empty_engine_name_is_stored_without_an_announcement) {
  Set("Consider_this_Engine_for_Recognition", "mine.EGN");
  EXPECT_EQ(Set("Consider_this_Engine_for_Recognition", ""), SetResult::Done);
  EXPECT_EQ(Get("Consider_this_Engine_for_Recognition"), "");
  EXPECT_EQ(changes, Changes());
}

TEST_F(SettingsTable, An_empty_file_to_add_to_is_refused_at_run_time) {
  EXPECT_EQ(Set("Consider_this_Lang_File_to_Add", ""), SetResult::Refused);
  EXPECT_EQ(Get("Consider_this_Lang_File_to_Add"), "UserTemp.SAY");
  EXPECT_EQ(Only_Box().title, "Quillspeech User Error");
  EXPECT_EQ(Only_Box().text, "Invalid FileName for Language to add");
  EXPECT_EQ(Only_Box().icon, BoxIcon::Stop);
  EXPECT_EQ(changes, Changes());
}

TEST_F(SettingsTable, An_empty_file_to_match_changes_nothing_at_run_time) {
  Set("Consider_this_Lang_File_to_match", "");
  EXPECT_EQ(Get("Consider_this_Lang_File_to_match"), "UserTemp.SAY");
  EXPECT_TRUE(test.boxes.shown.empty());
  EXPECT_EQ(changes, Changes());
}

TEST_F(SettingsTable, A_file_name_of_blanks_counts_as_empty) {
  for (const auto* blanks : {" ", "     "}) {
    test.boxes.shown.clear();
    Set("Consider_this_Engine_for_Recognition", "mine.EGN");
    EXPECT_EQ(Set("Consider_this_Engine_for_Recognition", blanks), SetResult::Done);
    EXPECT_EQ(Get("Consider_this_Engine_for_Recognition"), "");
    EXPECT_EQ(Set("Consider_this_Lang_File_to_match", blanks), SetResult::Done);
    EXPECT_EQ(Get("Consider_this_Lang_File_to_match"), "UserTemp.SAY");
    EXPECT_EQ(Set("Consider_this_Lang_File_to_Add", blanks), SetResult::Refused);
    EXPECT_EQ(Get("Consider_this_Lang_File_to_Add"), "UserTemp.SAY");
    EXPECT_EQ(Only_Box().text, "Invalid FileName for Language to add");
  }
  EXPECT_EQ(changes, Changes());
}

TEST_F(SettingsTable, In_design_mode_a_language_name_of_blanks_gets_its_extension) {
  instance.User_Mode = false;
  Set("Consider_this_Lang_File_to_match", "  ");
  Set("Consider_this_Lang_File_to_Add", "  ");
  EXPECT_EQ(Get("Consider_this_Lang_File_to_match"), ".SAY");
  EXPECT_EQ(Get("Consider_this_Lang_File_to_Add"), ".SAY");
}

TEST_F(SettingsTable, In_design_mode_an_empty_language_name_gets_its_extension) {
  instance.User_Mode = false;
  Set("Consider_this_Lang_File_to_match", "");
  Set("Consider_this_Lang_File_to_Add", "");
  EXPECT_EQ(Get("Consider_this_Lang_File_to_match"), ".SAY");
  EXPECT_EQ(Get("Consider_this_Lang_File_to_Add"), ".SAY");
  EXPECT_TRUE(test.boxes.shown.empty());
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
