// What comes in by a pipe, with and without a loop.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <io.h>

#include <array>
#include <chrono>
#include <istream>
#include <string>
#include <thread>
#include <vector>

#include "cli/interrupt_watch.hpp"
#include "cli/live_input.hpp"
#include "platform/windows/windows_api.hpp"

namespace quillspeech::tests {
namespace {

using namespace std::chrono_literals;

class Input : public testing::Test {
 protected:
  Input() { EXPECT_EQ(::_pipe(ends_.data(), 4'096, _O_BINARY), 0); }
  ~Input() override { End(); }

  int Out() const { return ends_[0]; }
  void Type(const std::string& text) const {
    const auto count = static_cast<unsigned>(text.size());
    EXPECT_EQ(::_write(ends_[1], text.data(), count), static_cast<int>(count));
  }
  void End() {
    if (ends_[1] >= 0) ::_close(ends_[1]);
    ends_[1] = -1;
  }

  // The end that is read is left open: the reading thread may still stand in it.
  std::array<int, 2> ends_{};
};

class WatchedInput : public Input {
 protected:
  WatchedInput() { Watch(); }
  void Watch() {
    input.Watch([this] {
      if (const auto bytes = input.Read()) {
        heard += *bytes;
      } else {
        has_ended = true;
        input.Unwatch();
      }
    });
  }

  cli::backend::EventLoop events;
  cli::LiveInput input{events, Out()};
  std::string heard;
  bool has_ended = false;
};

TEST_F(WatchedInput, Bytes_wake_a_loop_that_waits_for_nothing_else) {
  std::thread typist([this] {
    Type("y\r\n");
    Type("more");
    End();
  });
  while (!has_ended) events.Wait_For_Events();
  typist.join();
  EXPECT_EQ(heard, "y\r\nmore");
}

TEST_F(WatchedInput, What_comes_while_nobody_watches_waits) {
  input.Unwatch();
  Type("early");
  const auto timer = events.Make_Timer(50ms, [] {});
  timer->Enable(true);
  events.Wait_For_Events();
  EXPECT_EQ(heard, "");
  timer->Enable(false);
  Watch();
  while (heard.empty()) events.Wait_For_Events();
  EXPECT_EQ(heard, "early");
}

TEST_F(WatchedInput, Much_comes_in_order_and_whole) {
  std::string sent;
  for (int i = 0; i < 20'000; ++i) sent += std::to_string(i) + "\n";
  std::thread typist([&] {
    for (std::size_t place = 0; place < sent.size(); place += 1'000)
      Type(sent.substr(place, 1'000));
    End();
  });
  while (!has_ended) events.Wait_For_Events();
  typist.join();
  EXPECT_EQ(heard, sent);
}

TEST_F(Input, A_stream_gets_the_bytes_as_they_are) {
  const cli::InterruptWatch watch;
  cli::InterruptibleInput bytes(Out(), watch);
  std::istream in(&bytes);
  Type("one\r\ntwo\x1a\n");
  End();
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  EXPECT_EQ(lines, (std::vector<std::string>{"one\r", "two\x1a"}));
}

TEST_F(Input, A_write_of_nothing_is_not_the_end) {
  const cli::InterruptWatch watch;
  cli::InterruptibleInput bytes(Out(), watch);
  std::istream in(&bytes);
  std::thread typist([this] {
    const auto pipe = reinterpret_cast<HANDLE>(::_get_osfhandle(ends_[1]));
    DWORD count = 0;
    EXPECT_TRUE(::WriteFile(pipe, "", 0, &count, nullptr));
    Type("more\n");
    End();
  });
  std::string line;
  EXPECT_TRUE(std::getline(in, line));
  EXPECT_EQ(line, "more");
  typist.join();
}

TEST_F(Input, An_interrupt_ends_a_stream_that_waits) {
  cli::InterruptWatch watch;
  watch.Take();
  cli::InterruptibleInput bytes(Out(), watch);
  std::istream in(&bytes);
  std::thread interrupter([&] { watch.Meet_Interrupt(); });
  EXPECT_EQ(in.get(), std::istream::traits_type::eof());
  interrupter.join();
  EXPECT_TRUE(watch.Flag());
}

}  // namespace
}  // namespace quillspeech::tests
