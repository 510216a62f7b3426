#include "editors/voc_record_states.hpp"

#include <gtest/gtest.h>

#include <string>

#include "base/text.hpp"
#include "tests/support/failures.hpp"
#include "tests/support/vocabulary_builder.hpp"

namespace quillspeech::tests {
namespace {

using datafiles::VocRecord;

TEST(VocRecordStates, A_copied_curve_brings_its_name_its_values_and_its_count) {
  VocRecord to = Curve("longer", {1, 2, 3});
  to.RecordNo(7);
  Copy_Curve(Curve("new", {9}), to);
  EXPECT_EQ(to.RecordNo(), 7);
  EXPECT_EQ(to.VocabularyName(), "new" + std::string(17, ' '));
  EXPECT_EQ(to.VocabularySampleCount(), 1);
  EXPECT_EQ(to.VocabularySamples(0), 3);
  EXPECT_EQ(to.VocabularySamples(1), 9);
  EXPECT_EQ(to.VocabularySamples(2), 2);
}

TEST(VocRecordStates, A_deleted_record_keeps_its_number_and_what_lies_above_its_count) {
  VocRecord record = Curve("old", {1, 2, 3});
  record.RecordNo(7);
  record.VocabularySampleCount(2);
  Make_Deleted(record);
  EXPECT_EQ(record.RecordNo(), 7);
  EXPECT_EQ(record.VocabularyName(), std::string(20, ' '));
  EXPECT_EQ(record.VocabularySampleCount(), 0);
  EXPECT_EQ(record.VocabularySamples(0), 0);
  EXPECT_EQ(record.VocabularySamples(2), 0);
  EXPECT_EQ(record.VocabularySamples(3), 3);
}

TEST(VocRecordStates, Counts_fit_the_array_up_to_1200) {
  for (const std::int16_t count : {std::int16_t{1200}, std::int16_t{1201}}) {
    VocRecord record;
    VocRecord copy;
    record.VocabularySampleCount(count);
    const int expected = count == 1200 ? 0 : 9;
    EXPECT_EQ(Failure_Of([&] { Copy_Curve(record, copy); }), expected) << count;
    EXPECT_EQ(copy.VocabularySampleCount(), expected == 0 ? count : 0) << count;
    EXPECT_EQ(Failure_Of([&] { Make_Deleted(record); }), expected) << count;
  }
}

TEST(VocRecordStates, A_count_that_does_not_fit_changes_nothing) {
  VocRecord record = Curve("damaged", {1, 2});
  record.VocabularySampleCount(1201);
  VocRecord to = Curve("kept", {7});
  EXPECT_EQ(Failure_Of([&] { Copy_Curve(record, to); }), 9);
  EXPECT_EQ(Failure_Of([&] { Make_Deleted(record); }), 9);
  EXPECT_EQ(Trim(to.VocabularyName()), "kept");
  EXPECT_EQ(to.VocabularySamples(1), 7);
  EXPECT_EQ(Trim(record.VocabularyName()), "damaged");
  EXPECT_EQ(record.VocabularySamples(1), 1);
}

}  // namespace
}  // namespace quillspeech::tests
