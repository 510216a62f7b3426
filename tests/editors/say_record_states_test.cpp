#include "editors/say_record_states.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "base/text.hpp"
#include "tests/support/failures.hpp"
#include "tests/support/record_builder.hpp"

namespace quillspeech::tests {
namespace {

using datafiles::SayRecord;

// Every byte another one than zero, and every count in order.
SayRecord Used_Record() {
  SayRecord record;
  std::fill(record.Bytes().begin(), record.Bytes().end(), std::uint8_t{'x'});
  record.RecordNo(5);
  record.WordCount(3);
  record.LikeCount(2);
  record.DifferentiatorCount(1);
  return record;
}

// Whether these bytes of the record are all of that value.
bool Are_All(const SayRecord& record, int from, int count, std::uint8_t value) {
  const auto bytes =
      record.Bytes().subspan(static_cast<std::size_t>(from), static_cast<std::size_t>(count));
  return std::all_of(bytes.begin(), bytes.end(), [&](std::uint8_t byte) { return byte == value; });
}

TEST(SayRecordStates, A_deleted_record_keeps_its_number_its_ratings_and_its_texts) {
  SayRecord record = Used_Record();
  Make_Deleted(record);
  EXPECT_EQ(record.RecordNo(), 5);
  EXPECT_TRUE(Are_All(record, 4, 130, 'x'));     // FileCopyright, FileDescription
  EXPECT_TRUE(Are_All(record, 134, 4000, 0));    // Words
  EXPECT_TRUE(Are_All(record, 4134, 100, 'x'));  // WordRatings
  EXPECT_TRUE(Are_All(record, 4234, 2, 0));      // WordCount
  EXPECT_TRUE(Are_All(record, 4236, 20, ' '));   // WordFont
  EXPECT_TRUE(Are_All(record, 4256, 60, 'x'));   // LikeRatings
  EXPECT_TRUE(Are_All(record, 4316, 4160, 0));   // divisions, differentiators, patterns
}

TEST(SayRecordStates, A_new_record_inherits_the_texts_of_the_file_and_nothing_else) {
  SayRecord record = Used_Record();
  Make_New(record, 9);
  EXPECT_EQ(record.RecordNo(), 9);
  EXPECT_TRUE(Are_All(record, 4, 130, 'x'));
  EXPECT_TRUE(Are_All(record, 134, 4102, 0));
  EXPECT_TRUE(Are_All(record, 4236, 20, ' '));
  EXPECT_TRUE(Are_All(record, 4256, 4220, 0));
}

TEST(SayRecordStates, Copying_takes_the_entries_that_are_counted) {
  Record from;
  from.Word("one", 10).Pattern("p", 20).Differentiator("oa", 3, 4).Font("Arial");
  from.Fields().DivisionCount(2);
  from.Fields().DivisionByteLength(300);
  from.Fields().Words(2, "hidden");
  SayRecord to = Used_Record();
  Copy_Contents(from.Fields(), to);
  EXPECT_EQ(to.WordCount(), 1);
  EXPECT_EQ(Trim(to.Words(1)), "one");
  EXPECT_EQ(to.WordRatings(1), 10);
  EXPECT_EQ(Trim(to.WordFont()), "Arial");
  EXPECT_EQ(to.DivisionCount(), 2);
  EXPECT_EQ(to.DivisionByteLength(), 300);
  EXPECT_EQ(to.LikeCount(), 1);
  EXPECT_EQ(Trim(to.LikeProtocols(1)), "p");
  EXPECT_EQ(to.LikeRatings(1), 20);
  EXPECT_EQ(to.DifferentiatorCount(), 1);
  EXPECT_EQ(to.SlotNumbers(1), 3);
  EXPECT_EQ(Trim(to.EngineCodes(1)), "oa");
  EXPECT_EQ(to.EngineCodeWeights(1), 4);
}

TEST(SayRecordStates, Copying_leaves_what_lies_above_the_counts_and_the_texts_of_the_file) {
  SayRecord to = Used_Record();
  Copy_Contents(Record().Word("one").Pattern("p").Fields(), to);
  EXPECT_EQ(to.RecordNo(), 5);
  EXPECT_TRUE(Are_All(to, 4, 130, 'x'));
  EXPECT_EQ(to.Words(2), std::string(40, 'x'));
  EXPECT_EQ(to.WordRatings(2), 'x');
  EXPECT_EQ(to.LikeProtocols(2), std::string(100, 'x'));
  EXPECT_EQ(to.EngineCodes(1), std::string(20, 'x'));
}

TEST(SayRecordStates, Copying_from_counts_above_the_arrays_fails_and_copies_nothing) {
  for (const auto damage : {+[](SayRecord& record) { record.WordCount(101); },
                            +[](SayRecord& record) { record.LikeCount(31); },
                            +[](SayRecord& record) { record.DifferentiatorCount(51); }}) {
    SayRecord from = Record().Word("new").Pattern("n*").Differentiator("n", 1, 2).Fields();
    damage(from);
    SayRecord to = Used_Record();
    EXPECT_EQ(Failure_Of([&] { Copy_Contents(from, to); }), 9);
    EXPECT_TRUE(std::ranges::equal(to.Bytes(), Used_Record().Bytes()));
  }
}

}  // namespace
}  // namespace quillspeech::tests
