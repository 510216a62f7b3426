// What a scripted host answers to what it cannot do. Nothing ends it.
#include "cli/request_lines.hpp"
#include "tests/cli/host_fixture.hpp"

namespace quillspeech::tests {
namespace {

class HostErrors : public HostTest {
 protected:
  // The error with which the line is answered; the host goes on behind it.
  Json Error_Of(const std::string& line) {
    Host({line, R"({"id":"after","do":"mode","user":true})"});
    EXPECT_EQ(status, 0);
    EXPECT_EQ(Reply("after").dump(), R"({"id":"after","ok":true})");
    for (const Json& answer : told) {
      if (answer.contains("error")) return answer["error"];
    }
    return nullptr;
  }
};

TEST_F(HostErrors, What_is_no_request_is_answered_with_number_0_and_a_text) {
  const Lines lines = {
      "x",
      "{",
      "[]",
      "7",
      "{}",
      R"({"do":"dance"})",
      R"({"do":7})",
      R"({"do":"get"})",
      R"({"do":"let","member":"Noise_Sensitivity"})",
      R"({"do":"run"})",
      R"({"do":"run","ms":-1})",
      R"({"do":"run","ms":1.5})",
      R"({"do":"run","ms":86400001})",
      R"({"do":"run","ms":18446744073709551615})",
      R"({"do":"run","ms":1e400})",
      R"({"do":"mode","user":1})",
      R"({"do":"load","bag":[]})",
      R"({"do":"answer","with":"Yes"})",
      R"({"do":"answer","with":[1]})",
      R"({"do":"press","on":"Command9"})",
      R"({"do":"play","file":"nowhere.wav"})",
      R"({"do":"faults","wave_in_dance":1})",
      R"({"do":"faults","wave_in_open":-1})",
      R"({"do":"peek","name":"Nothing"})",
      R"({"do":"peek","name":"Words_I_Want"})",
      R"({"do":"peek","name":"Session_Alive","index":1})",
      R"({"do":"peek","name":"Words_I_Want","index":"1"})",
      R"({"do":"program","path":"\u4e2d"})",
      R"({"id":[1],"do":"new"})",
      R"({"id":{},"do":"new"})",
      "{\"do\":\"get\",\"member\":\"\xff\"}",
      std::string("{\0}", 3),
  };
  for (const std::string& line : lines) {
    const Json error = Error_Of(line);
    ASSERT_TRUE(error.is_object()) << line.substr(0, 80);
    EXPECT_EQ(error["number"], 0) << line;
    EXPECT_FALSE(error["text"].get<std::string>().empty()) << line;
  }
}

TEST_F(HostErrors, A_member_that_is_not_there_is_number_438) {
  for (const char* const line :
       {R"({"do":"get","member":"Nothing"})", R"({"do":"let","member":"Nothing","value":1})",
        R"({"do":"call","member":"Noise_Sensitivity"})",
        R"({"do":"get","member":"Start_Real_Action"})"}) {
    EXPECT_EQ(Error_Of(line).dump(),
              R"({"number":438,"text":"Object doesn't support this property or method"})");
  }
}

TEST_F(HostErrors, A_value_that_a_member_cannot_take_has_its_number) {
  EXPECT_EQ(Error_Of(R"({"do":"let","member":"Noise_Sensitivity","value":40000})").dump(),
            R"({"number":6,"text":"Overflow"})");
  for (const char* const value : {"null", "[]", "{}", R"("loud")"}) {
    EXPECT_EQ(
        Error_Of(R"({"do":"let","member":"Noise_Sensitivity","value":)" + std::string(value) + "}")
            .dump(),
        R"({"number":13,"text":"Type mismatch"})");
  }
}

TEST_F(HostErrors, A_text_outside_Windows_1252_is_a_type_mismatch_that_says_so) {
  EXPECT_EQ(
      Error_Of(R"({"do":"let","member":"Play_this_file_for_Start","value":"\u4e2d"})").dump(),
      R"({"number":13,"text":"\"value\" must be a text of characters that Windows-1252 has"})");
  EXPECT_EQ(Error_Of(R"({"do":"load","bag":{"Play_this_file_for_Start":"\u4e2d"}})").dump(),
            R"({"number":13,"text":"\"Play_this_file_for_Start\" must be a text of characters )"
            R"(that Windows-1252 has"})");
}

TEST_F(HostErrors, An_index_outside_its_table_is_number_9) {
  const std::string nine = R"({"number":9,"text":"Subscript out of range"})";
  EXPECT_EQ(Error_Of(R"({"do":"peek","name":"Words_I_Want","index":101})").dump(), nine);
  EXPECT_EQ(Error_Of(R"({"do":"peek","name":"Words_I_Want","index":-1})").dump(), nine);
  EXPECT_EQ(Error_Of(R"({"do":"peek","name":"Word_Start","index":0})").dump(), nine);
  Host({R"({"do":"new"})", R"({"do":"let","member":"Send_of_no","value":1001})",
        R"({"id":1,"do":"save"})"});
  EXPECT_EQ(Reply(1)["error"].dump(), nine);
}

TEST_F(HostErrors, A_load_that_meets_a_value_it_cannot_take_tells_its_number_and_the_key) {
  EXPECT_EQ(Error_Of(R"({"do":"load","bag":{"Noise_Sensitivity":"loud"}})").dump(),
            R"({"number":13,"text":"\"Noise_Sensitivity\": Type mismatch"})");
  EXPECT_EQ(Error_Of(R"({"do":"load","bag":{"Noise_Sensitivity":99999}})").dump(),
            R"({"number":6,"text":"\"Noise_Sensitivity\": Overflow"})");
  EXPECT_EQ(Error_Of(R"({"do":"load","bag":{"Words_I_Want":null}})").dump(),
            R"({"number":13,"text":"\"Words_I_Want\": Type mismatch"})");
}

TEST_F(HostErrors, The_error_carries_the_id) {
  Host({R"({"id":"x","do":"dance"})", R"({"id":-3,"do":"peek","name":"No"})"});
  EXPECT_EQ(Reply("x")["error"]["number"], 0);
  EXPECT_EQ(Reply(-3)["error"]["number"], 0);
}

TEST_F(HostErrors, A_capture_too_long_to_be_counted_is_the_fault_of_no_key) {
  const std::string bag =
      R"({"Speech_sampling_time_in_ms":2000000000,"Set_Recording_Frequency":2000000000})";
  EXPECT_EQ(Error_Of(R"({"do":"load","bag":)" + bag + "}").dump(),
            R"({"number":6,"text":"Overflow"})");
}

TEST_F(HostErrors, A_bag_that_is_no_object_is_named) {
  for (const char* const bag : {"null", "[]", "7"}) {
    EXPECT_EQ(Error_Of(R"({"do":"load","bag":)" + std::string(bag) + "}").dump(),
              R"({"number":0,"text":"\"bag\" must be an object"})");
  }
}

TEST_F(HostErrors, An_id_that_is_none_leaves_the_error_without_one) {
  for (const char* const id : {R"({"a":1})", "1.5", "18446744073709551616", "true"}) {
    Host({R"({"id":)" + std::string(id) + R"(,"do":"mode","user":true})"});
    EXPECT_EQ(told[0].dump(),
              R"({"error":{"number":0,"text":"\"id\" must be a text or a whole number of 64 bits, )"
              R"(without a fraction"}})");
  }
  Host({R"({"id":null,"do":"mode","user":true})"});
  EXPECT_EQ(told[0].dump(), R"({"ok":true})");
}

TEST_F(HostErrors, A_zero_character_in_a_name_is_refused_and_cuts_no_text) {
  EXPECT_EQ(Error_Of(R"({"do":"nope\u0000more"})").dump(),
            R"({"number":0,"text":"\"do\" must be a text without the character U+0000"})");
  EXPECT_EQ(Error_Of(R"({"do":"peek","name":"Timer1\u0000"})").dump(),
            R"({"number":0,"text":"\"name\" must be a text without the character U+0000"})");
  EXPECT_EQ(Error_Of(R"({"do":"faults","wave\u0000open":4})").dump(),
            R"({"number":0,"text":"the sound card has no call \"wave\\u0000open\""})");
}

TEST_F(HostErrors, What_JSON_cannot_hold_is_told_as_such) {
  for (const char* const line :
       {R"({"do":"run","ms":1e400})", R"({"do":"\ud800"})", "{\"do\":\"\xff\"}", "{"}) {
    EXPECT_EQ(Error_Of(line)["text"],
              "the line cannot be read: it must be JSON in UTF-8, each of its numbers one that a "
              "double holds, and no surrogate without its pair");
  }
}

TEST_F(HostErrors, An_index_must_be_a_whole_number) {
  for (const char* const index : {"1.5", R"("1")", "null", "1e300", "9223372036854775808.0"}) {
    EXPECT_EQ(Error_Of(R"({"do":"peek","name":"Words_I_Want","index":)" + std::string(index) + "}")
                  .dump(),
              R"({"number":0,"text":"\"index\" must be a whole number"})");
  }
}

TEST_F(HostErrors, Whether_the_control_lives_is_looked_at_first) {
  for (const char* const request :
       {R"("do":"let","member":"Noise_Sensitivity","value":null)", R"("do":"let")",
        R"("do":"get","member":"Nothing")", R"("do":"call","member":"Nothing")",
        R"("do":"press","on":"Nothing")"}) {
    Host({R"({"do":"end"})", R"({"id":1,)" + std::string(request) + "}"});
    EXPECT_EQ(Reply(1)["error"]["text"], "the control has ended; new or load makes another");
  }
}

TEST_F(HostErrors, A_line_may_be_nested_as_deep_as_it_likes) {
  for (const std::string& open : {std::string("["), std::string("{\"a\":")}) {
    std::string line;
    for (int i = 0; i < 200'000; ++i) line += open;
    EXPECT_EQ(Error_Of(line)["number"], 0);
  }
  std::string closed = R"({"id":)" + std::string(100'000, '[') + std::string(100'000, ']') + "}";
  EXPECT_EQ(Error_Of(closed)["number"], 0);
}

TEST_F(HostErrors, A_line_that_is_too_long_is_answered_and_the_next_one_served) {
  EXPECT_EQ(Error_Of(std::string(cli::RequestLines::Most_Bytes + 1, ' ')).dump(),
            R"({"number":0,"text":"the line is too long"})");
}

TEST_F(HostErrors, Blank_lines_are_passed_over_and_line_ends_of_two_bytes_taken) {
  Host_Input("\n \t\r\n{\"id\":1,\"do\":\"mode\",\"user\":true}\r\n\n{\"id\":2,\"do\":\"new\"}");
  EXPECT_EQ(Reply(1)["ok"], true);
  EXPECT_EQ(Reply(2)["ok"], true);
}

TEST_F(HostErrors, A_device_needs_the_real_clock) {
  EXPECT_EQ(Run({"host", "--device", "x"}), 2);
  EXPECT_NE(err.find("real"), std::string::npos);
}

TEST_F(HostErrors, A_microphone_without_its_file_is_told_at_the_start) {
  EXPECT_EQ(Run({"host", "--microphone", "nowhere.wav"}), 1);
  EXPECT_NE(err.find("nowhere.wav"), std::string::npos);
}

}  // namespace
}  // namespace quillspeech::tests
