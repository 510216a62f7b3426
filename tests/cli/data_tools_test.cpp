#include "cli/data_tools.hpp"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "cli/exit_status.hpp"
#include "cli/files.hpp"

namespace quillspeech::cli {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;

constexpr const char* Hello = R"({"kind":"language","records":[{"WordFont":"Arial",
  "words":[{"word":"hello","rating":100}],"patterns":[{"pattern":"fth*s","rating":100}]}]})";

// A folder that goes with the test.
class DataTools : public testing::Test {
 protected:
  DataTools() {
    std::string name = (fs::temp_directory_path() / "data_tools_XXXXXX").string();
    folder_ = ::mkdtemp(name.data());
  }
  ~DataTools() override { fs::remove_all(folder_); }

  std::string Path(const std::string& name) const { return (folder_ / name).string(); }
  std::string Put(const std::string& name, const std::string& content) const {
    std::ofstream(Path(name), std::ios::binary) << content;
    return Path(name);
  }
  std::string Content(const std::string& name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  std::size_t File_Count() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder_), {}));
  }

  int Dump(const std::string& file, const std::string& as = "") {
    return Dump_Data_File(file, as, out_, err_);
  }
  int Build(const std::string& json, const std::string& out) {
    return Build_Data_File(json, out, err_);
  }
  int Check(const std::string& file, const std::string& as = "") {
    return Check_Data_File(file, as, out_, err_);
  }

  fs::path folder_;
  std::ostringstream out_;
  std::ostringstream err_;
};

TEST(GuessKind, The_extension_tells_an_engine_from_a_language_file) {
  EXPECT_EQ(Guess_Kind("a.EGN", 0), DataFileKind::Engine);
  EXPECT_EQ(Guess_Kind("a.egn", 9634), DataFileKind::Engine);
  EXPECT_EQ(Guess_Kind("a.SAY", 8476), DataFileKind::Language);
  EXPECT_EQ(Guess_Kind("a.say", 8476), DataFileKind::Language);
}

TEST(GuessKind, A_SAY_file_is_a_vocabulary_when_only_that_record_length_fits) {
  EXPECT_EQ(Guess_Kind("a.SAY", 0), DataFileKind::Language);
  EXPECT_EQ(Guess_Kind("a.SAY", 9634), DataFileKind::Vocabulary);
  EXPECT_EQ(Guess_Kind("a.SAY", 9635), DataFileKind::Language);
  EXPECT_EQ(Guess_Kind("a.SAY", 8476 * 9634), DataFileKind::Language);
}

TEST(GuessKind, Another_name_tells_nothing) {
  EXPECT_EQ(Guess_Kind("a.wav", 8476), std::nullopt);
  EXPECT_EQ(Guess_Kind("say", 8476), std::nullopt);
  EXPECT_EQ(Guess_Kind("", 0), std::nullopt);
}

TEST_F(DataTools, Dump_and_build_give_the_same_bytes) {
  const std::string file = Put("a.SAY", std::string(9000, '\x9D'));
  ASSERT_EQ(Dump(file), Exit_Done);
  ASSERT_EQ(Build(Put("a.json", out_.str()), Path("b.SAY")), Exit_Done);
  EXPECT_EQ(Content("b.SAY"), Content("a.SAY"));
  EXPECT_EQ(err_.str(), "");
}

TEST_F(DataTools, A_newcomers_JSON_becomes_a_sound_language_file) {
  ASSERT_EQ(Build(Put("hello.json", Hello), Path("hello.SAY")), Exit_Done);
  EXPECT_EQ(fs::file_size(Path("hello.SAY")), 8476U);
  EXPECT_EQ(Check(Path("hello.SAY")), Exit_Done);
  EXPECT_EQ(out_.str(), "no damage\n");
}

TEST_F(DataTools, As_overrules_the_name) {
  ASSERT_EQ(Dump(Put("a.SAY", "x"), "engine"), Exit_Done);
  EXPECT_NE(out_.str().find(R"("kind": "engine")"), std::string::npos);
}

TEST_F(DataTools, A_file_of_unknown_kind_is_wrong_usage) {
  const std::string file = Put("a.bin", "x");
  EXPECT_EQ(Dump(file), Exit_Wrong_Usage);
  EXPECT_EQ(Check(file), Exit_Wrong_Usage);
  EXPECT_EQ(Dump(file, "recipe"), Exit_Wrong_Usage);
  EXPECT_EQ(out_.str(), "");
  EXPECT_NE(err_.str().find("a.bin: the name does not tell the kind"), std::string::npos);
  EXPECT_NE(err_.str().find("recipe is no kind of data file; say --as language"),
            std::string::npos);
}

TEST_F(DataTools, A_missing_file_is_an_error_in_the_systems_words) {
  EXPECT_EQ(Dump(Path("no.SAY")), Exit_File_Failed);
  EXPECT_EQ(err_.str(), "quillspeech dump: " + Path("no.SAY") + ": No such file or directory\n");
  EXPECT_EQ(Check(Path("no.SAY")), Exit_File_Failed);
  EXPECT_EQ(Build(Path("no.json"), Path("out.SAY")), Exit_File_Failed);
  EXPECT_EQ(out_.str(), "");
  EXPECT_EQ(File_Count(), 0U);
}

TEST_F(DataTools, A_directory_and_a_device_are_errors) {
  EXPECT_EQ(Dump(folder_.string(), "engine"), Exit_File_Failed);
  EXPECT_NE(err_.str().find("Is a directory"), std::string::npos);
  EXPECT_EQ(Dump("/dev/zero", "engine"), Exit_File_Failed);
  EXPECT_NE(err_.str().find("/dev/zero: is a device, not a file"), std::string::npos);
}

TEST_F(DataTools, A_file_that_may_not_be_read_is_an_error) {
  const std::string file = Put("a.SAY", "x");
  ::chmod(file.c_str(), 0);
  const uid_t user = ::geteuid();
  constexpr uid_t Nobody = 65534;
  if (user == 0) {  // who reads every file
    ASSERT_EQ(::seteuid(Nobody), 0);
  }
  const int exit_status = Dump(file);
  ASSERT_EQ(::seteuid(user), 0);
  EXPECT_EQ(exit_status, Exit_File_Failed);
  EXPECT_EQ(err_.str(), "quillspeech dump: " + file + ": Permission denied\n");
}

TEST_F(DataTools, Output_that_cannot_be_written_is_an_error) {
  const std::string file = Put("a.SAY", "x");
  out_.setstate(std::ios::badbit);
  EXPECT_EQ(Dump(file), Exit_File_Failed);
  EXPECT_EQ(err_.str(), "");  // whoever made the stream complains
}

TEST_F(DataTools, Wrong_JSON_leaves_the_data_file_as_it_was) {
  const std::string file = Put("a.SAY", "old bytes");
  const std::string json = Put("a.json", R"({"kind":"language","records":[{"words":[{"x":1}]}]})");
  EXPECT_EQ(Build(json, file), Exit_File_Failed);
  EXPECT_EQ(err_.str(), "quillspeech build: " + json +
                            ": record 1, words 1: has an unknown key \"x\"; known are word, "
                            "rating\n");
  EXPECT_EQ(Content("a.SAY"), "old bytes");
  EXPECT_EQ(Build(json, Path("new.SAY")), Exit_File_Failed);
  EXPECT_EQ(File_Count(), 2U);
}

TEST_F(DataTools, Build_replaces_a_file_and_leaves_no_other_behind) {
  const std::string file = Put("a.SAY", std::string(20'000, 'x'));
  ::chmod(file.c_str(), 0640);
  ASSERT_EQ(Build(Put("a.json", Hello), file), Exit_Done);
  EXPECT_EQ(fs::file_size(file), 8476U);
  EXPECT_EQ(fs::status(file).permissions(), fs::perms{0640});
  EXPECT_EQ(File_Count(), 2U);
}

TEST_F(DataTools, A_write_that_fails_half_way_leaves_the_old_file_and_no_other) {
  const std::string file = Put("a.SAY", "old bytes");
  const std::string json = Put("a.json", Hello);
  rlimit before{};
  ::getrlimit(RLIMIT_FSIZE, &before);
  const auto old_handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit small{8000, before.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
  const int exit_status = Build(json, file);
  ::setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, old_handler);
  EXPECT_EQ(exit_status, Exit_File_Failed);
  EXPECT_EQ(err_.str(), "quillspeech build: " + file + ": File too large\n");
  EXPECT_EQ(Content("a.SAY"), "old bytes");
  EXPECT_EQ(File_Count(), 2U);
}

TEST_F(DataTools, Build_writes_through_a_link) {
  Put("real.SAY", "old");
  fs::create_symlink("real.SAY", Path("link.SAY"));
  ASSERT_EQ(Build(Put("a.json", Hello), Path("link.SAY")), Exit_Done);
  EXPECT_TRUE(fs::is_symlink(Path("link.SAY")));
  EXPECT_EQ(fs::file_size(Path("real.SAY")), 8476U);
}

TEST_F(DataTools, A_place_that_takes_no_file_is_an_error) {
  const std::string json = Put("a.json", Hello);
  EXPECT_EQ(Build(json, Path("none/a.SAY")), Exit_File_Failed);
  EXPECT_EQ(Build(json, folder_.string()), Exit_File_Failed);
  EXPECT_EQ(Build(json, json + "/a.SAY"), Exit_File_Failed);
  EXPECT_EQ(Build(json, "/dev/full"), Exit_File_Failed);
  EXPECT_NE(err_.str().find("none/a.SAY: No such file or directory"), std::string::npos);
  EXPECT_NE(err_.str().find(": Is a directory"), std::string::npos);
  EXPECT_NE(err_.str().find("a.json/a.SAY: Not a directory"), std::string::npos);
  EXPECT_NE(err_.str().find("/dev/full: No space left on device"), std::string::npos);
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
  EXPECT_EQ(File_Count(), 1U);
}

TEST_F(DataTools, Build_does_not_overwrite_the_JSON_that_it_reads) {
  const std::string json = Put("a.json", Hello);
  fs::create_symlink("a.json", Path("b.SAY"));
  EXPECT_EQ(Build(json, json), Exit_Wrong_Usage);
  EXPECT_EQ(Build(json, Path("b.SAY")), Exit_Wrong_Usage);
  EXPECT_EQ(Content("a.json"), Hello);
}

TEST_F(DataTools, Check_names_each_damage_on_a_line_and_marks_remarks) {
  const std::string file = Put("a.json", R"({"kind":"language","records":[{"RecordNo":2,
    "words":[{"word":"hello"}],"patterns":[{}]}]})");
  ASSERT_EQ(Build(file, Path("a.SAY")), Exit_Done);
  EXPECT_EQ(Check(Path("a.SAY")), Exit_File_Failed);
  EXPECT_EQ(out_.str(),
            "record 1, RecordNo: is 2, so a write of this record lands in record 2\n"
            "remark: record 1, LikeProtocols 1: is blank, so it fits only an empty string\n");
}

TEST_F(DataTools, A_file_with_remarks_alone_has_no_damage) {
  ASSERT_EQ(Build(Put("a.json", R"({"kind":"language","records":[{"words":[{"word":"hi"}]}]})"),
                  Path("a.SAY")),
            Exit_Done);
  EXPECT_EQ(Check(Path("a.SAY")), Exit_Done);
  EXPECT_EQ(out_.str(), "remark: record 1, LikeCount: is 0, so no word is ever found\nno damage\n");
}

TEST_F(DataTools, A_file_of_no_length_known_ahead_is_read_to_its_end) {
  EXPECT_FALSE(Read_Whole_File("/proc/self/status").empty());
}

// Parses a command line as the program does.
class DataCommands : public DataTools {
 protected:
  int Run(const std::vector<std::string>& arguments) {
    CLI::App app;
    int exit_status = -1;
    std::istringstream in;
    Console console{in, out_, err_};
    Add_Data_Commands(app, console, exit_status);
    app.require_subcommand(1);
    try {
      app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::ParseError&) {
      return Exit_Wrong_Usage;
    }
    return exit_status;
  }
};

TEST_F(DataCommands, The_command_line_reaches_each_command) {
  const std::string json = Put("a.json", Hello);
  EXPECT_EQ(Run({"build", json, Path("a.SAY")}), Exit_Done);
  EXPECT_EQ(Run({"check", Path("a.SAY")}), Exit_Done);
  EXPECT_EQ(out_.str(), "no damage\n");
  EXPECT_EQ(Run({"dump", "--as", "language", Path("a.SAY")}), Exit_Done);
  EXPECT_NE(out_.str().find("fth*s"), std::string::npos);
}

TEST_F(DataCommands, Missing_names_and_unknown_kinds_are_wrong_usage) {
  EXPECT_EQ(Run({"dump"}), Exit_Wrong_Usage);
  EXPECT_EQ(Run({"build", "a.json"}), Exit_Wrong_Usage);
  EXPECT_EQ(Run({"check"}), Exit_Wrong_Usage);
  EXPECT_EQ(Run({"dump", "a.SAY", "--as", "recipe"}), Exit_Wrong_Usage);
  EXPECT_EQ(Run({"dump", "a.SAY", "b.SAY"}), Exit_Wrong_Usage);
}

}  // namespace
}  // namespace quillspeech::cli
