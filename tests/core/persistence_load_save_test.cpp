// A control that is loaded and saved.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/conversions.hpp"
#include "core/persistence.hpp"
#include "tests/core/persistence_fixture.hpp"
#include "tests/support/failures.hpp"
#include "tests/support/member_texts.hpp"

namespace quillspeech {
namespace {

using tests::Failure_Of;

MemberValue Text(const char* text) { return std::string(text); }

class LoadAndSave : public tests::PersistenceTest {};

// A load.

TEST_F(LoadAndSave, A_load_of_nothing_gives_the_read_defaults) {
  Load();
  EXPECT_EQ(session.settings.Consider_this_Lang_File_to_Add, "User.SAY");
  EXPECT_EQ(session.settings.Consider_this_Lang_File_to_match, "User.SAY");
  EXPECT_EQ(session.results.Platinum_Word_Font, "Arial");
  EXPECT_EQ(session.settings.Play_this_file_for_Start, "");
  EXPECT_EQ(session.settings.Play_this_file_for_Stop, "");
  EXPECT_EQ(session.settings.Play_this_file_on_Initialization, "");
  EXPECT_EQ(session.settings.Words_I_Want[1], "*");
  EXPECT_EQ(session.sample.Samples_Per_Capture, 154350);
  EXPECT_EQ(session.flags.Settings_Ready_Count, 2);
}

TEST_F(LoadAndSave, A_load_tells_the_level_text_and_leaves_the_level) {
  Load();
  EXPECT_EQ(session.settings.Keep_Digital_Signal_Processing_level, "Up");
  EXPECT_EQ(session.settings.Digital_Signal_Processing_Level, 0);
  session.settings.Digital_Signal_Processing_Level = 100;
  Load("Keep_Digital_Signal_Processing_level", Text("Top"));
  EXPECT_EQ(session.settings.Digital_Signal_Processing_Level, 100);
}

TEST_F(LoadAndSave, Texts_are_trimmed_and_numbers_converted_from_their_trimmed_text) {
  bag.kept["Open_this_Wave_File"] = Text("  a b.wav  ");
  bag.kept["Play_File"] = Text(" p.wav ");
  bag.kept["Noise_Sensitivity"] = Text(" 4.5 ");
  bag.kept["Voice_Capture_Delay"] = Text("&HFF");
  bag.kept["Enable_Speech_Engine"] = std::int32_t{12};
  bag.kept["Noise_Word_No_CutOff"] = std::int32_t{255};
  bag.kept["Memory_Clean"] = true;
  Load();
  EXPECT_EQ(session.settings.Open_this_Wave_File, "a b.wav");
  EXPECT_EQ(control->instance.Play_File, "p.wav");
  EXPECT_EQ(session.settings.Noise_Sensitivity, 4);
  EXPECT_EQ(session.settings.Voice_Capture_Delay, 255);
  EXPECT_EQ(session.settings.Enable_Speech_Engine, "12");
  EXPECT_EQ(session.settings.Noise_Word_No_CutOff, 255);
  EXPECT_EQ(session.settings.Memory_Clean, "True");
}

TEST_F(LoadAndSave, A_value_that_cannot_be_converted_goes_to_the_container_and_ends_the_load) {
  session.settings.Noise_Word_No_CutOff = 9;
  session.flags.Settings_Ready_Count = 0;
  EXPECT_EQ(Failure_Of([&] { Load("Noise_Sensitivity", Text("many")); }), 13);
  EXPECT_EQ(session.settings.Memory_Clean, "YES");      // a key before it
  EXPECT_EQ(session.settings.Noise_Word_No_CutOff, 9);  // and one after
  EXPECT_EQ(session.flags.Settings_Ready_Count, 0);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(LoadAndSave, Unknown_keys_are_never_asked_for) {
  Load("Enabled", false);
  EXPECT_TRUE(control->Enabled());
}

TEST_F(LoadAndSave, No_word_filter_survives_a_load) {
  Load("Words_I_Want", Text("f*"));
  EXPECT_EQ(session.settings.Words_I_Want[1], "*");
}

TEST_F(LoadAndSave, The_key_Direct_Add_has_no_effect_on_a_load) {
  Load("Direct_Add", Text("YES"));
  EXPECT_EQ(session.settings.Direct_Add_Enabled, "NO");
  session.settings.Direct_Add = 5;
  Load("Direct_Add", Text("NO"));
  EXPECT_EQ(session.settings.Direct_Add_Enabled, "YES");
}

TEST_F(LoadAndSave, Direct_Add_is_always_stored) {
  Load();
  EXPECT_EQ(Saved().kept.at("Direct_Add"), Text("NO"));
  session.settings.Direct_Add = 1;
  Load();
  EXPECT_EQ(Saved().kept.at("Direct_Add"), Text("YES"));
}

TEST_F(LoadAndSave, A_stop_survives_a_load_and_is_lifted_by_the_next_start) {
  Initialise();
  session.settings.Stop_everything_now = "YES";
  bag = Saved();
  session.settings.Stop_everything_now = "NO";
  Load();
  EXPECT_EQ(session.settings.Stop_everything_now, "YES");
  Start_Real_Action(*control);
  EXPECT_EQ(session.settings.Stop_everything_now, "NO");
}

TEST_F(LoadAndSave, An_empty_font_is_left_out_by_a_save_and_comes_back_as_Arial) {
  session.results.Platinum_Word_Font = "";
  bag = Saved();
  EXPECT_FALSE(bag.kept.contains("Platinum_Word_Font"));
  Load();
  EXPECT_EQ(session.results.Platinum_Word_Font, "Arial");
}

TEST_F(LoadAndSave, The_last_result_comes_back_until_the_first_start_clears_it) {
  Initialise();
  session.flags.Operation_Status = "Finish";
  session.results.Platinum_Words_Available = 2;
  session.results.Platinum_Best_Table[1] = "hello";
  session.results.Platinum_Word_Table[1] = "hello";
  session.filter.Voice_Word_Table[1] = "fths";
  bag = Saved();
  Forget_Settings(session);
  Load();
  EXPECT_EQ(session.flags.Operation_Status, "Finish");
  EXPECT_EQ(session.results.Platinum_Words_Available, 2);
  EXPECT_EQ(session.results.Platinum_Best_Table[1], "hello");
  EXPECT_EQ(session.filter.Voice_Word_Table[1], "fths");
  Start_Real_Action(*control);
  EXPECT_EQ(session.results.Platinum_Words_Available, 0);
  EXPECT_EQ(session.results.Platinum_Best_Table[1], "");
}

// A save.

TEST_F(LoadAndSave, A_save_brings_the_level_in_line_with_its_text) {
  const std::vector<std::pair<const char*, int>> Levels = {
      {"Top", 256},   {"Up", 128}, {"Middle", 100}, {"Down", 80},
      {" Top ", 256}, {"top", 7},  {"", 7}};
  for (const auto& [text, level] : Levels) {
    session.settings.Digital_Signal_Processing_Level = 7;
    session.settings.Keep_Digital_Signal_Processing_level = text;
    Saved();
    EXPECT_EQ(session.settings.Digital_Signal_Processing_Level, level) << text;
  }
}

TEST_F(LoadAndSave, A_level_that_was_set_is_lost_at_the_next_save) {
  Load();
  tests::Let_Text(*control, "Keep_Digital_Signal_Processing_level", "Top");
  EXPECT_EQ(session.settings.Digital_Signal_Processing_Level, 256);
  Saved();
  EXPECT_EQ(session.settings.Digital_Signal_Processing_Level, 128);
}

TEST_F(LoadAndSave, A_save_makes_the_settings_complete_and_counts_the_samples) {
  session.settings.Speech_sampling_time_in_ms = 4000;
  session.settings.Set_Recording_Frequency = 8000;
  session.flags.Settings_Ready_Count = 0;
  Saved();
  EXPECT_EQ(session.sample.Samples_Per_Capture, 32000);
  EXPECT_EQ(session.flags.Settings_Ready_Count, 2);
}

TEST_F(LoadAndSave, A_save_takes_the_wanted_word_of_the_current_word) {
  session.settings.Words_I_Want[3] = "third";
  session.words.Current_Word_no_Processed = 3;
  EXPECT_EQ(Saved().kept.at("Words_I_Want"), Text("third"));
  session.words.Current_Word_no_Processed = 1;
  session.settings.Words_I_Want[1] = "*";
  EXPECT_FALSE(Saved().kept.contains("Words_I_Want"));
}

TEST_F(LoadAndSave, A_word_number_outside_0_to_100_ends_a_save) {
  for (const int number : {-1, 101}) {
    session.words.Current_Word_no_Processed = number;
    session.flags.Settings_Ready_Count = 0;
    EXPECT_EQ(Failure_Of([&] { Saved(); }), 9);
    EXPECT_EQ(session.flags.Settings_Ready_Count, 0);
  }
  session.words.Current_Word_no_Processed = 100;
  EXPECT_EQ(Failure_Of([&] { Saved(); }), 0);
}

// Where Send_of_no stands.

TEST_F(LoadAndSave, Keys_before_Send_of_no_go_where_it_pointed_before_the_load) {
  session.settings.Send_of_no = 4;
  bag.kept = {{"Filter_Slot_Data", Text("slot")},
              {"Filter_Slot_Data_Weight", std::int16_t{5}},
              {"Platinum_Word_Percentage", std::int16_t{6}},
              {"Send_of_no", std::int32_t{9}},
              {"Voice_Word_Matched", Text("matched")},
              {"Words_I_Check", std::int16_t{7}}};
  Load();
  EXPECT_EQ(session.filter.Filter_Slot_Table[4], "slot");
  EXPECT_EQ(session.filter.Filter_Weight_Table[4], 5);
  EXPECT_EQ(session.results.Platinum_Score_Table[4], 6);
  EXPECT_EQ(session.filter.Voice_Word_Matched_Table[9], "matched");
  EXPECT_EQ(session.filter.Word_Check_Flags[9], 7);
}

TEST_F(LoadAndSave, An_index_outside_its_table_ends_a_load_and_a_save) {
  for (const int send : {-1, 1001}) {
    session.settings.Send_of_no = send;
    EXPECT_EQ(Failure_Of([&] { Load(); }), 9);
    EXPECT_EQ(bag.reads.back().first, "Filter_Slot_Data");
    EXPECT_EQ(Failure_Of([&] { Saved(); }), 9);
  }
  session.settings.Send_of_no = 1000;
  EXPECT_EQ(Failure_Of([&] { Saved(); }), 9);  // the words matched end at 100
  EXPECT_EQ(Failure_Of([&] { Load("Send_of_no", std::int32_t{101}); }), 9);
  EXPECT_EQ(bag.reads.back().first, "Voice_Word_Matched");
  session.settings.Send_of_no = 1000;
  EXPECT_EQ(Failure_Of([&] { Load("Send_of_no", std::int32_t{100}); }), 0);
  EXPECT_EQ(Failure_Of([&] { Saved(); }), 0);
}

}  // namespace
}  // namespace quillspeech
