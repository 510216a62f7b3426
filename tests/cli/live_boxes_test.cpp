// Questions of a live session at a terminal: a pipe is the keyboard, the clock is the real one.
#include "cli/live_boxes.hpp"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace quillspeech::tests {
namespace {

using namespace std::chrono_literals;

const MessageBox Question = {"Add Word?", "Shall it be added?", BoxButtons::YesNo, BoxIcon::None};

class LiveBoxes : public testing::Test {
 protected:
  LiveBoxes() {
    EXPECT_EQ(::pipe(pipe_.data()), 0);
    console.in_is_terminal = true;
    console.interrupted = &interrupted;
    boxes.Tell = [this](const MessageBox&, BoxAnswer answer) { told.push_back(answer); };
    boxes.Ask_On(events, pipe_[0]);
  }
  ~LiveBoxes() override {
    ::close(pipe_[0]);
    End_Input();
  }

  void Type(const std::string& text) {
    EXPECT_EQ(::write(pipe_[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
  }
  void End_Input() {
    if (pipe_[1] >= 0) ::close(pipe_[1]);
    pipe_[1] = -1;
  }
  // Has it done once, at the first of its ticks.
  void Soon(std::function<void()> action) {
    timers_.push_back(nullptr);
    auto& timer = timers_.back();
    timer = events.Make_Timer(1ms, [raw = &timers_, at = timers_.size() - 1, action] {
      (*raw)[at]->Enable(false);
      action();
    });
    timer->Enable(true);
  }
  BoxAnswer Ask() { return boxes.Show(Question); }

  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  cli::Console console{in, out, err};
  std::atomic<bool> interrupted = false;
  linux::EventLoop events;
  cli::LiveBoxes boxes{console, false};
  std::vector<BoxAnswer> told;

 private:
  std::array<int, 2> pipe_{};
  std::vector<std::unique_ptr<Timer>> timers_;
};

TEST_F(LiveBoxes, A_line_answers_and_only_a_y_or_yes_is_a_yes) {
  const std::vector<std::pair<std::string, BoxAnswer>> lines = {
      {"y\n", BoxAnswer::Yes},  {"yes\n", BoxAnswer::Yes}, {" YES \n", BoxAnswer::Yes},
      {"Y\n", BoxAnswer::Yes},  {"n\n", BoxAnswer::No},    {"\n", BoxAnswer::No},
      {"yet\n", BoxAnswer::No},
  };
  for (const auto& [typed, answer] : lines) {
    Type(typed);
    EXPECT_EQ(Ask(), answer) << typed;
    EXPECT_EQ(told.back(), answer);
  }
}

TEST_F(LiveBoxes, The_question_stands_on_the_terminal_before_it_is_waited_for) {
  Soon([&] {
    EXPECT_EQ(err.str(), "Add Word?: Shall it be added? [y/N] ");
    Type("y\n");
  });
  EXPECT_EQ(Ask(), BoxAnswer::Yes);
}

TEST_F(LiveBoxes, The_timers_go_on_while_a_question_waits) {
  int ticks = 0;
  const auto timer = events.Make_Timer(1ms, [&] {
    if (++ticks == 5) Type("y\n");
  });
  timer->Enable(true);
  EXPECT_EQ(Ask(), BoxAnswer::Yes);
  EXPECT_GE(ticks, 5);
}

TEST_F(LiveBoxes, A_line_that_comes_in_parts_is_waited_for) {
  Soon([&] {
    Type("ye");
    Soon([&] { Type("s\n"); });
  });
  EXPECT_EQ(Ask(), BoxAnswer::Yes);
}

TEST_F(LiveBoxes, A_line_typed_ahead_answers_the_next_question) {
  Type("y\nn\ny\n");
  EXPECT_EQ(Ask(), BoxAnswer::Yes);
  EXPECT_EQ(Ask(), BoxAnswer::No);
  EXPECT_EQ(Ask(), BoxAnswer::Yes);
}

TEST_F(LiveBoxes, The_end_of_the_input_is_a_no_to_this_question_and_to_all_that_come) {
  Soon([&] { End_Input(); });
  EXPECT_EQ(Ask(), BoxAnswer::No);
  EXPECT_EQ(Ask(), BoxAnswer::No);
  EXPECT_TRUE(err.str().ends_with("[y/N] \n"));
}

TEST_F(LiveBoxes, A_last_line_without_an_end_counts) {
  Type("y");
  End_Input();
  EXPECT_EQ(Ask(), BoxAnswer::Yes);
}

TEST_F(LiveBoxes, An_interrupt_is_a_no) {
  Soon([&] { interrupted = true; });
  EXPECT_EQ(Ask(), BoxAnswer::No);
}

TEST_F(LiveBoxes, The_end_of_the_session_is_a_no) {
  bool is_over = false;
  boxes.Is_Over = [&] { return is_over; };
  Soon([&] { is_over = true; });
  EXPECT_EQ(Ask(), BoxAnswer::No);
}

TEST_F(LiveBoxes, Of_two_questions_the_later_gets_the_first_line) {
  BoxAnswer inner = BoxAnswer::OK;
  Soon([&] {
    Soon([&] { Type("y\nn\n"); });
    inner = Ask();
  });
  const BoxAnswer outer = Ask();
  EXPECT_EQ(inner, BoxAnswer::Yes);
  EXPECT_EQ(outer, BoxAnswer::No);
  EXPECT_EQ(told, (std::vector{BoxAnswer::Yes, BoxAnswer::No}));
}

TEST_F(LiveBoxes, After_a_question_inside_it_a_question_still_hears_what_is_typed) {
  Soon([&] {
    Type("n\n");
    EXPECT_EQ(Ask(), BoxAnswer::No);
    Soon([&] { Type("y\n"); });
  });
  EXPECT_EQ(Ask(), BoxAnswer::Yes);
}

TEST_F(LiveBoxes, What_is_typed_while_no_question_waits_is_left_for_the_next) {
  Type("y\n");
  Soon([] {});
  events.Wait_For_Events();
  events.Run_Pending_Events();
  EXPECT_EQ(Ask(), BoxAnswer::Yes);
}

TEST_F(LiveBoxes, Where_nobody_can_type_a_question_is_a_no_at_once) {
  console.in_is_terminal = false;
  EXPECT_EQ(Ask(), BoxAnswer::No);
  EXPECT_EQ(err.str(), "");
}

}  // namespace
}  // namespace quillspeech::tests
