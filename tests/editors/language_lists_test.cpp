#include "tests/editors/language_editor_fixture.hpp"

namespace quillspeech::tests {
namespace {

struct LanguageLists : LanguageEditorTest {
  LanguageLists() {
    Record record;
    record.Word("a", 1).Word("b", 2).Word("c", 3);
    record.Pattern("p", 4).Pattern("q", 5);
    record.Differentiator("x", 6, 7).Differentiator("y", 8, 9);
    Open({record, Record()});
  }
  void Select(const std::string& list, int index) { ASSERT_TRUE(Window().Select(list, index)); }
  std::string Typed(const std::string& box, const std::string& text) {
    Window().Set_Text(box, "#");  // so that every text is another one
    EXPECT_TRUE(Window().Type(box, text));
    return Text(box);
  }
};

TEST_F(LanguageLists, A_click_in_one_list_chooses_the_same_place_in_its_group) {
  const std::vector<Texts> groups = {
      {"Combo5", "Combo10"}, {"Combo2", "Combo3"}, {"Combo7", "Combo6", "Combo9"}};
  for (const Texts& group : groups) {
    for (const std::string& clicked : group) {
      for (const int index : {0, 1}) {
        Select(clicked, index);
        for (const std::string& list : group) EXPECT_EQ(Window()[list].index, index) << list;
      }
    }
  }
}

TEST_F(LanguageLists, The_groups_do_not_mind_each_other) {
  Select("Combo5", 2);
  EXPECT_EQ(Window()["Combo2"].index, -1);
  EXPECT_EQ(Window()["Combo7"].index, -1);
}

TEST_F(LanguageLists, What_is_chosen_shows_in_every_edit_part_of_the_group) {
  Select("Combo6", 1);
  EXPECT_EQ(Text("Combo7"), "8");
  EXPECT_EQ(Text("Combo6"), "y");
  EXPECT_EQ(Text("Combo9"), "9");
}

TEST_F(LanguageLists, A_font_that_is_chosen_becomes_the_font_of_the_words) {
  Select("Combo1", 1);
  EXPECT_EQ(Window()["Combo5"].font.name, "Courier New");
}

TEST_F(LanguageLists, An_empty_choice_of_a_font_is_Times_New_Roman) {
  Window().Add_Item("Combo1", "");
  Select("Combo1", 4);
  EXPECT_EQ(Window()["Combo5"].font.name, "Times New Roman");
}

TEST_F(LanguageLists, Enter_in_a_list_asks_to_save_into_it) {
  const struct {
    const char* list;
    const char* question;
  } cases[] = {{"Combo5", "Are you ready to save  data to file my.SAY ?"},
               {"Combo10", "Are you ready to save  data to file my.SAY ?"},
               {"Combo2", "Are you ready to save data to file my.SAY ?"},
               {"Combo3", "Are you ready to save data to file my.SAY ?"},
               {"Combo7", "Are you ready to save data to file my.SAY ?"}};
  for (const auto& [list, question] : cases) {
    boxes.shown.clear();
    Window().Press_Key(list, Key_Enter);
    ASSERT_EQ(boxes.shown.size(), 1U) << list;
    EXPECT_EQ(boxes.shown[0].box.text, question) << list;
  }
}

TEST_F(LanguageLists, Enter_saves_the_entry_of_its_own_list) {
  const struct {
    const char* list;
    int words;
    int patterns;
    int differentiators;
  } cases[] = {{"Combo10", 4, 2, 2}, {"Combo3", 4, 3, 2}, {"Combo7", 4, 3, 3}};
  for (const auto& [list, words, patterns, differentiators] : cases) {
    boxes.answers = {BoxAnswer::Yes};
    Window().Press_Key(list, Key_Enter);
    EXPECT_EQ(On_Disk().WordCount(), words) << list;
    EXPECT_EQ(On_Disk().LikeCount(), patterns) << list;
    EXPECT_EQ(On_Disk().DifferentiatorCount(), differentiators) << list;
  }
}

TEST_F(LanguageLists, Other_keys_and_other_lists_save_nothing) {
  Window().Press_Key("Combo5", 'x');
  for (const auto list : {"Combo6", "Combo9", "Combo8", "Combo1"}) {
    Window().Press_Key(list, Key_Enter);
  }
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(LanguageLists, Ratings_stay_between_1_and_100_while_they_are_typed) {
  const struct {
    const char* typed;
    const char* kept;
  } cases[] = {{"0", "2"},     {"1", "1"},      {"99", "99"},    {"100", "100"}, {"101", "100"},
               {"999", "100"}, {"1000", "100"}, {"0000", "100"}, {"x", "100"},   {"5x", "100"},
               {"", "100"},    {"00", "2"},     {"7.5", "7.5"},  {"1e5", "100"}, {"-5", "-5"}};
  for (const auto box : {"Combo10", "Combo3"}) {
    for (const auto& [typed, kept] : cases) EXPECT_EQ(Typed(box, typed), kept) << typed;
  }
}

TEST_F(LanguageLists, The_number_of_divisions_stays_between_1_and_5) {
  const struct {
    const char* typed;
    const char* kept;
  } cases[] = {{"0", "1"}, {"1", "1"},  {"5", "5"}, {"6", "5"},
               {"9", "5"}, {"12", "5"}, {"x", "1"}, {"", "1"}};
  for (const auto& [typed, kept] : cases) EXPECT_EQ(Typed("TextDiv", typed), kept) << typed;
}

TEST_F(LanguageLists, The_length_of_a_division_stays_at_100000_and_below) {
  const struct {
    const char* typed;
    const char* kept;
  } cases[] = {{"0", "0"},           {"99999", "99999"}, {"100000", "100000"},
               {"100001", "100000"}, {"x", "x"},         {"", ""}};
  for (const auto& [typed, kept] : cases) EXPECT_EQ(Typed("Text2", typed), kept) << typed;
}

TEST_F(LanguageLists, What_a_record_holds_is_shown_whatever_the_limits) {
  Record record;
  record.Word("a", 255).Pattern("p", -3);
  record.Fields().DivisionCount(17);
  editor.Record() = record.Fields();
  editor.Display_Record();
  EXPECT_EQ(Text("Combo10"), "255");
  EXPECT_EQ(Text("Combo3"), "-3");
  EXPECT_EQ(Text("TextDiv"), "17");
}

}  // namespace
}  // namespace quillspeech::tests
