// Edit and Delete: what changes an entry that is chosen in its list.
#include "editors/language_entries.hpp"
#include "tests/editors/language_entries_fixture.hpp"

namespace quillspeech::tests {
namespace {

using datafiles::SayRecord;
using Strings = std::vector<std::string>;

constexpr auto Nothing_Chosen = "Please select a entry from the dropdown list for editing.";

struct EntryChanges : LanguageEntries {
  // Presses the button and answers the input boxes.
  void Edit(const std::string& button, const Strings& answers) {
    dialogs.shown_boxes.clear();
    dialogs.texts.assign(answers.begin(), answers.end());
    Click(button);
    dialogs.texts.clear();
  }
  Strings Prompts() const {
    Strings prompts;
    for (const InputBox& box : dialogs.shown_boxes) prompts.push_back(box.title + "|" + box.prompt);
    return prompts;
  }
  void Choose_Differentiator(int element) {
    for (const auto list : {"Combo7", "Combo6", "Combo9"}) Choose(list, element);
  }
};

TEST_F(EntryChanges, An_edited_word_is_replaced_in_its_place_without_a_question) {
  Open({Record().Word("one", 10).Word("two", 20).Word("three", 30)});
  Choose("Combo5", 2);
  Edit("Command13", {"  zwei ", " 25 "});
  EXPECT_EQ(Prompts(), (Strings{"Edit Entry Word|Enter the new word to replace this:  two",
                                "Edit Entry Rating|Enter the rating for the current entry 20"}));
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_EQ(Texts_Of(On_Disk(), &SayRecord::Words, 3), (Strings{"one", "zwei", "three"}));
  EXPECT_EQ(On_Disk().Words(2).substr(0, 5), "zwei ");
  EXPECT_EQ(On_Disk().WordRatings(2), 25);
  EXPECT_EQ(On_Disk().WordCount(), 3);
  EXPECT_EQ(Window()["Combo5"].items, (Strings{"one", "zwei", "three"}));
}

TEST_F(EntryChanges, An_edited_pattern_is_replaced_in_its_place) {
  Open({Record().Pattern("a*", 10).Pattern("b*", 20)});
  Choose("Combo2", 1);
  Edit("Command6", {" c* ", " -7 "});
  EXPECT_EQ(Prompts(),
            (Strings{"Edit Entry|Enter the new string compare protocol to replace this:  a*",
                     "Edit Entry|Enter the new string compare protocol percentage rating:  10"}));
  EXPECT_EQ(Texts_Of(On_Disk(), &SayRecord::LikeProtocols, 2), (Strings{"c*", "b*"}));
  EXPECT_EQ(On_Disk().LikeRatings(1), -7);
}

TEST_F(EntryChanges, An_edited_differentiator_is_replaced_in_its_place) {
  Open({Record().Differentiator("oa", 1, 3).Differentiator("fth", 2, 4)});
  Choose_Differentiator(2);
  Edit("Command11", {"7", "kl", "9"});
  EXPECT_EQ(Prompts(),
            (Strings{"Edit Entry|Enter the New Slot No to replace this:  2",
                     "Edit Entry|Enter the New Engine Code to replace this:  fth",
                     "Edit Entry|Enter the New Engine Code Weight to replace this:  4"}));
  EXPECT_EQ(On_Disk().SlotNumbers(2), 7);
  EXPECT_EQ(Trimmed(On_Disk().EngineCodes(2)), "kl");
  EXPECT_EQ(On_Disk().EngineCodeWeights(2), 9);
  EXPECT_EQ(On_Disk().SlotNumbers(1), 1);
}

TEST_F(EntryChanges, An_answer_that_is_needed_and_empty_changes_nothing) {
  const struct {
    std::string button;
    Strings answers;
  } cases[] = {{"Command13", {"", "50"}},      {"Command13", {"   ", "50"}},
               {"Command6", {"", "50"}},       {"Command6", {"c*", ""}},
               {"Command11", {"", "kl", "1"}}, {"Command11", {"1", " ", "1"}},
               {"Command11", {"1", "kl", ""}}};
  Open({Record().Word("one").Pattern("a*").Differentiator("oa", 1, 3)});
  const auto before = data_files.files;
  for (const auto& [button, answers] : cases) {
    Choose("Combo5", 1);
    Choose("Combo2", 1);
    Choose_Differentiator(1);
    const int writes = data_files.writes;
    Edit(button, answers);
    EXPECT_EQ(dialogs.shown_boxes.size(), answers.size()) << button;
    EXPECT_EQ(data_files.writes, writes) << button;
    EXPECT_EQ(data_files.files, before) << button;
    EXPECT_TRUE(boxes.shown.empty()) << button;
  }
}

TEST_F(EntryChanges, The_rating_of_an_edited_word_is_the_number_that_its_answer_begins_with) {
  const std::pair<std::string, int> cases[] = {{"", 0},       {"12 monkeys", 12}, {"monkeys", 0},
                                               {"2.5", 2},    {"3.5", 4},         {"255", 255},
                                               {"255.5", -1}, {"300", -1},        {"-1", -1}};
  for (const auto& [answer, rating] : cases) {
    Open({Record().Word("one", 77)});
    Choose("Combo5", 1);
    Edit("Command13", {"eins", answer});
    EXPECT_EQ(On_Disk().WordRatings(1), rating < 0 ? 77 : rating) << answer;
    EXPECT_EQ(Trimmed(On_Disk().Words(1)), rating < 0 ? "one" : "eins") << answer;
    editor.Unload();
  }
}

TEST_F(EntryChanges, A_rating_of_300_leaves_the_word_in_memory_for_the_next_write) {
  Open({Record().Word("one", 77)});
  Choose("Combo5", 1);
  Edit("Command13", {"eins", "300"});
  EXPECT_EQ(Trimmed(On_Disk().Words(1)), "one");
  editor.Write_Record();
  EXPECT_EQ(Trimmed(On_Disk().Words(1)), "eins");
  EXPECT_EQ(On_Disk().WordRatings(1), 77);
}

TEST_F(EntryChanges, The_rating_of_an_edited_pattern_must_be_a_number) {
  Open({Record().Pattern("a*", 10)});
  Choose("Combo2", 1);
  Edit("Command6", {"c*", "high"});
  EXPECT_EQ(Trimmed(On_Disk().LikeProtocols(1)), "a*");
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(EntryChanges, Edit_and_Delete_want_an_entry_chosen) {
  Open({Record().Word("one").Pattern("a*").Differentiator("oa", 1, 3)});
  const auto before = data_files.files;
  for (const std::string button :
       {"Command13", "Command12", "Command6", "Command2", "Command11", "Command17"}) {
    Edit(button, {"x", "1", "1"});
    EXPECT_EQ(Told(), (Strings{Nothing_Chosen})) << button;
    EXPECT_EQ(boxes.shown.at(0).box.title, "Quillspeech Language Editor");
    EXPECT_TRUE(dialogs.shown_boxes.empty()) << button;
  }
  EXPECT_EQ(data_files.files, before);
}

TEST_F(EntryChanges, What_is_typed_over_a_chosen_entry_is_no_longer_one) {
  Open({Record().Word("one").Word("two")});
  Choose("Combo5", 2);
  Enter({{"Combo5", "three"}});
  Click("Command12");
  EXPECT_EQ(Told(), (Strings{Nothing_Chosen}));
}

TEST_F(EntryChanges, A_chosen_entry_without_a_text_is_none) {
  Open({Record().Word("").Pattern("")});
  for (const auto& [list, button] : {std::pair{"Combo5", "Command13"}, {"Combo2", "Command2"}}) {
    Choose(list, 1);
    Click(button);
    EXPECT_EQ(Told(), (Strings{Nothing_Chosen})) << button;
  }
}

TEST_F(EntryChanges, A_differentiator_is_chosen_when_all_three_of_its_lists_are) {
  Open({Record().Differentiator("oa", 1, 3)});
  for (const std::string list : {"Combo7", "Combo6", "Combo9"}) {
    Choose_Differentiator(1);
    Enter({{list, "5"}});
    for (const auto button : {"Command11", "Command17"}) {
      Click(button);
      EXPECT_EQ(Told(), (Strings{Nothing_Chosen})) << list;
    }
  }
}

TEST_F(EntryChanges, Edit_and_Delete_are_silent_without_a_file) {
  Open_Nothing();
  for (const std::string button :
       {"Command13", "Command12", "Command6", "Command2", "Command11", "Command17"}) {
    Click(button);
    EXPECT_TRUE(boxes.shown.empty()) << button;
  }
}

TEST_F(EntryChanges, Deleting_takes_one_step_only) {
  const struct {
    int element;
    Strings left;
  } cases[] = {{1, {"word2", "word2", "word3", "word4"}},
               {2, {"word1", "word3", "word3", "word4"}},
               {4, {"word1", "word2", "word3", "word5"}},
               {5, {"word1", "word2", "word3", "word4"}}};
  for (const auto& [element, left] : cases) {
    Open({With_Words(5)});
    Choose("Combo5", element);
    Click("Command12");
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(On_Disk().WordCount(), 4);
    EXPECT_EQ(Texts_Of(On_Disk(), &SayRecord::Words, 4), left) << element;
    EXPECT_EQ(Window()["Combo5"].items, left) << element;
    editor.Unload();
  }
}

TEST_F(EntryChanges, Deleting_takes_every_array_of_the_list_along) {
  Open({Record()
            .Word("one", 10)
            .Word("two", 20)
            .Word("three", 30)
            .Pattern("a*", 11)
            .Pattern("b*", 21)
            .Pattern("c*", 31)
            .Differentiator("oa", 1, 12)
            .Differentiator("fth", 2, 22)
            .Differentiator("kl", 3, 32)});
  Choose("Combo5", 1);
  Click("Command12");
  Choose("Combo2", 1);
  Click("Command2");
  Choose_Differentiator(1);
  Click("Command17");
  const SayRecord record = On_Disk();
  EXPECT_EQ(Texts_Of(record, &SayRecord::Words, 2), (Strings{"two", "two"}));
  EXPECT_EQ(record.WordRatings(1), 20);
  EXPECT_EQ(record.LikeCount(), 2);
  EXPECT_EQ(Texts_Of(record, &SayRecord::LikeProtocols, 2), (Strings{"b*", "b*"}));
  EXPECT_EQ(record.LikeRatings(1), 21);
  EXPECT_EQ(record.DifferentiatorCount(), 2);
  EXPECT_EQ(Texts_Of(record, &SayRecord::EngineCodes, 2), (Strings{"fth", "fth"}));
  EXPECT_EQ(record.SlotNumbers(1), 2);
  EXPECT_EQ(record.EngineCodeWeights(1), 22);
}

TEST_F(EntryChanges, Deleting_the_last_entry_of_a_full_list_fails_and_leaves_the_file) {
  const struct {
    Record record;
    std::string list;
    int last;
    std::string button;
  } cases[] = {{With_Words(100), "Combo5", 100, "Command12"},
               {With_Patterns(30), "Combo2", 30, "Command2"}};
  for (const auto& [record, list, last, button] : cases) {
    Open({record});
    const auto before = data_files.files;
    Choose(list, last);
    Click(button);
    EXPECT_TRUE(boxes.shown.empty()) << button;
    EXPECT_EQ(data_files.files, before) << button;
    editor.Unload();
  }
}

TEST_F(EntryChanges, Neither_counts_as_a_match) {
  Open({Record().Word("one").Word("two")});
  session.results.Matched_Record_No = 0;
  Choose("Combo5", 1);
  Edit("Command13", {"eins", "50"});
  Choose("Combo5", 2);
  Click("Command12");
  EXPECT_EQ(session.results.Matched_Record_No.Raw(), 0);
}

TEST_F(EntryChanges, A_change_that_the_disk_refuses_leaves_the_file_as_it_was) {
  Open({Record().Word("one").Word("two")});
  const auto before = data_files.files;
  for (const std::string button : {"Command13", "Command12"}) {
    data_files.write_faults[data_files.writes + 1] = {};
    Choose("Combo5", 1);
    Edit(button, {"eins", "50"});
    EXPECT_TRUE(boxes.shown.empty()) << button;
    EXPECT_EQ(data_files.files, before) << button;
  }
}

}  // namespace
}  // namespace quillspeech::tests
