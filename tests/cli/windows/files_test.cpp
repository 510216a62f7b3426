// Whole files on Windows, under names as they are typed.
#include "cli/files.hpp"

#include <gtest/gtest.h>

#include <array>

#include "cli/backend.hpp"
#include "tests/support/temporary_folder.hpp"

namespace quillspeech::tests {
namespace {

using Bytes = std::vector<std::uint8_t>;

class Files : public testing::Test, protected TemporaryFolder {
 protected:
  std::size_t Count() const {
    return static_cast<std::size_t>(
        std::distance(std::filesystem::directory_iterator(Folder()), {}));
  }
};

TEST_F(Files, Every_byte_comes_back_as_it_was_written) {
  Bytes bytes;
  for (int i = 0; i < 100'000; ++i) bytes.push_back(static_cast<std::uint8_t>(i * 7 % 256));
  cli::Write_Whole_File(Path("all"), bytes);
  EXPECT_EQ(cli::Read_Whole_File(Path("all")), bytes);
  EXPECT_EQ(Content("all"), bytes);
  cli::Write_Whole_File(Path("none"), {});
  EXPECT_EQ(cli::Read_Whole_File(Path("none")), Bytes());
}

TEST_F(Files, A_file_is_replaced_as_a_whole_and_nothing_is_left_beside_it) {
  cli::Write_Whole_File(Path("words"), Bytes(5'000, 1));
  cli::Write_Whole_File(Path("words"), Bytes(10, 2));
  EXPECT_EQ(Content("words"), Bytes(10, 2));
  EXPECT_EQ(Count(), 1U);
}

TEST_F(Files, A_typed_name_is_utf8_and_one_of_a_record_windows_1252) {
  const std::string typed = "h\xc3\xb6hle.SAY";
  const std::string recorded = "h\xf6hle.SAY";
  cli::Write_Whole_File(Path("") + typed, Bytes(3, 7));
  EXPECT_TRUE(std::filesystem::exists(Folder() / L"h\u00f6hle.SAY"));
  for (const std::string& name : {typed, recorded}) {
    EXPECT_TRUE(cli::File_Exists(Path("") + name));
    EXPECT_EQ(cli::Read_Whole_File(Path("") + name), Bytes(3, 7));
    EXPECT_EQ(cli::backend::DataFileStore().Open(Path("") + name)->Length(), 3);
    EXPECT_NE(cli::backend::RiffFiles().Open(Path("") + name), nullptr);
  }
  EXPECT_TRUE(cli::Is_Same_File(Path("") + typed, Path("") + recorded));
}

TEST_F(Files, A_name_may_have_characters_of_any_language) {
  const std::string typed = Path("") + "\xe6\x97\xa5\xe6\x9c\xac.wav";
  cli::Write_Whole_File(typed, Bytes(4, 9));
  EXPECT_EQ(cli::Read_Whole_File(typed), Bytes(4, 9));
  EXPECT_EQ(cli::backend::DataFileStore().Open(typed)->Length(), 4);
  EXPECT_NE(cli::backend::RiffFiles().Open(typed), nullptr);
}

TEST_F(Files, What_cannot_be_read_says_why_in_the_words_of_every_system) {
  const auto reason = [this](const std::string& name) -> std::string {
    try {
      cli::Read_Whole_File(name);
    } catch (const cli::FileError& error) {
      return std::string(error.what()).substr(name.size());
    }
    return "read";
  };
  EXPECT_EQ(reason(Path("none")), ": No such file or directory");
  EXPECT_EQ(reason(Path("no folder/none")), ": No such file or directory");
  EXPECT_EQ(reason(Folder().string()), ": Is a directory");
  EXPECT_EQ(reason("NUL"), ": is a device, not a file");
}

TEST_F(Files, A_folder_is_not_written_over) {
  EXPECT_THROW(cli::Write_Whole_File(Folder().string(), Bytes(1, 1)), cli::FileError);
  EXPECT_THROW(cli::Write_Whole_File(Path("no folder/file"), Bytes(1, 1)), cli::FileError);
  EXPECT_EQ(Count(), 0U);
}

TEST_F(Files, Two_files_are_not_the_same_and_what_is_not_there_is_none) {
  Put("one", {1});
  Put("two", {1});
  EXPECT_FALSE(cli::Is_Same_File(Path("one"), Path("two")));
  EXPECT_FALSE(cli::Is_Same_File(Path("one"), Path("three")));
  EXPECT_FALSE(cli::File_Exists(Path("three")));
  EXPECT_FALSE(cli::File_Exists(""));
}

}  // namespace
}  // namespace quillspeech::tests
