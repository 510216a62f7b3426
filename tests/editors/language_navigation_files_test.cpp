// The three ways to another file.
#include "tests/editors/language_editor_fixture.hpp"

namespace quillspeech::tests {
namespace {

struct LanguageFiles : LanguageEditorTest {
  void Fill_A_Second_File() {
    Put_Language_File(data_files, "other.say", {Record().Word("uno"), Record().Word("due")});
  }
};

TEST_F(LanguageFiles, Find_files_asks_for_a_file_to_open) {
  Open(Three_Records());
  Fill_A_Second_File();
  dialogs.files = {"other.say"};
  Click("Command1");
  EXPECT_EQ(dialogs.shown_dialogs[0].title, "Open Quillspeech Language Editor");
  EXPECT_EQ(dialogs.shown_dialogs[0].pattern, "*.SAY");
  EXPECT_EQ(Text("TFNam"), "other.say");
  EXPECT_EQ(Lines("Combo5"), Texts{"uno"});
}

TEST_F(LanguageFiles, The_menu_asks_for_a_name_and_offers_the_present_one) {
  Open(Three_Records());
  Fill_A_Second_File();
  Choose("Opmu", "other.say");
  EXPECT_EQ(dialogs.shown_boxes[0].title, "Open:");
  EXPECT_EQ(dialogs.shown_boxes[0].prompt, "Open this old or new *.say File :");
  EXPECT_EQ(dialogs.shown_boxes[0].text, "my.SAY");
  EXPECT_EQ(editor.File_Name, "other.say");
  EXPECT_EQ(Lines("Combo5"), Texts{"uno"});
}

// The two commands differ in what they take.
TEST_F(LanguageFiles, Names_are_taken_by_their_extension) {
  const struct {
    const char* name;
    bool by_button;
    bool by_menu;
  } cases[] = {{"a.say", true, true},     {"A.SAY", false, true},    {"ab.SAY", false, true},
               {"abc.SAY", true, true},   {"a.sxy", true, false},    {"abc.SXY", true, false},
               {"a.Say", false, false},   {"abcd.Say", true, false}, {"abc.saying", false, false},
               {"abc.txt", false, false}, {"", false, false},        {".say", true, true}};
  for (const auto& [name, by_button, by_menu] : cases) {
    for (const bool button : {true, false}) {
      boxes.shown.clear();
      Open(Three_Records());
      dialogs.files = {name};
      if (button) Click("Command1");
      if (!button) Choose("Opmu", name);
      const bool is_taken = button ? by_button : by_menu;
      EXPECT_EQ(editor.File_Name, is_taken ? name : File) << name << button;
      EXPECT_EQ(Told(), is_taken ? Texts{}
                                 : Texts{"Quillspeech Language Editor Info.|You did not enter a "
                                         "file name or the name is not valid, verify and try "
                                         "again"})
          << name << button;
      editor.Unload();
    }
  }
}

TEST_F(LanguageFiles, A_file_that_is_opened_enables_what_no_file_had_disabled) {
  for (const bool button : {true, false}) {
    Fill_A_Second_File();
    Open_Nothing();
    dialogs.files = {"other.say"};
    if (button) Click("Command1");
    if (!button) Choose("Opmu", "other.say");
    for (const FormMenu& menu : Window().Menus()) EXPECT_TRUE(menu.enabled) << menu.name;
    for (const auto name : {"Command7", "NextHit"}) EXPECT_TRUE(Window()[name].enabled);
    EXPECT_EQ(session.results.Matched_Record_No, 1);
    editor.Unload();
  }
}

TEST_F(LanguageFiles, A_name_that_does_not_exist_makes_a_new_file) {
  Open_Nothing();
  Choose("Opmu", "new.say");
  EXPECT_TRUE(data_files.files.contains("new.say"));
  EXPECT_EQ(Current(), 1);
}

TEST_F(LanguageFiles, A_file_opened_earlier_stays_open_until_the_window_ends) {
  Open(Three_Records());
  Fill_A_Second_File();
  Choose("Opmu", "other.say");
  EXPECT_EQ(data_files.open_files, 2);
  editor.Unload();
  EXPECT_EQ(data_files.open_files, 0);
}

TEST_F(LanguageFiles, A_file_that_cannot_be_opened_leaves_the_open_one_as_it_was) {
  Open(Three_Records(), 2);
  data_files.refused["bad.say"] = Failure::Path_Not_Found;
  Choose("Opmu", "bad.say");
  EXPECT_EQ(editor.File_Name, File);
  EXPECT_EQ(Text("TFNam"), File);
  EXPECT_TRUE(boxes.shown.empty());
  Choose("mnuNext");
  EXPECT_EQ(Current(), 3);
}

TEST_F(LanguageFiles, Reload_takes_the_file_to_add_to_again_and_the_record_matched_last) {
  Open(Three_Records(), 2);
  Fill_A_Second_File();
  Choose("Opmu", "other.say");
  session.results.Matched_Record_No = 2;
  Choose("mnuReload");
  EXPECT_EQ(Text("TFNam"), File);
  EXPECT_EQ(Current(), 2);
  EXPECT_EQ(session.results.Matched_Record_No, 2);
  EXPECT_EQ(Lines("Combo5"), (Texts{"two", "deux"}));
}

TEST_F(LanguageFiles, Reload_shows_what_somebody_else_has_written_meanwhile) {
  Open(Three_Records());
  Put_Language_File(data_files, "next.say", {Record().Word("new")});
  data_files.files.at(File) = data_files.files.at("next.say");
  Choose("mnuReload");
  EXPECT_EQ(Lines("Combo5"), Texts{"new"});
}

TEST_F(LanguageFiles, Reload_does_nothing_without_a_file_to_add_to) {
  Open(Three_Records(), 2);
  session.settings.Consider_this_Lang_File_to_Add = " ";
  const int opens = data_files.opens;
  Choose("mnuReload");
  EXPECT_EQ(data_files.opens, opens);
  EXPECT_EQ(Current(), 2);
}

}  // namespace
}  // namespace quillspeech::tests
