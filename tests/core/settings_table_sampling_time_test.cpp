// The sampling time: its ends, what follows from it, and the count that it shares with the word.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "core/settings_table.hpp"
#include "tests/core/settings_table_fixture.hpp"

namespace quillspeech {
namespace {

using namespace tests;

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
  EXPECT_EQ(Only_Box().buttons, BoxButtons::OK);
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
  EXPECT_EQ(Only_Box().buttons, BoxButtons::OK);
  EXPECT_EQ(session.flags.Settings_Ready_Count, 2);
  EXPECT_EQ(session.sample.Samples_Per_Capture, 154350);
}

TEST_F(SettingsTable, Every_time_beyond_the_two_ends_is_clamped_to_the_nearer) {
  const std::vector<std::pair<const char*, const char*>> Clamped = {
      {"3999", "4000"}, {"0", "4000"},      {"-1", "4000"},     {"-2147483648", "4000"},
      {"4000", "4000"}, {"60000", "60000"}, {"60001", "60000"}, {"2147483647", "60000"}};
  for (const auto& [time, stored] : Clamped) {
    test.boxes.shown.clear();
    const bool taken = std::string(time) == stored;
    EXPECT_EQ(Set("Speech_sampling_time_in_ms", time),
              taken ? SetResult::Done : SetResult::Replaced)
        << time;
    EXPECT_EQ(Get("Speech_sampling_time_in_ms"), stored) << time;
    EXPECT_EQ(test.boxes.shown.size(), taken ? 0U : 1U) << time;
  }
}

TEST(SamplingTimeBox, The_clamped_time_is_stored_while_its_box_is_still_open) {
  struct ReadingBoxes final : MessageBoxes {
    BoxAnswer Show(const MessageBox&) override {
      seen.push_back(Get_Setting(*session, "Speech_sampling_time_in_ms").value());
      session->settings.Speech_sampling_time_in_ms = 5000;
      return BoxAnswer::OK;
    }
    Session* session = nullptr;
    std::vector<std::string> seen;
  } boxes;
  TestSession ground;
  Session session{Ports{ground.events, boxes, ground.host, ground.cues, ground.shell,
                        ground.riff_files, ground.wave_input, ground.wave_output, ground.data_files,
                        ground.dialogs, ground.views}};
  boxes.session = &session;
  for (const auto* time : {"3999", "60001"}) {
    Set_Setting(session, "Speech_sampling_time_in_ms", time);
    // What is set while the box is open stays.
    EXPECT_EQ(session.settings.Speech_sampling_time_in_ms, 5000) << time;
  }
  EXPECT_EQ(boxes.seen, (std::vector<std::string>{"4000", "60000"}));
}

TEST_F(SettingsTable, In_design_mode_a_time_above_60000_is_taken_as_it_is) {
  instance.User_Mode = false;
  EXPECT_EQ(Set("Speech_sampling_time_in_ms", "60001"), SetResult::Done);
  EXPECT_EQ(Get("Speech_sampling_time_in_ms"), "60001");
  EXPECT_EQ(session.sample.Samples_Per_Capture, 1323022);
  EXPECT_EQ(session.flags.Settings_Ready_Count, 3);
  EXPECT_TRUE(test.boxes.shown.empty());
  EXPECT_EQ(changes, Changes{"Speech_sampling_time_in_ms"});
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

TEST_F(SettingsTable, A_sampling_time_repairs_a_negative_frequency) {
  session.settings.Set_Recording_Frequency = -1;
  Set("Speech_sampling_time_in_ms", "5000");
  EXPECT_EQ(session.settings.Set_Recording_Frequency, 22050);
  EXPECT_EQ(session.sample.Samples_Per_Capture, 110250);
}

TEST_F(SettingsTable, A_sampling_time_keeps_a_frequency_of_1) {
  session.settings.Set_Recording_Frequency = 1;
  Set("Speech_sampling_time_in_ms", "5000");
  EXPECT_EQ(session.settings.Set_Recording_Frequency, 1);
}

TEST_F(SettingsTable, A_clamped_sampling_time_repairs_no_frequency) {
  for (const auto* clamped : {"3999", "60001"}) {
    session.settings.Set_Recording_Frequency = 0;
    Set("Speech_sampling_time_in_ms", clamped);
    EXPECT_EQ(session.settings.Set_Recording_Frequency, 0) << clamped;
  }
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

TEST_F(SettingsTable, A_time_whose_product_overflows_is_stored_and_does_nothing_else) {
  session.settings.Set_Recording_Frequency = 44100;
  EXPECT_EQ(Failure_Of_Set("Speech_sampling_time_in_ms", "48696"), 6);
  EXPECT_EQ(Get("Speech_sampling_time_in_ms"), "48696");
  EXPECT_EQ(session.flags.Sampling_Time_Set, 1);
  EXPECT_EQ(session.sample.Samples_Per_Capture, 154350);
  EXPECT_EQ(session.flags.Settings_Ready_Count, 2);
  EXPECT_EQ(changes, Changes());
}

TEST_F(SettingsTable, A_word_beyond_32767_sets_is_stored_and_the_overflow_announces_nothing) {
  session.flags.Settings_Ready_Count = 32767;
  EXPECT_EQ(Failure_Of_Set("Words_I_Want", " late "), 6);
  EXPECT_EQ(Get("Words_I_Want"), "late");
  EXPECT_EQ(session.flags.Settings_Ready_Count, 32767);
  EXPECT_EQ(changes, Changes());
}

}  // namespace
}  // namespace quillspeech
