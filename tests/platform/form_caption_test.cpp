#include "platform/form_caption.hpp"

#include <gtest/gtest.h>

namespace quillspeech {
namespace {

TEST(FormCaptions, Every_ampersand_of_a_text_is_two_in_its_caption) {
  EXPECT_EQ(As_Caption("R&D && more"), "R&&D &&&& more");
  EXPECT_EQ(As_Caption("plain"), "plain");
}

TEST(FormCaptions, A_caption_shows_the_text_that_it_was_made_of) {
  for (const char* const text : {"", "&", "R&D", "&&", "a&&&b"}) {
    EXPECT_EQ(Text_Of_Caption(As_Caption(text)), text);
  }
}

TEST(FormCaptions, A_single_ampersand_stays) { EXPECT_EQ(Text_Of_Caption("&File"), "&File"); }

}  // namespace
}  // namespace quillspeech
