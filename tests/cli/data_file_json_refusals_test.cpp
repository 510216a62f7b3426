#include "cli/data_file_json.hpp"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "tests/cli/data_file_json_helpers.hpp"

namespace quillspeech::cli {
namespace {

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

}  // namespace
}  // namespace quillspeech::cli
