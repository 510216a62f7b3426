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
#include "tests/support/wave_builder.hpp"

namespace quillspeech {
namespace {

using tests::Wave;
using FileBytes = std::vector<std::uint8_t>;

constexpr std::uint32_t Wave_Form = Four_Characters("WAVE");
constexpr std::uint32_t Data = Four_Characters("data");
constexpr std::uint32_t Format = Four_Characters("fmt ");

struct RiffFileTest : testing::Test {
  headless::RiffFiles files;

  std::unique_ptr<RiffFile> Open(const FileBytes& content) {
    files.files["a.wav"] = content;
    return files.Open("a.wav");
  }
};

FileBytes Text(const std::string& text) { return FileBytes(text.begin(), text.end()); }

FileBytes Joined(FileBytes first, const FileBytes& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

std::string Next_Bytes(RiffFile& file, std::int64_t count) {
  std::string text(static_cast<std::size_t>(count), '\0');
  const auto got = file.Read(reinterpret_cast<std::uint8_t*>(text.data()), count);
  text.resize(static_cast<std::size_t>(std::max<std::int64_t>(got, 0)));
  return text;
}

TEST(FourCharacters, Lie_in_the_order_of_the_text) {
  EXPECT_EQ(Four_Characters("RIFF"), 0x46464952u);
}

TEST_F(RiffFileTest, A_path_without_a_file_gives_null) {
  EXPECT_EQ(files.Open("none.wav"), nullptr);
}

TEST_F(RiffFileTest, The_form_is_found_and_reading_goes_on_behind_its_type) {
  const auto file = Open(Wave().Data(Text("abcd")));
  const auto riff = file->Descend_To_Form(Wave_Form);
  ASSERT_TRUE(riff);
  EXPECT_EQ(riff->identifier, Four_Characters("RIFF"));
  EXPECT_EQ(riff->size, 4u + 24u + 12u);
  EXPECT_EQ(riff->form_type, Wave_Form);
  EXPECT_EQ(riff->data_offset, 8u);
  EXPECT_EQ(riff->flags, 0u);
  EXPECT_EQ(Next_Bytes(*file, 4), "fmt ");
}

TEST_F(RiffFileTest, A_chunk_is_found_and_reading_goes_on_at_its_data) {
  const auto file = Open(Wave().Data(Text("abcd")));
  const auto riff = file->Descend_To_Form(Wave_Form);
  const auto data = file->Descend_To_Chunk(Data, *riff);
  ASSERT_TRUE(data);
  EXPECT_EQ(data->identifier, Data);
  EXPECT_EQ(data->size, 4u);
  EXPECT_EQ(data->form_type, 0u);
  EXPECT_EQ(data->data_offset, 12u + 24u + 8u);
  EXPECT_EQ(Next_Bytes(*file, 4), "abcd");
}

TEST_F(RiffFileTest, Chunks_of_other_names_are_skipped_with_their_pad_byte) {
  const auto file =
      Open(Wave().Chunk("LIST", Text("odd")).Chunk("fact", Text("even")).Data(Text("abcd")));
  const auto riff = file->Descend_To_Form(Wave_Form);
  const auto data = file->Descend_To_Chunk(Data, *riff);
  ASSERT_TRUE(data);
  EXPECT_EQ(data->data_offset, 12u + 24u + 12u + 12u + 8u);
  EXPECT_EQ(Next_Bytes(*file, 4), "abcd");
}

TEST_F(RiffFileTest, The_search_begins_at_the_position_and_never_goes_back) {
  const auto file = Open(Wave().Data(Text("abcd")).Format());
  const auto riff = file->Descend_To_Form(Wave_Form);
  const auto format = file->Descend_To_Chunk(Format, *riff);
  ASSERT_TRUE(format);
  ASSERT_TRUE(file->Ascend(*format));
  EXPECT_FALSE(file->Descend_To_Chunk(Data, *riff));
}

TEST_F(RiffFileTest, Ascending_goes_behind_an_odd_chunk_and_its_pad_byte) {
  const auto file = Open(Wave().Chunk("odd ", Text("abc")).Data(Text("xy")));
  const auto riff = file->Descend_To_Form(Wave_Form);
  const auto odd = file->Descend_To_Chunk(Four_Characters("odd "), *riff);
  ASSERT_TRUE(odd);
  EXPECT_EQ(odd->size, 3u);
  ASSERT_TRUE(file->Ascend(*odd));
  EXPECT_EQ(Next_Bytes(*file, 4), "data");
}

TEST_F(RiffFileTest, A_form_of_another_type_is_skipped) {
  const auto file = Open(Joined(Wave().Form("AVI ").Data(Text("no")), Wave().Data(Text("yes!"))));
  const auto riff = file->Descend_To_Form(Wave_Form);
  ASSERT_TRUE(riff);
  const auto data = file->Descend_To_Chunk(Data, *riff);
  ASSERT_TRUE(data);
  EXPECT_EQ(Next_Bytes(*file, 4), "yes!");
}

TEST_F(RiffFileTest, Chunks_in_front_of_the_form_are_skipped) {
  FileBytes other = Text("junk");
  other.insert(other.end(), {3, 0, 0, 0, 'a', 'b', 'c', 0});
  const auto file = Open(Joined(other, Wave().Data(Text("abcd"))));
  const auto riff = file->Descend_To_Form(Wave_Form);
  ASSERT_TRUE(riff);
  EXPECT_EQ(riff->data_offset, 20u);
}

TEST_F(RiffFileTest, A_file_without_the_form_has_none) {
  EXPECT_FALSE(Open({})->Descend_To_Form(Wave_Form));
  EXPECT_FALSE(Open(Text("This is a letter and no sound at all."))->Descend_To_Form(Wave_Form));
  EXPECT_FALSE(Open(Wave().Form("AVI ").Data({}))->Descend_To_Form(Wave_Form));
  EXPECT_FALSE(Open(FileBytes(100'000, 0))->Descend_To_Form(Wave_Form));
}

TEST_F(RiffFileTest, A_header_that_is_cut_off_is_none) {
  for (int length = 0; length < 12; ++length) {
    SCOPED_TRACE(length);
    EXPECT_FALSE(Open(Wave().Data({}).Cut_To(length))->Descend_To_Form(Wave_Form));
  }
  for (int length = 12; length < 20; ++length) {
    SCOPED_TRACE(length);
    const auto file = Open(Wave().Data({}).Cut_To(length));
    const auto riff = file->Descend_To_Form(Wave_Form);
    ASSERT_TRUE(riff);
    EXPECT_FALSE(file->Descend_To_Chunk(Format, *riff));
  }
  const auto file = Open(Wave().Data({}).Cut_To(20));
  const auto riff = file->Descend_To_Form(Wave_Form);
  EXPECT_TRUE(file->Descend_To_Chunk(Format, *riff));
}

TEST_F(RiffFileTest, A_chunk_belongs_to_the_parent_when_its_header_begins_before_the_parents_end) {
  const Wave wave = Wave().Data(Text("abcd"));  // the "data" header begins at byte 36
  struct Case {
    std::uint32_t riff_size;  // the parent ends 8 bytes further
    bool found;
  };
  for (const Case& one : std::vector<Case>{{40, true}, {29, true}, {28, false}, {27, false}}) {
    SCOPED_TRACE(one.riff_size);
    const auto file = Open(Wave(wave).Riff_Claiming(one.riff_size));
    const auto riff = file->Descend_To_Form(Wave_Form);
    ASSERT_TRUE(riff);
    EXPECT_EQ(file->Descend_To_Chunk(Data, *riff).has_value(), one.found);
  }
}

TEST_F(RiffFileTest, A_parent_of_size_0_has_no_chunks) {
  const auto file = Open(Wave().Data(Text("abcd")).Riff_Claiming(0));
  const auto riff = file->Descend_To_Form(Wave_Form);
  ASSERT_TRUE(riff);
  EXPECT_FALSE(file->Descend_To_Chunk(Format, *riff));
}

TEST_F(RiffFileTest, A_parent_that_claims_more_than_the_file_has_is_searched_to_the_end) {
  const auto file = Open(Wave().Data(Text("abcd")).Riff_Claiming(0xFFFFFFFF));
  const auto riff = file->Descend_To_Form(Wave_Form);
  ASSERT_TRUE(riff);
  EXPECT_TRUE(file->Descend_To_Chunk(Data, *riff));
  EXPECT_FALSE(file->Descend_To_Chunk(Data, *riff));
}

TEST_F(RiffFileTest, A_chunk_of_the_largest_size_makes_no_loop) {
  for (const std::uint32_t size :
       {0xFFFFFFFFu, 0xFFFFFFFEu, 0xFFFFFFF8u, 0xFFFFFFD4u, 0x80000000u}) {
    SCOPED_TRACE(size);
    const auto file = Open(Wave()
                               .Chunk("junk", Text("abcd"))
                               .Claiming(size)
                               .Data(Text("abcd"))
                               .Riff_Claiming(0xFFFFFFFF));
    const auto riff = file->Descend_To_Form(Wave_Form);
    ASSERT_TRUE(riff);
    EXPECT_FALSE(file->Descend_To_Chunk(Data, *riff));
    EXPECT_FALSE(file->Descend_To_Form(Wave_Form));
  }
}

TEST_F(RiffFileTest, Ascending_behind_the_end_of_the_file_succeeds_and_nothing_follows) {
  const auto file = Open(Wave().Chunk("long", Text("ab")).Claiming(0xFFFFFFFF).Data(Text("abcd")));
  const auto riff = file->Descend_To_Form(Wave_Form);
  const auto lying = file->Descend_To_Chunk(Four_Characters("long"), *riff);
  ASSERT_TRUE(lying);
  EXPECT_TRUE(file->Ascend(*lying));
  EXPECT_FALSE(file->Descend_To_Chunk(Data, *riff));
  EXPECT_EQ(Next_Bytes(*file, 4), "");
}

TEST_F(RiffFileTest, Empty_chunks_in_a_row_are_walked_one_by_one) {
  Wave wave;
  for (int i = 0; i < 10'000; ++i) wave.Chunk("none", {});
  const auto file = Open(wave.Data(Text("abcd")));
  const auto riff = file->Descend_To_Form(Wave_Form);
  EXPECT_TRUE(file->Descend_To_Chunk(Data, *riff));
  EXPECT_EQ(Next_Bytes(*file, 4), "abcd");
}

TEST_F(RiffFileTest, A_read_is_not_held_within_its_chunk) {
  const auto file = Open(Wave().Chunk("two ", Text("ab")).Data(Text("cd")));
  const auto riff = file->Descend_To_Form(Wave_Form);
  ASSERT_TRUE(file->Descend_To_Chunk(Four_Characters("two "), *riff));
  EXPECT_EQ(Next_Bytes(*file, 6), "abdata");
}

TEST_F(RiffFileTest, Reads_go_on_where_the_last_one_ended_and_stop_at_the_end) {
  const auto file = Open(Wave().Data(Text("abcdef")));
  const auto riff = file->Descend_To_Form(Wave_Form);
  ASSERT_TRUE(file->Descend_To_Chunk(Data, *riff));
  EXPECT_EQ(Next_Bytes(*file, 4), "abcd");
  EXPECT_EQ(Next_Bytes(*file, 4), "ef");
  EXPECT_EQ(Next_Bytes(*file, 4), "");
}

TEST_F(RiffFileTest, Reads_and_ascents_fail_on_demand) {
  files.failing_reads = {2};
  const auto file = Open(Wave().Data(Text("abcd")));
  const auto riff = file->Descend_To_Form(Wave_Form);
  const auto data = file->Descend_To_Chunk(Data, *riff);
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
  const auto data = walk.Descend_To_Chunk(Data, *riff);
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
  EXPECT_FALSE(walk.Descend_To_Chunk(Data, *riff));
}

TEST(RiffWalk, A_chunk_beyond_four_gigabytes_is_none_and_does_not_wrap) {
  // The "junk" chunk ends at 2^32, where zeros follow; wrapped, that would be the start again.
  RiffWalk walk(std::make_unique<Vast>(std::map<std::int64_t, FileBytes>{
      {0, Wave().Without_Format().Chunk("junk", {}).Claiming(0xFFFFFFEC).Riff_Claiming(0xFFFFFFFF)},
      {std::int64_t{1} << 32, Joined(Text("data"), {2, 0, 0, 0, 'h', 'i'})}}));
  const auto riff = walk.Descend_To_Form(Wave_Form);
  ASSERT_TRUE(riff);
  EXPECT_FALSE(walk.Descend_To_Chunk(Data, *riff));
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
  EXPECT_FALSE(walk.Descend_To_Chunk(Data, RiffChunk{0, 100, 0, 0, 0}));
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
}  // namespace quillspeech
