// The ways to a vocabulary file, and what they enable.
#include "tests/editors/vocabulary_editor_fixture.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech::tests {
namespace {

using Shown = headless::FormViews::Shown;

struct VocabularyFiles : VocabularyEditorTest {
  VocabularyFiles() { editor.Load(); }

  bool Are_Enabled(std::initializer_list<const char*> names) {
    bool all = true;
    for (const auto name : names) {
      const FormMenu* const menu = Window().Find_Menu(name);
      all = all && (menu ? menu->enabled : Window()[name].enabled);
    }
    return all;
  }
  bool Is_Any_Menu_Enabled() {
    return Are_Enabled({"mnuFile"}) || Are_Enabled({"mnuQuery"}) || Are_Enabled({"mnuRecord"});
  }
  // What the button or the menu entry does with that name of a file.
  void Open_By(const std::string& way, const std::string& name) {
    (way == "Opmu" ? dialogs.texts : dialogs.files) = {name};
    Do(way);
  }
};

TEST_F(VocabularyFiles, The_menus_wait_for_a_file) { EXPECT_FALSE(Is_Any_Menu_Enabled()); }

TEST_F(VocabularyFiles, The_button_asks_by_the_file_dialog_and_the_menu_by_an_input_box) {
  Click("Command1");
  Choose("Opmu");
  EXPECT_EQ(dialogs.shown_dialogs.at(0).title, "Open Quillspeech Vocabulary to Edit");
  EXPECT_EQ(dialogs.shown_dialogs.at(0).pattern, "*.SAY");
  EXPECT_EQ(dialogs.shown_boxes.at(0).title, "Open:");
  EXPECT_EQ(dialogs.shown_boxes.at(0).prompt, "Open this existing or new *.say File :");
  EXPECT_EQ(dialogs.shown_boxes.at(0).text, "");
}

TEST_F(VocabularyFiles, Both_ways_enable_what_needs_a_file_show_record_1_and_list_them_all) {
  for (const auto way : {"Command1", "Opmu"}) {
    data_files.files[File] = Vocabulary_File(Three_Curves());
    Open_By(way, File);
    EXPECT_TRUE(Are_Enabled({"mnuFile", "mnuQuery", "mnuRecord", "NextHit", "PreHit"})) << way;
    EXPECT_EQ(Text("Text1"), "one") << way;
    EXPECT_EQ(Lines().size(), 3U) << way;
    EXPECT_TRUE(boxes.shown.empty()) << way;
    editor.Unload();
    editor.Load();
  }
}

TEST_F(VocabularyFiles, The_endings_of_a_name_are_compared_with_their_case) {
  struct Case {
    const char* name;
    bool by_button;
    bool by_menu;
  };
  for (const Case& one :
       {Case{"a.SAY", true, true}, Case{"a.say", true, true}, Case{"a.Say", true, false},
        Case{"a.sXX", true, false}, Case{"a.say2", false, false}, Case{"a.EGN", false, false},
        Case{"a.b.say", true, true}, Case{"", false, false}}) {
    for (const bool by_menu : {false, true}) {
      boxes.shown.clear();
      Open_By(by_menu ? "Opmu" : "Command1", one.name);
      EXPECT_EQ(boxes.shown.empty(), by_menu ? one.by_menu : one.by_button)
          << one.name << (by_menu ? " by menu" : " by button");
    }
  }
}

TEST_F(VocabularyFiles, A_name_that_the_button_refuses_leaves_the_menus_as_they_were) {
  Open_By("Command1", "mine.txt");
  EXPECT_EQ(Told(), Texts{Refused_Name});
  EXPECT_FALSE(Is_Any_Menu_Enabled());
  Open(Three_Curves());
  Open_By("Command1", "");
  EXPECT_TRUE(Are_Enabled({"mnuFile", "mnuQuery", "mnuRecord", "NextHit", "PreHit"}));
  EXPECT_EQ(Text("Text1"), "one");
}

TEST_F(VocabularyFiles, A_name_that_the_menu_refuses_disables_them_but_not_the_way_back) {
  Open(Three_Curves());
  Open_By("Opmu", "mine.txt");
  EXPECT_EQ(Told(), Texts{Refused_Name});
  EXPECT_FALSE(Is_Any_Menu_Enabled());
  EXPECT_FALSE(Are_Enabled({"NextHit"}));
  EXPECT_TRUE(Are_Enabled({"PreHit"}));
}

TEST_F(VocabularyFiles, The_button_clears_the_graph_before_it_asks) {
  Open(Three_Curves());
  ASSERT_FALSE(Graph().operations.empty());
  Open_By("Command1", "");
  EXPECT_TRUE(Graph().operations.empty());
  EXPECT_EQ(Text("Text1"), "one");
}

TEST_F(VocabularyFiles, Any_failure_of_the_menu_shows_the_message_of_a_refused_name) {
  data_files.refused[File] = Failure::Path_Access;
  Open_By("Opmu", File);
  EXPECT_EQ(Told(), Texts{Refused_Name});
  data_files.refused.clear();
  auto damaged = Three_Curves();
  damaged[0].VocabularySampleCount(1201);
  data_files.files[File] = Vocabulary_File(damaged);
  Open_By("Opmu", File);
  EXPECT_EQ(Told(), (Texts{Refused_Name, Refused_Name}));
}

TEST_F(VocabularyFiles, A_failure_of_the_button_goes_out_without_a_message) {
  data_files.refused[File] = Failure::Path_Access;
  dialogs.files = {File};
  EXPECT_EQ(Failure_Of([this] { Window().Click("Command1"); }), 75);
  EXPECT_TRUE(boxes.shown.empty());
}

// The menus are enabled before the file is opened.
TEST_F(VocabularyFiles, A_file_that_cannot_be_read_leaves_the_one_that_is_open) {
  Open(Three_Curves());
  Choose("mnuNumber", "2");
  data_files.files["bad.SAY"] = Vocabulary_File({Curve("bad", {})});
  for (const auto way : {"Command1", "Opmu"}) {
    data_files.read_faults = {{data_files.reads + 1, Failure::Device_Failure}};
    Failure_Of([&] { Open_By(way, "bad.SAY"); });
    EXPECT_TRUE(Are_Enabled({"mnuFile", "mnuQuery", "mnuRecord", "NextHit", "PreHit"})) << way;
    EXPECT_EQ(Text("Text1"), "two") << way;
    EXPECT_EQ(Lines().size(), 3U) << way;
    EXPECT_EQ(Current(), 2) << way;
    EXPECT_EQ(data_files.open_files, 1) << way;
  }
  Choose("mnuNext");
  EXPECT_EQ(Text("Text1"), "three");
  EXPECT_EQ(Bytes_On_Disk(), Vocabulary_File(Three_Curves()));
  EXPECT_EQ(data_files.files["bad.SAY"], Vocabulary_File({Curve("bad", {})}));
}

TEST_F(VocabularyFiles, The_lines_of_the_file_before_go_also_when_record_1_cannot_be_shown) {
  Open(Three_Curves());
  auto damaged = Three_Curves();
  damaged[0].VocabularySampleCount(1201);
  data_files.files["bad.SAY"] = Vocabulary_File(damaged);
  Open_By("Opmu", "bad.SAY");
  EXPECT_EQ(Told(), Texts{Refused_Name});
  EXPECT_TRUE(Lines().empty());
}

TEST_F(VocabularyFiles, A_name_that_does_not_exist_makes_an_empty_file) {
  Open_File("new.SAY");
  EXPECT_TRUE(data_files.files.at("new.SAY").empty());
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(VocabularyFiles, An_empty_file_shows_record_1_with_no_name_and_an_empty_graph) {
  Open({});
  EXPECT_EQ(Window().Caption(), "Quillspeech Vocabulary Database.Rec No: 1");
  EXPECT_EQ(Text("Text1"), "");
  EXPECT_EQ(Text("Label3"), "0");
  EXPECT_TRUE(Graph().operations.empty());
  EXPECT_TRUE(Lines().empty());
}

TEST_F(VocabularyFiles, In_an_empty_file_next_writes_record_1_and_says_that_there_is_no_more) {
  Open({});
  Choose("mnuNext");
  EXPECT_EQ(Told(), Texts{"Quillspeech|No More Records"});
  EXPECT_EQ(Bytes_On_Disk(), Vocabulary_File({VocRecord()}));
  EXPECT_EQ(Window().Caption(), "Quillspeech Vocabulary Database.Rec No: 1");
}

TEST_F(VocabularyFiles, A_tail_of_more_than_half_a_record_counts_as_one) {
  struct Case {
    std::size_t bytes;
    std::size_t records;
  };
  for (const Case& one : {Case{9634, 1}, Case{9634 + 4817, 2}, Case{9634 + 4818, 2},
                          Case{9634 + 4816, 1}, Case{4817, 0}, Case{4818, 1}}) {
    auto bytes = Vocabulary_File(Three_Curves());
    bytes.resize(one.bytes);
    data_files.files[File] = bytes;
    Open_File(File);
    EXPECT_EQ(Lines().size(), one.records) << one.bytes;
  }
}

TEST_F(VocabularyFiles, A_file_of_another_kind_is_read_without_complaint) {
  std::vector<std::uint8_t> bytes(3 * 8476, 0);  // as a language file
  bytes[0] = 7;                                  // RecordNo
  bytes[4] = 'x';                                // its copyright, here the name
  data_files.files[File] = bytes;
  // From the list the way leads back to record 7, which is past the end and empty.
  Open_File(File);
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_EQ(Lines().size(), 3U);
  EXPECT_EQ(Text("Text1"), "");
}

TEST_F(VocabularyFiles, The_file_of_the_other_half_has_no_records_for_this_one) {
  Open(Three_Curves());
  const auto before = Bytes_On_Disk();
  session.data.Main_File_Number.Open(data_files, "x.EGN", datafiles::EgnRecord::Record_Bytes);
  EXPECT_EQ(Failure_Of([this] { Window().Choose_Menu("mnuNext"); }), 5);
  EXPECT_TRUE(data_files.files.at("x.EGN").empty());
  EXPECT_EQ(Bytes_On_Disk(), before);
}

TEST_F(VocabularyFiles, The_list_shows_only_in_a_design_environment) {
  Open(Three_Curves());
  EXPECT_TRUE(views.shown.empty());
  EXPECT_EQ(Lines().size(), 3U);
}

TEST_F(VocabularyFiles, In_a_design_environment_the_list_stands_beside_the_window) {
  In_A_Design_Environment();
  Open(Three_Curves());
  EXPECT_EQ(views.shown, (std::vector<Shown>{{"DataDisplayVE", Modality::None}}));
}

}  // namespace
}  // namespace quillspeech::tests
