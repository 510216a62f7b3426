// Engine files: how they are opened and saved.
#include "editors/language_editor.hpp"
#include "tests/editors/engine_editor_fixture.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech::tests {
namespace {

constexpr auto Refusal =
    "You did not enter a file name or the name is not valid, verify and try again";
constexpr auto Title = "Quillspeech Engine Editor|";
constexpr auto Info_Title = "Quillspeech Engine Editor Info.|";

struct EngineFiles : EngineEditorTest {
  EngineFiles() {
    session.operations.Stop_And_Recover = [this](Session&) { ++recoveries; };
  }
  void Open_By_Button(const std::string& name) {
    dialogs.files = {name};
    Click("Command3");
  }
  bool Is_Open() { return session.data.Main_File_Number.Is_Open(); }
  int recoveries = 0;
};

TEST_F(EngineFiles, The_button_asks_for_a_file) {
  Put_Engine_File(data_files, File, {{1, "ab"}});
  Open_By_Button(std::string("  ") + File + " ");
  EXPECT_EQ(dialogs.shown_dialogs[0].title, "Open Quillspeech Engine to Edit");
  EXPECT_EQ(dialogs.shown_dialogs[0].pattern, "*.EGN");
  EXPECT_EQ(dialogs.shown_dialogs[0].name, "*.EGN");
  EXPECT_EQ(editor.Engine_File_Name, File);
  EXPECT_EQ(Caption("mnu02(2)"), "ab");
}

TEST_F(EngineFiles, The_menu_asks_for_a_name_and_offers_the_last_one) {
  Open({{1, "ab"}});
  Choose("mnuEFoef", "  other.egn ");
  EXPECT_EQ(dialogs.shown_boxes[0].title, "Open:");
  EXPECT_EQ(dialogs.shown_boxes[0].prompt, "Open this existing or new *.egn File :");
  EXPECT_EQ(dialogs.shown_boxes[0].text, "");
  EXPECT_EQ(dialogs.shown_boxes[1].text, File);
  EXPECT_EQ(editor.Engine_File_Name, "other.egn");
}

// The button takes any extension of three letters that begins with an E; two points are too many
// for both. An empty name is a dialog that was cancelled.
TEST_F(EngineFiles, Names_are_taken_by_their_extension) {
  const struct {
    const char* name;
    const char* button_says;  // null: it opens the file
    const char* menu_says;
  } cases[] = {{"a.EGN", nullptr, nullptr},
               {"a.egn", nullptr, nullptr},
               {"a.Egn", nullptr, Title},
               {"a.eXY", nullptr, Title},
               {"a.eg", Info_Title, Title},
               {"a.egnx", Info_Title, Title},
               {"a.txt", Info_Title, Title},
               {"a.SAY", Info_Title, Title},
               {"", nullptr, Title},
               {"egn", Info_Title, Title},
               {".egn", nullptr, nullptr},
               {"a.b.egn", Info_Title, Info_Title},
               {"a.EGN.EGN", Info_Title, Info_Title},
               {"a..egn", Info_Title, Info_Title},
               {"dir.1\\a.egn", Info_Title, Info_Title}};
  for (const auto& [name, button_says, menu_says] : cases) {
    for (const bool by_button : {true, false}) {
      const char* const says = by_button ? button_says : menu_says;
      boxes.shown.clear();
      editor.Engine_File_Name = "before";
      if (by_button) Open_By_Button(name);
      if (!by_button) Choose("mnuEFoef", name);
      const bool is_opened = !says && *name != 0;
      EXPECT_EQ(editor.Engine_File_Name, is_opened ? name : "before") << name << by_button;
      EXPECT_EQ(Told(), says ? Texts{std::string(says) + Refusal} : Texts{}) << name << by_button;
    }
  }
}

TEST_F(EngineFiles, A_name_with_two_points_is_refused_though_it_ends_in_the_right_extension) {
  for (const bool by_button : {true, false}) {
    boxes.shown.clear();
    if (by_button) Open_By_Button("my.old.EGN");
    if (!by_button) Choose("mnuEFoef", "my.old.EGN");
    EXPECT_EQ(Told(), Texts{std::string(Info_Title) + Refusal}) << by_button;
    EXPECT_EQ(editor.Engine_File_Name, "") << by_button;
    EXPECT_EQ(data_files.opens, 0) << by_button;
  }
}

TEST_F(EngineFiles, A_dialog_that_is_cancelled_or_gives_its_own_pattern_does_nothing) {
  for (const auto name : {"", "*.EGN"}) {
    Open_By_Button(name);
    EXPECT_TRUE(boxes.shown.empty()) << name;
    EXPECT_EQ(data_files.opens, 0) << name;
    EXPECT_EQ(editor.Engine_File_Name, "") << name;
  }
}

TEST_F(EngineFiles, A_file_that_cannot_be_read_leaves_the_one_that_the_button_found_open) {
  Open({{0, "old"}});
  Put_Engine_File(data_files, "bad.EGN", {{0, "bad"}});
  data_files.read_faults = {{data_files.reads + 1, Failure::Device_Failure}};
  EXPECT_EQ(Failure_Of([&] { Open_By_Button("bad.EGN"); }), 57);
  EXPECT_EQ(editor.Engine_File_Name, File);
  EXPECT_EQ(Caption("mnu02(1)"), "old");
  Choose("mnu02(1)", "new");
  Save();
  EXPECT_EQ(Slot_On_Disk(0), "new");
}

TEST_F(EngineFiles, A_file_that_cannot_be_read_leaves_the_menu_without_one) {
  Open({{0, "old"}});
  Put_Engine_File(data_files, "bad.EGN", {{0, "bad"}});
  data_files.read_faults = {{data_files.reads + 1, Failure::Device_Failure}};
  EXPECT_EQ(Failure_Of([&] { Choose("mnuEFoef", "bad.EGN"); }), 57);
  EXPECT_FALSE(Is_Open());
  EXPECT_EQ(data_files.open_files, 0);
  EXPECT_EQ(editor.Engine_File_Name, File);
  EXPECT_EQ(editor.Engine().EngineSlots(0), Fixed("old", 20));
}

TEST_F(EngineFiles, An_ampersand_is_two_in_a_menu_and_one_in_the_file) {
  Open({{0, "a&b"}, {1, "&&"}, {2, "&"}});
  EXPECT_EQ(Caption("mnu02(1)"), "a&&b");
  EXPECT_EQ(Caption("mnu02(2)"), "&&&&");
  Choose("mnu02(3)", "x&&&");
  EXPECT_EQ(Caption("mnu02(3)"), "x&&&&&&");
  EXPECT_EQ(session.filter.Engine_Table[3], "x&&&");
  Save();
  EXPECT_EQ(Slot_On_Disk(0), "a&b");
  EXPECT_EQ(Slot_On_Disk(1), "&&");
  EXPECT_EQ(Slot_On_Disk(2), "x&&&");
}

TEST_F(EngineFiles, The_menu_closes_the_open_file_before_it_asks_and_the_button_does_not) {
  Open({});
  Open_By_Button("none");
  EXPECT_TRUE(Is_Open());
  Choose("mnuEFoef", "");
  EXPECT_FALSE(Is_Open());
  EXPECT_EQ(data_files.open_files, 0);
}

TEST_F(EngineFiles, The_61_elements_show_in_their_groups_without_their_blanks) {
  Groups groups;
  Texts texts;
  for (int element = 0; element <= 60; ++element) {
    texts.push_back("  e" + std::to_string(element) + " ");
  }
  for (int element = 0; element <= 60; ++element) {
    groups.emplace_back(element, texts[static_cast<std::size_t>(element)]);
  }
  Open(groups);
  for (std::string& text : texts) text = Trimmed(text);
  EXPECT_EQ(Captions(), texts);
  EXPECT_EQ(editor.Engine().EngineSlots(60), Fixed("e60", 20));
}

TEST_F(EngineFiles, Opening_leaves_the_running_table) {
  session.filter.Engine_Table[1] = "running";
  Open({{1, "of the file"}});
  EXPECT_EQ(session.filter.Engine_Table[1], "running");
}

TEST_F(EngineFiles, An_empty_file_shows_blanks_and_a_save_makes_record_1) {
  Choose("mnuEFoef", "new.EGN");
  EXPECT_EQ(Captions(), Texts(61, ""));
  EXPECT_EQ(session.data.Main_Record_Count, 0);
  Choose("mnu02(1)", "_");
  Save();
  EXPECT_EQ(data_files.files.at("new.EGN").size(), 2024U);
  EXPECT_EQ(On_Disk("new.EGN").RecordNo(), 1);
  EXPECT_EQ(On_Disk("new.EGN").EngineSlots(0), Fixed("_", 20));
}

TEST_F(EngineFiles, What_a_screen_does_not_show_of_an_element_is_not_saved) {
  Open({});
  data_files.files.at(File)[4] = 0;
  data_files.files.at(File)[5] = 'x';
  Choose("mnuEFoef", File);
  EXPECT_EQ(Caption("mnu02(1)"), "");
  Save();
  EXPECT_EQ(On_Disk().EngineSlots(0), Fixed("", 20));
}

TEST_F(EngineFiles, Save_writes_each_entry_to_the_element_of_its_place) {
  Open({{61, "kept 61"}, {99, "kept 99"}, {100, "kept 100"}});
  const Texts entries = Entries_In_Order();
  for (const std::string& entry : entries) Choose(entry, entry);
  Save();
  std::vector<std::uint8_t> expected(2024, ' ');
  expected[0] = 1;
  expected[1] = expected[2] = expected[3] = 0;
  const auto put = [&](std::size_t element, const std::string& text) {
    std::copy(text.begin(), text.end(),
              expected.begin() + static_cast<std::ptrdiff_t>(4 + 20 * element));
  };
  for (std::size_t element = 0; element < entries.size(); ++element) put(element, entries[element]);
  put(61, "kept 61");
  put(99, "kept 99");
  put(100, "kept 100");
  EXPECT_EQ(data_files.files.at(File), expected);
}

TEST_F(EngineFiles, Elements_61_and_above_keep_the_bytes_that_were_read) {
  constexpr std::size_t Element_61 = 4 + 20 * 61;
  Open({});
  std::vector<std::uint8_t>& bytes = data_files.files.at(File);
  for (std::size_t at = Element_61; at < bytes.size(); ++at) {
    bytes[at] = static_cast<std::uint8_t>(at);
  }
  const std::vector<std::uint8_t> before = bytes;
  Choose("mnuEFoef", File);
  Click("Command4");
  for (const std::string& entry : Entries_In_Order()) Choose(entry, "new");
  Save();
  EXPECT_EQ(Slot_On_Disk(60), "new");
  EXPECT_TRUE(std::equal(before.begin() + Element_61, before.end(),
                         data_files.files.at(File).begin() + Element_61));
}

TEST_F(EngineFiles, A_text_of_20_characters_fills_its_element_and_a_longer_one_is_cut) {
  Open({});
  Choose("mnu02(1)", "abcdefghijklmnopqrst");
  Choose("mnu02(2)", "ABCDEFGHIJKLMNOPQRSTUVW");
  Save();
  EXPECT_EQ(On_Disk().EngineSlots(0), "abcdefghijklmnopqrst");
  EXPECT_EQ(On_Disk().EngineSlots(1), "ABCDEFGHIJKLMNOPQRST");
  EXPECT_EQ(On_Disk().EngineSlots(2), Fixed("", 20));
}

TEST_F(EngineFiles, A_record_that_bears_another_number_is_written_to_that_place) {
  Open({{0, "old"}});
  data_files.files.at(File)[0] = 3;
  Choose("mnuEFoef", File);
  Choose("mnu02(1)", "new");
  Save();
  EXPECT_EQ(data_files.files.at(File).size(), 3U * 2024);
  EXPECT_EQ(Trim(On_Disk(File, 1).EngineSlots(0)), "old");
  EXPECT_EQ(Trim(On_Disk(File, 3).EngineSlots(0)), "new");
  Choose("mnuEFoef", File);
  EXPECT_EQ(Caption("mnu02(1)"), "old");
}

TEST_F(EngineFiles, Save_asks_with_the_name_and_closes_the_file) {
  Open({});
  Save();
  ASSERT_EQ(boxes.shown.size(), 1U);
  EXPECT_EQ(boxes.shown[0].box.title, "Quillspeech Engine Editor");
  EXPECT_EQ(boxes.shown[0].box.text, "Are you ready to save this engine record in file  my.EGN");
  EXPECT_EQ(boxes.shown[0].box.buttons, BoxButtons::YesNo);
  EXPECT_FALSE(Is_Open());
  EXPECT_EQ(data_files.open_files, 0);
}

constexpr auto Not_Opened =
    "Quillspeech Engine Editor.|You have'nt opened a Engine file yet. Please open a new or an "
    "existing file and then SAVE";

TEST_F(EngineFiles, Save_without_a_file_says_so) {
  Save();
  EXPECT_EQ(Told(), Texts{Not_Opened});
}

TEST_F(EngineFiles, The_default_engine_needs_an_open_file_to_be_saved) {
  Click("Command4");
  Save();
  EXPECT_EQ(Told(), Texts{Not_Opened});
  EXPECT_EQ(Caption("mnu02(2)"), "dbtrvgp");
  EXPECT_TRUE(data_files.files.empty());
}

TEST_F(EngineFiles, After_a_save_the_file_must_be_opened_again) {
  Open({});
  Save();
  boxes.shown.clear();
  Save();
  EXPECT_EQ(Told(), Texts{Not_Opened});
  Choose("mnuEFoef", File);
  boxes.shown.clear();
  Save();
  EXPECT_EQ(boxes.shown[0].box.buttons, BoxButtons::YesNo);
}

TEST_F(EngineFiles, A_no_leaves_the_file_open_for_a_second_save) {
  Open({{0, "old"}});
  Choose("mnu02(1)", "new");
  Save(BoxAnswer::No);
  EXPECT_EQ(Slot_On_Disk(0), "old");
  EXPECT_TRUE(Is_Open());
  Save();
  EXPECT_EQ(Slot_On_Disk(0), "new");
}

// The name of the engine file is kept, and the one channel is open: it is the other editor's. Its
// records are longer, so the write fails, and the save with it.
TEST_F(EngineFiles, A_save_while_a_language_file_is_open_asks_and_leaves_both_files) {
  Open({{0, "old"}});
  Save();
  Put_Language_File(data_files, "words.SAY", {Record().Word("one"), Record().Word("two")});
  session.settings.Consider_this_Lang_File_to_Add = "words.SAY";
  LanguageEditor language(session);
  language.Load();
  Choose("mnu02(1)", "new");
  const auto before = data_files.files;
  for (const BoxAnswer answer : {BoxAnswer::No, BoxAnswer::Yes}) {
    boxes.shown.clear();
    Save(answer);
    EXPECT_EQ(Told(), Texts{std::string(Title) +
                            "Are you ready to save this engine record in file  my.EGN"});
    EXPECT_EQ(recoveries, answer == BoxAnswer::Yes ? 1 : 0);
    EXPECT_EQ(data_files.files, before);
    EXPECT_TRUE(Is_Open());
  }
  EXPECT_EQ(session.trace.Last_Failure, 5);
  EXPECT_EQ(Trim(language.Record().Words(1)), "one");
}

TEST_F(EngineFiles, A_save_that_fails_ends_in_the_recovery) {
  Open({{0, "old"}});
  data_files.write_faults[1] = {Failure::Disk_Full, 0};
  Choose("mnu02(1)", "new");
  Save();
  EXPECT_EQ(recoveries, 1);
  EXPECT_EQ(session.trace.Last_Failure, 61);
  EXPECT_EQ(Slot_On_Disk(0), "old");
}

TEST_F(EngineFiles, A_record_without_a_proper_number_cannot_be_saved) {
  Open({{0, "old"}});
  data_files.files.at(File)[0] = 0;
  Choose("mnuEFoef", File);
  Save();
  EXPECT_EQ(recoveries, 1);
  EXPECT_EQ(session.trace.Last_Failure, 63);
}

TEST_F(EngineFiles, A_file_that_cannot_be_opened_fails_to_whoever_asked) {
  data_files.refused["bad.EGN"] = Failure::Path_Not_Found;
  EXPECT_EQ(Failure_Of([&] { Open_By_Button("bad.EGN"); }), 76);
  EXPECT_EQ(Failure_Of([&] { Choose("mnuEFoef", "bad.EGN"); }), 76);
  EXPECT_EQ(recoveries, 0);
  EXPECT_EQ(editor.Engine_File_Name, "");
}

TEST_F(EngineFiles, A_language_file_with_the_extension_of_an_engine_is_read_without_complaint) {
  Put_Language_File(data_files, "words.egn", {Record().Word("hello")});
  Choose("mnuEFoef", "words.egn");
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_EQ(session.data.Main_Record_Count, 4);
  EXPECT_EQ(editor.Engine_File_Name, "words.egn");
}

}  // namespace
}  // namespace quillspeech::tests
