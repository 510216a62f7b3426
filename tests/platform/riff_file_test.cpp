#include "platform/riff_file.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/headless/riff_file.hpp"
#include "platform/riff_walk.hpp"
#include "tests/support/riff_file_contract.hpp"
#include "tests/support/wave_builder.hpp"

namespace quillspeech::tests {
namespace {

using FileBytes = std::vector<std::uint8_t>;

struct InMemory {
  headless::RiffFiles files;

  std::unique_ptr<RiffFile> Open(const FileBytes& content) {
    files.files["a.wav"] = content;
    return files.Open("a.wav");
  }
};
INSTANTIATE_TYPED_TEST_SUITE_P(InMemory, RiffFileContract, InMemory);

struct RiffFileTest : testing::Test, InMemory {};

TEST(FourCharacters, Lie_in_the_order_of_the_text) {
  EXPECT_EQ(Four_Characters("RIFF"), 0x46464952u);
}

TEST_F(RiffFileTest, A_path_without_a_file_gives_null) {
  EXPECT_EQ(files.Open("none.wav"), nullptr);
}

TEST_F(RiffFileTest, Reads_and_ascents_fail_on_demand) {
  files.failing_reads = {2};
  const auto file = Open(Wave().Data(Text("abcd")));
  const auto riff = file->Descend_To_Form(Wave_Form);
  const auto data = file->Descend_To_Chunk(Data_Chunk, *riff);
  std::array<std::uint8_t, 2> bytes{};
  EXPECT_EQ(file->Read(bytes.data(), 2), 2);
  EXPECT_EQ(file->Read(bytes.data(), 2), -1);
  EXPECT_EQ(file->Read(bytes.data(), 2), 2);
  EXPECT_EQ(bytes[0], 'c');
  EXPECT_TRUE(file->Ascend(*data));
  files.ascends_fail = true;
  EXPECT_FALSE(file->Ascend(*data));
}

TEST_F(RiffFileTest, Open_files_are_counted_until_they_close) {
  auto file = Open(Wave().Data({}));
  EXPECT_EQ(files.open_files, 1);
  file.reset();
  EXPECT_EQ(files.open_files, 0);
  EXPECT_EQ(files.opens, 1);
}

// A source of many gigabytes: zeros, with a few short pieces at their places.
class Vast final : public ByteSource {
 public:
  explicit Vast(std::map<std::int64_t, FileBytes> pieces) : pieces_(std::move(pieces)) {}

  std::int64_t Read_At(std::int64_t offset, std::uint8_t* bytes, std::int64_t count) override {
    std::fill_n(bytes, count, std::uint8_t{0});
    for (const auto& [place, piece] : pieces_) {
      for (std::size_t i = 0; i < piece.size(); ++i) {
        const std::int64_t at = place + static_cast<std::int64_t>(i) - offset;
        if (at >= 0 && at < count) bytes[at] = piece[i];
      }
    }
    return count;
  }

 private:
  std::map<std::int64_t, FileBytes> pieces_;
};

TEST(RiffWalk, A_chunk_just_below_four_gigabytes_is_found) {
  // The "data" header begins at 0xFFFFFFF0, so its data is at 0xFFFFFFF8.
  RiffWalk walk(std::make_unique<Vast>(std::map<std::int64_t, FileBytes>{
      {0, Wave().Without_Format().Chunk("junk", {}).Claiming(0xFFFFFFDC).Riff_Claiming(0xFFFFFFFF)},
      {0xFFFFFFF0, Joined(Text("data"), {2, 0, 0, 0, 'h', 'i'})}}));
  const auto riff = walk.Descend_To_Form(Wave_Form);
  ASSERT_TRUE(riff);
  const auto data = walk.Descend_To_Chunk(Data_Chunk, *riff);
  ASSERT_TRUE(data);
  EXPECT_EQ(data->data_offset, 0xFFFFFFF8u);
  EXPECT_EQ(Next_Bytes(walk, 2), "hi");
  EXPECT_TRUE(walk.Ascend(*data));
}

TEST(RiffWalk, A_chunk_whose_data_would_begin_at_four_gigabytes_is_none) {
  RiffWalk walk(std::make_unique<Vast>(std::map<std::int64_t, FileBytes>{
      {0, Wave().Without_Format().Chunk("junk", {}).Claiming(0xFFFFFFE4).Riff_Claiming(0xFFFFFFFF)},
      {0xFFFFFFF8, Joined(Text("data"), {2, 0, 0, 0, 'h', 'i'})}}));
  const auto riff = walk.Descend_To_Form(Wave_Form);
  ASSERT_TRUE(riff);
  EXPECT_FALSE(walk.Descend_To_Chunk(Data_Chunk, *riff));
}

TEST(RiffWalk, A_chunk_beyond_four_gigabytes_is_none_and_does_not_wrap) {
  // The "junk" chunk ends at 2^32, where zeros follow; wrapped, that would be the start again.
  RiffWalk walk(std::make_unique<Vast>(std::map<std::int64_t, FileBytes>{
      {0, Wave().Without_Format().Chunk("junk", {}).Claiming(0xFFFFFFEC).Riff_Claiming(0xFFFFFFFF)},
      {std::int64_t{1} << 32, Joined(Text("data"), {2, 0, 0, 0, 'h', 'i'})}}));
  const auto riff = walk.Descend_To_Form(Wave_Form);
  ASSERT_TRUE(riff);
  EXPECT_FALSE(walk.Descend_To_Chunk(Data_Chunk, *riff));
  EXPECT_TRUE(walk.Ascend(*riff));
  EXPECT_FALSE(walk.Descend_To_Form(Wave_Form));
}

// A source on which every read fails.
class Broken final : public ByteSource {
 public:
  std::int64_t Read_At(std::int64_t, std::uint8_t*, std::int64_t) override { return -1; }
};

TEST(RiffWalk, A_source_that_cannot_be_read_has_no_chunks) {
  RiffWalk walk(std::make_unique<Broken>());
  std::uint8_t byte = 0;
  EXPECT_FALSE(walk.Descend_To_Form(Wave_Form));
  EXPECT_FALSE(walk.Descend_To_Chunk(Data_Chunk, RiffChunk{0, 100, 0, 0, 0}));
  EXPECT_EQ(walk.Read(&byte, 1), -1);
}

// A source of the letters "abcdef" whose second read fails.
class Moody final : public ByteSource {
 public:
  std::int64_t Read_At(std::int64_t offset, std::uint8_t* bytes, std::int64_t count) override {
    if (++reads_ == 2) return -1;
    for (std::int64_t i = 0; i < count; ++i) bytes[i] = static_cast<std::uint8_t>('a' + offset + i);
    return count;
  }

 private:
  int reads_ = 0;
};

TEST(RiffWalk, A_read_that_fails_does_not_move_the_position) {
  RiffWalk walk(std::make_unique<Moody>());
  EXPECT_EQ(Next_Bytes(walk, 2), "ab");
  std::uint8_t byte = 0;
  EXPECT_EQ(walk.Read(&byte, 1), -1);
  EXPECT_EQ(Next_Bytes(walk, 2), "cd");
}

}  // namespace
}  // namespace quillspeech::tests
