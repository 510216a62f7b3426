#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <string>
#include <thread>

#include "platform/linux/event_loop.hpp"
#include "tests/linux/event_loop_fixture.hpp"

namespace quillspeech {
namespace {

using namespace std::chrono_literals;
using linux::EventLoop;
using tests::Never;

class Pipe {
 public:
  Pipe() { EXPECT_EQ(::pipe2(ends_.data(), O_CLOEXEC | O_NONBLOCK), 0); }
  ~Pipe() {
    ::close(ends_[0]);
    Close_Writing();
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;

  int Descriptor() const { return ends_[0]; }
  void Write(const std::string& text) const {
    EXPECT_EQ(::write(ends_[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
  }
  // What there is to read; empty at the end, and nothing to read is a failure.
  std::string Read() const {
    std::array<char, 64> buffer{};
    const auto got = ::read(ends_[0], buffer.data(), buffer.size());
    EXPECT_GE(got, 0);
    return std::string(buffer.data(), got > 0 ? static_cast<std::size_t>(got) : 0);
  }
  void Close_Writing() {
    if (ends_[1] >= 0) ::close(ends_[1]);
    ends_[1] = -1;
  }

 private:
  std::array<int, 2> ends_{-1, -1};
};

TEST(Descriptors, A_wait_ends_when_a_watched_pipe_becomes_readable) {
  EventLoop events;
  const auto never = Never(events);
  const Pipe pipe;
  std::string heard;
  events.Watch(pipe.Descriptor(), [&] { heard += pipe.Read(); });
  std::thread other([&] { pipe.Write("hello"); });
  while (heard.empty()) events.Wait_For_Events();
  other.join();
  EXPECT_EQ(heard, "hello");
  events.Unwatch(pipe.Descriptor());
}

TEST(Descriptors, The_handler_runs_at_a_yield_too_which_waits_for_nothing) {
  EventLoop events;
  const Pipe pipe;
  std::string heard;
  events.Watch(pipe.Descriptor(), [&] { heard += pipe.Read(); });
  events.Run_Pending_Events();
  EXPECT_EQ(heard, "");
  pipe.Write("x");
  while (heard.empty()) events.Run_Pending_Events();
  EXPECT_EQ(heard, "x");
}

TEST(Descriptors, A_pipe_that_is_readable_already_is_served_at_the_very_next_yield) {
  EventLoop events;
  const Pipe pipe;
  int runs = 0;
  pipe.Write("x");
  events.Watch(pipe.Descriptor(), [&] { ++runs; });
  events.Run_Pending_Events();
  EXPECT_EQ(runs, 1);
}

TEST(Descriptors, The_end_of_a_pipe_is_something_to_say) {
  EventLoop events;
  const auto never = Never(events);
  Pipe pipe;
  bool has_ended = false;
  events.Watch(pipe.Descriptor(), [&] {
    has_ended = pipe.Read().empty();
    events.Unwatch(pipe.Descriptor());
  });
  pipe.Close_Writing();
  events.Wait_For_Events();
  EXPECT_TRUE(has_ended);
}

TEST(Descriptors, What_is_not_watched_any_more_is_not_served) {
  EventLoop events;
  const Pipe first;
  const Pipe second;
  int runs = 0;
  const auto unwatch_both = [&] {
    ++runs;
    events.Unwatch(first.Descriptor());
    events.Unwatch(second.Descriptor());
  };
  events.Watch(first.Descriptor(), unwatch_both);
  events.Watch(second.Descriptor(), unwatch_both);
  first.Write("x");
  second.Write("x");
  events.Wait_For_Events();
  EXPECT_EQ(runs, 1);
}

TEST(Descriptors, A_second_handler_takes_the_place_of_the_first) {
  EventLoop events;
  const Pipe pipe;
  int runs = 0;
  events.Watch(pipe.Descriptor(), [] { FAIL(); });
  events.Watch(pipe.Descriptor(), [&] { ++runs; });
  pipe.Write("x");
  events.Wait_For_Events();
  EXPECT_EQ(runs, 1);
}

TEST(Descriptors, A_handler_that_waits_lets_the_others_be_served_and_none_twice_for_one_thing) {
  EventLoop events;
  const auto never = Never(events);
  const Pipe first;
  const Pipe second;
  std::string log;
  // Whichever is served first waits until both have been; an empty pipe would fail the read.
  const auto serve = [&](const Pipe& pipe) {
    log += pipe.Read();
    while (log.size() < 2) events.Wait_For_Events();
  };
  events.Watch(first.Descriptor(), [&] { serve(first); });
  events.Watch(second.Descriptor(), [&] { serve(second); });
  first.Write("a");
  second.Write("b");
  events.Wait_For_Events();
  EXPECT_EQ(log, "ab");
}

TEST(Descriptors, A_nested_wait_serves_the_same_descriptor_again) {
  EventLoop events;
  const auto never = Never(events);
  const Pipe pipe;
  std::string log;
  events.Watch(pipe.Descriptor(), [&] {
    log += '(' + pipe.Read();
    if (log == "(a") {
      pipe.Write("b");
      events.Wait_For_Events();
    }
    log += ')';
  });
  pipe.Write("a");
  events.Wait_For_Events();
  EXPECT_EQ(log, "(a(b))");
}

TEST(Descriptors, One_that_was_closed_unawares_does_not_end_waits) {
  EventLoop events;
  int ticks = 0;
  const auto timer = events.Make_Timer(20ms, [&] { ++ticks; });
  {
    const Pipe pipe;
    events.Watch(pipe.Descriptor(), [] { FAIL(); });
  }
  timer->Enable(true);
  int waits = 0;
  for (; ticks == 0; ++waits) events.Wait_For_Events();
  EXPECT_LE(waits, 2);
}

}  // namespace
}  // namespace quillspeech
