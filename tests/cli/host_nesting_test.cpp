// Requests that are served while the control waits inside another one, and the end of the input.
#include "tests/cli/host_fixture.hpp"

namespace quillspeech::tests {
namespace {

class HostNesting : public HostTest {
 protected:
  const std::string start = R"({"do":"call","member":"Start_Real_Action"})";
  const std::string stop = R"({"do":"call","member":"Stop_Real_Action"})";

  // How often the card was asked to record, as the start cue tells.
  std::int64_t Captures() const {
    return std::ranges::count(out_lines(), R"({"sound":{"name":"start.wav","flags":1}})");
  }
  Lines out_lines() const {
    Lines lines;
    for (const Json& line : told) lines.push_back(line.dump());
    return lines;
  }
};

TEST_F(HostNesting, A_capture_that_waits_serves_requests) {
  Host({R"({"do":"new"})", start, R"({"do":"run","ms":500})",
        R"({"id":1,"do":"peek","name":"Recording_Active"})", stop,
        R"({"id":2,"do":"peek","name":"Recording_Active"})", R"({"id":3,"do":"run","ms":500})",
        R"({"id":4,"do":"peek","name":"Form1.Timer5"})"});
  EXPECT_EQ(Value(1), 1);
  EXPECT_EQ(Value(2), 0);
  EXPECT_EQ(Reply(3)["ok"], true);
  EXPECT_EQ(Value(4), false);
  EXPECT_EQ(Captures(), 1);
}

TEST_F(HostNesting, A_session_can_be_restarted_again_and_again_inside_its_captures) {
  Lines lines = {R"({"do":"new"})", start};
  for (int i = 0; i < 200; ++i) {
    lines.emplace_back(R"({"do":"run","ms":150})");
    lines.emplace_back(R"({"do":"call","member":"Restart"})");
  }
  lines.emplace_back(R"({"do":"run","ms":150})");
  lines.emplace_back(R"({"id":1,"do":"peek","name":"Recording_Active"})");
  Host(lines);
  EXPECT_EQ(Captures(), 201);
  EXPECT_EQ(Value(1), 1);
  EXPECT_EQ(status, 0);
}

TEST_F(HostNesting, A_control_can_end_inside_its_capture_and_another_begin) {
  Host({R"({"do":"new"})", start, R"({"do":"run","ms":500})", R"({"id":1,"do":"end"})",
        R"({"do":"new"})", start, R"({"do":"run","ms":500})",
        R"({"id":2,"do":"peek","name":"Recording_Active"})"});
  EXPECT_EQ(Reply(1)["ok"], true);
  EXPECT_EQ(Value(2), 1);
  EXPECT_EQ(Captures(), 2);
}

TEST_F(HostNesting, A_stop_in_the_midst_of_an_echo_is_served_and_the_echo_ends_by_itself) {
  const std::string wave = Put_Sound("low.wav", Low_Word());
  Host({R"({"do":"new"})", R"({"do":"let","member":"Enable_Artificial_Intelligence","value":"NO"})",
        R"({"do":"let","member":"Speech_echo_feature","value":"YES"})", start,
        R"({"do":"run","ms":2500})", R"({"id":1,"do":"peek","name":"Operation_Status"})", stop,
        R"({"id":2,"do":"run","ms":5000})", R"({"id":3,"do":"peek","name":"Analysis_Running"})",
        R"({"id":4,"do":"peek","name":"Recording_Active"})"},
       {"--microphone", wave + "@0.5"});
  EXPECT_EQ(Told("echo").size(), 1U);
  EXPECT_EQ(Value(1), "Starting Processing");
  EXPECT_EQ(Reply(2)["ok"], true);
  EXPECT_EQ(Value(3), 0);
  EXPECT_EQ(Value(4), 0);
}

TEST_F(HostNesting, The_end_of_the_input_ends_a_control_at_every_stage) {
  const std::string wave = Put_Sound("low.wav", Low_Word());
  for (int ms = 0; ms <= 3'500; ms += 50) {
    Host({R"({"do":"new"})", R"({"do":"let","member":"Speech_echo_feature","value":"YES"})",
          R"({"do":"let","member":"Consider_this_Lang_File_to_match","value":)" +
              Quoted(Path("words.SAY")) + "}",
          start, R"({"id":1,"do":"run","ms":)" + std::to_string(ms) + "}"},
         {"--microphone", wave + "@0.5"});
    EXPECT_EQ(status, 0) << ms;
    EXPECT_EQ(Reply(1)["ok"], true) << ms;
    EXPECT_TRUE(Told("failure").empty()) << ms;
  }
}

TEST_F(HostNesting, The_end_of_the_input_is_a_termination_without_a_reply) {
  Host({R"({"do":"new"})", start, R"({"id":1,"do":"run","ms":500})"});
  EXPECT_EQ(told.back().dump(), R"({"sound":{"name":"","flags":64}})");
  EXPECT_EQ(std::ranges::count_if(told, [](const Json& line) { return line.contains("ok"); }), 4);
}

TEST_F(HostNesting, A_failing_card_keeps_no_request_from_being_served) {
  for (const char* const call :
       {"wave_in_get_dev_caps", "wave_in_open", "wave_in_prepare_header", "wave_in_add_buffer",
        "wave_in_start", "wave_in_stop", "wave_in_reset", "wave_in_unprepare_header",
        "wave_in_close", "wave_out_open", "wave_out_write"}) {
    Host({R"({"do":"new"})", R"({"do":"faults",")" + std::string(call) + R"(":5})", start,
          R"({"do":"run","ms":20000})", stop, R"({"do":"run","ms":1000})",
          R"({"id":1,"do":"peek","name":"Session_Alive"})"});
    EXPECT_EQ(Value(1), 0) << call;
    EXPECT_EQ(status, 0) << call;
  }
}

TEST_F(HostNesting, The_same_lines_always_give_the_same_output) {
  const std::string wave = Put_Sound("low.wav", Low_Word());
  const Lines lines = {R"({"do":"new"})",
                       R"({"do":"let","member":"Enable_Artificial_Intelligence","value":"NO"})",
                       start, R"({"do":"run","ms":30000})"};
  Host(lines, {"--microphone", wave});
  const std::string first = out;
  Host(lines, {"--microphone", wave});
  EXPECT_EQ(out, first);
}

}  // namespace
}  // namespace quillspeech::tests
