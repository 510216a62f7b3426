#include "recognition/adding.hpp"

#include <gtest/gtest.h>

#include "analysis/recovery.hpp"
#include "base/text.hpp"
#include "session/failure_trap.hpp"
#include "tests/support/failures.hpp"
#include "tests/support/record_builder.hpp"
#include "tests/support/test_session.hpp"

namespace quillspeech {
namespace {

using namespace tests;
using datafiles::SayRecord;

// The word "oath" is to go into a record of "add.SAY", and the user says yes.
struct Adding : TestSession {
  explicit Adding(const std::vector<Record>& records, int number = 1) {
    session.filter.Voice_Word_Table[1] = "oath";
    session.settings.Consider_this_Lang_File_to_Add = "add.SAY";
    session.settings.Direct_Add = number;
    session.settings.Direct_Add_Enabled = "YES";
    boxes.answers = {BoxAnswer::Yes};
    Put_Language_File(data_files, "add.SAY", records);
  }
  Adding& Run() {
    Add_Engine_String_To_Language(session);
    return *this;
  }
  SayRecord On_Disk(std::int64_t number) const {
    return Language_Record(data_files, "add.SAY", number);
  }
  std::vector<std::uint8_t>& File() { return data_files.files["add.SAY"]; }
  const MessageBox& Box(std::size_t index) const { return boxes.shown.at(index).box; }
};

const Record Hello = Record().Word("hello").Pattern("h*o");

Record With_Patterns(int count) {
  Record record;
  for (int i = 0; i < count; ++i) record.Pattern("p" + std::to_string(i), 50);
  return record;
}

TEST(Adding, The_string_becomes_the_last_pattern_of_the_record_rated_100) {
  Adding test({Hello, Hello}, 2);
  test.Run();
  const SayRecord record = test.On_Disk(2);
  EXPECT_EQ(record.LikeCount(), 2);
  EXPECT_EQ(record.LikeProtocols(2), Fixed("oath", 100));
  EXPECT_EQ(record.LikeRatings(2), 100);
  EXPECT_EQ(record.LikeProtocols(1), Fixed("h*o", 100));
  EXPECT_EQ(record.Words(1), Fixed("hello", 40));
  EXPECT_EQ(record.RecordNo(), 2);
  EXPECT_EQ(test.On_Disk(1).LikeCount(), 1);
  EXPECT_EQ(test.data_files.writes, 1);
}

TEST(Adding, It_asks_first_with_the_string_the_record_and_the_file) {
  Adding test({Hello}, 7);
  test.session.filter.Voice_Word_Table[1] = "  oath ";
  test.Run();
  EXPECT_EQ(test.Box(0).title, "Quillspeech Language Editor");
  EXPECT_EQ(test.Box(0).text,
            "Add the produced Engine Strings  oath to your specified record no :  7 of the file  "
            "add.SAY");
  EXPECT_EQ(test.Box(0).buttons, BoxButtons::YesNo);
  EXPECT_EQ(test.Box(0).icon, BoxIcon::None);
  EXPECT_EQ(test.boxes.shown.size(), 1U);
}

TEST(Adding, A_no_leaves_the_file_and_the_setting) {
  Adding test({Hello}, 7);
  test.boxes.answers = {BoxAnswer::No};
  test.Run();
  EXPECT_EQ(test.data_files.opens, 0);
  EXPECT_EQ(test.session.settings.Direct_Add, 7);
}

TEST(Adding, A_number_set_to_0_in_between_is_record_1) {
  Adding test({Hello, Hello}, 0);
  test.Run();
  EXPECT_EQ(test.session.settings.Direct_Add, 1);
  EXPECT_EQ(test.On_Disk(1).LikeCount(), 2);
  EXPECT_EQ(test.On_Disk(2).LikeCount(), 1);
}

TEST(Adding, A_no_leaves_a_number_of_0_alone) {
  Adding test({Hello}, 0);
  test.boxes.answers = {BoxAnswer::No};
  test.Run();
  EXPECT_EQ(test.session.settings.Direct_Add, 0);
}

TEST(Adding, Without_a_file_name_there_is_a_message_and_nothing_else) {
  Adding test({Hello}, 0);
  test.session.settings.Consider_this_Lang_File_to_Add.clear();
  test.Run();
  ASSERT_EQ(test.boxes.shown.size(), 2U);
  EXPECT_EQ(test.Box(1).text, "Please specify your language file location");
  EXPECT_EQ(test.Box(1).title, "Quillspeech Info");
  EXPECT_EQ(test.Box(1).icon, BoxIcon::Information);
  EXPECT_EQ(test.Box(1).buttons, BoxButtons::OK);
  EXPECT_EQ(test.data_files.opens, 0);
  EXPECT_EQ(test.session.settings.Direct_Add, 1);
}

TEST(Adding, A_number_past_the_end_is_pulled_back_to_the_last_record_and_stays_so) {
  Adding test({Hello, Hello, Hello}, 7);
  test.Run();
  EXPECT_EQ(test.On_Disk(3).LikeCount(), 2);
  EXPECT_EQ(test.session.settings.Direct_Add, 3);
  EXPECT_EQ(test.File().size(), 3U * SayRecord::Record_Bytes);
}

TEST(Adding, A_tail_of_more_than_half_a_record_counts_as_one) {
  for (const auto& [tail, last] : {std::pair{4'238, 2}, {4'239, 3}}) {
    Adding test({Hello, Hello}, 7);
    test.File().resize(static_cast<std::size_t>(2 * SayRecord::Record_Bytes + tail));
    test.Run();
    EXPECT_EQ(test.session.settings.Direct_Add, last) << tail;
    EXPECT_EQ(test.session.data.Main_Record_Count, last) << tail;
    EXPECT_EQ(test.On_Disk(last).LikeProtocols(last == 3 ? 1 : 2), Fixed("oath", 100)) << tail;
  }
}

TEST(Adding, The_record_gets_the_number_of_its_place) {
  Adding test({Hello, Record(Hello).Number(9)}, 2);
  test.Run();
  EXPECT_EQ(test.On_Disk(2).RecordNo(), 2);
  EXPECT_EQ(test.File().size(), 2U * SayRecord::Record_Bytes);
}

TEST(Adding, A_record_of_29_patterns_takes_one_more) {
  Adding test({With_Patterns(29)});
  test.Run();
  EXPECT_EQ(test.On_Disk(1).LikeCount(), 30);
  EXPECT_EQ(test.On_Disk(1).LikeProtocols(30), Fixed("oath", 100));
}

TEST(Adding, A_record_of_30_patterns_gets_a_message_and_the_file_stays_as_it_was) {
  Adding test({With_Patterns(30), Hello});
  const auto before = test.File();
  test.Run();
  ASSERT_EQ(test.boxes.shown.size(), 2U);
  EXPECT_EQ(test.Box(1).text, "Sorry, this file type Lang does not permit entries above 30.");
  EXPECT_EQ(test.Box(1).title, "Quillspeech");
  EXPECT_EQ(test.Box(1).icon, BoxIcon::None);
  EXPECT_EQ(test.Box(1).buttons, BoxButtons::OK);
  EXPECT_EQ(test.File(), before);
  EXPECT_EQ(test.data_files.writes, 0);
  EXPECT_EQ(test.data_files.open_files, 0);
}

TEST(Adding, An_empty_string_is_still_a_pattern) {
  Adding test({Hello});
  test.session.filter.Voice_Word_Table[1].clear();
  test.Run();
  EXPECT_EQ(test.On_Disk(1).LikeCount(), 2);
  EXPECT_EQ(test.On_Disk(1).LikeProtocols(2), Fixed("", 100));
  EXPECT_EQ(test.On_Disk(1).LikeRatings(2), 100);
}

TEST(Adding, The_string_is_trimmed_and_cut_at_100_characters) {
  Adding test({Hello});
  test.session.filter.Voice_Word_Table[1] = "  " + std::string(120, 'a') + "  ";
  test.Run();
  EXPECT_EQ(test.On_Disk(1).LikeProtocols(2), std::string(100, 'a'));
}

TEST(Adding, The_file_is_closed_and_the_addition_on_disk_when_the_call_returns) {
  Adding test({Hello});
  test.Run();
  EXPECT_FALSE(test.session.data.Main_File_Number.Is_Open());
  EXPECT_EQ(test.data_files.open_files, 0);
}

// The failure ends the call with the file still open, and closing it is the caller's.
TEST(Adding, In_an_empty_file_there_is_no_record_to_read) {
  Adding test({Hello});
  test.File().clear();
  EXPECT_EQ(Failure_Of([&] { test.Run(); }), 63);
  EXPECT_EQ(test.session.settings.Direct_Add, 0);
  EXPECT_TRUE(test.session.data.Main_File_Number.Is_Open());
  EXPECT_EQ(test.data_files.writes, 0);
}

TEST(Adding, A_failure_lands_in_the_exit_of_its_caller_which_closes_the_file) {
  Adding test({Hello});
  test.File().clear();
  test.session.operations.Stop_And_Recover = Stop_And_Recover;
  Run_Trapped(test.session, [&] { test.Run(); });
  EXPECT_EQ(test.session.trace.failures, std::vector<int>{63});
  EXPECT_FALSE(test.session.data.Main_File_Number.Is_Open());
  EXPECT_EQ(test.data_files.open_files, 0);
}

TEST(Adding, A_file_that_cannot_be_opened_read_or_written_is_the_callers_failure) {
  Adding refused({Hello});
  refused.data_files.refused["add.SAY"] = Failure::Permission_Denied;
  EXPECT_EQ(Failure_Of([&] { refused.Run(); }), 70);
  Adding unread({Hello});
  unread.data_files.read_faults[1] = Failure::Device_Failure;
  EXPECT_EQ(Failure_Of([&] { unread.Run(); }), 57);
  Adding full({Hello});
  full.data_files.write_faults[1] = {};
  EXPECT_EQ(Failure_Of([&] { full.Run(); }), 61);
}

TEST(Adding, A_pattern_count_below_0_is_no_place_for_a_pattern) {
  Record broken = Hello;
  broken.Fields().LikeCount(-1);
  Adding test({broken});
  EXPECT_EQ(Failure_Of([&] { test.Run(); }), 9);
  EXPECT_EQ(test.data_files.writes, 0);
}

TEST(Adding, A_pattern_count_of_32767_overflows) {
  Record broken = Hello;
  broken.Fields().LikeCount(32'767);
  Adding test({broken});
  EXPECT_EQ(Failure_Of([&] { test.Run(); }), 6);
}

}  // namespace
}  // namespace quillspeech
