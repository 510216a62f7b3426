#include "recognition/engine_table.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/failures.hpp"
#include "tests/support/record_builder.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech {
namespace {

using tests::Engine_File;
using tests::Put_Engine_File;

struct EngineTable : testing::Test {
  tests::TestSession test;
  Session& session = test.session;
  int recoveries = 0;

  EngineTable() {
    session.operations.Stop_And_Recover = [this](Session& stopped) {
      ++recoveries;
      stopped.data.Main_File_Number.Close();
    };
  }
  void Load(const std::string& name) {
    session.settings.Consider_this_Engine_for_Recognition = name;
    Load_Engine(session);
  }
  std::string& Entry(int category) { return session.filter.Engine_Table[category]; }
};

std::string Padded(std::string text) {
  text.resize(20, ' ');
  return text;
}

TEST_F(EngineTable, The_built_in_table_has_71_entries) {
  struct Case {
    int first;
    int last;
    std::string letters;
  };
  const std::vector<Case> cases = {
      {0, 0, "_"},        {1, 1, "dbtrvgp"}, {2, 5, "dbtrvgpunmle"}, {6, 7, "oa"},
      {8, 13, "aAA"},     {14, 22, "AkgH"},  {23, 25, "AkgHfthjj"},  {26, 30, "AkgHfthjjs"},
      {31, 49, "fthjjs"}, {50, 69, "s"},     {70, 70, "sx"}};
  Load_Default_Engine_Table(session);
  int entries = 0;
  for (const Case& c : cases) {
    for (int category = c.first; category <= c.last; ++category, ++entries) {
      EXPECT_EQ(Entry(category), c.letters) << category;
    }
  }
  EXPECT_EQ(entries, 71);
}

TEST_F(EngineTable, The_built_in_table_leaves_entries_71_to_100) {
  for (int category = 0; category <= 100; ++category) Entry(category) = "old";
  Load_Default_Engine_Table(session);
  EXPECT_EQ(Entry(70), "sx");
  for (int category = 71; category <= 100; ++category) EXPECT_EQ(Entry(category), "old");
}

TEST_F(EngineTable, Without_a_name_the_built_in_table_is_loaded_with_no_message) {
  Entry(0) = "spoiled";
  Load("");
  EXPECT_EQ(Entry(0), "_");
  EXPECT_TRUE(test.boxes.shown.empty());
  EXPECT_EQ(test.data_files.opens, 0);
}

TEST_F(EngineTable, A_name_that_ends_in_EGN_of_one_case_is_loaded) {
  for (const std::string name : {"a.EGN", "a.egn", ".EGN", "C:\\voices\\my.voice.egn"}) {
    Put_Engine_File(test.data_files, name, {{7, "from " + name}});
    Load(name);
    EXPECT_EQ(Entry(7).substr(0, 5 + name.size()), ("from " + name).substr(0, 20)) << name;
  }
  EXPECT_TRUE(test.boxes.shown.empty());
  EXPECT_EQ(recoveries, 0);
}

TEST_F(EngineTable, Any_other_name_is_refused_with_the_message) {
  for (const std::string name : {"a.Egn", "a.txt", "a.EGn", "aEGN", "a.EGN ", "a.EGN.txt", " "}) {
    test.boxes.shown.clear();
    recoveries = 0;
    Entry(0) = "kept";
    Load(name);
    ASSERT_EQ(test.boxes.shown.size(), 1U) << name;
    const MessageBox& box = test.boxes.shown[0].box;
    EXPECT_EQ(box.text,
              "Please see if you have provided correctly the location of the engine file");
    EXPECT_EQ(box.title, "Quillspeech CRITICAL USER ERROR");
    EXPECT_EQ(box.buttons, BoxButtons::OK);
    EXPECT_EQ(box.icon, BoxIcon::None);
    EXPECT_EQ(recoveries, 1) << name;
    EXPECT_EQ(Entry(0), "kept");
  }
  EXPECT_EQ(test.data_files.opens, 0);
  EXPECT_TRUE(session.trace.failures.empty());
}

TEST_F(EngineTable, A_failure_in_the_recovery_of_a_refused_name_is_not_caught_again) {
  session.operations.Stop_And_Recover = [this](Session&) {
    ++recoveries;
    Fail(Failure::Device_Failure);
  };
  EXPECT_EQ(tests::Failure_Of([&] { Load("a.txt"); }), 57);
  EXPECT_EQ(recoveries, 1);
  EXPECT_TRUE(session.trace.failures.empty());
}

TEST_F(EngineTable, Groups_are_loaded_with_their_padding) {
  Put_Engine_File(test.data_files, "a.EGN", {{0, "_"}, {60, "s"}, {99, "abcdefghijklmnopqrst"}});
  Load("a.EGN");
  EXPECT_EQ(Entry(0), Padded("_"));
  EXPECT_EQ(Entry(1), Padded(""));
  EXPECT_EQ(Entry(60), Padded("s"));
  EXPECT_EQ(Entry(99), "abcdefghijklmnopqrst");
}

TEST_F(EngineTable, Element_100_of_a_file_has_no_effect) {
  Entry(100) = "before";
  Put_Engine_File(test.data_files, "a.EGN", {{100, "from the file"}});
  Load("a.EGN");
  EXPECT_EQ(Entry(100), "before");
}

TEST_F(EngineTable, Element_100_stays_from_one_file_to_the_next_and_over_the_built_in_table) {
  Put_Engine_File(test.data_files, "one.EGN", {{99, "one"}, {100, "one"}});
  Put_Engine_File(test.data_files, "two.EGN", {{99, "two"}, {100, "two"}});
  Entry(100) = "before";
  struct Case {
    std::string name;
    std::string entry_99;
  };
  for (const Case& c : std::vector<Case>{{"one.EGN", Padded("one")},
                                         {"two.EGN", Padded("two")},
                                         {"", Padded("two")},  // the built-in table ends at 70
                                         {"one.EGN", Padded("one")}}) {
    Load(c.name);
    EXPECT_EQ(Entry(99), c.entry_99) << c.name;
    EXPECT_EQ(Entry(100), "before") << c.name;
  }
}

TEST_F(EngineTable, Half_a_record_more_counts_by_the_even_number_and_record_1_is_read_either_way) {
  struct Case {
    std::size_t length;
    int count;
  };
  for (const Case c : {Case{3036, 2}, {1012, 0}, {1013, 1}, {2024, 1}, {5060, 2}}) {
    auto file = Engine_File({{3, "group 3"}});
    file.resize(c.length, 'x');
    test.data_files.files["a.EGN"] = file;
    Load("a.EGN");
    EXPECT_EQ(session.data.Main_Record_Count, c.count) << c.length;
    EXPECT_EQ(Entry(3), Padded("group 3")) << c.length;
  }
}

TEST_F(EngineTable, A_file_that_counts_no_record_gives_the_current_record_number_1) {
  auto file = Engine_File({});
  file[0] = 7;
  test.data_files.files["two.EGN"] = file;
  Load("two.EGN");
  EXPECT_EQ(session.data.EgnRecord.RecordNo(), 7);
  file.resize(1012);
  test.data_files.files["half.EGN"] = file;
  Load("half.EGN");
  EXPECT_EQ(session.data.EgnRecord.RecordNo(), 1);
}

TEST_F(EngineTable, What_a_short_file_lacks_is_blank) {
  auto file = Engine_File({{0, "_"}, {1, "abcdefghij"}});
  file.resize(4 + 20 + 5);
  test.data_files.files["a.EGN"] = file;
  Load("a.EGN");
  EXPECT_EQ(Entry(0), Padded("_"));
  EXPECT_EQ(Entry(1), Padded("abcde"));
  EXPECT_EQ(Entry(2), Padded(""));
  EXPECT_EQ(Entry(99), Padded(""));
}

TEST_F(EngineTable,
       A_language_file_with_the_extension_of_an_engine_file_is_read_without_complaint) {
  tests::Record record;
  record.Fields().FileCopyright("Somebody");
  test.data_files.files["a.EGN"] = tests::Language_File({record});
  Load("a.EGN");
  EXPECT_EQ(Entry(0), Padded("Somebody"));
  EXPECT_EQ(session.data.Main_Record_Count, 4);  // 8476 bytes are 4.19 engine records
  EXPECT_TRUE(test.boxes.shown.empty());
  EXPECT_EQ(recoveries, 0);
}

TEST_F(EngineTable, A_new_file_is_created_empty_and_gives_blank_groups) {
  Load_Default_Engine_Table(session);
  Load("new.EGN");
  for (int category = 0; category <= 99; ++category) EXPECT_EQ(Entry(category), Padded(""));
  ASSERT_TRUE(test.data_files.files.count("new.EGN"));
  EXPECT_TRUE(test.data_files.files["new.EGN"].empty());
  EXPECT_TRUE(test.boxes.shown.empty());  // nothing reports it
  EXPECT_TRUE(session.trace.failures.empty());
  EXPECT_EQ(recoveries, 0);
}

TEST_F(EngineTable, Loading_closes_the_file_and_writes_nothing) {
  Put_Engine_File(test.data_files, "a.EGN", {{1, " ab"}});
  const auto before = test.data_files.files["a.EGN"];
  Load("a.EGN");
  EXPECT_EQ(test.data_files.open_files, 0);
  EXPECT_FALSE(session.data.Main_File_Number.Is_Open());
  EXPECT_EQ(test.data_files.writes, 0);
  EXPECT_EQ(test.data_files.files["a.EGN"], before);
}

TEST_F(EngineTable, A_change_of_the_file_takes_effect_at_the_next_load) {
  Put_Engine_File(test.data_files, "a.EGN", {{1, "old"}});
  Load("a.EGN");
  Put_Engine_File(test.data_files, "a.EGN", {{1, "new"}});
  Load("a.EGN");
  EXPECT_EQ(Entry(1), Padded("new"));
}

TEST_F(EngineTable, A_file_that_cannot_be_opened_ends_in_the_recovery) {
  Entry(0) = "kept";
  test.data_files.refused["a.EGN"] = Failure::Permission_Denied;
  Load("a.EGN");
  EXPECT_EQ(recoveries, 1);
  EXPECT_EQ(session.trace.failures, std::vector<int>{70});
  EXPECT_EQ(Entry(0), "kept");
  EXPECT_TRUE(test.boxes.shown.empty());
}

TEST_F(EngineTable, A_file_that_cannot_be_read_ends_in_the_recovery) {
  Entry(0) = "kept";
  Put_Engine_File(test.data_files, "a.EGN", {{0, "new"}});
  test.data_files.read_faults[1] = Failure::Device_Failure;
  Load("a.EGN");
  EXPECT_EQ(recoveries, 1);
  EXPECT_EQ(session.trace.failures, std::vector<int>{57});
  EXPECT_EQ(Entry(0), "kept");
  EXPECT_EQ(test.data_files.open_files, 0);
}

}  // namespace
}  // namespace quillspeech
