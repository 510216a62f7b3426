// Records that are copied, cut, pasted, renamed and deleted.
#include <algorithm>
#include <string>

#include "tests/editors/vocabulary_editor_fixture.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech::tests {
namespace {

constexpr auto Cut_Question =
    "Quillspeech Language Editor|Are you sure you want to delete this record ?";
constexpr auto Paste_Question = "Quillspeech Vocabulary Development|Add data in Memory to file ?";

struct VocabularyRecords : VocabularyEditorTest {
  void Expect_Deleted(int number) {
    const VocRecord record = On_Disk(number);
    EXPECT_EQ(record.RecordNo(), number);
    EXPECT_EQ(record.VocabularyName(), std::string(20, ' '));
    EXPECT_EQ(record.VocabularySampleCount(), 0);
    for (int i = 0; i <= 3; ++i) EXPECT_EQ(record.VocabularySamples(i), 0) << i;
  }
};

TEST_F(VocabularyRecords, Copy_touches_no_file_and_asks_nothing) {
  Open(Three_Curves());
  const int reads = data_files.reads;
  Choose("mnuCopy");
  EXPECT_EQ(data_files.reads, reads);
  EXPECT_EQ(data_files.writes, 0);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(VocabularyRecords, Paste_appends_the_copy_as_a_new_record) {
  Open(Three_Curves());
  Choose("mnuNext");
  Choose("mnuCopy");
  Choose("mnuPrevious");
  Answer("mnuPaste", BoxAnswer::Yes);
  EXPECT_EQ(Told(), Texts{Paste_Question});
  EXPECT_EQ(boxes.shown[0].box.buttons, BoxButtons::YesNo);
  EXPECT_EQ(Bytes_On_Disk().size(), 4U * 9634);
  const VocRecord pasted = On_Disk(4);
  EXPECT_EQ(pasted.RecordNo(), 4);
  EXPECT_EQ(Trim(pasted.VocabularyName()), "two");
  EXPECT_EQ(pasted.VocabularySampleCount(), 2);
  EXPECT_EQ(pasted.VocabularySamples(0), 3);  // of the name's length, as the file has it
  EXPECT_EQ(pasted.VocabularySamples(1), 20);
  EXPECT_EQ(pasted.VocabularySamples(2), 21);
  EXPECT_EQ(Window().Caption(), "Quillspeech Vocabulary Database.Rec No: 4two");
  EXPECT_EQ(Name_On_Disk(1), "one");
}

TEST_F(VocabularyRecords, Paste_answered_with_no_appends_nothing) {
  Open(Three_Curves());
  Choose("mnuCopy");
  Answer("mnuPaste", BoxAnswer::No);
  EXPECT_EQ(Bytes_On_Disk().size(), 3U * 9634);
  EXPECT_EQ(data_files.writes, 0);
  Choose("mnuNumber", "4");
  EXPECT_EQ(boxes.shown.back().box.text, "Record 4 not present");
}

TEST_F(VocabularyRecords, A_second_paste_appends_another_record) {
  Open(Three_Curves());
  Choose("mnuCopy");
  Answer("mnuPaste", BoxAnswer::Yes);
  Answer("mnuPaste", BoxAnswer::Yes);
  EXPECT_EQ(Bytes_On_Disk().size(), 5U * 9634);
  EXPECT_EQ(Name_On_Disk(5), "one");
  EXPECT_EQ(On_Disk(5).RecordNo(), 5);
}

TEST_F(VocabularyRecords, Paste_before_any_copy_appends_a_record_with_no_name_and_no_curve) {
  Open(Three_Curves());
  Answer("mnuPaste", BoxAnswer::Yes);
  EXPECT_EQ(On_Disk(4).RecordNo(), 4);
  EXPECT_EQ(On_Disk(4).VocabularyName(), std::string(20, ' '));
  EXPECT_EQ(On_Disk(4).VocabularySampleCount(), 0);
  EXPECT_EQ(Text("Label3"), "0");
}

TEST_F(VocabularyRecords, Values_above_the_count_of_a_paste_come_from_the_record_on_display) {
  Open({Curve("short", {1}), Curve("long", {20, 21, 22})});
  Choose("mnuCopy");
  Choose("mnuNext");
  Answer("mnuPaste", BoxAnswer::Yes);
  EXPECT_EQ(On_Disk(3).VocabularySampleCount(), 1);
  EXPECT_EQ(On_Disk(3).VocabularySamples(1), 1);
  EXPECT_EQ(On_Disk(3).VocabularySamples(2), 21);
}

TEST_F(VocabularyRecords, The_first_paste_into_an_empty_file_is_record_1) {
  Open({});
  Answer("mnuPaste", BoxAnswer::Yes);
  EXPECT_EQ(Bytes_On_Disk().size(), 9634U);
  EXPECT_EQ(On_Disk().RecordNo(), 1);
}

// Whatever command has written record 1, the paste goes behind it.
TEST_F(VocabularyRecords, A_paste_goes_behind_what_another_command_has_written_to_an_empty_file) {
  for (const auto command : {"mnuRename", "mnuDelete", "mnuNext", "mnuPrevious"}) {
    Open({});
    Choose(command, "new");
    Answer("mnuPaste", BoxAnswer::Yes);
    EXPECT_EQ(Bytes_On_Disk().size(), 2U * 9634) << command;
    EXPECT_EQ(On_Disk(1).RecordNo(), 1) << command;
    EXPECT_EQ(On_Disk(2).RecordNo(), 2) << command;
    EXPECT_EQ(Name_On_Disk(1) == "new", command == std::string("mnuRename")) << command;
    EXPECT_EQ(Name_On_Disk(2), "") << command;
  }
}

TEST_F(VocabularyRecords, The_copy_stays_over_another_file_and_goes_with_the_window) {
  Open(Three_Curves());
  Choose("mnuCopy");
  Open({});
  Answer("mnuPaste", BoxAnswer::Yes);
  EXPECT_EQ(Name_On_Disk(), "one");
  editor.Unload();
  Open({});
  Answer("mnuPaste", BoxAnswer::Yes);
  EXPECT_EQ(Name_On_Disk(), "");
}

TEST_F(VocabularyRecords, Cut_asks_under_the_title_of_the_other_editor_and_empties_the_record) {
  Open(Three_Curves());
  Choose("mnuNumber", "3");
  Answer("mnuCut", BoxAnswer::Yes);
  EXPECT_EQ(Told(), Texts{Cut_Question});
  EXPECT_EQ(boxes.shown[0].box.buttons, BoxButtons::YesNo);
  Expect_Deleted(3);
  EXPECT_EQ(Bytes_On_Disk().size(), 3U * 9634);
  EXPECT_EQ(Text("Text1"), "");
  EXPECT_TRUE(Graph().operations.empty());
  Answer("mnuPaste", BoxAnswer::Yes);
  EXPECT_EQ(Name_On_Disk(4), "three");
  EXPECT_EQ(On_Disk(4).VocabularySamples(3), 32);
}

TEST_F(VocabularyRecords, Cut_answered_with_no_leaves_the_record_but_the_memory_holds_it) {
  Open(Three_Curves());
  Answer("mnuCut", BoxAnswer::No);
  EXPECT_EQ(data_files.writes, 0);
  EXPECT_EQ(Text("Text1"), "one");
  Answer("mnuPaste", BoxAnswer::Yes);
  EXPECT_EQ(Name_On_Disk(4), "one");
}

TEST_F(VocabularyRecords, Delete_asks_nothing_and_leaves_the_memory) {
  Open(Three_Curves());
  Choose("mnuCopy");
  Choose("mnuNext");
  Choose("mnuDelete");
  EXPECT_TRUE(boxes.shown.empty());
  Expect_Deleted(2);
  EXPECT_EQ(Bytes_On_Disk().size(), 3U * 9634);
  Answer("mnuPaste", BoxAnswer::Yes);
  EXPECT_EQ(Name_On_Disk(4), "one");
}

TEST_F(VocabularyRecords, What_lies_above_the_count_of_a_deleted_record_keeps_its_bytes) {
  VocRecord record = Curve("curve", {1, 2});
  record.VocabularySamples(3, 33);
  record.VocabularySamples(1200, 44);
  Open({record});
  Choose("mnuDelete");
  EXPECT_EQ(On_Disk().VocabularySamples(2), 0);
  EXPECT_EQ(On_Disk().VocabularySamples(3), 33);
  EXPECT_EQ(On_Disk().VocabularySamples(1200), 44);
}

TEST_F(VocabularyRecords, Rename_stores_the_trimmed_answer_and_writes_the_record) {
  Open(Three_Curves());
  Choose("mnuNext");
  Choose("mnuRename", "  deux ");
  EXPECT_EQ(dialogs.shown_boxes.at(0).title, "Rename:");
  EXPECT_EQ(dialogs.shown_boxes.at(0).prompt, "Enter the New Name:");
  EXPECT_EQ(dialogs.shown_boxes.at(0).text, "XYZ");
  EXPECT_EQ(On_Disk(2).VocabularyName(), Fixed("deux", 20));
  EXPECT_EQ(On_Disk(2).VocabularySamples(2), 21);
  EXPECT_EQ(Text("Text1"), "deux");
  EXPECT_EQ(Window().Caption(), "Quillspeech Vocabulary Database.Rec No: 2deux");
}

TEST_F(VocabularyRecords, A_name_is_cut_at_20_characters) {
  Open(Three_Curves());
  Choose("mnuRename", "abcdefghijklmnopqrstuvwxyz");
  EXPECT_EQ(On_Disk().VocabularyName(), "abcdefghijklmnopqrst");
}

TEST_F(VocabularyRecords, Rename_without_an_answer_takes_the_name_away) {
  Open(Three_Curves());
  Choose("mnuRename", "");
  EXPECT_EQ(On_Disk().VocabularyName(), std::string(20, ' '));
  EXPECT_EQ(Text("Text1"), "");
}

TEST_F(VocabularyRecords, A_count_above_1200_fails_where_the_record_is_copied_or_deleted) {
  for (const auto command : {"mnuCopy", "mnuCut", "mnuDelete"}) {
    Open(Three_Curves());
    const auto file = Bytes_On_Disk();
    editor.Vocabulary().VocabularySampleCount(1201);
    EXPECT_EQ(Failure_Of([&] { Window().Choose_Menu(command); }), 9) << command;
    EXPECT_EQ(Bytes_On_Disk(), file) << command;
  }
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(VocabularyRecords, A_failure_by_the_count_leaves_the_record_and_the_memory) {
  Open(Three_Curves());
  Choose("mnuCopy");
  Choose("mnuNext");
  editor.Vocabulary().VocabularySampleCount(1201);
  for (const auto command : {"mnuCopy", "mnuCut", "mnuDelete"}) {
    EXPECT_EQ(Failure_Of([&] { Window().Choose_Menu(command); }), 9) << command;
    EXPECT_EQ(Trim(editor.Vocabulary().VocabularyName()), "two") << command;
    EXPECT_EQ(editor.Vocabulary().VocabularySamples(2), 21) << command;
    EXPECT_EQ(Trim(editor.Vocabulary_Memory.VocabularyName()), "one") << command;
    EXPECT_EQ(editor.Vocabulary_Memory.VocabularySampleCount(), 1) << command;
  }
}

TEST_F(VocabularyRecords, A_damaged_record_can_be_renamed_though_its_display_fails) {
  Open(Three_Curves());
  editor.Vocabulary().VocabularySampleCount(1201);
  dialogs.texts = {"new"};
  EXPECT_EQ(Failure_Of([this] { Window().Choose_Menu("mnuRename"); }), 9);
  EXPECT_EQ(Name_On_Disk(), "new");
  EXPECT_EQ(Text("Text1"), "new");
}

TEST_F(VocabularyRecords, A_negative_count_stands_for_no_values) {
  VocRecord record = Curve("odd", {1, 2});
  record.VocabularySampleCount(-5);
  Open({record});
  EXPECT_TRUE(Graph().operations.empty());
  Choose("mnuDelete");
  EXPECT_EQ(On_Disk().VocabularySampleCount(), 0);
  EXPECT_EQ(On_Disk().VocabularySamples(1), 1);
}

TEST_F(VocabularyRecords, A_full_disk_ends_a_change_and_leaves_buffer_window_and_file) {
  for (const auto command : {"mnuDelete", "mnuCut", "mnuRename", "mnuPaste"}) {
    Open(Three_Curves());
    const auto file = Bytes_On_Disk();
    data_files.write_faults = {{data_files.writes + 1, {Failure::Disk_Full, 0}}};
    boxes.answers = {BoxAnswer::Yes};
    dialogs.texts = {"new"};
    EXPECT_EQ(Failure_Of([&] { Window().Choose_Menu(command); }), 61) << command;
    EXPECT_EQ(Trim(editor.Vocabulary().VocabularyName()), "one") << command;
    EXPECT_EQ(editor.Vocabulary().VocabularySampleCount(), 1) << command;
    EXPECT_EQ(Current(), 1) << command;
    EXPECT_EQ(Text("Text1"), "one") << command;
    EXPECT_EQ(Bytes_On_Disk(), file) << command;
    boxes.answers.clear();
    dialogs.texts.clear();
  }
}

TEST_F(VocabularyRecords, A_paste_that_fails_leaves_no_hole_for_the_next_one) {
  Open(Three_Curves());
  Choose("mnuCopy");
  data_files.write_faults[1] = {Failure::Disk_Full, 0};
  boxes.answers = {BoxAnswer::Yes};
  EXPECT_EQ(Failure_Of([this] { Window().Choose_Menu("mnuPaste"); }), 61);
  Answer("mnuPaste", BoxAnswer::Yes);
  EXPECT_EQ(Bytes_On_Disk().size(), 4U * 9634);
  EXPECT_EQ(On_Disk(4).RecordNo(), 4);
  EXPECT_EQ(Name_On_Disk(4), "one");
}

struct VocabularyMenus : VocabularyEditorTest {
  VocabularyMenus() {
    session.operations.Show_Help = [this](Session&) { shown.emplace_back("Help"); };
    session.operations.Show_ComingSplash = [this](Session&) { shown.emplace_back("ComingSplash"); };
    editor.Load();
  }
  Texts shown;
};

TEST_F(VocabularyMenus, About_and_help_show_the_about_window_and_coming_up_the_notice) {
  for (const auto entry : {"Aboutmnu", "mnuHelp", "mnuCu"}) Choose(entry);
  EXPECT_EQ(shown, (Texts{"Help", "Help", "ComingSplash"}));
}

TEST_F(VocabularyMenus, Exit_leaves_the_window) {
  Choose("Exitmnu");
  EXPECT_FALSE(editor.Is_Loaded());
}

TEST_F(VocabularyMenus, All_of_this_half_have_their_captions_in_their_places) {
  struct Case {
    const char* name;
    const char* parent;
    const char* caption;
  };
  for (const Case& one :
       std::initializer_list<Case>{{"Enmu", "", "Open"},
                                   {"Opmu", "Enmu", "&File"},
                                   {"Exitmnu", "Enmu", "&Exit"},
                                   {"mnuFile", "", "File"},
                                   {"VC", "mnuFile", "&View Current Data Entry"},
                                   {"mnuView", "mnuFile", "&View All Data Entries"},
                                   {"mnuRecord", "", "Record"},
                                   {"mnuCut", "mnuRecord", "&Cut"},
                                   {"mnuCopy", "mnuRecord", "&Copy"},
                                   {"mnuPaste", "mnuRecord", "&Paste (Add)"},
                                   {"mnuRename", "mnuRecord", "&Rename"},
                                   {"mnuDelete", "mnuRecord", "&Delete"},
                                   {"mnuNext", "mnuRecord", "&Next"},
                                   {"mnuPrevious", "mnuRecord", "&Previous"},
                                   {"mnuQuery", "", "Query"},
                                   {"mnuFind", "mnuQuery", "&Find"},
                                   {"mnuNumber", "mnuFind", "By &Number"},
                                   {"mnuFindName", "mnuFind", "By &Name"},
                                   {"sd", "", "&About"},
                                   {"Aboutmnu", "sd", "&About"},
                                   {"mnjj", "", "&Coming up"},
                                   {"mnuCu", "mnjj", "&Coming up"},
                                   {"mnuwall", "", "|:::::::::::::::::::::::::::::::::::|"},
                                   {"mnuHelp", "", "&Help"}}) {
    const FormMenu* const menu = Window().Find_Menu(one.name);
    ASSERT_TRUE(menu) << one.name;
    EXPECT_EQ(menu->parent, one.parent) << one.name;
    EXPECT_EQ(menu->caption, one.caption) << one.name;
  }
}

}  // namespace
}  // namespace quillspeech::tests
