// The settings that are numbers.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "core/settings_table.hpp"
#include "tests/core/settings_table_fixture.hpp"

namespace quillspeech {
namespace {

using namespace tests;

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

}  // namespace
}  // namespace quillspeech
