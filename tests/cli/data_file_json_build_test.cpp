#include "cli/data_file_json.hpp"

#include <gtest/gtest.h>

#include <string>

#include "base/text.hpp"
#include "tests/cli/data_file_json_helpers.hpp"

namespace quillspeech::cli {
namespace {

TEST(DataFileJson, A_newcomers_record_is_complete) {
  const SayRecord record = Built_Language(R"({
    "WordFont": "Arial",
    "words": [{"word": "hello", "rating": 100}],
    "patterns": [{"pattern": "fth*s", "rating": 90}]})");
  EXPECT_EQ(record.RecordNo(), 1);
  EXPECT_EQ(record.FileCopyright(), std::string(30, ' '));
  EXPECT_EQ(record.FileDescription(), std::string(100, ' '));
  EXPECT_EQ(record.WordFont(), Fixed("Arial", 20));
  EXPECT_EQ(record.WordCount(), 1);
  EXPECT_EQ(record.Words(1), Fixed("hello", 40));
  EXPECT_EQ(record.WordRatings(1), 100);
  EXPECT_EQ(record.Words(2), std::string(40, '\0'));
  EXPECT_EQ(record.LikeCount(), 1);
  EXPECT_EQ(record.LikeProtocols(1), Fixed("fth*s", 100));
  EXPECT_EQ(record.LikeRatings(1), 90);
  EXPECT_EQ(record.DifferentiatorCount(), 0);
  EXPECT_EQ(record.DivisionCount(), 0);
  EXPECT_EQ(record.DivisionByteLength(), 0);
}

TEST(DataFileJson, The_own_number_of_a_record_is_its_position_unless_it_is_given) {
  const std::string json = R"({"kind":"language","records":[{},{"RecordNo":7},{}]})";
  EXPECT_EQ(Built<SayRecord>(json, 1).RecordNo(), 1);
  EXPECT_EQ(Built<SayRecord>(json, 2).RecordNo(), 7);
  EXPECT_EQ(Built<SayRecord>(json, 3).RecordNo(), 3);
}

TEST(DataFileJson, An_entry_may_leave_out_its_text_or_its_rating) {
  const SayRecord record = Built_Language(R"({"words": [{"word": "hi"}, {"rating": 3}, {}]})");
  EXPECT_EQ(record.WordCount(), 3);
  EXPECT_EQ(record.WordRatings(1), 0);
  EXPECT_EQ(record.Words(2), std::string(40, ' '));
  EXPECT_EQ(record.WordRatings(2), 3);
  EXPECT_EQ(record.Words(3), std::string(40, ' '));
}

TEST(DataFileJson, An_unused_entry_leaves_zeros_where_it_says_nothing) {
  const SayRecord record = Built_Language(
      R"({"words":[{"word":"hi"}],"unused_words":[{"index":2,"word":"old"},{"index":100,"rating":9}]})");
  EXPECT_EQ(record.WordCount(), 1);
  EXPECT_EQ(record.Words(2), Fixed("old", 40));
  EXPECT_EQ(record.WordRatings(2), 0);
  EXPECT_EQ(record.Words(100), std::string(40, '\0'));
  EXPECT_EQ(record.WordRatings(100), 9);
}

TEST(DataFileJson, A_count_may_be_stated_when_it_agrees_or_lies_outside_the_array) {
  EXPECT_EQ(Built_Language(R"({"words":[{}],"WordCount":1})").WordCount(), 1);
  EXPECT_EQ(Built_Language(R"({"words":[{}],"WordCount":101})").WordCount(), 101);
  EXPECT_EQ(Built_Language(R"({"LikeCount":-1})").LikeCount(), -1);
}

TEST(DataFileJson, An_engine_slot_that_is_not_listed_is_blank) {
  const auto record =
      Built<EgnRecord>(R"({"kind":"engine","records":[{"EngineSlots":{"3":"oa"}}]})");
  EXPECT_EQ(record.RecordNo(), 1);
  EXPECT_EQ(record.EngineSlots(3), Fixed("oa", 20));
  EXPECT_EQ(record.EngineSlots(0), std::string(20, ' '));
  EXPECT_EQ(record.EngineSlots(100), std::string(20, ' '));
}

TEST(DataFileJson, A_curve_is_its_list_of_numbers) {
  const auto record = Built<VocRecord>(
      R"({"kind":"vocabulary","records":[{"VocabularyName":"c","VocabularySamples":[1,-2.5]}]})");
  EXPECT_EQ(record.VocabularyName(), Fixed("c", 20));
  EXPECT_EQ(record.VocabularySampleCount(), 2);
  EXPECT_EQ(record.VocabularySamples(0), 0);
  EXPECT_EQ(record.VocabularySamples(1), 1);
  EXPECT_EQ(record.VocabularySamples(2), -2.5);
  EXPECT_EQ(record.VocabularySamples(3), 0);
}

TEST(DataFileJson, A_text_as_long_as_its_field_fits_and_counts_characters_not_utf8_bytes) {
  std::string forty;
  for (int i = 0; i < 40; ++i) forty += "\u20AC";
  const SayRecord record = Built_Language(R"({"words":[{"word":")" + forty + R"("}]})");
  EXPECT_EQ(record.Words(1), std::string(40, '\x80'));
}

TEST(DataFileJson, A_file_without_records_is_empty) {
  EXPECT_TRUE(Data_File_From_Json(R"({"kind":"vocabulary"})").empty());
  EXPECT_TRUE(Data_File_From_Json(R"({"kind":"vocabulary","records":[]})").empty());
}

}  // namespace
}  // namespace quillspeech::cli
