#include "presentation/help_page.hpp"

#include <gtest/gtest.h>

#include "tests/support/test_session.hpp"

namespace quillspeech::tests {
namespace {

struct HelpPage : testing::Test, TestSession {};

TEST_F(HelpPage, Lies_in_a_folder_below_the_systems_own) {
  shell.windows_directory = "D:\\WINNT";
  Show_Help_File(session, 0);
  EXPECT_EQ(shell.opened.at(0).document, "D:\\WINNT\\Quillspeech\\help.htm");
}

TEST_F(HelpPage, Opens_in_the_name_of_the_window) {
  Show_Help_File(session, 4711);
  EXPECT_EQ(shell.opened.at(0).parent, 4711);
}

TEST_F(HelpPage, Has_a_bare_path_when_the_systems_folder_cannot_be_told) {
  shell.windows_directory.clear();
  Show_Help_File(session, 0);
  EXPECT_EQ(shell.opened.at(0).document, "\\Quillspeech\\help.htm");
}

TEST_F(HelpPage, Is_found_whatever_stands_behind_a_NUL_or_in_blanks) {
  shell.windows_directory = std::string(" C:\\WINDOWS \0rest", 17);
  Show_Help_File(session, 0);
  EXPECT_EQ(shell.opened.at(0).document, "C:\\WINDOWS\\Quillspeech\\help.htm");
}

TEST(StripAtNul, Gives_the_text_up_to_the_first_NUL) {
  EXPECT_EQ(Strip_At_Nul(std::string_view("ab\0cd\0", 6)), "ab");
  EXPECT_EQ(Strip_At_Nul(std::string_view("\0ab", 3)), "");
}

TEST(StripAtNul, Gives_all_of_a_text_that_has_none) {
  EXPECT_EQ(Strip_At_Nul("Windows "), "Windows ");
  EXPECT_EQ(Strip_At_Nul(""), "");
}

}  // namespace
}  // namespace quillspeech::tests
