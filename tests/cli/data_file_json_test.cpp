#include "cli/data_file_json.hpp"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <random>
#include <sstream>

#include "base/text.hpp"
#include "datafiles/records.hpp"

namespace quillspeech::cli {
namespace {

using datafiles::EgnRecord;
using datafiles::SayRecord;
using datafiles::VocRecord;
using Bytes = std::vector<std::uint8_t>;

constexpr DataFileKind Kinds[] = {DataFileKind::Language, DataFileKind::Engine,
                                  DataFileKind::Vocabulary};

std::string Dump(DataFileKind kind, const Bytes& bytes) {
  std::ostringstream out;
  Data_File_To_Json(kind, bytes, out);
  return out.str();
}

nlohmann::json Parsed_Dump(DataFileKind kind, const Bytes& bytes) {
  return nlohmann::json::parse(Dump(kind, bytes));
}

template <class Record>
Bytes File_Of(const Record& record) {
  return {record.Bytes().begin(), record.Bytes().end()};
}

// A record with blank texts in front, as the editor leaves a new one.
SayRecord New_Record() {
  SayRecord record;
  record.RecordNo(1);
  record.FileCopyright("");
  record.FileDescription("");
  record.WordFont("");
  return record;
}

template <class Record>
Record Built(const std::string& json, std::size_t position = 1) {
  const Bytes file = Data_File_From_Json(json);
  Record record;
  EXPECT_GE(file.size(), position * Record::Record_Bytes);
  if (file.size() < position * Record::Record_Bytes) return record;
  std::copy_n(file.begin() + static_cast<std::ptrdiff_t>((position - 1) * Record::Record_Bytes),
              Record::Record_Bytes, record.Bytes().begin());
  return record;
}

SayRecord Built_Language(const std::string& record) {
  return Built<SayRecord>(R"({"kind":"language","records":[)" + record + "]}");
}

// The message with which the JSON is refused.
std::string Refusal(const std::string& json) {
  try {
    Data_File_From_Json(json);
  } catch (const BadJson& error) {
    return error.what();
  }
  return "accepted";
}
std::string Refusal_Of_Record(const std::string& record, const std::string& kind = "language") {
  return Refusal(R"({"kind":")" + kind + R"(","records":[)" + record + "]}");
}

Bytes Random_Bytes(std::size_t length, std::uint32_t seed) {
  std::mt19937 random(seed);
  Bytes bytes(length);
  for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random());
  return bytes;
}

void Expect_Round_Trip(DataFileKind kind, const Bytes& bytes) {
  const std::string json = Dump(kind, bytes);
  EXPECT_TRUE(Data_File_From_Json(json) == bytes)
      << Kind_Name(kind) << " of " << bytes.size() << " bytes";
}

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

TEST(DataFileJson, Every_length_of_zeros_blanks_ones_and_random_bytes_comes_back) {
  for (const DataFileKind kind : Kinds) {
    const auto record = static_cast<std::size_t>(Record_Bytes(kind));
    for (const std::size_t length :
         {std::size_t{0}, std::size_t{1}, std::size_t{3}, record / 2, record / 2 + 1, record - 1,
          record, record + 1, 2 * record, 3 * record - 1, 3 * record}) {
      for (const int fill : {0x00, 0x20, 0x41, 0x80, 0xFF}) {
        Expect_Round_Trip(kind, Bytes(length, static_cast<std::uint8_t>(fill)));
      }
      Expect_Round_Trip(kind, Random_Bytes(length, static_cast<std::uint32_t>(length)));
    }
  }
}

TEST(DataFileJson, Many_random_records_come_back_as_each_kind) {
  for (std::uint32_t seed = 0; seed < 60; ++seed) {
    for (const DataFileKind kind : Kinds) Expect_Round_Trip(kind, Random_Bytes(9634, seed));
  }
}

// Mostly zeros and blanks with a few other bytes, as files that people use have them.
TEST(DataFileJson, Sparse_files_come_back) {
  std::mt19937 random(7);
  for (int round = 0; round < 200; ++round) {
    Bytes bytes(2 * 9634, round % 2 == 0 ? 0x00 : 0x20);
    for (int i = 0; i < 300; ++i) {
      bytes[random() % bytes.size()] =
          static_cast<std::uint8_t>(random() % 4 ? random() % 96 + 32 : random());
    }
    Expect_Round_Trip(Kinds[round % 3], bytes);
  }
}

TEST(DataFileJson, Every_count_comes_back_whatever_the_arrays_hold) {
  for (const int count :
       {-32768, -2, -1, 0, 1, 29, 30, 31, 49, 50, 51, 99, 100, 101, 1199, 1200, 1201, 32767}) {
    const auto value = static_cast<std::int16_t>(count);
    SayRecord say;
    std::ranges::copy(Random_Bytes(SayRecord::Record_Bytes, 1), say.Bytes().begin());
    say.WordCount(value);
    say.LikeCount(value);
    say.DifferentiatorCount(value);
    Expect_Round_Trip(DataFileKind::Language, File_Of(say));
    VocRecord voc;
    std::ranges::copy(Random_Bytes(VocRecord::Record_Bytes, 2), voc.Bytes().begin());
    voc.VocabularySampleCount(value);
    Expect_Round_Trip(DataFileKind::Vocabulary, File_Of(voc));
  }
}

TEST(DataFileJson, Every_byte_of_a_text_comes_back_alone_and_in_front_and_behind) {
  for (int byte = 0; byte < 256; ++byte) {
    const char character = static_cast<char>(byte);
    SayRecord record = New_Record();
    record.WordCount(4);
    record.Words(1, std::string(1, character));
    record.Words(2, std::string(40, character));
    record.Words(3, character + std::string("ab"));
    record.Words(4, std::string(39, 'a') + character);
    record.Words(100, std::string(1, character));
    Expect_Round_Trip(DataFileKind::Language, File_Of(record));
  }
}

TEST(DataFileJson, Every_sort_of_number_comes_back_to_the_bit) {
  VocRecord record;
  record.VocabularySampleCount(1200);
  std::mt19937_64 random(5);
  const std::uint64_t special[] = {0x0000000000000000, 0x8000000000000000, 0x0000000000000001,
                                   0x000FFFFFFFFFFFFF, 0x0010000000000000, 0x7FEFFFFFFFFFFFFF,
                                   0x7FF0000000000000, 0x7FF0000000000001, 0xFFF8000000000000,
                                   0x4340000000000001, 0x43E0000000000000, 0x43F0000000000000,
                                   0xC3E0000000000000, 0xC3E0000000000001, 0x3FB999999999999A};
  Bytes file = File_Of(record);
  for (std::size_t i = 0; i <= 1200; ++i) {
    const std::uint64_t bits = i < std::size(special) ? special[i] : random();
    for (std::size_t k = 0; k < 8; ++k) {
      file[24 + 8 * i + k] = static_cast<std::uint8_t>(bits >> (8 * k));
    }
  }
  Expect_Round_Trip(DataFileKind::Vocabulary, file);
}

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

struct RefusedRecord {
  const char* json;
  const char* message;
};

TEST(DataFileJson, What_has_no_place_in_a_language_record_is_refused_with_its_place) {
  const RefusedRecord cases[] = {
      {R"(3)", "record 1: is no object but number"},
      {R"({"Word":1})", "record 1: has an unknown key \"Word\"; known are RecordNo, FileCopyright"},
      {R"({"RecordNo":2147483648})",
       "record 1, RecordNo: 2147483648 is no whole number from -2147483648 to 2147483647"},
      {R"({"RecordNo":18446744073709551615})", "record 1, RecordNo: 18446744073709551615 is no"},
      {R"({"RecordNo":1.0})", "record 1, RecordNo: 1.0 is no whole number"},
      {R"({"RecordNo":null})", "record 1, RecordNo: null is no whole number"},
      {R"({"WordFont":"123456789012345678901"})",
       "record 1, WordFont: \"123456789012345678901\" has 21 characters, and the field holds 20"},
      {R"({"WordFont":"Ж"})",
       "record 1, WordFont: \"Ж\" has the character \"Ж\", which Windows-1252 lacks"},
      {R"({"WordFont":"a😀"})",
       "record 1, WordFont: \"a😀\" has the character \"😀\", which Windows-1252 lacks"},
      {R"({"WordFont":5})", "record 1, WordFont: is no text but number"},
      {R"({"WordFont":{}})", "record 1, WordFont: is neither"},
      {R"({"WordFont":{"erased":false}})", "record 1, WordFont: is neither"},
      {R"({"WordFont":{"erased":true,"bytes":"00"}})", "record 1, WordFont: is neither"},
      {R"({"WordFont":{"hex":"00"}})", "record 1, WordFont: has an unknown key \"hex\""},
      {R"({"WordFont":{"bytes":"00"}})", "record 1, WordFont: has 1 bytes, and the field holds 20"},
      {R"({"WordFont":{"bytes":"0g"}})", "record 1, WordFont: has a sign that is no hex digit"},
      {R"({"WordFont":{"bytes":"000"}})", "record 1, WordFont: has an odd number of hex digits"},
      {R"({"WordFont":{"bytes":7}})", "record 1, WordFont: is no text of hex digits but number"},
      {R"({"words":{}})", "record 1, words: is no list but object"},
      {R"({"words":["hello"]})", "record 1, words 1: is no object but string"},
      {R"({"words":[{},{"wrod":"x"}]})",
       "record 1, words 2: has an unknown key \"wrod\"; known are word, rating"},
      {R"({"words":[{"rating":256}]})",
       "record 1, words 1, rating: 256 is no whole number from 0 to 255"},
      {R"({"words":[{"rating":-1}]})",
       "record 1, words 1, rating: -1 is no whole number from 0 to 255"},
      {R"({"words":[{"rating":"100"}]})", "record 1, words 1, rating: \"100\" is no whole number"},
      {R"({"words":[{"word":"a1234567890123456789012345678901234567890"}]})",
       "has 41 characters, and the field holds 40"},
      {R"({"patterns":[{"rating":32768}]})",
       "record 1, patterns 1, rating: 32768 is no whole number from -32768 to 32767"},
      {R"({"differentiators":[{"SlotNumber":256}]})",
       "record 1, differentiators 1, SlotNumber: 256 is no whole number from 0 to 255"},
      {R"({"WordCount":3,"words":[{}]})", "record 1, WordCount: is 3, but words has 1 entries"},
      {R"({"LikeCount":1})", "record 1, LikeCount: is 1, but patterns has 0 entries"},
      {R"({"unused_words":[{"word":"x"}]})", "record 1, unused_words, entry 1: has no index"},
      {R"({"unused_words":[{"index":0}]})",
       "record 1, unused_words, entry 1, index: 0 is no whole number from 1 to 100"},
      {R"({"unused_words":[{"index":101}]})",
       "record 1, unused_words, entry 1, index: 101 is no whole number from 1 to 100"},
      {R"({"words":[{}],"unused_words":[{"index":1}]})",
       "record 1, unused_words, entry 1: has the index of a counted entry"},
      {R"({"unused_words":[{"index":5},{"index":5}]})",
       "record 1, unused_words, entry 2: has the index of an entry before it"},
  };
  for (const auto& [json, message] : cases) {
    const std::string refusal = Refusal_Of_Record(json);
    EXPECT_NE(refusal.find(message), std::string::npos) << json << "\ngave: " << refusal;
  }
}

TEST(DataFileJson, One_entry_more_than_an_array_holds_is_refused) {
  struct Case {
    const char* list;
    const char* entry;
    const char* kind;
    int most;
  };
  for (const auto& [list, entry, kind, most] :
       {Case{"words", "{}", "language", 100}, Case{"patterns", "{}", "language", 30},
        Case{"differentiators", "{}", "language", 50},
        Case{"VocabularySamples", "0", "vocabulary", 1200}}) {
    std::string entries = entry;
    for (int i = 1; i < most; ++i) entries += std::string(",") + entry;
    const auto record = [&](const std::string& all) {
      return "{\"" + std::string(list) + "\":[" + all + "]}";
    };
    EXPECT_EQ(Refusal_Of_Record(record(entries), kind), "accepted");
    const std::string refusal = Refusal_Of_Record(record(entries + "," + entry), kind);
    EXPECT_EQ(refusal, "record 1, " + std::string(list) + ": has " + std::to_string(most + 1) +
                           " entries, and there is room for " + std::to_string(most));
  }
}

TEST(DataFileJson, What_has_no_place_in_an_engine_or_vocabulary_record_is_refused) {
  struct Case {
    const char* kind;
    const char* json;
    const char* message;
  };
  for (const auto& [kind, json, message] : {
           Case{"engine", R"({"EngineSlots":[]})", "record 1, EngineSlots: is no object but array"},
           Case{"engine", R"({"EngineSlots":{"101":""}})", "has an unknown key \"101\""},
           Case{"engine", R"({"EngineSlots":{"-1":""}})", "has an unknown key \"-1\""},
           Case{"engine", R"({"EngineSlots":{"07":""}})", "has an unknown key \"07\""},
           Case{"engine", R"({"EngineSlots":{"":""}})", "has an unknown key \"\""},
           Case{"engine", R"({"EngineSlots":{"7x":""}})", "has an unknown key \"7x\""},
           Case{"engine", R"({"EngineSlots":{"7":"123456789012345678901"}})",
                "record 1, EngineSlots, 7: "},
           Case{"engine", R"({"words":[]})", "has an unknown key \"words\""},
           Case{"vocabulary", R"({"VocabularySamples":["1"]})",
                "record 1, VocabularySamples 1: is no number but string"},
           Case{"vocabulary", R"({"VocabularySamples":[{}]})", "VocabularySamples 1: has no value"},
           Case{"vocabulary", R"({"VocabularySamples":[{"bits":"00"}]})",
                "VocabularySamples 1: has 1 bytes, and the field holds 8"},
           Case{"vocabulary", R"({"unused_samples":[{"index":1201}]})",
                "is no whole number from 0 to 1200"},
           Case{"vocabulary", R"({"EngineSlots":{}})", "has an unknown key \"EngineSlots\""},
       }) {
    const std::string refusal = Refusal_Of_Record(json, kind);
    EXPECT_NE(refusal.find(message), std::string::npos) << json << "\ngave: " << refusal;
  }
}

TEST(DataFileJson, What_is_no_data_file_at_all_is_refused) {
  const RefusedRecord cases[] = {
      {"", "the file is no JSON: "},
      {"{", "the file is no JSON: parse error at line 1, column 2"},
      {"nonsense", "the file is no JSON: "},
      {"{} {}", "the file is no JSON: "},
      {"[]", "the file: is no object but array"},
      {"{}", "the file: has no \"kind\""},
      {R"({"kind":"recipe"})", "kind: is none of"},
      {R"({"kind":1})", "kind: is none of"},
      {R"({"kind":"engine","record":[]})", "the file: has an unknown key \"record\""},
      {R"({"kind":"engine","records":{}})", "records: is no list but object"},
      {R"({"kind":"engine","tail":"0"})", "tail: has an odd number of hex digits"},
      {R"({"kind":"engine","kind":"language"})", "an object has the key \"kind\" twice"},
      {R"({"kind":"vocabulary","records":[{"VocabularySamples":[1e400]}]})", "is no JSON: "},
      {R"({"kind":"vocabulary","records":[{"VocabularySamples":[NaN]}]})", "is no JSON: "},
      {"{\"kind\":\"engine\xFF\"}", "the file is no JSON: "},
      {R"({"kind":"\ud800"})", "the file is no JSON: "},
  };
  for (const auto& [json, message] : cases) {
    const std::string refusal = Refusal(json);
    EXPECT_NE(refusal.find(message), std::string::npos) << json << "\ngave: " << refusal;
  }
}

TEST(DataFileJson, The_place_of_an_error_names_the_record) {
  EXPECT_EQ(Refusal_Of_Record(R"({},{},{"RecordNo":""})"),
            "record 3, RecordNo: \"\" is no whole number from -2147483648 to 2147483647");
}

TEST(DataFileJson, A_tail_is_shorter_than_a_record) {
  const auto with_tail = [](std::size_t bytes) {
    return R"({"kind":"engine","tail":")" + std::string(2 * bytes, '0') + "\"}";
  };
  EXPECT_EQ(Data_File_From_Json(with_tail(2023)).size(), 2023U);
  EXPECT_EQ(Refusal(with_tail(2024)), "tail: has the bytes of a whole record");
}

TEST(DataFileJson, JSON_that_nests_without_end_is_refused) {
  std::string lists(2'000'000, '[');
  EXPECT_EQ(Refusal(lists), "the JSON is nested too deep");
  std::string objects;
  for (int i = 0; i < 200'000; ++i) objects += "{\"a\":";
  EXPECT_EQ(Refusal(objects), "the JSON is nested too deep");
}

TEST(DataFileJson, An_object_of_very_many_keys_is_refused_in_no_time) {
  std::string json = "{";
  for (int i = 0; i < 200'000; ++i) json += "\"k" + std::to_string(i) + "\":0,";
  json += "\"kind\":\"engine\"}";
  EXPECT_NE(Refusal(json).find("the file: has an unknown key"), std::string::npos);
}

TEST(DataFileJson, A_long_text_is_cut_between_two_characters) {
  std::string text = "x";
  for (int i = 0; i < 200; ++i) text += "\u00E9";
  const std::string refusal = Refusal_Of_Record("{\"WordFont\":\"" + text + "\"}");
  EXPECT_NE(refusal.find("\u00E9...\" has 201 characters"), std::string::npos) << refusal;
}

TEST(DataFileJson, An_error_quotes_a_long_text_in_part) {
  const std::string refusal =
      Refusal_Of_Record("{\"WordFont\":\"" + std::string(100'000, 'x') + "\"}");
  EXPECT_LT(refusal.size(), 400U);
  EXPECT_NE(refusal.find("has 100000 characters"), std::string::npos);
}

TEST(DataFileJson, Any_change_of_one_byte_of_the_JSON_is_read_or_refused) {
  SayRecord record = New_Record();
  record.WordCount(1);
  record.LikeCount(1);
  record.Words(1, "hello");
  record.LikeProtocols(1, "fth*s");
  const std::string json = Dump(DataFileKind::Language, File_Of(record));
  std::mt19937 random(3);
  for (int round = 0; round < 3000; ++round) {
    std::string changed = json;
    changed[random() % changed.size()] = static_cast<char>(random());
    try {
      Expect_Round_Trip(DataFileKind::Language, Data_File_From_Json(changed));
    } catch (const BadJson& error) {
      EXPECT_STRNE(error.what(), "");
    }
  }
}

TEST(DataFileJson, The_kinds_have_names_and_record_lengths) {
  for (const DataFileKind kind : Kinds) EXPECT_EQ(Kind_Of_Name(Kind_Name(kind)), kind);
  EXPECT_EQ(Kind_Of_Name("Language"), std::nullopt);
  EXPECT_EQ(Kind_Of_Name(""), std::nullopt);
  EXPECT_EQ(Record_Bytes(DataFileKind::Language), 8476);
  EXPECT_EQ(Record_Bytes(DataFileKind::Engine), 2024);
  EXPECT_EQ(Record_Bytes(DataFileKind::Vocabulary), 9634);
}

}  // namespace
}  // namespace quillspeech::cli
