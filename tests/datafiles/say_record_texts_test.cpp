#include "datafiles/say_record_texts.hpp"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/failures.hpp"

namespace quillspeech::tests {
namespace {

using namespace datafiles;

const struct {
  const char* name;
  TextArray array;
  std::int64_t last;
  std::size_t width;
} Arrays[] = {
    {"words", Words, 100, 40}, {"patterns", Protocols, 30, 100}, {"codes", Codes, 50, 20}};

TEST(SayRecordTexts, An_element_that_is_aligned_moves_to_the_left_end_of_its_field) {
  for (const auto& [name, array, last, width] : Arrays) {
    for (const std::int64_t index : {std::int64_t{1}, last}) {
      SayRecord record;
      (record.*array.write)(index, "  two words ");
      EXPECT_EQ(Element(record, array, index), "two words") << name;
      EXPECT_EQ((record.*array.read)(index)[0], ' ') << name;
      EXPECT_EQ(Align(record, array, index), "two words") << name;
      EXPECT_EQ((record.*array.read)(index), Fixed("two words", width)) << name;
    }
  }
}

TEST(SayRecordTexts, An_element_at_the_left_end_keeps_every_byte) {
  for (const auto& [name, array, last, width] : Arrays) {
    SayRecord record;  // erased fields: their zeros are no blanks
    const std::string erased(width, '\0');
    EXPECT_EQ(Align(record, array, 1), erased) << name;
    (record.*array.write)(last, "a  b");
    EXPECT_EQ(Align(record, array, last), "a  b") << name;
    EXPECT_EQ((record.*array.read)(last), Fixed("a  b", width)) << name;
    EXPECT_EQ((record.*array.read)(1), erased) << name;
  }
}

TEST(SayRecordTexts, A_text_is_looked_for_among_the_first_elements_letter_for_letter) {
  for (const auto& [name, array, last, width] : Arrays) {
    SayRecord record;
    (record.*array.write)(2, " f*s ");
    (record.*array.write)(3, "three");
    EXPECT_TRUE(Has_Element(record, array, 2, "f*s")) << name;
    EXPECT_FALSE(Has_Element(record, array, 1, "f*s")) << name;
    for (const auto other : {"F*s", "fths", "f*", " f*s", "three"}) {
      EXPECT_FALSE(Has_Element(record, array, 2, other)) << name << other;
    }
    EXPECT_FALSE(Has_Element(record, array, 0, "")) << name;
  }
}

TEST(SayRecordTexts, An_element_of_blanks_is_no_text) {
  for (const auto& [name, array, last, width] : Arrays) {
    SayRecord record;
    (record.*array.write)(1, "");
    EXPECT_EQ(Align(record, array, 1), "") << name;
    EXPECT_EQ((record.*array.read)(1), std::string(width, ' ')) << name;
  }
}

TEST(SayRecordTexts, An_index_outside_the_array_is_failure_9) {
  for (const auto& [name, array, last, width] : Arrays) {
    for (const std::int64_t index : {std::int64_t{0}, last + 1}) {
      SayRecord record;
      EXPECT_EQ(Failure_Of([&, &of = array] { Align(record, of, index); }), 9) << name;
      EXPECT_EQ(Failure_Of([&, &of = array] { Element(record, of, index); }), 9) << name;
    }
  }
}

}  // namespace
}  // namespace quillspeech::tests
