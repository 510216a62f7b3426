// The Language Editor when the disk, the file or the screen does not go along.
#include <algorithm>
#include <functional>
#include <utility>

#include "tests/editors/language_editor_fixture.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech::tests {
namespace {

using datafiles::SayRecord;

constexpr auto Nothing_Chosen =
    "Quillspeech Language Editor|Please select a entry from the dropdown list for editing.";

struct LanguageEditorFaults : LanguageEditorTest {
  void Enter(const std::vector<std::pair<std::string, std::string>>& texts) {
    for (const auto& [control, text] : texts) Window().Type(control, text);
  }
  // A click whose question is answered with Yes.
  void Agree(const std::string& button) {
    boxes.answers = {BoxAnswer::Yes};
    Click(button);
    boxes.answers.clear();
  }
  void Let_The_Next_Write_Fail() { data_files.write_faults[data_files.writes + 1] = {}; }
  void Name_A_File_That_Cannot_Be_Opened() {
    data_files.refused["bad.SAY"] = Failure::Path_Not_Found;
    session.settings.Consider_this_Lang_File_to_Add = "bad.SAY";
  }
  std::int64_t Records_On_Disk() {
    return static_cast<std::int64_t>(Bytes_On_Disk()) / SayRecord::Record_Bytes;
  }
};

TEST_F(LanguageEditorFaults, The_first_record_that_is_saved_counts_and_a_new_one_goes_behind_it) {
  Open({});
  Enter({{"Combo5", "hello"}, {"Combo10", "90"}});
  Agree("Command14");
  EXPECT_NE(Window().Caption().find("Record No.1 out of 1"), std::string::npos);
  Agree("Command9");
  EXPECT_EQ(Records_On_Disk(), 2);
  EXPECT_EQ(Word_On_Disk(1), "hello");
  EXPECT_EQ(On_Disk(2).RecordNo(), 2);
}

TEST_F(LanguageEditorFaults, In_a_new_file_a_pattern_is_added_behind_the_record_that_was_saved) {
  Open({});
  Enter({{"Combo2", "a*"}, {"Combo3", "90"}});
  Agree("Command16");
  Enter({{"Combo2", "b*"}, {"Combo3", "80"}});
  Agree("Command5");
  EXPECT_EQ(Records_On_Disk(), 2);
  EXPECT_EQ(On_Disk(1).LikeCount(), 1);
  EXPECT_EQ(On_Disk(2).LikeCount(), 2);
}

TEST_F(LanguageEditorFaults,
       A_record_that_is_written_behind_the_end_raises_the_count_to_its_number) {
  Open({Record().Word("one").Number(5), Record()});
  editor.Write_Record();
  EXPECT_EQ(session.data.Main_Record_Count, 5);
  EXPECT_EQ(Records_On_Disk(), 5);
}

TEST_F(LanguageEditorFaults, A_record_that_says_another_number_is_written_there) {
  Open({Record().Word("one"), Record().Word("two").Number(3), Record().Word("three")}, 2);
  Choose("mnuNext");
  EXPECT_EQ(Told(), Texts{"Quillspeech Language Editor|No More Records"});
  EXPECT_EQ(Word_On_Disk(3), "two");
  EXPECT_EQ(Word_On_Disk(2), "two");
}

TEST_F(LanguageEditorFaults, A_new_record_that_the_disk_refuses_leaves_no_hole_for_the_next) {
  Open(Three_Records());
  Let_The_Next_Write_Fail();
  Agree("Command9");
  EXPECT_EQ(session.data.Main_Record_Count, 3);
  EXPECT_EQ(Current(), 1);
  EXPECT_EQ(Lines("Combo5"), Texts{"one"});
  EXPECT_EQ(editor.Like_Counter, 1);
  Agree("Command9");
  EXPECT_EQ(Records_On_Disk(), 4);
  EXPECT_EQ(On_Disk(4).RecordNo(), 4);
}

TEST_F(LanguageEditorFaults, An_added_entry_that_the_disk_refuses_can_be_added_again) {
  Open({Record().Pattern("a*", 90).Differentiator("oa", 1, 3), Record()});
  Enter({{"Combo2", "b*"}, {"Combo3", "70"}, {"Combo7", "2"}, {"Combo6", "fth"}, {"Combo9", "4"}});
  for (const std::string button : {"Command5", "Command4"}) {
    const auto before = data_files.files;
    const std::int64_t number = Current();
    const std::int64_t records = Records_On_Disk();
    Let_The_Next_Write_Fail();
    Agree(button);
    EXPECT_EQ(data_files.files, before) << button;
    EXPECT_EQ(session.data.Main_Record_Count, records) << button;
    EXPECT_EQ(Current(), number) << button;
    Enter({{"Combo7", "2"}, {"Combo6", "fth"}, {"Combo9", "4"}});
    Agree(button);
    EXPECT_EQ(Records_On_Disk(), records + 1) << button;
    EXPECT_EQ(On_Disk(records + 1).RecordNo(), records + 1) << button;
  }
  EXPECT_EQ(On_Disk(3).LikeCount(), 2);
  EXPECT_EQ(Trimmed(On_Disk(3).LikeProtocols(2)), "b*");
  EXPECT_EQ(On_Disk(4).DifferentiatorCount(), 2);
}

TEST_F(LanguageEditorFaults, A_change_of_the_record_that_the_disk_refuses_is_not_in_memory_either) {
  for (const std::string command : {"mnuSCut", "mnuSpaste", "mnuDelete", "mnuLCrht", "mnuSFD"}) {
    Open(Three_Records());
    const SayRecord before = editor.Record();
    boxes.answers = {BoxAnswer::Yes};
    Let_The_Next_Write_Fail();
    Choose(command, "mine");
    EXPECT_TRUE(std::ranges::equal(editor.Record().Bytes(), before.Bytes())) << command;
    EXPECT_EQ(Lines("Combo5"), Texts{"one"}) << command;
    boxes.answers.clear();
    editor.Unload();
  }
}

// What a save has stored stays in memory, so that the second save stores it once more.
TEST_F(LanguageEditorFaults, A_word_whose_save_failed_reaches_the_file_with_the_next_save) {
  Open({Record().Word("one", 10)});
  Enter({{"Combo5", "hello"}, {"Combo10", "80"}});
  Let_The_Next_Write_Fail();
  Agree("Command14");
  EXPECT_EQ(On_Disk().WordCount(), 1);
  Agree("Command14");
  EXPECT_EQ(On_Disk().WordCount(), 3);
  EXPECT_EQ(Trimmed(On_Disk().Words(2)), "hello");
  EXPECT_EQ(Trimmed(On_Disk().Words(3)), "hello");
}

TEST_F(LanguageEditorFaults, After_a_31st_pattern_was_added_in_vain_the_way_back_is_open) {
  Record full;
  for (int i = 1; i <= 30; ++i) full.Pattern("p" + std::to_string(i), i);
  Open({full});
  Enter({{"Combo2", "more*"}, {"Combo3", "80"}});
  Agree("Command5");
  EXPECT_EQ(Records_On_Disk(), 1);
  Choose("mnuPrevious");  // which writes the record that was begun
  EXPECT_EQ(Current(), 1);
  EXPECT_EQ(Records_On_Disk(), 2);
  EXPECT_EQ(On_Disk(1).LikeCount(), 30);
  EXPECT_EQ(On_Disk(2).LikeCount(), 31);
}

TEST_F(LanguageEditorFaults, The_last_of_50_differentiators_cannot_be_deleted) {
  Record full;
  for (int i = 1; i <= 50; ++i) full.Differentiator("oa", i, i);
  Open({full});
  const auto before = data_files.files;
  ASSERT_TRUE(Window().Select("Combo7", 49));
  Click("Command17");
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_EQ(data_files.files, before);
}

TEST_F(LanguageEditorFaults, A_rating_that_is_not_answered_is_0_and_the_word_is_changed) {
  Open({Record().Word("one", 77)});
  ASSERT_TRUE(Window().Select("Combo5", 0));
  dialogs.texts = {"eins", ""};
  Click("Command13");
  EXPECT_EQ(Word_On_Disk(), "eins");
  EXPECT_EQ(On_Disk().WordRatings(1), 0);
}

TEST_F(LanguageEditorFaults, A_pattern_from_memory_is_no_chosen_entry) {
  session.words.Word_Count_Log[0] = 1;
  session.filter.Voice_Word_Table[1] = "fths";
  Open({Record().Pattern("a*", 90).Pattern("b*", 80)});
  const auto before = data_files.files;
  ASSERT_TRUE(Window().Select("Combo2", 1));
  Click("Command3");
  EXPECT_EQ(Text("Combo2"), "fths");
  Click("Command2");
  EXPECT_EQ(Told(), Texts{Nothing_Chosen});
  EXPECT_EQ(data_files.files, before);
}

TEST_F(LanguageEditorFaults, The_current_memory_shows_without_a_file_as_far_as_it_needs_none) {
  session.words.Word_Count_Log[0] = 2;
  session.filter.Voice_Word_Table[1] = "fths";
  session.filter.Voice_Word_Table[2] = "gh";
  Open_Nothing();
  Choose("mnuDCM");
  EXPECT_EQ(Text("Label5"), " 1");
  EXPECT_EQ(Text("TextDiv"), "");
  EXPECT_EQ(Text("Combo2"), "gh");
  EXPECT_EQ(Text("Combo3"), "100");
  EXPECT_EQ(Browser_Lines(), (Texts{"fths-   Length :  -0", "gh-   Length :  -0"}));
  EXPECT_FALSE(Window().Choose_Menu("mnuDEM"));
}

TEST_F(LanguageEditorFaults, A_number_that_rounds_to_0_is_that_of_no_record) {
  for (const std::string answer : {"0.4", "0.5"}) {
    boxes.shown.clear();
    Open(Three_Records(), 2);
    Choose("mnuNumber", answer);
    EXPECT_EQ(Told(), Texts{"Quillspeech Language Editor|Record " + answer + " not present"});
    EXPECT_EQ(Current(), 2);
    Choose("mnuNumber", "0.6");
    EXPECT_EQ(Current(), 1);
    editor.Unload();
  }
}

TEST_F(LanguageEditorFaults, After_a_file_that_could_not_be_opened_the_window_has_none) {
  Name_A_File_That_Cannot_Be_Opened();
  editor.Load();
  ASSERT_TRUE(editor.Is_Loaded());
  EXPECT_EQ(Text("TFNam"), "");
  boxes.shown.clear();
  Click("Command14");
  EXPECT_EQ(Told(), Texts{"Quillspeech|Please open a new or a previously saved file"});
}

TEST_F(LanguageEditorFaults, A_window_that_cannot_be_shown_is_unloaded_and_the_failure_goes_on) {
  Open(Three_Records());
  views.actions.push_back([](Form&) { Fail(Failure::Out_Of_Memory); });
  EXPECT_EQ(Failure_Of([this] { editor.Show(true); }), 7);
  EXPECT_FALSE(editor.Is_Loaded());
  EXPECT_EQ(session.flags.Language_Editor_Loaded, False);
}

TEST_F(LanguageEditorFaults, The_summary_goes_with_the_editor) {
  In_A_Design_Environment();
  Open(Three_Records());
  Choose("mnuTWord");
  ASSERT_TRUE(editor.FeaturesDisplay().Is_Loaded());
  Click("Command8");
  EXPECT_FALSE(editor.FeaturesDisplay().Is_Loaded());
}

TEST_F(LanguageEditorFaults, The_summary_has_its_own_font_again_for_a_record_without_one) {
  Open({Record().Word("one").Font("Arial"), Record().Word("two")});
  Choose("mnuTWord");
  EXPECT_EQ(editor.FeaturesDisplay()["Text1"].font.name, "Arial");
  Choose("mnuNext");
  Choose("mnuTWord");
  EXPECT_EQ(editor.FeaturesDisplay()["Text1"].font, FormFont{});
}

}  // namespace
}  // namespace quillspeech::tests
