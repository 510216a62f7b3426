// How many entries a record takes, and what happens beyond.
#include "editors/language_entries.hpp"
#include "tests/editors/language_entries_fixture.hpp"

namespace quillspeech::tests {
namespace {

using datafiles::SayRecord;

struct EntryLimits : LanguageEntries {
  std::string Last_Box() const { return boxes.shown.empty() ? "" : boxes.shown.back().box.text; }
  void Save_Word() {
    Enter({{"Combo5", "more"}, {"Combo10", "80"}});
    Click("Command14");
  }
  void Save_Pattern() {
    Enter({{"Combo2", "more*"}, {"Combo3", "80"}});
    Click("Command16");
  }
  void Enter_Differentiator() { Enter({{"Combo7", "9"}, {"Combo6", "more"}, {"Combo9", "8"}}); }
};

TEST_F(EntryLimits, The_100th_word_is_saved) {
  Open({With_Words(99)});
  Save_Word();
  EXPECT_EQ(On_Disk().WordCount(), 100);
  EXPECT_EQ(Trimmed(On_Disk().Words(100)), "more");
}

TEST_F(EntryLimits, The_101st_word_is_refused_and_the_file_stays) {
  Open({With_Words(100)});
  const auto before = data_files.files;
  Save_Word();
  EXPECT_EQ(Last_Box(), "Sorry, this file type does not permit entries above 100.");
  EXPECT_EQ(boxes.shown.back().box.title, "Quillspeech");
  EXPECT_EQ(data_files.files, before);
  EXPECT_EQ(editor.Record().WordCount(), 100);
}

TEST_F(EntryLimits, Two_refused_words_leave_the_counter_two_above_until_the_next_display) {
  Open({With_Words(100)});
  Save_Word();
  Save_Word();
  EXPECT_EQ(editor.Word_Counter.Raw(), 102);
  editor.Display_Record();
  EXPECT_EQ(editor.Word_Counter.Raw(), 100);
}

TEST_F(EntryLimits, The_30th_pattern_is_saved_and_the_31st_refused) {
  Open({With_Patterns(29)});
  Save_Pattern();
  EXPECT_EQ(On_Disk().LikeCount(), 30);
  const auto before = data_files.files;
  Save_Pattern();
  EXPECT_EQ(Last_Box(), "Sorry, this file type does not permit entries above 30.");
  EXPECT_EQ(boxes.shown.back().box.title, "Quillspeech");
  EXPECT_EQ(data_files.files, before);
}

TEST_F(EntryLimits, A_record_of_more_than_50_words_takes_no_differentiator) {
  Open({With_Words(51)});
  const auto before = data_files.files;
  Enter_Differentiator();
  Click("Command15");
  EXPECT_EQ(Last_Box(), "Sorry, this file type does not permit entries above 50.");
  EXPECT_EQ(boxes.shown.back().box.title, "Quillspeech");
  EXPECT_EQ(data_files.files, before);
}

TEST_F(EntryLimits, A_record_of_50_words_takes_one) {
  Open({With_Words(50)});
  Enter_Differentiator();
  Click("Command15");
  EXPECT_EQ(On_Disk().DifferentiatorCount(), 1);
}

TEST_F(EntryLimits, The_51st_differentiator_ends_at_the_end_of_its_array) {
  Open({With_Differentiators(50)});
  const auto before = data_files.files;
  Enter_Differentiator();
  Click("Command15");
  EXPECT_EQ(boxes.shown.size(), 1u);  // the question
  EXPECT_EQ(data_files.files, before);
  EXPECT_EQ(editor.Record().DifferentiatorCount(), 51);  // which the next write takes along
}

TEST_F(EntryLimits, Adding_to_30_patterns_ends_after_the_file_has_grown_in_memory) {
  Open({With_Patterns(30)});
  const auto before = data_files.files;
  Enter({{"Combo2", "more*"}, {"Combo3", "80"}});
  Click("Command5");
  EXPECT_EQ(boxes.shown.size(), 1u);
  EXPECT_EQ(data_files.files, before);
  EXPECT_EQ(session.data.Main_Record_Count.Raw(), 2);
  EXPECT_EQ(editor.Record().RecordNo(), 2);
}

TEST_F(EntryLimits, A_slot_number_is_a_byte) {
  Open({Record()});
  for (const auto& [slot, count] : {std::pair{"256", 0}, {"-1", 0}, {"255", 1}}) {
    editor.Read_Record(1);
    editor.Display_Record();
    Enter({{"Combo7", slot}, {"Combo6", "fth"}, {"Combo9", "1"}});
    Click("Command15");
    EXPECT_EQ(boxes.shown.size(), 1u) << slot;
    EXPECT_EQ(On_Disk().DifferentiatorCount(), count) << slot;
  }
}

TEST_F(EntryLimits, A_weight_has_16_bits) {
  Open({Record()});
  Enter({{"Combo7", "1"}, {"Combo6", "fth"}, {"Combo9", "32768"}});
  Click("Command15");
  EXPECT_EQ(On_Disk().DifferentiatorCount(), 0);
}

TEST_F(EntryLimits, What_a_failed_save_has_stored_reaches_the_file_with_the_next_write) {
  Open({Record()});
  Enter({{"Combo7", "1"}, {"Combo6", "fth"}, {"Combo9", "32768"}});
  Click("Command15");
  editor.Write_Record();
  EXPECT_EQ(On_Disk().DifferentiatorCount(), 1);
  EXPECT_EQ(On_Disk().SlotNumbers(1), 1);
  EXPECT_EQ(Trimmed(On_Disk().EngineCodes(1)), "fth");
}

}  // namespace
}  // namespace quillspeech::tests
