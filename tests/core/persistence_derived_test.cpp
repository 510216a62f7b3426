// What a load, a save and an initialisation derive from the variables of the record, and when.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "core/persistence.hpp"
#include "tests/core/persistence_fixture.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech {
namespace {

using tests::Failure_Of;
using tests::KeepingBag;
using tests::NotingContainer;

MemberValue Text(const char* text) { return std::string(text); }

class PersistenceDerived : public tests::PersistenceTest {
 protected:
  // One sample more than 32 bits count, and what was derived before.
  void Overflow() {
    session.settings.Set_Recording_Frequency = 44100;
    session.settings.Speech_sampling_time_in_ms = 48696;
    session.sample.Samples_Per_Capture = 1234;
    session.flags.Settings_Ready_Count = 0;
  }
  void Keep_Overflow() {
    Overflow();
    bag.kept["Set_Recording_Frequency"] = std::int32_t{44100};
    bag.kept["Speech_sampling_time_in_ms"] = std::int32_t{48696};
  }
};

TEST_F(PersistenceDerived, A_sample_beyond_32_bits_is_an_overflow_of_a_load_and_a_save) {
  Keep_Overflow();
  EXPECT_EQ(Failure_Of([&] { Load(); }), 6);
  EXPECT_EQ(Failure_Of([&] { Saved(); }), 6);
  EXPECT_EQ(Failure_Of([&] { Load("Speech_sampling_time_in_ms", std::int32_t{48695}); }), 0);
}

TEST_F(PersistenceDerived, An_overflow_of_a_load_leaves_everything_behind_it_as_loaded) {
  Keep_Overflow();
  bag.kept["Direct_Add"] = Text("YES");
  bag.kept["Words_I_Want"] = Text("f*");
  EXPECT_EQ(Failure_Of([&] { Load(); }), 6);
  EXPECT_EQ(session.sample.Samples_Per_Capture, 1234);
  EXPECT_EQ(session.flags.Settings_Ready_Count, 0);
  EXPECT_EQ(session.settings.Direct_Add_Enabled, "YES");
  EXPECT_EQ(session.settings.Words_I_Want[1], "f*");
}

TEST_F(PersistenceDerived, An_overflow_of_a_save_comes_behind_the_keys_and_the_level) {
  Overflow();
  session.settings.Keep_Digital_Signal_Processing_level = "Top";
  session.settings.Direct_Add_Enabled = "YES";
  KeepingBag saved;
  EXPECT_EQ(Failure_Of([&] { UserControl_WriteProperties(*control, saved); }), 6);
  EXPECT_EQ(saved.writes.size(), 70U);
  EXPECT_EQ(session.settings.Digital_Signal_Processing_Level, 256);
  EXPECT_EQ(session.sample.Samples_Per_Capture, 1234);
  EXPECT_EQ(session.flags.Settings_Ready_Count, 0);
  EXPECT_EQ(session.settings.Direct_Add_Enabled, "YES");
}

TEST_F(PersistenceDerived, A_save_that_fails_at_a_key_leaves_the_level) {
  session.settings.Keep_Digital_Signal_Processing_level = "Top";
  session.settings.Digital_Signal_Processing_Level = 80;
  session.words.Current_Word_no_Processed = 101;
  EXPECT_EQ(Failure_Of([&] { Saved(); }), 9);
  EXPECT_EQ(session.settings.Digital_Signal_Processing_Level, 80);
}

TEST_F(PersistenceDerived, A_save_stores_the_text_of_Direct_Add_as_it_stood_and_then_derives_it) {
  session.settings.Direct_Add = 5;
  session.settings.Direct_Add_Enabled = "NO";
  EXPECT_EQ(Saved().kept.at("Direct_Add"), Text("NO"));
  EXPECT_EQ(session.settings.Direct_Add_Enabled, "YES");
  session.settings.Direct_Add = 0;
  EXPECT_EQ(Saved().kept.at("Direct_Add"), Text("YES"));
  EXPECT_EQ(session.settings.Direct_Add_Enabled, "NO");
}

TEST_F(PersistenceDerived, Only_a_number_above_0_is_a_Direct_Add) {
  const std::vector<std::pair<int, const char*>> Numbers = {
      {-2147483647 - 1, "NO"}, {-1, "NO"}, {0, "NO"}, {1, "YES"}, {2147483647, "YES"}};
  std::string& text = session.settings.Direct_Add_Enabled;
  for (const auto& [number, expected] : Numbers) {
    session.settings.Direct_Add = number;
    text = "?";
    Initialise();
    EXPECT_EQ(text, expected) << "initialised with " << number;
    text = "?";
    Load();
    EXPECT_EQ(text, expected) << "loaded with " << number;
    text = "?";
    Saved();
    EXPECT_EQ(text, expected) << "saved with " << number;
  }
}

TEST_F(PersistenceDerived, The_help_of_a_new_control_finds_everything_derived) {
  bool is_shown = false;
  session.operations.Show_Help = [&](Session& s) {
    is_shown = true;
    EXPECT_EQ(s.flags.Settings_Ready_Count, 2);
    EXPECT_EQ(s.sample.Samples_Per_Capture, 154350);
    EXPECT_EQ(s.settings.Direct_Add_Enabled, "NO");
    EXPECT_EQ(s.settings.Digital_Signal_Processing_Level, 128);
  };
  session.flags.Settings_Ready_Count = 0;
  Initialise();
  EXPECT_TRUE(is_shown);
}

// Controls of one process.

TEST_F(PersistenceDerived, A_control_that_is_loaded_overwrites_the_settings_of_another) {
  NotingContainer other_program;
  const auto other = Control::Make(session, other_program);
  bag.kept = {{"Noise_Sensitivity", std::int16_t{5}}, {"Play_File", Text("one.wav")}};
  Load();
  KeepingBag of_other;
  of_other.kept = {{"Noise_Sensitivity", std::int16_t{7}}, {"Play_File", Text("other.wav")}};
  UserControl_ReadProperties(*other, of_other);
  EXPECT_EQ(session.settings.Noise_Sensitivity, 7);
  EXPECT_EQ(Saved().kept.at("Noise_Sensitivity"), MemberValue(std::int16_t{7}));
  EXPECT_EQ(Saved().kept.at("Play_File"), Text("one.wav"));
  KeepingBag saved;
  UserControl_WriteProperties(*other, saved);
  EXPECT_EQ(saved.kept.at("Play_File"), Text("other.wav"));
}

TEST_F(PersistenceDerived, A_new_control_overwrites_the_settings_of_another) {
  bag.kept = {{"Noise_Sensitivity", std::int16_t{5}}, {"Play_File", Text("one.wav")}};
  Load();
  NotingContainer other_program;
  const auto other = Control::Make(session, other_program);
  UserControl_InitProperties(*other);
  EXPECT_EQ(session.settings.Noise_Sensitivity, 3);
  EXPECT_FALSE(Saved().kept.contains("Noise_Sensitivity"));
  EXPECT_EQ(control->instance.Play_File, "one.wav");
  EXPECT_EQ(other->instance.Play_File, "");
}

}  // namespace
}  // namespace quillspeech
