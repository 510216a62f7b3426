#include "cli/command_line.hpp"

#include <set>

#include "cli/progress.hpp"
#include "cli/report_text.hpp"
#include "tests/cli/command_fixture.hpp"

namespace quillspeech::tests {
namespace {

class CommandLine : public CommandTest {};

TEST_F(CommandLine, The_version_is_told) {
  EXPECT_EQ(Run({"--version"}), 0);
  EXPECT_TRUE(out.starts_with("quillspeech "));
  EXPECT_TRUE(out.ends_with("\n"));
  EXPECT_EQ(err, "");
}

TEST_F(CommandLine, Help_names_every_command) {
  EXPECT_EQ(Run({"--help"}), 0);
  for (const auto* command : {"recognize", "learn", "evaluate", "dump", "build", "check"}) {
    EXPECT_NE(out.find(command), std::string::npos) << command;
  }
  EXPECT_EQ(err, "");
}

TEST_F(CommandLine, Every_command_has_a_help_of_its_own) {
  std::set<std::string> texts;
  for (const auto* command : {"recognize", "learn", "evaluate", "dump", "build", "check"}) {
    EXPECT_EQ(Run({command, "--help"}), 0) << command;
    EXPECT_NE(out.find("Usage: quillspeech " + std::string(command)), std::string::npos) << out;
    texts.insert(out);
  }
  EXPECT_EQ(texts.size(), 6U);
}

TEST_F(CommandLine, The_man_page_names_every_option_that_help_names) {
  const std::string source(__FILE__);
  const auto root = source.substr(0, source.rfind("tests/cli/"));
  std::ifstream page(root + "docs/quillspeech.1");
  const std::string text((std::istreambuf_iterator<char>(page)), {});
  ASSERT_FALSE(text.empty());
  for (const auto* command : {"recognize", "learn", "evaluate", "dump", "build", "check"}) {
    Run({command, "--help"});
    std::istringstream words(out);
    for (std::string word; words >> word;) {
      if (!word.starts_with("  --") && !word.starts_with("--")) continue;
      std::string option = "\\-\\-" + word.substr(2, word.find_first_of(",.)", 2) - 2);
      if (const auto dash = option.find('-', 4); dash != std::string::npos) {
        option.replace(dash, 1, "\\-");
      }
      EXPECT_NE(text.find(option), std::string::npos) << command << " " << word;
    }
  }
}

TEST_F(CommandLine, Results_that_cannot_be_written_are_a_failure) {
  std::istringstream in;
  std::ostringstream out_stream;
  std::ostringstream err_stream;
  out_stream.setstate(std::ios::badbit);
  cli::Console console{in, out_stream, err_stream};
  EXPECT_EQ(cli::Run_Command_Line({"recognize", Put_Sound("low.wav", Low_Word())}, console), 1);
  EXPECT_NE(err_stream.str().find("could not be written"), std::string::npos);
}

TEST_F(CommandLine, Text_is_padded_by_characters_and_not_by_bytes) {
  EXPECT_EQ(cli::Padded("gr\xC3\xBC\xC3\x9F", 6), "gr\xC3\xBC\xC3\x9F  ");
  EXPECT_EQ(cli::Padded("hello", 3), "hello");
}

TEST_F(CommandLine, A_few_files_need_no_progress) {
  std::istringstream in;
  std::ostringstream sink;
  cli::Console console{in, sink, sink};
  console.err_is_terminal = true;
  cli::Progress progress(console, 3);
  for (int i = 0; i < 3; ++i) progress.One_More();
  EXPECT_EQ(sink.str(), "");
}

TEST_F(CommandLine, Nobody_who_does_not_watch_is_shown_progress) {
  std::istringstream in;
  std::ostringstream sink;
  cli::Console console{in, sink, sink};
  cli::Progress progress(console, 1000);
  for (int i = 0; i < 1000; ++i) progress.One_More();
  EXPECT_EQ(sink.str(), "");
}

}  // namespace
}  // namespace quillspeech::tests
