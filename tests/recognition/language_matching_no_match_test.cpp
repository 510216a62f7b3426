#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/recognition/language_matching_fixture.hpp"

namespace quillspeech {
namespace {

using tests::LanguageMatching;
using tests::Record;
using tests::Words;

TEST_F(LanguageMatching, Without_a_match_the_status_stays_and_no_question_is_asked) {
  session.flags.Operation_Status = "Processing...";
  results.Matched_Record_No = 4;
  Put({Record().Word("a").Pattern("x")});
  Match("s");
  EXPECT_EQ(results.No_Language_Match, True);
  EXPECT_EQ(results.Matched_Record_No, 0);
  EXPECT_EQ(session.flags.Operation_Status, "Processing...");
  EXPECT_TRUE(test.boxes.shown.empty());
}

TEST_F(LanguageMatching, A_scan_without_a_match_does_not_take_back_an_earlier_one) {
  results.Language_Matched = 1;
  Put({Record().Word("a").Pattern("x"), Record().Word("b").Pattern("y")});
  Match("s");
  EXPECT_EQ(results.No_Language_Match, True);
  EXPECT_EQ(results.Language_Matched, 1);
}

TEST_F(LanguageMatching, Without_a_match_nothing_is_ranked_although_there_are_words) {
  results.Platinum_Words_Available = 1;
  results.Platinum_Rank_Table[1] = 80;
  results.Platinum_Word_Table[1] = "earlier";
  results.Platinum_Best_Table[1] = "as it was";
  results.Best_Word_Index[1] = 5;
  Put({Record().Word("a").Pattern("x")});
  Match("s");
  EXPECT_EQ(results.Platinum_Best_Table[1], "as it was");
  EXPECT_EQ(results.Best_Word_Index[1], 5);
}

TEST_F(LanguageMatching, The_question_is_asked_only_when_wanted_and_nothing_is_added_anyway) {
  struct Case {
    std::string notify;
    std::string add;
    std::size_t boxes;
  };
  for (const Case& c : std::vector<Case>{{"YES", "NO", 1},
                                         {"YES", "YES", 0},
                                         {"YES", "", 0},
                                         {"YES", "no", 0},
                                         {"yes", "NO", 0},
                                         {"NO", "NO", 0},
                                         {"", "NO", 0}}) {
    test.boxes.shown.clear();
    session.settings.Notify_if_no_language_match = c.notify;
    session.settings.Add_To_Language = c.add;
    Match("s");
    EXPECT_EQ(test.boxes.shown.size(), c.boxes) << c.notify << ' ' << c.add;
  }
}

struct NoMatchQuestion : LanguageMatching {
  std::vector<std::string> calls;

  NoMatchQuestion() {
    session.settings.Notify_if_no_language_match = "YES";
    session.settings.Consider_this_Lang_File_to_Add = "add.SAY";
    session.operations.Load_Database = [this](Session&) { calls.push_back("load"); };
    session.operations.Show_Database = [this](Session&, bool modally) {
      EXPECT_EQ(test.data_files.open_files, 0);
      calls.push_back(modally ? "show modally" : "show");
    };
  }
};

TEST_F(NoMatchQuestion, It_names_the_file_to_add_to) {
  Match("s");
  ASSERT_EQ(test.boxes.shown.size(), 1U);
  const MessageBox& box = test.boxes.shown[0].box;
  EXPECT_EQ(box.text,
            "You have enabled Artificial Intelligence matching. And no match was found in the "
            "specified Lang file : add.SAY  Do you want to add the characters to Quillspeech "
            "Language Database ? ");
  EXPECT_EQ(box.title, "Quillspeech Language Development");
  EXPECT_EQ(box.buttons, BoxButtons::YesNo);
  EXPECT_EQ(box.icon, BoxIcon::None);
}

TEST_F(NoMatchQuestion, No_opens_nothing) {
  test.boxes.answers = {BoxAnswer::No};
  Match("s");
  ASSERT_EQ(test.boxes.shown.size(), 1U);
  EXPECT_EQ(test.boxes.shown[0].answer, BoxAnswer::No);
  EXPECT_TRUE(test.boxes.answers.empty());
  EXPECT_TRUE(calls.empty());
}

TEST_F(NoMatchQuestion, Yes_shows_the_Language_Editor_modally) {
  test.boxes.answers.push_back(BoxAnswer::Yes);
  Match("s");
  EXPECT_EQ(calls, (Words{"load", "show modally"}));
}

TEST_F(NoMatchQuestion, Yes_in_a_design_environment_shows_it_beside_the_others) {
  test.host.path = "C:\\tools\\vb6.exe";
  test.boxes.answers.push_back(BoxAnswer::Yes);
  Match("s");
  EXPECT_EQ(calls, (Words{"load", "show"}));
}

TEST_F(NoMatchQuestion, A_failure_in_the_showing_is_ignored) {
  test.boxes.answers = {BoxAnswer::Yes, BoxAnswer::Yes};
  session.operations.Show_Database = [](Session&, bool) { Fail(Failure::Invalid_Call); };
  Match("s");
  session.operations.Load_Database = [](Session&) { Fail(Failure::Out_Of_Memory); };
  Match("s");
  EXPECT_EQ(calls, Words{"load"});
  EXPECT_EQ(recoveries, 0);
  EXPECT_EQ(results.No_Language_Match, True);
}

}  // namespace
}  // namespace quillspeech
