#include "cli/data_file_json.hpp"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "tests/cli/data_file_json_helpers.hpp"

namespace quillspeech::cli {
namespace {

TEST(DataFileJson, The_kinds_have_names_and_record_lengths) {
  for (const DataFileKind kind : Kinds) EXPECT_EQ(Kind_Of_Name(Kind_Name(kind)), kind);
  EXPECT_EQ(Kind_Of_Name("Language"), std::nullopt);
  EXPECT_EQ(Kind_Of_Name(""), std::nullopt);
  EXPECT_EQ(Record_Bytes(DataFileKind::Language), 8476);
  EXPECT_EQ(Record_Bytes(DataFileKind::Engine), 2024);
  EXPECT_EQ(Record_Bytes(DataFileKind::Vocabulary), 9634);
}

TEST(DataFileJson, Every_length_of_zeros_blanks_ones_and_random_bytes_comes_back) {
  for (const DataFileKind kind : Kinds) {
    const auto record = static_cast<std::size_t>(Record_Bytes(kind));
    for (const std::size_t length :
         {std::size_t{0}, std::size_t{1}, std::size_t{3}, record / 2, record / 2 + 1, record - 1,
          record, record + 1, 2 * record, 3 * record - 1, 3 * record}) {
      for (const int fill : {0x00, 0x20, 0x41, 0x80, 0xFF}) {
        Expect_Round_Trip(kind, Bytes(length, static_cast<std::uint8_t>(fill)));
      }
      Expect_Round_Trip(kind, Random_Bytes(length, static_cast<std::uint32_t>(length)));
    }
  }
}

TEST(DataFileJson, Many_random_records_come_back_as_each_kind) {
  for (std::uint32_t seed = 0; seed < 60; ++seed) {
    for (const DataFileKind kind : Kinds) Expect_Round_Trip(kind, Random_Bytes(9634, seed));
  }
}

// Mostly zeros and blanks with a few other bytes, as files that people use have them.
TEST(DataFileJson, Sparse_files_come_back) {
  std::mt19937 random(7);
  for (int round = 0; round < 200; ++round) {
    Bytes bytes(2 * 9634, round % 2 == 0 ? 0x00 : 0x20);
    for (int i = 0; i < 300; ++i) {
      bytes[random() % bytes.size()] =
          static_cast<std::uint8_t>(random() % 4 ? random() % 96 + 32 : random());
    }
    Expect_Round_Trip(Kinds[round % 3], bytes);
  }
}

TEST(DataFileJson, Every_count_comes_back_whatever_the_arrays_hold) {
  for (const int count :
       {-32768, -2, -1, 0, 1, 29, 30, 31, 49, 50, 51, 99, 100, 101, 1199, 1200, 1201, 32767}) {
    const auto value = static_cast<std::int16_t>(count);
    SayRecord say;
    std::ranges::copy(Random_Bytes(SayRecord::Record_Bytes, 1), say.Bytes().begin());
    say.WordCount(value);
    say.LikeCount(value);
    say.DifferentiatorCount(value);
    Expect_Round_Trip(DataFileKind::Language, File_Of(say));
    VocRecord voc;
    std::ranges::copy(Random_Bytes(VocRecord::Record_Bytes, 2), voc.Bytes().begin());
    voc.VocabularySampleCount(value);
    Expect_Round_Trip(DataFileKind::Vocabulary, File_Of(voc));
  }
}

TEST(DataFileJson, Every_byte_of_a_text_comes_back_alone_and_in_front_and_behind) {
  for (int byte = 0; byte < 256; ++byte) {
    const char character = static_cast<char>(byte);
    SayRecord record = New_Record();
    record.WordCount(4);
    record.Words(1, std::string(1, character));
    record.Words(2, std::string(40, character));
    record.Words(3, character + std::string("ab"));
    record.Words(4, std::string(39, 'a') + character);
    record.Words(100, std::string(1, character));
    Expect_Round_Trip(DataFileKind::Language, File_Of(record));
  }
}

TEST(DataFileJson, Every_sort_of_number_comes_back_to_the_bit) {
  VocRecord record;
  record.VocabularySampleCount(1200);
  std::mt19937_64 random(5);
  const std::uint64_t special[] = {0x0000000000000000, 0x8000000000000000, 0x0000000000000001,
                                   0x000FFFFFFFFFFFFF, 0x0010000000000000, 0x7FEFFFFFFFFFFFFF,
                                   0x7FF0000000000000, 0x7FF0000000000001, 0xFFF8000000000000,
                                   0x4340000000000001, 0x43E0000000000000, 0x43F0000000000000,
                                   0xC3E0000000000000, 0xC3E0000000000001, 0x3FB999999999999A};
  Bytes file = File_Of(record);
  for (std::size_t i = 0; i <= 1200; ++i) {
    const std::uint64_t bits = i < std::size(special) ? special[i] : random();
    for (std::size_t k = 0; k < 8; ++k) {
      file[24 + 8 * i + k] = static_cast<std::uint8_t>(bits >> (8 * k));
    }
  }
  Expect_Round_Trip(DataFileKind::Vocabulary, file);
}

}  // namespace
}  // namespace quillspeech::cli
