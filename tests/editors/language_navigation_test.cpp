#include "editors/language_navigation.hpp"

#include "tests/editors/language_editor_fixture.hpp"

namespace quillspeech::tests {
namespace {

struct LanguageNavigation : LanguageEditorTest {};

TEST_F(LanguageNavigation, Next_goes_through_the_records_to_the_last) {
  for (const bool by_menu : {true, false}) {
    Open(Three_Records());
    for (const int number : {2, 3}) {
      if (by_menu) Choose("mnuNext");
      if (!by_menu) Click("NextHit");
      EXPECT_EQ(Current(), number);
    }
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(Lines("Combo5"), Texts{"three"});
    editor.Unload();
  }
}

TEST_F(LanguageNavigation, At_the_end_the_menu_and_the_button_say_so_in_their_own_words) {
  Open({Record().Word("one")});
  Choose("mnuNext");
  Click("NextHit");
  EXPECT_EQ(Told(), (Texts{"Quillspeech Language Editor|No More Records",
                           "Quillspeech Language Editor|No more Records in my.SAY"}));
  EXPECT_EQ(Current(), 1);
}

TEST_F(LanguageNavigation, Previous_goes_back_to_the_first) {
  Open(Three_Records(), 2);
  Choose("mnuPrevious");
  EXPECT_EQ(Current(), 1);
  Choose("mnuNext");
  Click("Command7");
  EXPECT_EQ(Current(), 1);
}

TEST_F(LanguageNavigation, Previous_on_record_1_writes_it_and_says_that_the_file_starts_there) {
  Open(Three_Records());
  editor.Record().Words(1, "changed");
  Choose("mnuPrevious");
  EXPECT_EQ(Word_On_Disk(), "changed");
  EXPECT_EQ(Current(), 1);
  Click("Command7");
  EXPECT_EQ(Told(), (Texts{"Quillspeech Language Editor| Start of File",
                           "Quillspeech Language Editor|my.SAY Start of File  "}));
}

TEST_F(LanguageNavigation, Each_move_saves_what_the_buffer_holds) {
  for (const auto move : {"mnuNext", "mnuPrevious", "NextHit", "Command7"}) {
    Open(Three_Records(), 2);
    editor.Record().Words(1, "changed");
    if (Window().Find_Menu(move)) Choose(move);
    if (Window().Find(move)) Click(move);
    EXPECT_EQ(Word_On_Disk(2), "changed") << move;
    editor.Unload();
  }
}

TEST_F(LanguageNavigation, A_record_that_was_only_read_is_written_back_as_it_was) {
  Open(Three_Records());
  const auto before = data_files.files.at(File);
  Choose("mnuNext");
  EXPECT_EQ(data_files.writes, 1);
  EXPECT_EQ(data_files.files.at(File), before);
}

TEST_F(LanguageNavigation, In_a_new_file_next_writes_record_1_and_finds_no_more) {
  Open({});
  Choose("mnuNext");
  EXPECT_EQ(Told(), Texts{"Quillspeech Language Editor|No More Records"});
  EXPECT_EQ(Bytes_On_Disk(), 8476U);
  EXPECT_EQ(On_Disk().RecordNo(), 1);
}

TEST_F(LanguageNavigation, View_current_data_entry_goes_to_the_last_record_and_writes_nothing) {
  Open(Three_Records());
  Choose("VC");
  EXPECT_EQ(Current(), 3);
  EXPECT_EQ(Lines("Combo5"), Texts{"three"});
  EXPECT_EQ(data_files.writes, 0);
}

TEST_F(LanguageNavigation, View_current_data_entry_does_nothing_in_an_empty_file) {
  Open({});
  Choose("VC");
  EXPECT_EQ(Current(), 1);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(LanguageNavigation, A_record_is_found_by_its_number) {
  const struct {
    const char* answer;
    int shown;
    bool is_told;
  } cases[] = {{"3", 3, false},   {"1", 1, false}, {"0", 2, false}, {"", 2, false},
               {"x", 2, false},   {"4", 2, true},  {"-1", 2, true}, {"2 and more", 2, false},
               {"1.5", 2, false}, {" 3", 3, false}};
  for (const auto& [answer, shown, is_told] : cases) {
    boxes.shown.clear();
    Open(Three_Records(), 2);
    Choose("mnuNumber", answer);
    EXPECT_EQ(Current(), shown) << answer;
    EXPECT_EQ(Told(), is_told ? Texts{"Quillspeech Language Editor|Record " + std::string(answer) +
                                      " not present"}
                              : Texts{});
    editor.Unload();
  }
  EXPECT_EQ(dialogs.shown_boxes[0].title, "Find:");
  EXPECT_EQ(dialogs.shown_boxes[0].prompt, "Enter Reference Number");
}

TEST_F(LanguageNavigation, A_record_is_found_by_any_of_its_words) {
  Open(Three_Records());
  Choose("mnuFindName", "  deux ");
  EXPECT_EQ(Current(), 2);
  EXPECT_EQ(Lines("Combo5"), (Texts{"two", "deux"}));
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_EQ(dialogs.shown_boxes[0].title, "Find :");
  EXPECT_EQ(dialogs.shown_boxes[0].prompt, "Enter the Word (or Words) or the pattern to find");
}

TEST_F(LanguageNavigation, The_first_record_with_the_word_is_found) {
  Open({Record().Word("a"), Record().Word("same"), Record().Word("same")});
  Choose("mnuFindName", "same");
  EXPECT_EQ(Current(), 2);
}

TEST_F(LanguageNavigation, Words_are_compared_whole_and_letter_for_letter) {
  Open(Three_Records());
  for (const auto wanted : {"Two", "tw", "t*"}) {
    boxes.shown.clear();
    Choose("mnuFindName", wanted);
    EXPECT_EQ(boxes.shown.size(), 1U) << wanted;
  }
}

TEST_F(LanguageNavigation, Words_above_the_count_are_not_looked_at) {
  auto records = Three_Records();
  records[1].Fields().Words(3, "hidden");
  Open(records);
  Choose("mnuFindName", "hidden");
  EXPECT_EQ(boxes.shown.size(), 1U);
}

TEST_F(LanguageNavigation, After_a_failed_search_the_last_record_is_in_the_buffer_unseen) {
  Open(Three_Records());
  const std::string caption = Window().Caption();
  Choose("mnuFindName", "four");
  EXPECT_EQ(Told(), Texts{"Quillspeech Language Editor |Record four not present"});
  EXPECT_EQ(Current(), 3);
  EXPECT_EQ(Window().Caption(), caption);
  EXPECT_EQ(Lines("Combo5"), Texts{"one"});
}

TEST_F(LanguageNavigation, Next_after_a_failed_search_writes_the_last_record_and_finds_no_more) {
  Open(Three_Records());
  const auto before = data_files.files.at(File);
  Choose("mnuFindName", "four");
  boxes.shown.clear();
  Choose("mnuNext");
  EXPECT_EQ(Told(), Texts{"Quillspeech Language Editor|No More Records"});
  EXPECT_EQ(data_files.writes, 1);
  EXPECT_EQ(data_files.files.at(File), before);
}

TEST_F(LanguageNavigation, A_search_without_an_answer_does_nothing) {
  Open(Three_Records());
  const int reads = data_files.reads;
  Choose("mnuFindName", "");
  EXPECT_EQ(data_files.reads, reads);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(LanguageNavigation, A_failed_write_ends_the_move_and_leaves_the_file) {
  Open(Three_Records());
  const auto before = data_files.files.at(File);
  data_files.write_faults[1] = {Failure::Disk_Full, 0};
  editor.Record().Words(1, "changed");
  Choose("mnuNext");
  EXPECT_EQ(data_files.files.at(File), before);
  EXPECT_EQ(Current(), 1);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(LanguageNavigation, The_browser_lists_the_words_of_every_record) {
  Open(Three_Records(), 2);
  Choose("mnuView");
  const std::string line = "__________*******___________";
  EXPECT_EQ(Browser_Lines(),
            (Texts{line, "1   one", line, "2   two", "2   deux", line, "3   three"}));
  EXPECT_EQ(Current(), 2);
}

TEST_F(LanguageNavigation, The_browser_shows_in_a_design_environment_only) {
  Open(Three_Records());
  Choose("mnuView");
  EXPECT_TRUE(views.shown.empty());
}

TEST_F(LanguageNavigation, In_a_design_environment_the_browser_shows_beside_the_editor) {
  In_A_Design_Environment();
  Open(Three_Records());
  Choose("mnuView");
  EXPECT_EQ(views.shown,
            (std::vector<headless::FormViews::Shown>{{"DataDisplay", Modality::None}}));
}

TEST_F(LanguageNavigation, The_browser_is_filled_anew_each_time) {
  Open({Record().Word("one")});
  Choose("mnuView");
  Choose("mnuView");
  EXPECT_EQ(Browser_Lines().size(), 2U);
}

TEST_F(LanguageNavigation, A_click_in_the_browser_goes_to_the_record_of_the_line) {
  Open(Three_Records());
  Choose("mnuView");
  ASSERT_TRUE(editor.DataDisplay().Select("Combo1", 4));
  EXPECT_EQ(Current(), 2);
  EXPECT_EQ(Lines("Combo5"), (Texts{"two", "deux"}));
  ASSERT_TRUE(editor.DataDisplay().Select("Combo1", 5));  // a line between records
  EXPECT_EQ(Current(), 2);
}

TEST_F(LanguageNavigation, A_word_that_is_a_number_does_not_lead_the_browser_astray) {
  Open({Record().Word("2"), Record().Word("two")}, 0);
  Choose("mnuView");
  Choose("mnuNext");
  ASSERT_TRUE(editor.DataDisplay().Select("Combo1", 1));  // "1   2"
  EXPECT_EQ(Current(), 1);
}

TEST_F(LanguageNavigation, The_browser_of_a_new_file_leaves_record_1_to_be_written) {
  Open({});
  Choose("mnuView");
  EXPECT_TRUE(Browser_Lines().empty());
  EXPECT_EQ(Current(), 1);
}

TEST_F(LanguageNavigation, Help_opens_the_help_window) {
  int shows = 0;
  session.operations.Show_Help = [&](Session&) { ++shows; };
  Open({Record()});
  Choose("mnuHelp");
  EXPECT_EQ(shows, 1);
}

}  // namespace
}  // namespace quillspeech::tests
