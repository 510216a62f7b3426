// Save and Add: what appends an entry to a list of the record, or to a copy of it.
#include "editors/language_entries.hpp"

#include "tests/editors/language_entries_fixture.hpp"

namespace quillspeech::tests {
namespace {

using datafiles::SayRecord;
using Strings = std::vector<std::string>;

constexpr auto No_File = "Please open a new or a previously saved file";
constexpr auto Numerals = "Hey ! Please enter non numericals for storage ";
constexpr auto Save_Question = "Are you ready to save data to file my.SAY ?";
constexpr auto Word_Question = "Are you ready to save  data to file my.SAY ?";
constexpr auto Add_Question = "Are you ready to add data to file my.SAY ?";

TEST_F(LanguageEntries, A_saved_word_stands_behind_the_others_in_the_file) {
  Open({Record().Word("one", 90)});
  Enter({{"Combo5", "hello"}, {"Combo10", "80"}});
  Click("Command14");
  const SayRecord record = On_Disk();
  EXPECT_EQ(record.WordCount(), 2);
  EXPECT_EQ(Texts_Of(record, &SayRecord::Words, 2), (Strings{"one", "hello"}));
  EXPECT_EQ(record.WordRatings(1), 90);
  EXPECT_EQ(record.WordRatings(2), 80);
}

TEST_F(LanguageEntries, A_saved_pattern_stands_behind_the_others_in_the_file) {
  Open({Record().Pattern("a*", 90)});
  Enter({{"Combo2", "f[th]*s"}, {"Combo3", "70"}});
  Click("Command16");
  const SayRecord record = On_Disk();
  EXPECT_EQ(record.LikeCount(), 2);
  EXPECT_EQ(Texts_Of(record, &SayRecord::LikeProtocols, 2), (Strings{"a*", "f[th]*s"}));
  EXPECT_EQ(record.LikeRatings(2), 70);
}

TEST_F(LanguageEntries, A_saved_differentiator_stands_behind_the_others_in_the_file) {
  Open({Record().Differentiator("oa", 1, 3)});
  Enter({{"Combo7", "12"}, {"Combo6", "fth"}, {"Combo9", "-5"}});
  Click("Command15");
  const SayRecord record = On_Disk();
  EXPECT_EQ(record.DifferentiatorCount(), 2);
  EXPECT_EQ(Texts_Of(record, &SayRecord::EngineCodes, 2), (Strings{"oa", "fth"}));
  EXPECT_EQ(record.SlotNumbers(2), 12);
  EXPECT_EQ(record.EngineCodeWeights(2), -5);
}

TEST_F(LanguageEntries, What_was_saved_is_displayed_and_counts_as_matched) {
  Open({Record(), Record(), Record()});
  editor.Read_Record(2);
  editor.Display_Record();
  session.results.Matched_Record_No = 0;
  Enter({{"Combo5", "hello"}, {"Combo10", "80"}});
  Click("Command14");
  EXPECT_EQ(Window()["Combo5"].items, (Strings{"hello"}));
  EXPECT_EQ(Window()["Combo10"].items, (Strings{"80"}));
  EXPECT_EQ(Shown("Label11"), "1");
  EXPECT_EQ(session.results.Matched_Record_No.Raw(), 2);
}

TEST_F(LanguageEntries, A_save_asks_first_and_a_No_leaves_everything_as_it_was) {
  const struct {
    std::string button;
    std::string question;
  } cases[] = {{"Command14", Word_Question},
               {"Command16", Save_Question},
               {"Command15", Save_Question},
               {"Command5", Add_Question},
               {"Command4", Add_Question}};
  Open({Record().Word("one").Pattern("a*").Differentiator("oa", 1, 3)});
  Enter({{"Combo5", "x"}, {"Combo2", "x"}, {"Combo6", "x"}});
  const auto before = data_files.files;
  for (const auto& [button, question] : cases) {
    Click(button, BoxAnswer::No);
    ASSERT_EQ(Told(), (Strings{question})) << button;
    EXPECT_EQ(boxes.shown[0].box.title, "Quillspeech Language Editor");
    EXPECT_EQ(boxes.shown[0].box.buttons, BoxButtons::YesNo);
    EXPECT_EQ(data_files.files, before) << button;
    EXPECT_EQ(editor.Record().RecordNo(), 1);
  }
}

TEST_F(LanguageEntries, Save_and_Add_without_a_file_ask_for_one) {
  Open_Nothing();
  for (const std::string button : {"Command14", "Command16", "Command15", "Command5", "Command4"}) {
    Click(button);
    ASSERT_EQ(Told(), (Strings{No_File})) << button;
    EXPECT_EQ(boxes.shown[0].box.title, "Quillspeech");
    EXPECT_EQ(boxes.shown[0].box.icon, BoxIcon::Information);
    EXPECT_EQ(boxes.shown[0].box.buttons, BoxButtons::OK);
  }
  EXPECT_TRUE(views.shown.empty());
}

TEST_F(LanguageEntries, In_a_design_environment_a_save_without_a_file_shows_the_window_modally) {
  host.path = "C:\\VB\\VB6.EXE";
  for (const auto& [button, showings] : {std::pair{"Command14", 1u},
                                         {"Command16", 1u},
                                         {"Command15", 1u},
                                         {"Command5", 0u},
                                         {"Command4", 0u}}) {
    Open_Nothing();
    views.shown.clear();
    Click(button);
    ASSERT_EQ(views.shown.size(), showings) << button;
    if (showings == 0) continue;
    EXPECT_EQ(views.shown[0].name, "Database");
    EXPECT_EQ(views.shown[0].modality, Modality::Modal);
  }
}

TEST_F(LanguageEntries, A_word_that_is_a_number_is_refused_and_wiped_out) {
  for (const std::string word : {"123", " 12 ", "-1.5", "1e3", "&H10"}) {
    Open({Record()});
    const auto before = data_files.files;
    Enter({{"Combo5", word}, {"Combo10", "100"}});
    Click("Command14");
    EXPECT_EQ(Told(), (Strings{Word_Question, Numerals,
                               "Please enter the word with its rating and then save"}))
        << word;
    EXPECT_EQ(boxes.shown.at(1).box.title, "Quillspeech");
    EXPECT_EQ(boxes.shown.at(2).box.title, "Quillspeech Language Editor");
    EXPECT_EQ(Shown("Combo5"), "");
    EXPECT_EQ(data_files.files, before);
    editor.Unload();
  }
}

TEST_F(LanguageEntries, A_word_that_only_begins_with_a_number_is_stored) {
  Open({Record()});
  Enter({{"Combo5", "12a"}, {"Combo10", "100"}});
  Click("Command14");
  EXPECT_EQ(Told(), (Strings{Word_Question}));
  EXPECT_EQ(Texts_Of(On_Disk(), &SayRecord::Words, 1), (Strings{"12a"}));
}

TEST_F(LanguageEntries, Patterns_and_engine_codes_that_are_numbers_are_refused_as_well) {
  Open({Record()});
  const auto before = data_files.files;
  Enter({{"Combo2", "123"}, {"Combo3", "100"}});
  Click("Command16");
  EXPECT_EQ(Told(),
            (Strings{Save_Question, Numerals,
                     "Please enter the LIKE operator string with its rating and then save"}));
  EXPECT_EQ(Shown("Combo2"), "");
  Enter({{"Combo7", "1"}, {"Combo6", "123"}, {"Combo9", "1"}});
  Click("Command15");
  EXPECT_EQ(Told(), (Strings{Save_Question, Numerals,
                             "Please enter the differentiation data completely and then save"}));
  EXPECT_EQ(Shown("Combo6"), "");
  EXPECT_EQ(data_files.files, before);
}

TEST_F(LanguageEntries, A_save_wants_every_field_filled) {
  const std::string word = "Please enter the word with its rating and then save";
  const std::string pattern = "Please enter the LIKE operator string with its rating and then save";
  const std::string code = "Please enter the differentiation data completely and then save";
  const struct {
    std::string button;
    std::string empty;
    std::string content;
    std::string message;
  } cases[] = {{"Command14", "Combo5", "", word},    {"Command14", "Combo5", "  ", word},
               {"Command14", "Combo10", "", word},   {"Command14", "Combo10", "  ", word},
               {"Command16", "Combo2", "", pattern}, {"Command16", "Combo3", "", pattern},
               {"Command15", "Combo7", "", code},    {"Command15", "Combo6", "", code},
               {"Command15", "Combo9", "", code}};
  Open({Record()});
  const auto before = data_files.files;
  for (const auto& [button, empty, content, message] : cases) {
    for (const auto list : {"Combo5", "Combo2", "Combo6"}) editor.Show_Text(list, "x");
    for (const auto list : {"Combo10", "Combo3", "Combo7", "Combo9"}) editor.Show_Text(list, "1");
    editor.Show_Text(empty, content);
    Click(button);
    ASSERT_EQ(Told().size(), 2u) << empty;
    EXPECT_EQ(Told()[1], message) << empty;
    EXPECT_EQ(boxes.shown[1].box.title, "Quillspeech Language Editor");
  }
  EXPECT_EQ(data_files.files, before);
}

TEST_F(LanguageEntries, A_pattern_of_blanks_passes_and_is_left_out) {
  Open({Record().Pattern("a*", 90)});
  Enter({{"Combo2", "   "}, {"Combo3", "70"}});
  Click("Command16");
  EXPECT_EQ(Told(), (Strings{Save_Question}));
  EXPECT_EQ(On_Disk().LikeCount(), 1);
  EXPECT_EQ(On_Disk().LikeRatings(2), 0);
}

TEST_F(LanguageEntries, A_slot_or_a_weight_that_is_no_number_cannot_be_saved) {
  Open({Record()});
  const auto before = data_files.files;
  for (const std::string field : {"Combo7", "Combo9"}) {
    Enter({{"Combo7", "1"}, {"Combo6", "fth"}, {"Combo9", "1"}});
    Enter({{field, "one"}});
    Click("Command15");
    EXPECT_EQ(Told(), (Strings{Save_Question, "Incorrect data format, cannot save."})) << field;
    EXPECT_EQ(boxes.shown.at(1).box.title, "Quillspeech Langauge Editor");
  }
  EXPECT_EQ(data_files.files, before);
}

TEST_F(LanguageEntries, A_saved_word_takes_its_font_and_the_divisions_along) {
  Open({Record()});
  FormFont font = Window()["Combo5"].font;
  font.name = " Arial ";
  Window().Set_Font("Combo5", font);
  editor.Show_Text("TextDiv", " 2.5 ");
  editor.Show_Text("Text2", "1303.5 bytes");
  Enter({{"Combo5", "hello"}, {"Combo10", "100"}});
  Click("Command14");
  EXPECT_EQ(Trimmed(On_Disk().WordFont()), "Arial");
  EXPECT_EQ(On_Disk().WordFont().front(), 'A');
  EXPECT_EQ(On_Disk().DivisionCount(), 2);
  EXPECT_EQ(On_Disk().DivisionByteLength(), 1304);
}

TEST_F(LanguageEntries, Only_a_saved_word_takes_the_divisions_along) {
  Open({Record()});
  editor.Show_Text("TextDiv", "3");
  Enter({{"Combo2", "a*"}, {"Combo3", "100"}});
  Click("Command16");
  EXPECT_EQ(On_Disk().DivisionCount(), 0);
}

TEST_F(LanguageEntries, A_word_of_41_characters_loses_its_last) {
  Open({Record()});
  Enter({{"Combo5", std::string(40, 'a') + "b"}, {"Combo10", "100"}});
  Click("Command14");
  EXPECT_EQ(On_Disk().Words(1), std::string(40, 'a'));
}

TEST_F(LanguageEntries, A_save_that_the_disk_refuses_leaves_the_file_as_it_was) {
  Open({Record().Word("one")});
  const auto before = data_files.files;
  data_files.write_faults[data_files.writes + 1] = {};
  Enter({{"Combo5", "hello"}, {"Combo10", "80"}});
  Click("Command14");
  EXPECT_EQ(Told(), (Strings{Word_Question}));
  EXPECT_EQ(data_files.files, before);
}

TEST_F(LanguageEntries, An_added_pattern_goes_into_a_copy_of_the_record_at_the_files_end) {
  Open({Record().Word("one").Pattern("a*", 90), Record().Word("two")});
  Enter({{"Combo2", "b*"}, {"Combo3", "70"}});
  Click("Command5");
  EXPECT_EQ(Told(), (Strings{Add_Question}));
  ASSERT_EQ(Records_On_Disk(), 3u);
  EXPECT_EQ(On_Disk(1).LikeCount(), 1);
  const SayRecord added = On_Disk(3);
  EXPECT_EQ(added.RecordNo(), 3);
  EXPECT_EQ(Texts_Of(added, &SayRecord::Words, 1), (Strings{"one"}));
  EXPECT_EQ(Texts_Of(added, &SayRecord::LikeProtocols, 2), (Strings{"a*", "b*"}));
  EXPECT_EQ(added.LikeRatings(2), 70);
  EXPECT_EQ(session.results.Matched_Record_No.Raw(), 3);
  EXPECT_NE(Window().Caption().find("Record No.3 out of 3"), std::string::npos);
}

TEST_F(LanguageEntries, An_added_differentiator_goes_into_a_copy_as_well) {
  Open({Record().Differentiator("oa", 1, 3)});
  Enter({{"Combo7", "2"}, {"Combo6", "fth"}, {"Combo9", "4"}});
  Click("Command4");
  EXPECT_EQ(On_Disk(1).DifferentiatorCount(), 1);
  const SayRecord added = On_Disk(2);
  EXPECT_EQ(Texts_Of(added, &SayRecord::EngineCodes, 2), (Strings{"oa", "fth"}));
  EXPECT_EQ(added.SlotNumbers(2), 2);
  EXPECT_EQ(added.EngineCodeWeights(2), 4);
}

TEST_F(LanguageEntries, Add_takes_numbers_for_letters) {
  Open({Record()});
  Enter({{"Combo2", "123"}, {"Combo3", "70"}});
  Click("Command5");
  EXPECT_EQ(Told(), (Strings{Add_Question}));
  EXPECT_EQ(Texts_Of(On_Disk(2), &SayRecord::LikeProtocols, 1), (Strings{"123"}));
}

TEST_F(LanguageEntries, Adding_nothing_makes_a_plain_copy) {
  Open({Record().Pattern("a*", 90)});
  Enter({{"Combo2", ""}, {"Combo3", "70"}});
  Click("Command5");
  EXPECT_EQ(On_Disk(2).LikeCount(), 1);
  EXPECT_EQ(On_Disk(2).LikeRatings(2), 0);
}

}  // namespace
}  // namespace quillspeech::tests
