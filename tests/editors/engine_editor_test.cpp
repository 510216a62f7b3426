// The running table in the menus, its entries, and the filter's pass value.
#include "editors/engine_editor.hpp"

#include "platform/form_caption.hpp"
#include "recognition/engine_table.hpp"
#include "tests/editors/engine_editor_fixture.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech::tests {
namespace {

struct EngineEntries : EngineEditorTest {
  std::string Element(int number) { return session.filter.Engine_Table[number]; }
};

TEST_F(EngineEntries, Each_group_asks_with_its_name_and_numbers_of_its_own) {
  const struct {
    const char* entry;
    const char* prompt;
  } cases[] = {
      {"mnu02(1)", "02 ...1"},        {"mnu02(3)", "02 ...3"},        {"mnu24(1)", "24 ...3"},
      {"mnu24(2)", "24 ...4"},        {"mnu46(1)", "46 ...5"},        {"mnu46(2)", "46 ...6"},
      {"mnu69(1)", "69 ...7"},        {"mnu69(3)", "69 ...9"},        {"mnu915(1)", "915 ...10"},
      {"mnu915(6)", "915 ...15"},     {"mnu1523(1)", "1523 ...16"},   {"mnu1523(8)", "1523 ...23"},
      {"mnu2330(1)", "2330 ...24"},   {"mnu2330(7)", "2330 ...30"},   {"mnu3040(1)", "3040 ...31"},
      {"mnu3040(10)", "3040 ...40"},  {"mnu4045(1)", "4045 ...41"},   {"mnu4045(5)", "4045 ...45"},
      {"mnu45Abv(1)", "45Abv ...46"}, {"mnu45Abv(15)", "45Abv ...60"}};
  for (const auto& [entry, prompt] : cases) {
    dialogs.shown_boxes.clear();
    Choose(entry, "x");
    ASSERT_EQ(dialogs.shown_boxes.size(), 1U) << entry;
    EXPECT_EQ(dialogs.shown_boxes[0].title, "Enter vyanjana:");
    EXPECT_EQ(dialogs.shown_boxes[0].prompt,
              std::string("Please enter your data here for ") + prompt);
    EXPECT_EQ(dialogs.shown_boxes[0].text, "");
  }
}

// The entry's own number, whatever its group: group 24's first entry stands for element 3 of a file
// and changes element 1 of the running table.
TEST_F(EngineEntries, An_answer_goes_to_the_element_of_the_entrys_own_number) {
  const struct {
    const char* entry;
    int element;
  } cases[] = {{"mnu02(1)", 1},     {"mnu02(3)", 3},   {"mnu24(1)", 1},     {"mnu46(2)", 2},
               {"mnu69(3)", 3},     {"mnu915(6)", 6},  {"mnu1523(8)", 8},   {"mnu2330(7)", 7},
               {"mnu3040(10)", 10}, {"mnu4045(5)", 5}, {"mnu45Abv(15)", 15}};
  for (const auto& [entry, element] : cases) {
    Choose(entry, std::string("  of ") + entry + " ");
    EXPECT_EQ(Caption(entry), std::string("of ") + entry);
    for (int other = 0; other <= 100; ++other) {
      const bool is_written = other == element;
      EXPECT_EQ(Element(other) == Caption(entry), is_written) << entry << " " << other;
    }
  }
}

TEST_F(EngineEntries, Whoever_is_edited_last_has_the_element) {
  Choose("mnu02(2)", "first");
  Choose("mnu46(2)", "second");
  EXPECT_EQ(Element(2), "second");
  EXPECT_EQ(Caption("mnu02(2)"), "first");
}

TEST_F(EngineEntries, An_empty_answer_empties_the_entry) {
  Choose("mnu02(2)", "aA");
  Choose("mnu02(2)", "");
  EXPECT_EQ(Caption("mnu02(2)"), "");
  EXPECT_EQ(Element(2), "");
  Choose("mnu02(2)", "again");
  EXPECT_EQ(Caption("mnu02(2)"), "again");
}

TEST_F(EngineEntries, A_text_longer_than_the_file_takes_stays_whole_in_the_table) {
  const std::string text(25, 'a');
  Choose("mnu02(2)", text);
  EXPECT_EQ(Caption("mnu02(2)"), text);
  EXPECT_EQ(Element(2), text);
}

TEST_F(EngineEntries, An_edit_does_not_touch_the_file) {
  Open({{1, "old"}});
  const auto before = data_files.files.at(File);
  Choose("mnu02(2)", "new");
  EXPECT_EQ(data_files.files.at(File), before);
}

TEST_F(EngineEntries, Numbers_of_16_and_more_do_nothing) {
  const EngineGroup long_group{"45Abv", 46, 20, 45};
  dialogs.texts = {"x"};
  Edit_Engine_Entry(editor, long_group, 16);
  EXPECT_TRUE(dialogs.shown_boxes.empty());
  EXPECT_EQ(Element(16), "");
}

TEST_F(EngineEntries, The_default_engine_fills_the_running_table_and_the_menus) {
  Choose("mnu45Abv(1)", "xyz");
  session.filter.Engine_Table[71] = "kept";
  Click("Command4");
  const struct {
    int first;
    int last;
    const char* letters;
  } groups[] = {{0, 0, "_"},           {1, 1, "dbtrvgp"},      {2, 5, "dbtrvgpunmle"},
                {6, 7, "oa"},          {8, 13, "aAA"},         {14, 22, "AkgH"},
                {23, 25, "AkgHfthjj"}, {26, 30, "AkgHfthjjs"}, {31, 49, "fthjjs"},
                {50, 60, "s"}};
  const Texts captions = Captions();
  for (const auto& [first, last, letters] : groups) {
    for (int element = first; element <= last; ++element) {
      EXPECT_EQ(captions[static_cast<std::size_t>(element)], letters) << element;
      EXPECT_EQ(Element(element), letters) << element;
    }
  }
  EXPECT_EQ(Element(70), "sx");
  EXPECT_EQ(Element(71), "kept");
}

TEST_F(EngineEntries, The_default_engine_reaches_the_file_by_a_save_only) {
  Open({{1, "old"}, {70, "kept"}});
  Click("Command4");
  EXPECT_EQ(Slot_On_Disk(1), "old");
  Save();
  EXPECT_EQ(Slot_On_Disk(1), "dbtrvgp");
  EXPECT_EQ(Slot_On_Disk(60), "s");
  EXPECT_EQ(Slot_On_Disk(61), "");
  EXPECT_EQ(Slot_On_Disk(70), "kept");
}

struct FilterPassValue : EngineEditorTest {
  static constexpr auto Prompt = "Please enter the engine input filter's( category ) pass criteria";
  std::int64_t Value() { return session.settings.Filter_Pass_Value; }
  std::string Shown_In_Menu() { return Text_Of_Caption(Caption("mnuEFCT")); }
  struct Answered {
    const char* answer;
    int value;
  };
  // That the answer gives the value, that the menu shows it as it is, and that nothing is said.
  void Expect_Taken(bool button, const Answered& by) {
    session.settings.Filter_Pass_Value = 99;
    Ask_By(button, by.answer);
    EXPECT_EQ(Value(), by.value) << by.answer << button;
    EXPECT_EQ(Shown_In_Menu(), std::string(Prompt) + "..." + by.answer);
    EXPECT_TRUE(boxes.shown.empty());
  }
  void Ask_By(bool button, const std::string& answer) {
    dialogs.texts = {answer};
    if (button) return Click("Command5");
    Choose("mnuEFCT");
  }
};

TEST_F(FilterPassValue, The_button_and_the_menu_ask_the_same_under_titles_of_their_own) {
  Ask_By(true, "3");
  Ask_By(false, "4");
  EXPECT_EQ(dialogs.shown_boxes[0].title, "Enter threshold value:");
  EXPECT_EQ(dialogs.shown_boxes[1].title, "Enter threshold:");
  for (const auto& box : dialogs.shown_boxes) {
    EXPECT_EQ(box.prompt, Prompt);
    EXPECT_EQ(box.text, "");
  }
}

TEST_F(FilterPassValue, A_number_is_rounded_half_to_even) {
  const Answered cases[] = {{"5", 5},   {"2.5", 2}, {"3.5", 4},         {"-1", -1},
                            {" 7 ", 7}, {"0", 0},   {"32767.4", 32767}, {"-32768", -32768}};
  for (const Answered& one : cases) {
    for (const bool button : {true, false}) Expect_Taken(button, one);
  }
}

TEST_F(FilterPassValue, The_button_and_the_menu_take_a_number_however_it_is_spelled) {
  const Answered cases[] = {{"1,000", 1000}, {"1,002.5", 1002}, {"(5)", -5},    {"( 2.5 )", -2},
                            {"7-", -7},      {"&H10", 16},      {"&HFFFF", -1}, {"&O17", 15},
                            {"1d2", 100},    {"1.5D+2", 150},   {"25E-1", 2},   {".5", 0},
                            {"5.", 5},       {"\t6\n", 6}};
  for (const Answered& one : cases) {
    for (const bool button : {true, false}) Expect_Taken(button, one);
  }
}

TEST_F(FilterPassValue, The_button_refuses_what_is_no_number) {
  for (const auto answer : {"", "many", "3 slices", "(5", "&HG", "&H", "1d", "1e999"}) {
    boxes.shown.clear();
    Ask_By(true, answer);
    EXPECT_EQ(Told(), Texts{"Quillspeech Engine Editor|Incorrect data format, cannot use the value "
                            "you specified.Try again"});
    EXPECT_EQ(Value(), 1);
    EXPECT_EQ(Caption("mnuEFCT"), "Engine Filter Pass Criteria  : 1");
  }
}

TEST_F(FilterPassValue, The_menu_takes_of_other_texts_the_number_that_they_begin_with) {
  const Answered cases[] = {{"3 slices", 3},     {"2.5 slices", 2}, {"-4x", -4},
                            {"1,000 slices", 1}, {"(5", 0},         {"&HG", 0},
                            {"1d", 1},           {"many", 0},       {"", 0}};
  for (const Answered& one : cases) Expect_Taken(false, one);
}

TEST_F(FilterPassValue, One_that_16_bits_do_not_hold_fails_and_leaves_the_old_one) {
  for (const std::string answer : {"32768", "32767.5", "-32769", "&H10000", "33,000", "4d4"}) {
    for (const bool button : {true, false}) {
      EXPECT_EQ(Failure_Of([&] { Ask_By(button, answer); }), 6) << answer << button;
      EXPECT_EQ(Value(), 1) << answer << button;
      EXPECT_EQ(Shown_In_Menu(), std::string(Prompt) + "..." + answer);
    }
  }
}

TEST_F(FilterPassValue, An_ampersand_in_the_answer_shows_as_one_and_marks_no_letter) {
  Ask_By(false, "5&6");
  EXPECT_EQ(Caption("mnuEFCT"), std::string(Prompt) + "...5&&6");
  Ask_By(true, "&H10");
  EXPECT_EQ(Caption("mnuEFCT"), std::string(Prompt) + "...&&H10");
  EXPECT_EQ(Value(), 16);
}

TEST_F(FilterPassValue, The_menu_fails_with_a_number_that_no_real_holds_and_the_button_refuses_it) {
  EXPECT_EQ(Failure_Of([&] { Ask_By(false, "1e999"); }), 6);
  Ask_By(true, "1e999");
  EXPECT_EQ(boxes.shown.size(), 1U);
  EXPECT_EQ(Value(), 1);
}

}  // namespace
}  // namespace quillspeech::tests
