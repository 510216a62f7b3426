#include "editors/language_transfer.hpp"

#include <algorithm>

#include "tests/editors/language_editor_fixture.hpp"

namespace quillspeech::tests {
namespace {

struct LanguageTransfer : LanguageEditorTest {};

TEST_F(LanguageTransfer, A_record_is_found_by_any_of_its_patterns) {
  Open({Record().Pattern("a*"), Record().Pattern("b").Pattern("fth*s"), Record()});
  Choose("mnuPatternFind", " fth*s ");
  EXPECT_EQ(Current(), 2);
  EXPECT_EQ(Lines("Combo2"), (Texts{"b", "fth*s"}));
  EXPECT_EQ(dialogs.shown_boxes[0].title, "Find :");
  EXPECT_EQ(dialogs.shown_boxes[0].prompt, "Enter the Word (or Words) or the pattern to find");
}

TEST_F(LanguageTransfer, A_search_for_a_wildcard_finds_only_that_very_text) {
  Open({Record().Pattern("fths"), Record().Pattern("f*"), Record()});
  Choose("mnuPatternFind", "f*");
  EXPECT_EQ(Current(), 2);
  Choose("mnuPatternFind", "ft?s");
  EXPECT_EQ(Told(), Texts{"Quillspeech Language Editor |Record ft?s not present"});
}

TEST_F(LanguageTransfer, After_a_failed_search_the_last_record_is_in_the_buffer_unseen) {
  Open(Three_Records());
  Choose("mnuPatternFind", "none");
  EXPECT_EQ(Current(), 3);
  EXPECT_EQ(Lines("Combo5"), Texts{"one"});
}

TEST_F(LanguageTransfer, A_pattern_search_without_an_answer_does_nothing) {
  Open(Three_Records());
  Choose("mnuPatternFind", "");
  EXPECT_EQ(Current(), 1);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(LanguageTransfer, Copy_touches_no_file) {
  Open(Three_Records());
  const int reads = data_files.reads;
  Choose("mnuSCopy");
  EXPECT_EQ(data_files.reads, reads);
  EXPECT_EQ(data_files.writes, 0);
}

TEST_F(LanguageTransfer, Paste_writes_the_copy_into_the_record_on_display) {
  Open(Three_Records(), 2);
  Choose("mnuSCopy");
  Choose("mnuNext");
  Choose("mnuSpaste");
  EXPECT_EQ(Current(), 3);
  EXPECT_EQ(Lines("Combo5"), (Texts{"two", "deux"}));
  EXPECT_EQ(On_Disk(3).WordCount(), 2);
  EXPECT_EQ(Trim(On_Disk(3).Words(2)), "deux");
  EXPECT_EQ(On_Disk(3).WordRatings(2), 21);
  EXPECT_EQ(On_Disk(3).LikeCount(), 1);
  EXPECT_EQ(On_Disk(3).RecordNo(), 3);
  EXPECT_EQ(Bytes_On_Disk(), 3U * 8476);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(LanguageTransfer, Paste_leaves_the_texts_of_the_file) {
  auto records = Three_Records();
  records[0].Fields().FileCopyright("mine");
  records[1].Fields().FileCopyright("yours");
  Open(records);
  Choose("mnuSCopy");
  Choose("mnuNext");
  Choose("mnuSpaste");
  EXPECT_EQ(Trim(On_Disk(2).FileCopyright()), "yours");
}

TEST_F(LanguageTransfer, Old_words_above_a_paste_stay_unseen_until_a_save_overwrites_them) {
  Record long_one;
  long_one.Word("a", 1).Word("b", 2).Word("c", 3);
  Open({Record().Word("x", 9), long_one, Record()});
  Choose("mnuSCopy");
  Choose("mnuNext");
  Choose("mnuSpaste");
  EXPECT_EQ(Lines("Combo5"), Texts{"x"});
  EXPECT_EQ(Trim(On_Disk(2).Words(2)), "b");
  Window().Type("Combo5", "new");
  boxes.answers = {BoxAnswer::Yes};
  Click("Command14");
  EXPECT_EQ(Trim(On_Disk(2).Words(2)), "new");
  EXPECT_EQ(Trim(On_Disk(2).Words(3)), "c");
}

TEST_F(LanguageTransfer, Paste_before_any_copy_leaves_nothing_counted) {
  Open(Three_Records());
  Choose("mnuSpaste");
  const auto record = On_Disk();
  EXPECT_EQ(record.WordCount(), 0);
  EXPECT_EQ(record.LikeCount(), 0);
  EXPECT_EQ(record.DifferentiatorCount(), 0);
  EXPECT_EQ(record.WordFont(), Fixed("", 20));
  EXPECT_EQ(Trim(record.Words(1)), "one");
}

TEST_F(LanguageTransfer, The_copy_outlives_the_window) {
  Open(Three_Records());
  Choose("mnuSCopy");
  editor.Unload();
  Open({Record().Word("other")});
  Choose("mnuSpaste");
  EXPECT_EQ(Word_On_Disk(), "one");
}

TEST_F(LanguageTransfer, Cut_copies_the_record_and_blanks_it_without_a_question) {
  Open(Three_Records());
  Choose("mnuSCut");
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_EQ(On_Disk().WordCount(), 0);
  EXPECT_EQ(On_Disk().Words(1), std::string(40, '\0'));
  EXPECT_EQ(On_Disk().WordRatings(1), 10);
  EXPECT_TRUE(Lines("Combo5").empty());
  Choose("mnuSpaste");
  EXPECT_EQ(Word_On_Disk(), "one");
}

TEST_F(LanguageTransfer, Copy_and_Cut_of_a_damaged_record_keep_the_copy_before_and_the_record) {
  for (const auto command : {"mnuSCopy", "mnuSCut"}) {
    Open({Record().Word("kept", 1).Pattern("k*", 2), Record().Word("bad", 3).Pattern("b*", 4)});
    Choose("mnuSCopy");
    const datafiles::SayRecord before = editor.Record_Memory;
    Choose("mnuNext");
    const std::vector<std::uint8_t> file = data_files.files.at(File);
    editor.Record().DifferentiatorCount(51);
    Choose(command);
    EXPECT_EQ(session.trace.Last_Failure, 9) << command;
    EXPECT_TRUE(std::ranges::equal(editor.Record_Memory.Bytes(), before.Bytes())) << command;
    EXPECT_EQ(data_files.files.at(File), file) << command;
    session.trace.Last_Failure = 0;
    editor.Unload();
  }
}

TEST_F(LanguageTransfer, Delete_asks_first) {
  Open(Three_Records());
  Answer("mnuDelete", BoxAnswer::No);
  EXPECT_EQ(Told(), Texts{"Quillspeech Language Editor|Are you sure you want to delete all and "
                          "every data under this name and record?"});
  EXPECT_EQ(boxes.shown[0].box.buttons, BoxButtons::YesNo);
  EXPECT_EQ(data_files.writes, 0);
  EXPECT_EQ(Lines("Combo5"), Texts{"one"});
}

TEST_F(LanguageTransfer, Delete_blanks_the_record_which_stays_in_the_file) {
  Open(Three_Records(), 2);
  Answer("mnuDelete", BoxAnswer::Yes);
  EXPECT_EQ(Bytes_On_Disk(), 3U * 8476);
  EXPECT_EQ(On_Disk(2).RecordNo(), 2);
  EXPECT_EQ(On_Disk(2).WordCount(), 0);
  EXPECT_EQ(On_Disk(2).LikeCount(), 0);
  EXPECT_TRUE(Lines("Combo2").empty());
}

TEST_F(LanguageTransfer, A_deleted_record_keeps_its_ratings_even_through_a_paste) {
  Record long_one;
  long_one.Word("a", 1).Word("b", 2).Pattern("p", 3).Pattern("q", 4);
  Open({Record().Word("x", 9).Pattern("y", 8), long_one, Record()});
  Choose("mnuSCopy");
  Choose("mnuNext");
  Answer("mnuDelete", BoxAnswer::Yes);
  Choose("mnuSpaste");
  EXPECT_EQ(On_Disk(2).WordRatings(1), 9);
  EXPECT_EQ(On_Disk(2).WordRatings(2), 2);
  EXPECT_EQ(On_Disk(2).LikeRatings(2), 4);
}

struct FileTexts : LanguageEditorTest {
  struct Case {
    const char* menu;
    const char* title;
    const char* prompt;
    std::string_view (datafiles::SayRecord::*text)() const;
    const char* unanswered;
  };
  static constexpr Case Cases[] = {
      {"mnuLCrht", "File Copyright:",
       "Enter Company or individual author name for your identification and file copyright "
       "security",
       &datafiles::SayRecord::FileCopyright, "Unknown???"},
      {"mnuSFD",
       "File description:", "Enter short file description for identification and your security",
       &datafiles::SayRecord::FileDescription, "No desciption"}};
};

TEST_F(FileTexts, Are_asked_for_trimmed_and_written_into_the_record_on_display) {
  for (const Case& one : Cases) {
    Open(Three_Records(), 2);
    Choose(one.menu, "  Acme ");
    EXPECT_EQ(dialogs.shown_boxes.back().title, one.title);
    EXPECT_EQ(dialogs.shown_boxes.back().prompt, one.prompt);
    EXPECT_EQ(Trim((On_Disk(2).*one.text)()), "Acme");
    EXPECT_NE(Trim((On_Disk(1).*one.text)()), "Acme");
    editor.Unload();
  }
}

TEST_F(FileTexts, Without_an_answer_take_a_text_that_only_the_next_move_writes) {
  for (const Case& one : Cases) {
    Open(Three_Records());
    const int writes = data_files.writes;
    Choose(one.menu, "");
    EXPECT_EQ(data_files.writes, writes);
    Choose("mnuNext");
    EXPECT_EQ(Trim((On_Disk(1).*one.text)()), one.unanswered);
    editor.Unload();
  }
}

struct Summary : LanguageEditorTest {
  std::string Text() { return editor.FeaturesDisplay()["Text1"].text; }
};

TEST_F(Summary, Lists_the_words_the_divisions_the_differentiators_and_the_patterns) {
  Record record;
  record.Word("hello", 90).Word("hallo", 80).Font("Arial");
  record.Pattern("fth*s", 70).Pattern("f?", 60);
  record.Differentiator("oa", 3, 12);
  record.Fields().DivisionCount(4);
  record.Fields().DivisionByteLength(12345);
  Open({record, Record()});
  Choose("mnuTWord");
  EXPECT_EQ(Text(),
            "Word no: 1 hello\r\n"
            "Word no: 2 hallo\r\n"
            "No of divisons :  4\r\n"
            "Total Timelength :  12345\r\n"
            "No. of entries for protocols :  2\r\n"
            "No. of Criterias :  1\r\n"
            "Special Criteria's,Slot No. 3Engine Code oa Engine Code Weight 12\r\n"
            "Entry no 1 : fth*s 70\r\n"
            "Entry no 2 : f? 60");
}

TEST_F(Summary, Is_empty_for_a_file_of_one_record) {
  Open({Record().Word("one")});
  Choose("mnuTWord");
  EXPECT_EQ(Text(), "");
  EXPECT_EQ(views.shown.size(), 1U);
}

TEST_F(Summary, Shows_in_the_font_of_the_record_when_there_is_one) {
  Open({Record().Word("one").Font("Arial"), Record().Word("two")});
  Choose("mnuTWord");
  EXPECT_EQ(editor.FeaturesDisplay()["Text1"].font.name, "Arial");
}

TEST_F(Summary, Shows_in_its_own_font_when_the_record_has_none) {
  Open({Record().Word("one"), Record().Word("two")});
  Choose("mnuTWord");
  EXPECT_EQ(editor.FeaturesDisplay()["Text1"].font.name, "MS Sans Serif");
}

TEST_F(Summary, Shows_modally_but_in_a_design_environment) {
  using Shown = headless::FormViews::Shown;
  Open(Three_Records());
  Choose("mnuTWord");
  EXPECT_EQ(views.shown, (std::vector<Shown>{{"FeaturesDisplay", Modality::Modal}}));
}

TEST_F(Summary, Does_not_block_a_design_environment) {
  using Shown = headless::FormViews::Shown;
  In_A_Design_Environment();
  Open(Three_Records());
  Choose("mnuTWord");
  EXPECT_EQ(views.shown, (std::vector<Shown>{{"FeaturesDisplay", Modality::None}}));
}

}  // namespace
}  // namespace quillspeech::tests
