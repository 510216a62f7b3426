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

TEST_F(CommandLine, Help_that_cannot_be_written_is_a_failure) {
  std::istringstream in;
  std::ofstream full("/dev/full");
  std::ostringstream err_stream;
  cli::Console console{in, full, err_stream};
  EXPECT_EQ(cli::Run_Command_Line({"--help"}, console), 1);
  EXPECT_EQ(err_stream.str(), "quillspeech: the results could not be written\n");
}

TEST_F(CommandLine, A_data_command_complains_once_of_results_that_cannot_be_written) {
  const auto language = Put_Language("w.SAY", {Record().Word("low").Pattern("oa*")});
  for (const auto* command : {"dump", "check"}) {
    std::istringstream in;
    std::ofstream full("/dev/full");
    std::ostringstream err_stream;
    cli::Console console{in, full, err_stream};
    EXPECT_EQ(cli::Run_Command_Line({command, language}, console), 1);
    EXPECT_EQ(err_stream.str(), "quillspeech: the results could not be written\n") << command;
  }
}

TEST_F(CommandLine, An_unknown_command_is_named_with_the_one_that_was_meant) {
  EXPECT_EQ(Run({"recognise", "low.wav"}), 2);
  EXPECT_EQ(err,
            "quillspeech: no command is called recognise; did you mean recognize?\n"
            "Try quillspeech --help.\n");
  EXPECT_EQ(Run({"sing"}), 2);
  EXPECT_EQ(err, "quillspeech: no command is called sing\nTry quillspeech --help.\n");
}

TEST_F(CommandLine, A_sound_that_looks_like_an_option_is_told_where_to_stand) {
  for (const auto* name : {"-x.wav", "--x.WAV"}) {
    EXPECT_EQ(Run({"recognize", name}), 2);
    EXPECT_NE(err.find("stands behind --, as in: -- " + std::string(name)), std::string::npos)
        << err;
  }
  EXPECT_EQ(Run({"recognize", "--", "-x.wav"}), 1);
  EXPECT_NE(err.find("-x.wav: Sorry ! Couldn't open"), std::string::npos) << err;
}

TEST_F(CommandLine, Help_shows_no_default_as_if_it_were_typed) {
  for (const auto* command : {"recognize", "learn", "evaluate"}) {
    Run({command, "--help"});
    for (const auto* odd : {"live=", "N=", "FILE="}) {
      EXPECT_EQ(out.find(odd), std::string::npos) << command << " " << odd;
    }
  }
}

TEST_F(CommandLine, A_file_option_with_an_empty_text_is_wrong_usage) {
  const auto file = Put_Sound("low_1.wav", Low_Word());
  const auto language = Put_Language("w.SAY", {Record().Word("low").Pattern("oa*")});
  const std::vector<std::vector<std::string>> Commands = {
      {"recognize", file}, {"learn", "--word", "low", file}, {"evaluate", file}};
  for (const auto& command : Commands) {
    auto without_name = command;
    without_name.insert(without_name.begin() + 1, {"--language", ""});
    auto without_engine = command;
    without_engine.insert(without_engine.begin() + 1, {"--language", language, "--engine", ""});
    for (const auto& arguments : {without_name, without_engine}) {
      EXPECT_EQ(Run(arguments), 2) << command[0];
      EXPECT_NE(err.find("takes the name of a file, not an empty text"), std::string::npos) << err;
    }
  }
  EXPECT_EQ(Run({"recognize", "--language=", file}), 2);
  EXPECT_EQ(Run({"recognize", "--graph", "", file}), 2);
  EXPECT_EQ(Run({"evaluate", "--language", language, "--labels", "", file}), 2);
}

// The line of progress, with a clock that the test turns.
class ProgressLine : public testing::Test {
 protected:
  cli::Progress Watch(std::optional<std::size_t> total) {
    return cli::Progress(console, total, [this] { return now; });
  }

  std::istringstream in;
  std::ostringstream sink;
  cli::Console console{in, sink, sink, true, true};
  cli::Progress::Time now{};
};

using std::chrono::milliseconds;

TEST_F(ProgressLine, It_is_shown_once_the_work_has_lasted_a_second) {
  auto progress = Watch(3);
  now += milliseconds(999);
  progress.One_More();
  EXPECT_EQ(sink.str(), "");
  now += milliseconds(1);
  progress.One_More();
  EXPECT_EQ(sink.str(), "\r2 of 3 files");
}

TEST_F(ProgressLine, It_moves_ten_times_a_second_at_most) {
  auto progress = Watch(std::nullopt);
  now += milliseconds(1000);
  progress.One_More();
  now += milliseconds(99);
  progress.One_More();
  EXPECT_EQ(sink.str(), "\r1 files");
  now += milliseconds(1);
  progress.One_More();
  EXPECT_EQ(sink.str(), "\r1 files\r3 files");
}

TEST_F(ProgressLine, It_is_cleared_for_other_lines_and_comes_back_with_the_next_file) {
  auto progress = Watch(5);
  progress.Clear();
  EXPECT_EQ(sink.str(), "");
  now += milliseconds(1000);
  progress.One_More();
  progress.Clear();
  progress.Clear();
  EXPECT_EQ(sink.str(), "\r1 of 5 files\r\x1b[K");
  progress.One_More();
  EXPECT_EQ(sink.str(), "\r1 of 5 files\r\x1b[K\r2 of 5 files");
}

TEST_F(ProgressLine, The_end_of_the_work_clears_it) {
  {
    auto progress = Watch(1);
    now += milliseconds(1000);
    progress.One_More();
  }
  EXPECT_EQ(sink.str(), "\r1 of 1 files\r\x1b[K");
}

TEST_F(ProgressLine, Nobody_who_does_not_watch_is_shown_it) {
  console.err_is_terminal = false;
  auto progress = Watch(1000);
  now += milliseconds(5000);
  progress.One_More();
  EXPECT_EQ(sink.str(), "");
}

}  // namespace
}  // namespace quillspeech::tests
