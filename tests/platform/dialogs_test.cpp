#include "platform/headless/dialogs.hpp"

#include <gtest/gtest.h>

namespace quillspeech::tests {
namespace {

TEST(HeadlessDialogs, Each_takes_the_next_of_its_answers_and_is_then_cancelled) {
  headless::Dialogs dialogs;
  dialogs.texts = {"one", "two"};
  dialogs.files = {"a.SAY"};
  EXPECT_EQ(dialogs.Ask_Text({}), "one");
  EXPECT_EQ(dialogs.Ask_File({}), "a.SAY");
  EXPECT_EQ(dialogs.Ask_Text({}), "two");
  EXPECT_EQ(dialogs.Ask_Text({}), "");
  EXPECT_EQ(dialogs.Ask_File({}), "");
}

TEST(HeadlessDialogs, What_was_asked_is_kept) {
  headless::Dialogs dialogs;
  dialogs.Ask_Text({"Open:", "Which file?", "old.SAY"});
  dialogs.Ask_File({"Open", "*.SAY", ""});
  ASSERT_EQ(dialogs.shown_boxes.size(), 1U);
  EXPECT_EQ(dialogs.shown_boxes[0].prompt, "Which file?");
  EXPECT_EQ(dialogs.shown_boxes[0].text, "old.SAY");
  ASSERT_EQ(dialogs.shown_dialogs.size(), 1U);
  EXPECT_EQ(dialogs.shown_dialogs[0].pattern, "*.SAY");
}

}  // namespace
}  // namespace quillspeech::tests
