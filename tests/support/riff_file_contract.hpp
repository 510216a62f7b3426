// What every walk over RIFF files keeps to.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/riff_file.hpp"
#include "tests/support/wave_builder.hpp"

namespace quillspeech::tests {

// A backend opens a file that holds these bytes: `std::unique_ptr<RiffFile> Open(content)`.
template <class Backend>
struct RiffFileContract : testing::Test, Backend {};
TYPED_TEST_SUITE_P(RiffFileContract);

inline constexpr std::uint32_t Wave_Form = Four_Characters("WAVE");
inline constexpr std::uint32_t Data_Chunk = Four_Characters("data");
inline constexpr std::uint32_t Format_Chunk = Four_Characters("fmt ");

inline std::vector<std::uint8_t> Text(const std::string& text) {
  return std::vector<std::uint8_t>(text.begin(), text.end());
}

inline std::vector<std::uint8_t> Joined(std::vector<std::uint8_t> first,
                                        const std::vector<std::uint8_t>& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

inline std::string Next_Bytes(RiffFile& file, std::int64_t count) {
  std::string text(static_cast<std::size_t>(count), '\0');
  const auto got = file.Read(reinterpret_cast<std::uint8_t*>(text.data()), count);
  text.resize(static_cast<std::size_t>(std::max<std::int64_t>(got, 0)));
  return text;
}

TYPED_TEST_P(RiffFileContract, The_form_is_found_and_reading_goes_on_behind_its_type) {
  const auto file = this->Open(Wave().Data(Text("abcd")));
  const auto riff = file->Descend_To_Form(Wave_Form);
  ASSERT_TRUE(riff);
  EXPECT_EQ(riff->identifier, Four_Characters("RIFF"));
  EXPECT_EQ(riff->size, 4u + 24u + 12u);
  EXPECT_EQ(riff->form_type, Wave_Form);
  EXPECT_EQ(riff->data_offset, 8u);
  EXPECT_EQ(riff->flags, 0u);
  EXPECT_EQ(Next_Bytes(*file, 4), "fmt ");
}

TYPED_TEST_P(RiffFileContract, A_chunk_is_found_and_reading_goes_on_at_its_data) {
  const auto file = this->Open(Wave().Data(Text("abcd")));
  const auto riff = file->Descend_To_Form(Wave_Form);
  const auto data = file->Descend_To_Chunk(Data_Chunk, *riff);
  ASSERT_TRUE(data);
  EXPECT_EQ(data->identifier, Data_Chunk);
  EXPECT_EQ(data->size, 4u);
  EXPECT_EQ(data->form_type, 0u);
  EXPECT_EQ(data->data_offset, 12u + 24u + 8u);
  EXPECT_EQ(Next_Bytes(*file, 4), "abcd");
}

TYPED_TEST_P(RiffFileContract, Chunks_of_other_names_are_skipped_with_their_pad_byte) {
  const auto file =
      this->Open(Wave().Chunk("LIST", Text("odd")).Chunk("fact", Text("even")).Data(Text("abcd")));
  const auto riff = file->Descend_To_Form(Wave_Form);
  const auto data = file->Descend_To_Chunk(Data_Chunk, *riff);
  ASSERT_TRUE(data);
  EXPECT_EQ(data->data_offset, 12u + 24u + 12u + 12u + 8u);
  EXPECT_EQ(Next_Bytes(*file, 4), "abcd");
}

TYPED_TEST_P(RiffFileContract, The_search_begins_at_the_position_and_never_goes_back) {
  const auto file = this->Open(Wave().Data(Text("abcd")).Format());
  const auto riff = file->Descend_To_Form(Wave_Form);
  const auto format = file->Descend_To_Chunk(Format_Chunk, *riff);
  ASSERT_TRUE(format);
  ASSERT_TRUE(file->Ascend(*format));
  EXPECT_FALSE(file->Descend_To_Chunk(Data_Chunk, *riff));
}

TYPED_TEST_P(RiffFileContract, Ascending_goes_behind_an_odd_chunk_and_its_pad_byte) {
  const auto file = this->Open(Wave().Chunk("odd ", Text("abc")).Data(Text("xy")));
  const auto riff = file->Descend_To_Form(Wave_Form);
  const auto odd = file->Descend_To_Chunk(Four_Characters("odd "), *riff);
  ASSERT_TRUE(odd);
  EXPECT_EQ(odd->size, 3u);
  ASSERT_TRUE(file->Ascend(*odd));
  EXPECT_EQ(Next_Bytes(*file, 4), "data");
}

TYPED_TEST_P(RiffFileContract, A_form_of_another_type_is_skipped) {
  const auto file =
      this->Open(Joined(Wave().Form("AVI ").Data(Text("no")), Wave().Data(Text("yes!"))));
  const auto riff = file->Descend_To_Form(Wave_Form);
  ASSERT_TRUE(riff);
  const auto data = file->Descend_To_Chunk(Data_Chunk, *riff);
  ASSERT_TRUE(data);
  EXPECT_EQ(Next_Bytes(*file, 4), "yes!");
}

TYPED_TEST_P(RiffFileContract, Chunks_in_front_of_the_form_are_skipped) {
  std::vector<std::uint8_t> other = Text("junk");
  other.insert(other.end(), {3, 0, 0, 0, 'a', 'b', 'c', 0});
  const auto file = this->Open(Joined(other, Wave().Data(Text("abcd"))));
  const auto riff = file->Descend_To_Form(Wave_Form);
  ASSERT_TRUE(riff);
  EXPECT_EQ(riff->data_offset, 20u);
}

TYPED_TEST_P(RiffFileContract, A_file_without_the_form_has_none) {
  EXPECT_FALSE(this->Open({})->Descend_To_Form(Wave_Form));
  EXPECT_FALSE(
      this->Open(Text("This is a letter and no sound at all."))->Descend_To_Form(Wave_Form));
  EXPECT_FALSE(this->Open(Wave().Form("AVI ").Data({}))->Descend_To_Form(Wave_Form));
  EXPECT_FALSE(this->Open(std::vector<std::uint8_t>(100'000, 0))->Descend_To_Form(Wave_Form));
}

TYPED_TEST_P(RiffFileContract, A_header_that_is_cut_off_is_none) {
  for (int length = 0; length < 12; ++length) {
    SCOPED_TRACE(length);
    EXPECT_FALSE(this->Open(Wave().Data({}).Cut_To(length))->Descend_To_Form(Wave_Form));
  }
  for (int length = 12; length < 20; ++length) {
    SCOPED_TRACE(length);
    const auto file = this->Open(Wave().Data({}).Cut_To(length));
    const auto riff = file->Descend_To_Form(Wave_Form);
    ASSERT_TRUE(riff);
    EXPECT_FALSE(file->Descend_To_Chunk(Format_Chunk, *riff));
  }
  const auto file = this->Open(Wave().Data({}).Cut_To(20));
  const auto riff = file->Descend_To_Form(Wave_Form);
  EXPECT_TRUE(file->Descend_To_Chunk(Format_Chunk, *riff));
}

TYPED_TEST_P(RiffFileContract,
             A_chunk_belongs_to_the_parent_when_its_header_begins_before_the_parents_end) {
  const Wave wave = Wave().Data(Text("abcd"));  // the "data" header begins at byte 36
  struct Case {
    std::uint32_t riff_size;  // the parent ends 8 bytes further
    bool found;
  };
  for (const Case& one : std::vector<Case>{{40, true}, {29, true}, {28, false}, {27, false}}) {
    SCOPED_TRACE(one.riff_size);
    const auto file = this->Open(Wave(wave).Riff_Claiming(one.riff_size));
    const auto riff = file->Descend_To_Form(Wave_Form);
    ASSERT_TRUE(riff);
    EXPECT_EQ(file->Descend_To_Chunk(Data_Chunk, *riff).has_value(), one.found);
  }
}

TYPED_TEST_P(RiffFileContract, A_parent_of_size_0_has_no_chunks) {
  const auto file = this->Open(Wave().Data(Text("abcd")).Riff_Claiming(0));
  const auto riff = file->Descend_To_Form(Wave_Form);
  ASSERT_TRUE(riff);
  EXPECT_FALSE(file->Descend_To_Chunk(Format_Chunk, *riff));
}

TYPED_TEST_P(RiffFileContract, A_parent_that_claims_more_than_the_file_has_is_searched_to_the_end) {
  const auto file = this->Open(Wave().Data(Text("abcd")).Riff_Claiming(0xFFFFFFFF));
  const auto riff = file->Descend_To_Form(Wave_Form);
  ASSERT_TRUE(riff);
  EXPECT_TRUE(file->Descend_To_Chunk(Data_Chunk, *riff));
  EXPECT_FALSE(file->Descend_To_Chunk(Data_Chunk, *riff));
}

TYPED_TEST_P(RiffFileContract, A_chunk_of_the_largest_size_makes_no_loop) {
  for (const std::uint32_t size :
       {0xFFFFFFFFu, 0xFFFFFFFEu, 0xFFFFFFF8u, 0xFFFFFFD4u, 0x80000000u}) {
    SCOPED_TRACE(size);
    const auto file = this->Open(Wave()
                                     .Chunk("junk", Text("abcd"))
                                     .Claiming(size)
                                     .Data(Text("abcd"))
                                     .Riff_Claiming(0xFFFFFFFF));
    const auto riff = file->Descend_To_Form(Wave_Form);
    ASSERT_TRUE(riff);
    EXPECT_FALSE(file->Descend_To_Chunk(Data_Chunk, *riff));
    EXPECT_FALSE(file->Descend_To_Form(Wave_Form));
  }
}

TYPED_TEST_P(RiffFileContract, Ascending_behind_the_end_of_the_file_succeeds_and_nothing_follows) {
  const auto file =
      this->Open(Wave().Chunk("long", Text("ab")).Claiming(0xFFFFFFFF).Data(Text("abcd")));
  const auto riff = file->Descend_To_Form(Wave_Form);
  const auto lying = file->Descend_To_Chunk(Four_Characters("long"), *riff);
  ASSERT_TRUE(lying);
  EXPECT_TRUE(file->Ascend(*lying));
  EXPECT_FALSE(file->Descend_To_Chunk(Data_Chunk, *riff));
  EXPECT_EQ(Next_Bytes(*file, 4), "");
}

TYPED_TEST_P(RiffFileContract, Empty_chunks_in_a_row_are_walked_one_by_one) {
  Wave wave;
  for (int i = 0; i < 10'000; ++i) wave.Chunk("none", {});
  const auto file = this->Open(wave.Data(Text("abcd")));
  const auto riff = file->Descend_To_Form(Wave_Form);
  EXPECT_TRUE(file->Descend_To_Chunk(Data_Chunk, *riff));
  EXPECT_EQ(Next_Bytes(*file, 4), "abcd");
}

TYPED_TEST_P(RiffFileContract, A_chunk_that_holds_others_is_read_from_its_first_byte_on) {
  const auto file = this->Open(Wave().Chunk("LIST", Text("INFO")).Data(Text("abcd")));
  const auto riff = file->Descend_To_Form(Wave_Form);
  const auto list = file->Descend_To_Chunk(Four_Characters("LIST"), *riff);
  ASSERT_TRUE(list);
  EXPECT_EQ(list->form_type, 0u);
  EXPECT_EQ(Next_Bytes(*file, 4), "INFO");
}

TYPED_TEST_P(RiffFileContract, A_read_is_not_held_within_its_chunk) {
  const auto file = this->Open(Wave().Chunk("two ", Text("ab")).Data(Text("cd")));
  const auto riff = file->Descend_To_Form(Wave_Form);
  ASSERT_TRUE(file->Descend_To_Chunk(Four_Characters("two "), *riff));
  EXPECT_EQ(Next_Bytes(*file, 6), "abdata");
}

TYPED_TEST_P(RiffFileContract, Reads_go_on_where_the_last_one_ended_and_stop_at_the_end) {
  const auto file = this->Open(Wave().Data(Text("abcdef")));
  const auto riff = file->Descend_To_Form(Wave_Form);
  ASSERT_TRUE(file->Descend_To_Chunk(Data_Chunk, *riff));
  EXPECT_EQ(Next_Bytes(*file, 4), "abcd");
  EXPECT_EQ(Next_Bytes(*file, 4), "ef");
  EXPECT_EQ(Next_Bytes(*file, 4), "");
}

TYPED_TEST_P(RiffFileContract, A_sound_is_walked_and_read) {
  const auto sound = Noise(Amplitude(100), Bytes(100'001));
  const auto file =
      this->Open(Wave().Chunk("LIST", std::vector<std::uint8_t>(5001, 'x')).Data(sound));
  ASSERT_NE(file, nullptr);
  const auto riff = file->Descend_To_Form(Wave_Form);
  ASSERT_TRUE(riff);
  const auto format = file->Descend_To_Chunk(Format_Chunk, *riff);
  ASSERT_TRUE(format);
  EXPECT_TRUE(file->Ascend(*format));
  const auto data = file->Descend_To_Chunk(Data_Chunk, *riff);
  ASSERT_TRUE(data);
  ASSERT_EQ(data->size, 100'001u);
  std::vector<std::uint8_t> bytes(data->size + 100);
  EXPECT_EQ(file->Read(bytes.data(), std::ssize(bytes)), 100'002);  // with the pad byte
  EXPECT_TRUE(std::equal(sound.begin(), sound.end(), bytes.begin()));
}

TYPED_TEST_P(RiffFileContract, A_read_at_the_end_gives_what_there_is) {
  const auto file = this->Open({1, 2, 3});
  std::vector<std::uint8_t> bytes(5);
  EXPECT_EQ(file->Read(bytes.data(), 5), 3);
  EXPECT_EQ(file->Read(bytes.data(), 5), 0);
}

REGISTER_TYPED_TEST_SUITE_P(
    RiffFileContract, The_form_is_found_and_reading_goes_on_behind_its_type,
    A_chunk_is_found_and_reading_goes_on_at_its_data,
    Chunks_of_other_names_are_skipped_with_their_pad_byte,
    The_search_begins_at_the_position_and_never_goes_back,
    Ascending_goes_behind_an_odd_chunk_and_its_pad_byte, A_form_of_another_type_is_skipped,
    Chunks_in_front_of_the_form_are_skipped, A_file_without_the_form_has_none,
    A_header_that_is_cut_off_is_none,
    A_chunk_belongs_to_the_parent_when_its_header_begins_before_the_parents_end,
    A_parent_of_size_0_has_no_chunks,
    A_parent_that_claims_more_than_the_file_has_is_searched_to_the_end,
    A_chunk_of_the_largest_size_makes_no_loop,
    Ascending_behind_the_end_of_the_file_succeeds_and_nothing_follows,
    Empty_chunks_in_a_row_are_walked_one_by_one,
    A_chunk_that_holds_others_is_read_from_its_first_byte_on, A_read_is_not_held_within_its_chunk,
    Reads_go_on_where_the_last_one_ended_and_stop_at_the_end, A_sound_is_walked_and_read,
    A_read_at_the_end_gives_what_there_is);

}  // namespace quillspeech::tests
