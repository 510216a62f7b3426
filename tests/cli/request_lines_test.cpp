// How bytes that come in pieces become lines.
#include "cli/request_lines.hpp"

#include <gtest/gtest.h>

#include <sstream>

namespace quillspeech::tests {
namespace {

using cli::RequestLines;

TEST(RequestLines, A_line_is_whole_once_its_end_has_come) {
  RequestLines lines;
  lines.Add("on");
  EXPECT_FALSE(lines.Next());
  lines.Add("e\ntwo\nth");
  EXPECT_EQ(lines.Next()->text, "one");
  EXPECT_EQ(lines.Next()->text, "two");
  EXPECT_FALSE(lines.Next());
}

TEST(RequestLines, What_has_no_end_is_a_line_when_no_more_comes) {
  RequestLines lines;
  lines.Add("one");
  lines.Close();
  EXPECT_EQ(lines.Next()->text, "one");
  lines.Close();
  EXPECT_FALSE(lines.Next());
}

TEST(RequestLines, A_line_may_have_so_many_bytes_and_no_more) {
  for (const std::size_t piece : {std::size_t{1'000}, RequestLines::Most_Bytes + 1}) {
    for (const std::size_t more : {std::size_t{0}, std::size_t{1}}) {
      RequestLines lines;
      const std::string text(RequestLines::Most_Bytes + more, 'x');
      for (std::size_t at = 0; at < text.size(); at += piece) lines.Add(text.substr(at, piece));
      lines.Add("\nnext\n");
      const auto line = lines.Next();
      EXPECT_EQ(line->is_too_long, more == 1);
      EXPECT_EQ(line->text.size(), more == 1 ? 0 : text.size());
      EXPECT_EQ(lines.Next()->text, "next");
    }
  }
}

TEST(RequestLines, A_stream_is_read_no_further_than_the_end_of_a_line) {
  std::istringstream in("one\ntwo\nthree");
  RequestLines lines;
  EXPECT_EQ(cli::Next_Line(in, lines)->text, "one");
  EXPECT_EQ(in.tellg(), 4);
  EXPECT_EQ(cli::Next_Line(in, lines)->text, "two");
  EXPECT_EQ(cli::Next_Line(in, lines)->text, "three");
  EXPECT_FALSE(cli::Next_Line(in, lines));
  EXPECT_FALSE(cli::Next_Line(in, lines));
}

}  // namespace
}  // namespace quillspeech::tests
