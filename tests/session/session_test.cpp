#include "session/session.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/failures.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech {
namespace {

using tests::Failure_Of;
using tests::TestSession;

TEST(ResetResults, It_clears_the_words_the_scores_the_best_the_font_and_the_file_run) {
  TestSession test;
  Results& results = test.session.results;
  test.session.flags.File_Run_Active = 1;
  results.Platinum_Words_Available = 1000;
  results.Platinum_Word_Font = "Courier";
  for (const std::int64_t i : {0, 1, 1000}) {
    results.Platinum_Word_Table[i] = "word";
    results.Platinum_Score_Table[i] = 80;
  }
  for (std::int64_t i = 0; i <= 7; ++i) results.Platinum_Best_Table[i] = "best";
  Reset_Results(test.session);
  EXPECT_EQ(test.session.flags.File_Run_Active, 0);
  EXPECT_EQ(results.Platinum_Words_Available, 0);
  EXPECT_EQ(results.Platinum_Word_Font, "");
  for (const std::int64_t i : {0, 1, 1000}) {
    EXPECT_EQ(results.Platinum_Word_Table[i], "");
    EXPECT_EQ(results.Platinum_Score_Table[i], 0);
  }
  for (std::int64_t i = 0; i <= 7; ++i) EXPECT_EQ(results.Platinum_Best_Table[i], "");
}

TEST(ResetResults, It_leaves_the_ranks_the_matched_record_and_the_strings_of_the_word) {
  TestSession test;
  test.session.results.Platinum_Rank_Table[1] = 80;
  test.session.results.Matched_Record_No = 4;
  test.session.filter.Voice_Word_Table[1] = "fths";
  test.session.filter.Voice_Magic_Elements = "_4";
  Reset_Results(test.session);
  EXPECT_EQ(test.session.results.Platinum_Rank_Table[1], 80);
  EXPECT_EQ(test.session.results.Matched_Record_No, 4);
  EXPECT_EQ(test.session.filter.Voice_Word_Table[1], "fths");
  EXPECT_EQ(test.session.filter.Voice_Magic_Elements, "_4");
}

std::int16_t Answer_For(const std::string& path) {
  TestSession test;
  test.host.path = path;
  return Is_Design_Environment(test.session);
}

TEST(DesignEnvironment, Each_of_the_five_host_programs_is_one) {
  for (const char* name : {"vb.exe", "vb32.exe", "vb5.exe", "vb5cce.exe", "vb6.exe"}) {
    EXPECT_EQ(Answer_For("C:\\Tools\\" + std::string(name)), -1) << name;
  }
}

TEST(DesignEnvironment, Any_other_host_is_none) {
  for (const char* name : {"host.exe", "vb7.exe", "vb6.exe.bak", "myvb6.exe", "vb6", "vb6.exe "}) {
    EXPECT_EQ(Answer_For("C:\\Tools\\" + std::string(name)), 0) << name;
  }
}

TEST(DesignEnvironment, A_host_name_in_capitals_counts_alike) {
  EXPECT_EQ(Answer_For("C:\\TOOLS\\VB6.EXE"), -1);
  EXPECT_EQ(Answer_For("c:\\tools\\Vb5CCE.Exe"), -1);
}

TEST(DesignEnvironment, A_folder_that_bears_one_of_the_names_does_not_count) {
  EXPECT_EQ(Answer_For("C:\\vb6.exe\\host.exe"), 0);
  EXPECT_EQ(Answer_For("C:\\vb6.exe\\"), 0);
}

TEST(DesignEnvironment, A_path_without_a_separator_is_taken_whole_as_the_name) {
  EXPECT_EQ(Answer_For("vb6.exe"), -1);
  EXPECT_EQ(Answer_For("host.exe"), 0);
  EXPECT_EQ(Answer_For(""), 0);
}

TEST(DesignEnvironment, A_colon_parts_the_name_too_and_a_slash_does_not) {
  EXPECT_EQ(Answer_For("C:vb6.exe"), -1);
  EXPECT_EQ(Answer_For("C:/tools/vb6.exe"), 0);
}

TEST(DesignEnvironment, The_path_is_cut_at_its_first_zero_character) {
  EXPECT_EQ(Answer_For(std::string("C:\\vb6.exe\0junk", 15)), -1);
}

TEST(DesignEnvironment, Only_261_characters_of_the_path_are_usable) {
  EXPECT_EQ(Answer_For("C:\\" + std::string(250, 'x') + "\\vb6.exe"), -1);   // 261 characters
  EXPECT_EQ(Answer_For("C:\\" + std::string(251, 'x') + "\\vb6.exe"), 0);    // 262
  EXPECT_EQ(Answer_For("C:\\" + std::string(250, 'x') + "\\vb6.exe2"), -1);  // cut to 261
}

TEST(DesignEnvironment, The_answer_is_asked_once_and_never_changes) {
  TestSession test;
  test.host.path = "C:\\vb6.exe";
  EXPECT_EQ(Is_Design_Environment(test.session), -1);
  test.host.path = "C:\\host.exe";
  EXPECT_EQ(Is_Design_Environment(test.session), -1);
  EXPECT_EQ(test.host.questions, 1);
}

TEST(DesignEnvironment, A_host_that_cannot_be_told_is_none_and_is_not_asked_again) {
  TestSession test;
  EXPECT_EQ(Is_Design_Environment(test.session), 0);
  test.host.path = "C:\\vb6.exe";
  EXPECT_EQ(Is_Design_Environment(test.session), 0);
  EXPECT_EQ(test.host.questions, 1);
}

TEST(DesignEnvironment, A_failure_while_asking_leaves_the_answer_false) {
  struct FailingHost final : HostProgram {
    std::optional<std::string> Path() const override { throw std::runtime_error("no host"); }
  } host;
  TestSession test;
  Ports ports = test.session.ports;
  Session session(Ports{ports.events, ports.boxes, host, ports.cues, ports.shell, ports.riff_files,
                        ports.wave_input, ports.wave_output, ports.data_files, ports.dialogs,
                        ports.views});
  EXPECT_EQ(Is_Design_Environment(session), 0);
  EXPECT_NE(session.flags.Design_Environment_Tested, 0);
}

struct InitialText {
  const char* name;
  std::string value;
  std::string initial;
};

std::vector<InitialText> Texts_Of(const Session& session) {
  const Settings& settings = session.settings;
  return {
      {"Stop_everything_now", settings.Stop_everything_now, "NO"},
      {"Add_To_Language", settings.Add_To_Language, "NO"},
      {"Always_Restart_on_Error", settings.Always_Restart_on_Error, "NO"},
      {"Consider_this_Engine_for_Recognition", settings.Consider_this_Engine_for_Recognition, ""},
      {"Consider_this_Lang_File_to_Add", settings.Consider_this_Lang_File_to_Add, "UserTemp.SAY"},
      {"Consider_this_Lang_File_to_match", settings.Consider_this_Lang_File_to_match,
       "UserTemp.SAY"},
      {"Direct_Add_Enabled", settings.Direct_Add_Enabled, "NO"},
      {"Enable_Artificial_Intelligence", settings.Enable_Artificial_Intelligence, "YES"},
      {"Enable_Speech_Engine", settings.Enable_Speech_Engine, "YES"},
      {"Explode_out_all_Engine", settings.Explode_out_all_Engine, "YES"},
      {"Filter_Slot_Data", session.filter.Filter_Slot_Table[0], ""},
      {"I_want_Status_Animation", settings.I_want_Status_Animation, "NO"},
      {"Keep_Digital_Signal_Processing_level", settings.Keep_Digital_Signal_Processing_level, ""},
      {"Keep_Engine_Frequency_Input_Flow", settings.Keep_Engine_Frequency_Input_Flow, "Filter All"},
      {"Memory_Clean", settings.Memory_Clean, "YES"},
      {"Notify_if_no_language_match", settings.Notify_if_no_language_match, "NO"},
      {"Open_this_Wave_File", settings.Open_this_Wave_File, ""},
      {"Operation_Status", session.flags.Operation_Status, ""},
      {"Platinum_Words", session.results.Platinum_Word_Table[1], ""},
      {"Platinum_Word_Best", session.results.Platinum_Best_Table[1], ""},
      {"Platinum_Word_Second_Best", session.results.Platinum_Best_Table[2], ""},
      {"Platinum_Word_Third_Best", session.results.Platinum_Best_Table[3], ""},
      {"Platinum_Word_Fourth_Best", session.results.Platinum_Best_Table[4], ""},
      {"Platinum_Word_Fifth_Best", session.results.Platinum_Best_Table[5], ""},
      {"Platinum_Word_Sixth_Best", session.results.Platinum_Best_Table[6], ""},
      {"Platinum_Word_Seventh_Best", session.results.Platinum_Best_Table[7], ""},
      {"Platinum_Word_Font", session.results.Platinum_Word_Font, "MS Sans Serif"},
      {"Play_this_file_for_Start", settings.Play_this_file_for_Start, "start.wav"},
      {"Play_this_file_for_Stop", settings.Play_this_file_for_Stop, "stop.wav"},
      {"Play_this_file_on_Initialization", settings.Play_this_file_on_Initialization, "backon.wav"},
      {"Send_words_one_by_one", settings.Send_words_one_by_one, "YES"},
      {"Show_Audio_Graph", settings.Show_Audio_Graph, "YES"},
      {"Show_this_Image_for_Start", settings.Show_this_Image_for_Start, ""},
      {"Show_this_Image_for_Stop", settings.Show_this_Image_for_Stop, ""},
      {"Speech_echo_feature", settings.Speech_echo_feature, "NO"},
      {"This_Audio_Process", settings.This_Audio_Process, "YES"},
      {"This_speech_sample_process_Start_only", settings.This_speech_sample_process_Start_only,
       "NO"},
      {"This_speech_sample_process_middle_only", settings.This_speech_sample_process_middle_only,
       "NO"},
      {"This_speech_sample_process_end_only", settings.This_speech_sample_process_end_only, "NO"},
      {"Voice_Magic_Elements", session.filter.Voice_Magic_Elements, ""},
      {"Voice_Word", session.filter.Voice_Word_Table[1], ""},
      {"Voice_Word_Matched", session.filter.Voice_Word_Matched_Table[0], ""},
      {"Words_I_Want", settings.Words_I_Want[1], "*"},
  };
}

struct InitialNumber {
  const char* name;
  std::int64_t value;
  std::int64_t initial;
};

std::vector<InitialNumber> Numbers_Of(const Session& session) {
  const Settings& settings = session.settings;
  const WordTables& words = session.words;
  const Filter& filter = session.filter;
  return {
      {"Current_Processings_Available", words.Current_Processings_Available, 0},
      {"Current_Vyanjana_no_Processed", words.Current_Vyanjana_no_Processed, 0},
      {"Current_Word_no_Processed", words.Current_Word_no_Processed, 0},
      {"Digital_Signal_Processing_Level", settings.Digital_Signal_Processing_Level, 128},
      {"Direct_Add", settings.Direct_Add, 0},
      {"Engine_Category", session.slice.Engine_Category, 0},
      {"Engine_Category_Weight", filter.Engine_Category_Weight, 0},
      {"Engine_Explode_Limit", settings.Engine_Explode_Limit, 10},
      {"Filter_Filled_Slots", filter.Filter_Filled_Slots, 0},
      {"Filter_Pass_Value", settings.Filter_Pass_Value, 1},
      {"Filter_Slot_Data_Weight", filter.Filter_Weight_Table[0], 0},
      {"No_of_Processings", words.No_of_Processings, 0},
      {"Noise_Sensitivity", settings.Noise_Sensitivity, 3},
      {"Noise_Word_No_CutOff", settings.Noise_Word_No_CutOff, 4},
      {"Platinum_Word_Percentage", session.results.Platinum_Score_Table[0], 0},
      {"Platinum_Words_Available", session.results.Platinum_Words_Available, 0},
      {"Probable_no_of_words_recognized", words.Probable_no_of_words_recognized, 0},
      {"Sample_Overlap_Bytes", settings.Sample_Overlap_Bytes, 0},
      {"Sample_processing_resolution", settings.Sample_processing_resolution, 500},
      {"Samples_Per_Capture", session.sample.Samples_Per_Capture, 154350},
      {"Send_of_no", settings.Send_of_no, 0},
      {"Set_Recording_Frequency", settings.Set_Recording_Frequency, 22050},
      {"Settings_Ready_Count", session.flags.Settings_Ready_Count, 2},
      {"Speech_sampling_time_in_ms", settings.Speech_sampling_time_in_ms, 7000},
      {"Voice_Capture_Delay", settings.Voice_Capture_Delay, 5},
      {"Voice_Processing_Delay", settings.Voice_Processing_Delay, 15000},
      {"Voice_Words_Explode_Count", filter.Voice_Words_Explode_Count, 0},
      {"Voice_Words_Matched_Count", filter.Voice_Words_Matched_Count, 0},
      {"Words_I_Check", filter.Word_Check_Flags[0], 0},
      {"Words_to_Scan", settings.Words_to_Scan, 1},
      {"Words_to_Scan_Start", settings.Words_to_Scan_Start, 0},  // until Words_to_Scan is set
  };
}

TEST(Session, A_new_one_has_the_values_of_a_new_control) {
  TestSession test;
  for (const InitialText& text : Texts_Of(test.session)) {
    EXPECT_EQ(text.value, text.initial) << text.name;
  }
  for (const InitialNumber& number : Numbers_Of(test.session)) {
    EXPECT_EQ(number.value, number.initial) << number.name;
  }
}

TEST(Session, A_new_one_is_not_started_and_wants_one_word_pattern_only) {
  TestSession test;
  const Session& session = test.session;
  EXPECT_EQ(session.flags.Session_Started, 0);
  EXPECT_EQ(session.flags.Session_Alive, 0);
  EXPECT_EQ(session.flags.File_Run_Active, 0);
  for (int j = 0; j <= 100; ++j) {
    EXPECT_EQ(session.settings.Words_I_Want[j], j == 1 ? "*" : "") << j;
  }
}

// The last cell can be used, its successor not: failure 9.
template <class Table>
void Expect_Bounds(Table& table, std::int64_t last, const char* name) {
  EXPECT_EQ(Failure_Of([&] { table[0] = {}; }), 0) << name;
  EXPECT_EQ(Failure_Of([&] { table[last] = {}; }), 0) << name;
  EXPECT_EQ(Failure_Of([&] { table[last + 1] = {}; }), 9) << name;
  EXPECT_EQ(Failure_Of([&] { table[-1] = {}; }), 9) << name;
}

TEST(Session, Each_table_that_a_host_reads_ends_where_it_should) {
  TestSession test;
  Session& session = test.session;
  Expect_Bounds(session.results.Platinum_Best_Table, 7, "Platinum_Best_Table");
  Expect_Bounds(session.results.Platinum_Word_Table, 1000, "Platinum_Word_Table");
  Expect_Bounds(session.results.Platinum_Score_Table, 1000, "Platinum_Score_Table");
  Expect_Bounds(session.filter.Voice_Word_Table, 100, "Voice_Word_Table");
  Expect_Bounds(session.filter.Voice_Word_Matched_Table, 100, "Voice_Word_Matched_Table");
  Expect_Bounds(session.settings.Words_I_Want, 100, "Words_I_Want");
  Expect_Bounds(session.filter.Word_Check_Flags, 100, "Word_Check_Flags");
  Expect_Bounds(session.filter.Filter_Slot_Table, 1000, "Filter_Slot_Table");
  Expect_Bounds(session.filter.Filter_Weight_Table, 1000, "Filter_Weight_Table");
  Expect_Bounds(session.filter.Engine_Table, 100, "Engine_Table");
}

TEST(Session, A_loop_that_outlives_it_ticks_no_more) {
  TestSession ground;
  int ticks = 0;
  const auto All = {FormTimer::Timer1, FormTimer::Timer2, FormTimer::Timer3, FormTimer::Timer4,
                    FormTimer::Timer5};
  {
    const Session session(ground.session.ports);
    for (const FormTimer timer : All) {
      ground.events.On_Tick(timer, [&] { ++ticks; });
      ground.events.Enable(timer, true);
    }
  }
  for (const FormTimer timer : All) {
    EXPECT_FALSE(ground.events.Is_Enabled(timer));
    ground.events.Enable(timer, true);
  }
  ground.events.Run_For(std::chrono::seconds(2));
  EXPECT_EQ(ticks, 0);
}

TEST(Session, Only_an_exact_YES_stops_everything) {
  TestSession test;
  for (const char* text : {"NO", "", "yes", "YES "}) {
    test.session.settings.Stop_everything_now = text;
    EXPECT_FALSE(Is_Stopped(test.session)) << text;
  }
  test.session.settings.Stop_everything_now = "YES";
  EXPECT_TRUE(Is_Stopped(test.session));
}

TEST(Session, A_box_carries_its_text_title_icon_and_buttons) {
  TestSession test;
  test.boxes.answers = {BoxAnswer::Yes};
  EXPECT_EQ(Show_Box(test.session, "text", "title", BoxIcon::Stop, BoxButtons::YesNo),
            BoxAnswer::Yes);
  ASSERT_EQ(test.boxes.shown.size(), 1U);
  EXPECT_EQ(test.boxes.shown[0].box.text, "text");
  EXPECT_EQ(test.boxes.shown[0].box.title, "title");
  EXPECT_EQ(test.boxes.shown[0].box.icon, BoxIcon::Stop);
  EXPECT_EQ(test.boxes.shown[0].box.buttons, BoxButtons::YesNo);
}

TEST(SessionDialogs, A_text_and_a_file_are_asked_for_on_the_platform) {
  TestSession test;
  test.dialogs.texts = {"seven"};
  test.dialogs.files = {"b.SAY"};
  EXPECT_EQ(Ask_Text(test.session, "Which number?", "Find:", "6"), "seven");
  EXPECT_EQ(Ask_File(test.session, "Open", "*.SAY", "a.SAY"), "b.SAY");
  EXPECT_EQ(Ask_Text(test.session, "Which number?", "Find:"), "");
  EXPECT_EQ(test.dialogs.shown_boxes.at(0).title, "Find:");
  EXPECT_EQ(test.dialogs.shown_boxes.at(0).prompt, "Which number?");
  EXPECT_EQ(test.dialogs.shown_boxes.at(0).text, "6");
  EXPECT_EQ(test.dialogs.shown_dialogs.at(0).title, "Open");
  EXPECT_EQ(test.dialogs.shown_dialogs.at(0).pattern, "*.SAY");
  EXPECT_EQ(test.dialogs.shown_dialogs.at(0).name, "a.SAY");
}

}  // namespace
}  // namespace quillspeech
