#include "tests/editors/language_editor_fixture.hpp"

namespace quillspeech::tests {
namespace {

struct NewRecord : LanguageEditorTest {
  void Prepare(BoxAnswer answer) {
    boxes.answers = {answer};
    Click("Command9");
  }
};

TEST_F(NewRecord, Needs_a_file) {
  Open_Nothing();
  Click("Command9");
  EXPECT_EQ(Told(), Texts{"Quillspeech|Please open a new or a previously saved file"});
  EXPECT_EQ(boxes.shown[0].box.icon, BoxIcon::Information);
}

TEST_F(NewRecord, Asks_first) {
  Open(Three_Records());
  Prepare(BoxAnswer::No);
  EXPECT_EQ(Told(), Texts{"Quillspeech Language Editor|You are about to create a new record.  Do "
                          "you wish to continue ?"});
  EXPECT_EQ(Bytes_On_Disk(), 3U * 8476);
  EXPECT_EQ(Lines("Combo5"), Texts{"one"});
}

TEST_F(NewRecord, Is_appended_empty_and_shown) {
  Open(Three_Records());
  Prepare(BoxAnswer::Yes);
  EXPECT_EQ(Bytes_On_Disk(), 4U * 8476);
  EXPECT_EQ(On_Disk(4).RecordNo(), 4);
  EXPECT_EQ(On_Disk(4).WordCount(), 0);
  EXPECT_EQ(On_Disk(4).WordFont(), Fixed("", 20));
  EXPECT_EQ(On_Disk(4).Words(1), std::string(40, '\0'));
  EXPECT_EQ(session.results.Matched_Record_No, 4);
  EXPECT_EQ(Text("Label11"), "0");
  EXPECT_EQ(Told().back(), "Quillspeech|New record successfully created");
}

TEST_F(NewRecord, Inherits_the_texts_of_the_file_from_the_record_before) {
  auto records = Three_Records();
  records[0].Fields().FileCopyright("mine");
  Open(records);
  Prepare(BoxAnswer::Yes);
  EXPECT_EQ(Trim(On_Disk(4).FileCopyright()), "mine");
}

TEST_F(NewRecord, Empties_the_memory_list_too) {
  Open(Three_Records());
  Window().Add_Item("Combo8", "1 fth 3");
  Prepare(BoxAnswer::Yes);
  EXPECT_TRUE(Lines("Combo8").empty());
}

TEST_F(NewRecord, Is_record_1_of_a_new_file) {
  Open({});
  Prepare(BoxAnswer::Yes);
  EXPECT_EQ(Bytes_On_Disk(), 8476U);
  EXPECT_EQ(On_Disk().RecordNo(), 1);
}

TEST_F(NewRecord, On_a_full_disk_the_file_stays_as_it_was_and_nothing_is_reported) {
  Open(Three_Records());
  const auto before = data_files.files.at(File);
  data_files.write_faults[1] = {Failure::Disk_Full, 100};
  Prepare(BoxAnswer::Yes);
  EXPECT_EQ(data_files.files.at(File), before);
  EXPECT_EQ(boxes.shown.size(), 1U);  // the question
}

}  // namespace
}  // namespace quillspeech::tests
