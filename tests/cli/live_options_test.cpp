#include "cli/live_options.hpp"

#include <gtest/gtest.h>

#include "cli/live_boxes.hpp"
#include "tests/cli/command_fixture.hpp"

namespace quillspeech::cli {
namespace {

using namespace std::chrono_literals;

TEST(LiveOptions, Seconds_stand_behind_the_last_at_sign_of_a_clip) {
  struct Row {
    const char* typed;
    const char* file;
    std::optional<std::chrono::milliseconds> at;
  };
  const Row rows[] = {
      {"a.wav", "a.wav", std::nullopt},    {"a.wav@2", "a.wav", 2000ms},
      {"a@b.wav@1.25", "a@b.wav", 1250ms}, {"a@b.wav", "a@b.wav", std::nullopt},
      {"a.wav@", "a.wav@", std::nullopt},  {"a.wav@-1", "a.wav@-1", std::nullopt},
      {"@3", "@3", std::nullopt},
  };
  for (const Row& row : rows) {
    const MicrophoneClip clip = Clip_From(row.typed);
    EXPECT_EQ(clip.file, row.file) << row.typed;
    EXPECT_EQ(clip.at, row.at) << row.typed;
  }
}

BoxAnswer Answer_At_Terminal(const std::string& typed, std::string* asked = nullptr) {
  std::istringstream in(typed);
  std::ostringstream out;
  std::ostringstream err;
  Console console{in, out, err};
  console.in_is_terminal = true;
  LiveBoxes boxes(console, false);
  boxes.Tell = [](const MessageBox&, BoxAnswer) {};
  const BoxAnswer answer = boxes.Show({"Title", "Add it? ", BoxButtons::YesNo, BoxIcon::None});
  if (asked) *asked = err.str();
  return answer;
}

TEST(LiveBoxes, At_a_terminal_a_question_is_asked_and_anything_but_yes_is_no) {
  std::string asked;
  EXPECT_EQ(Answer_At_Terminal("y\n", &asked), BoxAnswer::Yes);
  EXPECT_EQ(asked, "Title: Add it? [y/N] ");
  EXPECT_EQ(Answer_At_Terminal(" YES \n"), BoxAnswer::Yes);
  EXPECT_EQ(Answer_At_Terminal("n\n"), BoxAnswer::No);
  EXPECT_EQ(Answer_At_Terminal("\n"), BoxAnswer::No);
  EXPECT_EQ(Answer_At_Terminal(""), BoxAnswer::No);
}

}  // namespace
}  // namespace quillspeech::cli
