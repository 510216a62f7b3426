#include "tests/editors/language_editor_fixture.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech::tests {
namespace {

struct LanguageRecordDisplay : LanguageEditorTest {};

Record Full_Record() {
  Record record;
  record.Word("hello", 90).Word("hallo", 80).Font("Arial");
  record.Pattern("fth*s", 70).Pattern("f?", 60).Pattern("g", 50);
  record.Differentiator("oa", 3, 12);
  record.Fields().DivisionCount(4);
  record.Fields().DivisionByteLength(12345);
  return record;
}

TEST_F(LanguageRecordDisplay, The_caption_names_the_record_and_its_first_word) {
  Open({Full_Record(), Record()});
  EXPECT_EQ(Window().Caption(),
            "Quillspeech\xAE  Record No.1 out of 2  for Words Like...hello "
            "\xA9"
            "Corvane Studio Works");
}

TEST_F(LanguageRecordDisplay, The_lists_hold_every_entry_and_the_edit_parts_the_first) {
  Open({Full_Record(), Record()});
  const struct {
    const char* list;
    Texts lines;
  } expected[] = {{"Combo5", {"hello", "hallo"}},
                  {"Combo10", {"90", "80"}},
                  {"Combo2", {"fth*s", "f?", "g"}},
                  {"Combo3", {"70", "60", "50"}},
                  {"Combo7", {"3"}},
                  {"Combo6", {"oa"}},
                  {"Combo9", {"12"}}};
  for (const auto& [list, lines] : expected) {
    EXPECT_EQ(Lines(list), lines) << list;
    EXPECT_EQ(Text(list), lines[0]) << list;
    EXPECT_EQ(Window()[list].index, -1) << list;
  }
}

TEST_F(LanguageRecordDisplay, The_counts_and_the_divisions_show) {
  Open({Full_Record(), Record()});
  EXPECT_EQ(Text("Label11"), "2");
  EXPECT_EQ(Text("Label7"), "3");
  EXPECT_EQ(Text("Label12"), "1");
  EXPECT_EQ(Text("TextDiv"), "4");
  EXPECT_EQ(Text("Text2"), "12345");
}

TEST_F(LanguageRecordDisplay, The_counters_are_loaded_from_the_record) {
  Open({Full_Record(), Record()});
  editor.Word_Counter = editor.Like_Counter = editor.Differentiator_Counter = 99;
  editor.Display_Record();
  EXPECT_EQ(editor.Word_Counter, 2);
  EXPECT_EQ(editor.Like_Counter, 3);
  EXPECT_EQ(editor.Differentiator_Counter, 1);
}

TEST_F(LanguageRecordDisplay, The_words_show_in_the_font_of_the_record) {
  Open({Full_Record(), Record()});
  EXPECT_EQ(Window()["Combo5"].font.name, "Arial");
  EXPECT_EQ(Window()["Combo10"].font.name, "MS Sans Serif");
}

TEST_F(LanguageRecordDisplay, Texts_are_moved_to_the_left_end_of_their_fields_in_memory) {
  Record record;
  record.Word("  hello").Pattern(" fth ").Differentiator("   oa", 1, 1).Font(" Arial");
  Open({record, Record()});
  EXPECT_EQ(editor.Record().Words(1), Fixed("hello", 40));
  EXPECT_EQ(editor.Record().LikeProtocols(1), Fixed("fth", 100));
  EXPECT_EQ(editor.Record().EngineCodes(1), Fixed("oa", 20));
  EXPECT_EQ(editor.Record().WordFont(), Fixed("Arial", 20));
  EXPECT_EQ(On_Disk().Words(1), Fixed("  hello", 40));
}

TEST_F(LanguageRecordDisplay, An_erased_field_shows_as_nothing_and_keeps_its_zeros) {
  Open({Record(), Record()});
  EXPECT_EQ(Text("Combo5"), "");
  EXPECT_EQ(Text("Combo10"), "0");
  EXPECT_EQ(Text("Combo2"), "");
  EXPECT_TRUE(Lines("Combo5").empty());
  EXPECT_EQ(editor.Record().Words(1), std::string(40, '\0'));
}

TEST_F(LanguageRecordDisplay, What_stood_in_the_window_before_is_gone) {
  Open({Full_Record(), Record()});
  Choose("mnuNext");
  for (const auto list : {"Combo5", "Combo10", "Combo2", "Combo3", "Combo7", "Combo6", "Combo9"}) {
    EXPECT_TRUE(Lines(list).empty()) << list;
  }
  EXPECT_EQ(Text("TextDiv"), "0");
}

TEST_F(LanguageRecordDisplay, A_count_above_its_array_fails) {
  Open({Record(), Record()});
  editor.Record().LikeCount(31);
  EXPECT_EQ(Failure_Of([this] { editor.Display_Record(); }), 9);
}

}  // namespace
}  // namespace quillspeech::tests
