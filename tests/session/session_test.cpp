#include "session/session.hpp"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/support/test_session.hpp"

namespace quillspeech {
namespace {

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
                        ports.wave_output, ports.data_files});
  EXPECT_EQ(Is_Design_Environment(session), 0);
  EXPECT_NE(session.flags.Design_Environment_Tested, 0);
}

TEST(Session, A_new_one_has_the_values_of_a_new_control) {
  TestSession test;
  const Session& session = test.session;
  EXPECT_EQ(session.settings.Stop_everything_now, "NO");
  EXPECT_EQ(session.settings.Digital_Signal_Processing_Level, 128);
  EXPECT_EQ(session.settings.Noise_Sensitivity, 3);
  EXPECT_EQ(session.settings.Noise_Word_No_CutOff, 4);
  EXPECT_EQ(session.settings.Sample_processing_resolution, 500);
  EXPECT_EQ(session.settings.Words_I_Want[1], "*");
  EXPECT_EQ(session.sample.Samples_Per_Capture, 154350);
  EXPECT_EQ(session.flags.Operation_Status, "");
  EXPECT_EQ(session.flags.Session_Started, 0);
  EXPECT_EQ(session.flags.Settings_Ready_Count, 2);
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

}  // namespace
}  // namespace quillspeech
