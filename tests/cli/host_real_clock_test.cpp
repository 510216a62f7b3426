// A host on the real clock, fed by a pipe.
#include <unistd.h>

#include <array>
#include <chrono>
#include <sstream>
#include <utility>

#include "cli/host.hpp"
#include "tests/cli/host_fixture.hpp"

namespace quillspeech::tests {
namespace {

class HostOnRealClock : public HostTest {
 protected:
  // All requests are in the pipe, and its end, before the host begins.
  void Host(const Lines& requests) {
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    const std::string input = Input_Of(requests);
    ASSERT_EQ(::write(pipe[1], input.data(), input.size()), static_cast<ssize_t>(input.size()));
    ::close(pipe[1]);
    cli::LiveOptions options;
    options.clock = cli::ClockKind::Real;
    options.microphone.push_back({Put_Sound("still.wav", Silence(Bytes(1000))), {}});
    std::istringstream in;
    std::ostringstream out_stream;
    cli::Console console{in, out_stream, out_stream};
    status = cli::Host_Control(options, console, pipe[0]);
    ::close(pipe[0]);
    out = out_stream.str();
    told = Json_Lines();
  }
};

TEST_F(HostOnRealClock, Requests_are_served_in_order_and_the_end_of_the_input_ends_it) {
  Host({R"({"id":1,"do":"new"})", "x", R"({"id":2,"do":"get","member":"Noise_Sensitivity"})"});
  EXPECT_EQ(status, 0);
  EXPECT_EQ(Reply(1)["ok"], true);
  EXPECT_EQ(Value(2), 3);
}

TEST_F(HostOnRealClock, The_lines_behind_a_run_wait_until_its_time_has_passed) {
  const auto begun = std::chrono::steady_clock::now();
  Host({R"({"do":"new"})", R"({"do":"call","member":"Start_Real_Action"})",
        R"({"id":1,"do":"run","ms":250})", R"({"id":2,"do":"peek","name":"Recording_Active"})",
        R"({"id":3,"do":"call","member":"Stop_Real_Action"})"});
  EXPECT_GE(std::chrono::steady_clock::now() - begun, std::chrono::milliseconds(250));
  EXPECT_EQ(Value(2), 1);
  EXPECT_LT(Place_Of({{"sound", {{"name", "start.wav"}, {"flags", 1}}}}), Place_Of({{"id", 1}}));
  EXPECT_LT(Place_Of({{"id", 1}}), Place_Of({{"id", 2}}));
  EXPECT_EQ(Events(), Lines({"StartRecognitionActivity", "StopRecognitionActivity"}));
}

TEST_F(HostOnRealClock, The_end_of_the_input_ends_a_capture) {
  Host({R"({"do":"new"})", R"({"do":"call","member":"Start_Real_Action"})",
        R"({"id":1,"do":"run","ms":150})"});
  EXPECT_EQ(status, 0);
  EXPECT_EQ(Reply(1)["ok"], true);
}

TEST_F(HostOnRealClock, The_lines_behind_a_modal_window_are_served_while_it_waits) {
  Host({R"({"id":1,"do":"new"})", R"({"id":2,"do":"press","on":"Command4"})",
        R"({"id":3,"do":"windows"})", R"({"id":4,"do":"close","on":"Splash"})",
        R"({"id":5,"do":"windows"})"});
  EXPECT_EQ(Value(3)[0]["name"], "Splash");
  EXPECT_EQ(Value(5), Json::array());
  Lines order;
  for (const Json& line : told) {
    if (line.contains("id")) order.push_back(line["id"].dump());
  }
  EXPECT_EQ(order, Lines({"1", "3", "4", "2", "5"}));
}

// Closes the descriptor when that reply has been written.
class ClosingAt : public std::stringbuf {
 public:
  ClosingAt(std::string reply, int descriptor)
      : reply_(std::move(reply)), descriptor_(descriptor) {}

 private:
  int sync() override {
    if (descriptor_ >= 0 && str().find(reply_) != std::string::npos) {
      ::close(std::exchange(descriptor_, -1));
    }
    return 0;
  }
  std::string reply_;
  int descriptor_;
};

TEST_F(HostOnRealClock, They_are_served_although_no_more_lines_come) {
  std::array<int, 2> pipe{};
  ASSERT_EQ(::pipe(pipe.data()), 0);
  const std::string input = Input_Of({R"({"id":1,"do":"new"})", R"({"id":2,"do":"windows"})"});
  ASSERT_EQ(::write(pipe[1], input.data(), input.size()), static_cast<ssize_t>(input.size()));
  cli::LiveOptions options;
  options.clock = cli::ClockKind::Real;
  options.microphone.push_back({Put_Sound("still.wav", Silence(Bytes(1000))), {}});
  std::istringstream in;
  ClosingAt buffer(R"({"id":2,)", pipe[1]);
  std::ostream lines(&buffer);
  cli::Console console{in, lines, lines};
  EXPECT_EQ(cli::Host_Control(options, console, pipe[0]), 0);
  ::close(pipe[0]);
  EXPECT_LT(buffer.str().find(R"({"id":1,)"), buffer.str().find(R"({"id":2,)"));
}

TEST_F(HostOnRealClock, A_run_of_no_time_is_answered) {
  Host({R"({"id":1,"do":"run","ms":0})"});
  EXPECT_EQ(Reply(1)["ok"], true);
}

}  // namespace
}  // namespace quillspeech::tests
