// Records found by number and by name.
#include "tests/editors/vocabulary_editor_fixture.hpp"

namespace quillspeech::tests {
namespace {

constexpr auto Find_Title = "Quillspeech Vocabulary Editor Version 1.0";

struct VocabularyFind : VocabularyEditorTest {
  std::string Not_Present(const std::string& answer) {
    return std::string(Find_Title) + "|Record " + answer + " not present";
  }
};

TEST_F(VocabularyFind, A_number_leads_to_its_record) {
  Open(Three_Curves());
  Choose("mnuNumber", "3");
  EXPECT_EQ(Text("Text1"), "three");
  EXPECT_EQ(Current(), 3);
  EXPECT_EQ(dialogs.shown_boxes.at(0).title, "Find:");
  EXPECT_EQ(dialogs.shown_boxes.at(0).prompt, "Enter Reference Number");
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(VocabularyFind, A_number_is_what_the_answer_begins_with) {
  Open(Three_Curves());
  Choose("mnuNumber", " 2 monkeys");
  EXPECT_EQ(Text("Text1"), "two");
}

TEST_F(VocabularyFind, An_answer_of_value_0_does_nothing) {
  Open(Three_Curves());
  for (const auto answer : {"", "0", "two", "-0", "0.0"}) Choose("mnuNumber", answer);
  EXPECT_EQ(Text("Text1"), "one");
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(VocabularyFind, A_number_that_the_file_does_not_count_is_not_present) {
  Open(Three_Curves());
  for (const std::string answer : {"4", "-1", "1e300", "3.5", "0.4", "0.5"}) {
    boxes.shown.clear();
    Choose("mnuNumber", answer);
    EXPECT_EQ(Told(), Texts{Not_Present(answer)});
    EXPECT_EQ(Text("Text1"), "one");
  }
}

TEST_F(VocabularyFind, A_number_is_rounded_half_to_even) {
  struct Case {
    const char* answer;
    int record;
  };
  for (const Case& one : {Case{"0.6", 1}, Case{"1.5", 2}, Case{"2.5", 2}, Case{"2.6", 3}}) {
    Open(Three_Curves());
    Choose("mnuNumber", one.answer);
    EXPECT_EQ(Current(), one.record) << one.answer;
  }
}

TEST_F(VocabularyFind, A_search_by_number_writes_nothing) {
  Open(Three_Curves());
  Choose("mnuNumber", "2");
  EXPECT_EQ(data_files.writes, 0);
}

TEST_F(VocabularyFind, A_name_leads_to_the_first_record_of_that_name) {
  Open({Curve("a", {}), Curve("same", {1}), Curve("same", {2})});
  Choose("mnuFindName", "same");
  EXPECT_EQ(Current(), 2);
  EXPECT_EQ(Text("Text1"), "same");
  EXPECT_EQ(dialogs.shown_boxes.at(0).title, "Find :");
  EXPECT_EQ(dialogs.shown_boxes.at(0).prompt, "Enter Target Name");
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(VocabularyFind, Names_are_compared_letter_for_letter_and_the_answer_as_it_is) {
  Open({Curve("One", {}), Curve(" two", {}), Curve("thr*", {}), Curve("abcdefghijklmnopqrst", {})});
  struct Case {
    const char* answer;
    int found;  // 0: none
  };
  for (const Case& one : {Case{"One", 1}, Case{"one", 0}, Case{"One ", 0}, Case{"two", 0},
                          Case{" two", 2}, Case{"thr*", 3}, Case{"thr?", 0}, Case{"On", 0},
                          Case{"abcdefghijklmnopqrst", 4}, Case{"abcdefghijklmnopqrstu", 0}}) {
    boxes.shown.clear();
    Choose("mnuFindName", one.answer);
    EXPECT_TRUE(one.found == 0 || one.found == Current()) << one.answer;
    EXPECT_EQ(Told(), one.found ? Texts{} : Texts{Not_Present(one.answer)}) << one.answer;
  }
}

TEST_F(VocabularyFind, Blanks_are_no_name) {
  Open({Curve("", {})});
  Choose("mnuFindName", " ");
  EXPECT_EQ(Told(), Texts{Not_Present(" ")});
}

TEST_F(VocabularyFind, No_answer_does_nothing) {
  Open(Three_Curves());
  const int reads = data_files.reads;
  Choose("mnuFindName", "");
  EXPECT_EQ(data_files.reads, reads);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(VocabularyFind, After_a_search_in_vain_the_last_record_is_in_the_buffer_unseen) {
  Open(Three_Curves());
  Choose("mnuFindName", "none");
  EXPECT_EQ(Current(), 3);
  EXPECT_EQ(Text("Text1"), "one");
}

}  // namespace
}  // namespace quillspeech::tests
