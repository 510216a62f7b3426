#include "cli/data_file_json.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>
#include <string>

#include "tests/cli/data_file_json_helpers.hpp"

namespace quillspeech::cli {
namespace {

TEST(DataFileJson, A_language_record_reads_like_this) {
  SayRecord record = New_Record();
  record.FileCopyright("K. Author");
  record.WordFont("Arial");
  record.DivisionCount(2);
  record.DivisionByteLength(4000);
  record.WordCount(2);
  record.Words(1, "hello");
  record.WordRatings(1, 100);
  record.Words(2, "caf\xE9");
  record.WordRatings(2, 80);
  record.LikeCount(1);
  record.LikeProtocols(1, "fth*s");
  record.LikeRatings(1, -5);
  record.DifferentiatorCount(1);
  record.EngineCodes(1, "oa");
  record.SlotNumbers(1, 3);
  record.EngineCodeWeights(1, 12);
  EXPECT_EQ(Dump(DataFileKind::Language, File_Of(record)), R"({
  "kind": "language",
  "records": [
    {
      "RecordNo": 1,
      "FileCopyright": "K. Author",
      "FileDescription": "",
      "WordFont": "Arial",
      "DivisionCount": 2,
      "DivisionByteLength": 4000,
      "words": [
        {"word": "hello", "rating": 100},
        {"word": "café", "rating": 80}
      ],
      "patterns": [
        {"pattern": "fth*s", "rating": -5}
      ],
      "differentiators": [
        {"EngineCode": "oa", "SlotNumber": 3, "EngineCodeWeight": 12}
      ]
    }
  ]
}
)");
}

TEST(DataFileJson, An_engine_record_shows_the_slots_that_are_not_blank_by_category) {
  EgnRecord record;
  record.RecordNo(1);
  for (int category = 0; category <= EgnRecord::Last_Slot; ++category) {
    record.EngineSlots(category, "");
  }
  record.EngineSlots(0, "_");
  record.EngineSlots(100, "sx");
  EXPECT_EQ(Dump(DataFileKind::Engine, File_Of(record)), R"({
  "kind": "engine",
  "records": [
    {
      "RecordNo": 1,
      "EngineSlots": {
        "0": "_",
        "100": "sx"
      }
    }
  ]
}
)");
}

TEST(DataFileJson, A_vocabulary_record_shows_the_samples_1_to_the_count) {
  VocRecord record;
  record.RecordNo(1);
  record.VocabularyName("curve");
  record.VocabularySampleCount(3);
  record.VocabularySamples(1, 0.1);
  record.VocabularySamples(2, -2);
  record.VocabularySamples(3, 1e300);
  EXPECT_EQ(Dump(DataFileKind::Vocabulary, File_Of(record)), R"({
  "kind": "vocabulary",
  "records": [
    {
      "RecordNo": 1,
      "VocabularyName": "curve",
      "VocabularySamples": [
        0.1,
        -2,
        1e+300
      ]
    }
  ]
}
)");
}

TEST(DataFileJson, An_empty_file_has_no_records) {
  EXPECT_EQ(Dump(DataFileKind::Engine, {}), "{\n  \"kind\": \"engine\",\n  \"records\": []\n}\n");
}

TEST(DataFileJson, A_torn_record_is_a_tail_in_hex) {
  EXPECT_EQ(Dump(DataFileKind::Language, {0x00, 0x7F, 0xFF}),
            "{\n  \"kind\": \"language\",\n  \"records\": [],\n  \"tail\": \"007fff\"\n}\n");
}

TEST(DataFileJson, An_erased_text_is_told_from_a_blank_one) {
  SayRecord record = New_Record();
  record.WordFont(std::string(20, '\0'));
  const auto shown = Parsed_Dump(DataFileKind::Language, File_Of(record))["records"][0];
  EXPECT_EQ(shown["WordFont"], nlohmann::json::parse(R"({"erased": true})"));
  EXPECT_EQ(shown["FileCopyright"], "");
}

TEST(DataFileJson, A_text_that_no_person_types_is_shown_as_its_bytes) {
  SayRecord record = New_Record();
  for (const char* odd : {"\x01", "\x1F", "\x7F", "\x81", "\x8D", "\x8F", "\x90", "\x9D"}) {
    record.WordFont(odd);
    const auto shown = Parsed_Dump(DataFileKind::Language, File_Of(record))["records"][0];
    ASSERT_TRUE(shown["WordFont"].is_object()) << shown["WordFont"];
    EXPECT_EQ(shown["WordFont"]["bytes"].get<std::string>().size(), 40U);
  }
}

TEST(DataFileJson, Blanks_in_front_are_part_of_a_text_and_blanks_behind_are_padding) {
  SayRecord record = New_Record();
  record.WordFont("  Arial ");
  const auto shown = Parsed_Dump(DataFileKind::Language, File_Of(record))["records"][0];
  EXPECT_EQ(shown["WordFont"], "  Arial");
}

TEST(DataFileJson, A_deleted_record_shows_the_ratings_that_it_kept) {
  SayRecord record = New_Record();
  record.WordRatings(2, 90);
  record.LikeRatings(1, 100);
  const auto shown = Parsed_Dump(DataFileKind::Language, File_Of(record))["records"][0];
  EXPECT_EQ(shown["words"], nlohmann::json::array());
  EXPECT_EQ(shown["unused_words"], nlohmann::json::parse(R"([{"index": 2, "rating": 90}])"));
  EXPECT_EQ(shown["unused_patterns"], nlohmann::json::parse(R"([{"index": 1, "rating": 100}])"));
  EXPECT_FALSE(shown.contains("unused_differentiators"));
}

TEST(DataFileJson, A_count_is_shown_only_when_it_lies_outside_its_array) {
  for (const int count : {-32768, -1, 0, 1, 99, 100, 101, 32767}) {
    SayRecord record = New_Record();
    record.WordCount(static_cast<std::int16_t>(count));
    const auto shown = Parsed_Dump(DataFileKind::Language, File_Of(record))["records"][0];
    EXPECT_EQ(shown.contains("WordCount"), count < 0 || count > 100) << count;
    EXPECT_EQ(shown["words"].size(), static_cast<std::size_t>(std::clamp(count, 0, 100)));
  }
}

TEST(DataFileJson, Element_0_of_a_curve_is_among_the_unused_samples) {
  VocRecord record;
  record.VocabularySampleCount(1);
  record.VocabularySamples(0, 7.5);
  record.VocabularySamples(1200, -1);
  const auto shown = Parsed_Dump(DataFileKind::Vocabulary, File_Of(record))["records"][0];
  EXPECT_EQ(shown["unused_samples"],
            nlohmann::json::parse(R"([{"index":0,"value":7.5},{"index":1200,"value":-1}])"));
}

TEST(DataFileJson, A_sample_that_is_no_plain_number_is_shown_as_its_bits) {
  struct Case {
    double value;
    const char* bits;
  };
  for (const auto& [value, bits] :
       {Case{-0.0, "8000000000000000"},
        Case{std::numeric_limits<double>::infinity(), "7ff0000000000000"},
        Case{-std::numeric_limits<double>::infinity(), "fff0000000000000"},
        Case{std::numeric_limits<double>::quiet_NaN(), "7ff8000000000000"}}) {
    VocRecord record;
    record.VocabularySampleCount(1);
    record.VocabularySamples(1, value);
    const auto shown = Parsed_Dump(DataFileKind::Vocabulary, File_Of(record))["records"][0];
    EXPECT_EQ(shown["VocabularySamples"][0]["bits"], bits);
  }
}

TEST(DataFileJson, A_text_alone_is_spelled_as_in_the_file) {
  EXPECT_EQ(Text_As_Json("fth*s  "), R"("fth*s")");
  EXPECT_EQ(Text_As_Json("a\"b\x80"), "\"a\\\"b\u20AC\"");
  EXPECT_EQ(Text_As_Json({"a\0", 2}), R"({"bytes": "6100"})");
  EXPECT_EQ(Text_As_Json({"\0\0", 2}), R"({"erased": true})");
  EXPECT_EQ(Text_As_Json(""), R"("")");
}

}  // namespace
}  // namespace quillspeech::cli
