// A scripted host whose output fails.
#include <unistd.h>

#include <array>
#include <fstream>

#include "cli/host.hpp"
#include "tests/cli/host_fixture.hpp"

namespace quillspeech::tests {
namespace {

using HostOutput = HostTest;

TEST_F(HostOutput, Lost_replies_end_the_host_with_a_failure_and_leave_the_rest_unread) {
  std::istringstream in("{\"do\":\"new\"}\n{\"do\":\"run\",\"ms\":86400000}\n");
  std::ofstream full("/dev/full");
  std::ostringstream err_stream;
  cli::Console console{in, full, err_stream};
  EXPECT_EQ(cli::Run_Command_Line({"host"}, console), 1);
  EXPECT_EQ(err_stream.str(), "quillspeech: the results could not be written\n");
  std::string unread;
  std::getline(in, unread);
  EXPECT_EQ(unread, R"({"do":"run","ms":86400000})");
}

TEST_F(HostOutput, An_output_that_fails_in_the_midst_of_a_run_ends_the_run) {
  // Takes so many bytes and no more.
  struct Narrow : std::stringbuf {
    std::streamsize xsputn(const char* text, std::streamsize count) override {
      room -= count;
      return room < 0 ? 0 : std::stringbuf::xsputn(text, count);
    }
    std::streamsize room = 2'000;
  };
  Narrow buffer;
  std::ostream out_stream(&buffer);
  std::istringstream in(
      "{\"do\":\"new\"}\n{\"do\":\"call\",\"member\":\"Start_Real_Action\"}\n"
      "{\"do\":\"run\",\"ms\":86400000}\n{\"do\":\"save\"}\n");
  std::ostringstream err_stream;
  cli::Console console{in, out_stream, err_stream};
  EXPECT_EQ(cli::Run_Command_Line({"host"}, console), 1);
  std::string unread;
  std::getline(in, unread);
  EXPECT_EQ(unread, R"({"do":"save"})");
}

TEST_F(HostOutput, On_the_real_clock_the_host_ends_though_its_input_stays_open) {
  std::array<int, 2> pipe{};
  ASSERT_EQ(::pipe(pipe.data()), 0);
  const std::string input = "{\"do\":\"new\"}\n{\"do\":\"run\",\"ms\":86400000}\n";
  ASSERT_EQ(::write(pipe[1], input.data(), input.size()), static_cast<ssize_t>(input.size()));
  cli::LiveOptions options;
  options.clock = cli::ClockKind::Real;
  options.microphone.push_back({Put_Sound("still.wav", Silence(Bytes(1000))), {}});
  std::istringstream in;
  std::ofstream full("/dev/full");
  cli::Console console{in, full, full};
  EXPECT_EQ(cli::Host_Control(options, console, pipe[0]), 1);
  ::close(pipe[0]);
  ::close(pipe[1]);
}

}  // namespace
}  // namespace quillspeech::tests
