#include "platform/headless/message_boxes.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace quillspeech {
namespace {

MessageBox Box(const char* text, BoxButtons buttons) {
  MessageBox box;
  box.text = text;
  box.buttons = buttons;
  return box;
}

TEST(HeadlessMessageBoxes, Questions_take_the_answers_in_turn_and_No_when_none_is_left) {
  headless::MessageBoxes boxes;
  boxes.answers = {BoxAnswer::No, BoxAnswer::Yes, BoxAnswer::Yes};
  const MessageBox question = Box("Really?", BoxButtons::YesNo);
  EXPECT_EQ(boxes.Show(question), BoxAnswer::No);
  EXPECT_EQ(boxes.Show(question), BoxAnswer::Yes);
  EXPECT_EQ(boxes.Show(Box("So it is.", BoxButtons::OK)), BoxAnswer::OK);  // uses no answer
  EXPECT_EQ(boxes.Show(question), BoxAnswer::Yes);
  EXPECT_EQ(boxes.Show(question), BoxAnswer::No);
}

TEST(HeadlessMessageBoxes, Each_box_is_kept_with_the_answer_that_it_got) {
  headless::MessageBoxes boxes;
  boxes.answers = {BoxAnswer::Yes};
  boxes.Show(Box("So it is.", BoxButtons::OK));
  boxes.Show(Box("Really?", BoxButtons::YesNo));
  ASSERT_EQ(boxes.shown.size(), 2u);
  EXPECT_EQ(boxes.shown[0].box.text, "So it is.");
  EXPECT_EQ(boxes.shown[0].answer, BoxAnswer::OK);
  EXPECT_EQ(boxes.shown[1].box.text, "Really?");
  EXPECT_EQ(boxes.shown[1].answer, BoxAnswer::Yes);
}

}  // namespace
}  // namespace quillspeech
