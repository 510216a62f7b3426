#include "presentation/picture_file.hpp"

#include <gtest/gtest.h>

#include "platform/headless/riff_file.hpp"
#include "tests/presentation/picture_builder.hpp"

namespace quillspeech::tests {
namespace {

struct PictureFile : testing::Test {
  void Put(const std::string& path, const std::string& bytes) {
    files.files[path].assign(bytes.begin(), bytes.end());
  }
  headless::RiffFiles files;
};

TEST_F(PictureFile, Is_known_by_its_first_bytes) {
  const std::pair<const char*, std::string> cases[] = {
      {"bitmap", Bitmap_Bytes()},
      {"bitmap with the shortest header", Bitmap_Bytes(12)},
      {"bitmap with the longest header", Bitmap_Bytes(124)},
      {"GIF", Gif_Bytes()},
      {"older GIF", Head_Of("GIF87a", 43)},
      {"JPEG", Head_Of("\xFF\xD8\xFF\xE0", 60)},
      {"icon", Icon_Bytes()},
      {"cursor", Icon_Bytes(2)},
      {"metafile with its size", Head_Of("\xD7\xCD\xC6\x9A", 60)},
      {"enhanced metafile", Enhanced_Metafile_Bytes()}};
  for (const auto& [name, bytes] : cases) EXPECT_TRUE(Is_Picture(bytes)) << name;
}

TEST_F(PictureFile, Is_nothing_that_only_looks_a_little_like_it) {
  const std::pair<const char*, std::string> cases[] = {
      {"nothing", ""},
      {"a text", "Nothing to be seen here, but enough of it to be a picture by length."},
      {"a text that begins as a bitmap", "BMW builds cars and motor cycles, and has done so long."},
      {"a bitmap's first bytes", Bitmap_Bytes().substr(0, 25)},
      {"a bitmap with a header of no known length", Bitmap_Bytes(41)},
      {"GIF of another year", Head_Of("GIF88a", 43)},
      {"GIF cut short", Gif_Bytes().substr(0, 12)},
      {"JPEG cut short", "\xFF\xD8\xFF"},
      {"PNG, which the system's own pictures are not", Head_Of("\x89PNG\r\n\x1A\n", 60)},
      {"icon without an image", Icon_Bytes(1, 0)},
      {"icon of a third kind", Icon_Bytes(3)},
      {"zeros", std::string(100, '\0')},
      {"record of an enhanced metafile without its mark", Head_Of("\x01", 88)},
      {"sound", Head_Of("RIFF....WAVEfmt ", 100)}};
  for (const auto& [name, bytes] : cases) EXPECT_FALSE(Is_Picture(bytes)) << name;
}

TEST_F(PictureFile, Is_read_as_a_whole_and_closed) {
  std::string bytes = Bitmap_Bytes();
  bytes.resize(200'000, '\x5A');
  Put("a.bmp", bytes);
  EXPECT_EQ(Read_Picture(files, "a.bmp"), bytes);
  EXPECT_EQ(files.open_files, 0);
}

TEST_F(PictureFile, Is_nothing_when_it_cannot_be_opened_or_read_or_is_no_picture) {
  Put("a.txt", "BMW builds cars and motor cycles, and has done so long.");
  EXPECT_EQ(Read_Picture(files, "none.bmp"), std::nullopt);
  EXPECT_EQ(Read_Picture(files, "a.txt"), std::nullopt);
  Put("a.bmp", Bitmap_Bytes());
  files.failing_reads = {files.reads + 1};
  EXPECT_EQ(Read_Picture(files, "a.bmp"), std::nullopt);
  files.failing_reads = {files.reads + 2};
  EXPECT_EQ(Read_Picture(files, "a.bmp"), std::nullopt);
  EXPECT_EQ(files.open_files, 0);
}

TEST_F(PictureFile, Is_refused_beyond_the_longest) {
  std::string bytes = Bitmap_Bytes();
  bytes.resize(Longest_Picture_Bytes);
  Put("longest.bmp", bytes);
  Put("longer.bmp", bytes + '\0');
  EXPECT_TRUE(Read_Picture(files, "longest.bmp").has_value());
  EXPECT_EQ(Read_Picture(files, "longer.bmp"), std::nullopt);
}

}  // namespace
}  // namespace quillspeech::tests
