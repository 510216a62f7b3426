#include "cli/labels.hpp"

#include <gtest/gtest.h>

#include <sstream>

namespace quillspeech::cli {
namespace {

TEST(Labels, The_word_in_a_name_ends_at_the_first_underscore) {
  EXPECT_EQ(Word_In_Name("a_b/hello_3_x.wav"), "hello");
  EXPECT_EQ(Word_In_Name("good morning_1.wav"), "good morning");
}

TEST(Labels, A_name_without_an_underscore_is_the_word_without_its_extension) {
  EXPECT_EQ(Word_In_Name("sounds/hello.wav"), "hello");
  EXPECT_EQ(Word_In_Name("hello"), "hello");
}

TEST(Labels, A_tab_goes_before_a_comma_and_a_comma_before_a_blank) {
  std::istringstream in("a, b.wav\tone\nc d.wav,two\ne.wav three four\n");
  Labels labels;
  int bad_line = 0;
  ASSERT_TRUE(labels.Read(in, bad_line));
  EXPECT_EQ(labels.Find("a, b.wav"), "one");
  EXPECT_EQ(labels.Find("c d.wav"), "two");
  EXPECT_EQ(labels.Find("e.wav"), "three four");
}

TEST(Labels, A_path_is_found_by_itself_first_and_then_by_its_file_name) {
  std::istringstream in("a.wav one\nx/a.wav two\n");
  Labels labels;
  int bad_line = 0;
  ASSERT_TRUE(labels.Read(in, bad_line));
  EXPECT_EQ(labels.Find("x/a.wav"), "two");
  EXPECT_EQ(labels.Find("y/a.wav"), "one");
  EXPECT_EQ(labels.Find("b.wav"), std::nullopt);
}

TEST(Labels, A_line_without_a_word_is_named) {
  for (const auto* text : {"a.wav one\n# x\nb.wav\n", "\n\n,one\n", "\n\nb.wav,  \n"}) {
    std::istringstream in(text);
    Labels labels;
    int bad_line = 0;
    EXPECT_FALSE(labels.Read(in, bad_line));
    EXPECT_EQ(bad_line, 3);
  }
}

}  // namespace
}  // namespace quillspeech::cli
