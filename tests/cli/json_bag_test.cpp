#include "cli/json_bag.hpp"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "cli/data_file_json.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech::cli {
namespace {

using Json = JsonBag::Json;
using tests::Failure_Of;

MemberValue Text(const char* text) { return std::string(text); }
MemberValue Read(const char* json) {
  JsonBag bag(Json{{"Key", Json::parse(json)}});
  return bag.ReadProperty("Key", Text("default"));
}

TEST(JsonBag, A_missing_key_gives_the_default_with_its_type) {
  JsonBag bag;
  EXPECT_EQ(bag.ReadProperty("Key", std::int16_t{7}), MemberValue(std::int16_t{7}));
  EXPECT_EQ(bag.ReadProperty("Key", Text("x")), Text("x"));
  EXPECT_EQ(bag.Last_Key(), "Key");
}

TEST(JsonBag, Strings_whole_numbers_and_Booleans_come_as_they_are) {
  EXPECT_EQ(Read("\"YES\""), Text("YES"));
  EXPECT_EQ(Read("12"), MemberValue(std::int32_t{12}));
  EXPECT_EQ(Read("-2147483648"), MemberValue(std::int32_t{-2147483647 - 1}));
  EXPECT_EQ(Read("true"), MemberValue(true));
}

TEST(JsonBag, Fractions_and_numbers_beyond_32_bits_come_as_texts) {
  EXPECT_EQ(Read("2.5"), Text("2.5"));
  EXPECT_EQ(Read("2147483648"), Text("2147483648"));
  EXPECT_EQ(Read("18446744073709551615"), Text("18446744073709551615"));
}

TEST(JsonBag, What_is_no_value_and_what_Windows_1252_lacks_is_a_type_mismatch) {
  for (const char* json : {"null", "[]", "[1]", "{}", "\"\\u3042\""}) {
    EXPECT_EQ(Failure_Of([&] { Read(json); }), 13) << json;
  }
}

TEST(JsonBag, Texts_are_UTF_8_outside_and_Windows_1252_inside) {
  EXPECT_EQ(Read("\"caf\\u00e9 \\u20ac\""), Text("caf\xE9 \x80"));
  JsonBag bag;
  bag.WriteProperty("Key", Text("caf\xE9 \x80"), Text(""));
  EXPECT_EQ(*bag.Kept("Key"), "caf\u00e9 \u20ac");
  EXPECT_EQ(bag.ReadProperty("Key", Text("")), Text("caf\xE9 \x80"));
}

TEST(JsonBag, Only_what_differs_from_the_default_is_kept) {
  JsonBag bag;
  bag.WriteProperty("Direct_Add", Text("NO"), Text("NO"));
  bag.WriteProperty("Memory_Clean", Text("YES"), Text("NO"));
  bag.WriteProperty("Words_to_Scan", std::int32_t{5}, std::int32_t{5});
  bag.WriteProperty("Filter_Pass_Value", std::int16_t{-4}, std::int16_t{5});
  EXPECT_EQ(bag.Record().dump(), R"({"Filter_Pass_Value":-4,"Memory_Clean":"YES"})");
  bag.WriteProperty("Memory_Clean", Text("NO"), Text("NO"));
  EXPECT_EQ(bag.Record().dump(), R"({"Filter_Pass_Value":-4})");
  EXPECT_EQ(bag.Kept("Memory_Clean"), nullptr);
}

TEST(JsonBag, The_record_has_the_keys_of_a_control_in_the_order_of_its_save) {
  const JsonBag bag(
      Json{{"Words_to_Scan", 2}, {"Volume", 1}, {"Send_of_no", 4}, {"Stop_everything_now", "YES"}});
  EXPECT_EQ(bag.Record().dump(),
            R"({"Stop_everything_now":"YES","Send_of_no":4,"Words_to_Scan":2})");
}

TEST(JsonBag, A_value_of_another_type_than_the_default_is_kept) {
  JsonBag bag;
  bag.WriteProperty("Direct_Add", Text("1"), std::int16_t{1});
  EXPECT_EQ(bag.Record().dump(), R"({"Direct_Add":"1"})");
}

TEST(JsonBag, Keys_that_no_control_keeps_are_known) {
  const JsonBag bag(Json{{"Volume", 1}, {"Noise_Sensitivity", 3}, {"Enabled", false}});
  EXPECT_EQ(bag.Unknown_Keys(), (std::vector<std::string>{"Enabled", "Volume"}));
}

TEST(JsonBag, A_record_is_an_object) {
  for (const char* json : {"[]", "3", "null", "\"text\""}) {
    EXPECT_THROW(JsonBag(Json::parse(json)), BadJson) << json;
  }
}

TEST(JsonBag, Every_value_survives_as_JSON) {
  const std::vector<std::pair<MemberValue, const char*>> Values = {{MemberValue(), "null"},
                                                                   {Text("a\"b"), "\"a\\\"b\""},
                                                                   {std::int16_t{-7}, "-7"},
                                                                   {std::int32_t{70000}, "70000"},
                                                                   {true, "true"}};
  for (const auto& [value, json] : Values) EXPECT_EQ(Json_Of(value).dump(), json);
}

}  // namespace
}  // namespace quillspeech::cli
