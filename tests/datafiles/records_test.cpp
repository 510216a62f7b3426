#include "datafiles/records.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "base/run_time_failure.hpp"
#include "base/text.hpp"

namespace quillspeech::datafiles {
namespace {

using File_Bytes = std::vector<std::uint8_t>;

// One element written into a record of zeros: where it lies and which bytes it has there.
template <class Record>
struct Field {
  std::string name;
  std::size_t offset;
  File_Bytes bytes;
  std::function<void(Record&)> write;
  std::function<bool(const Record&)> reads_back;
};

template <class Record>
void Expect_Layout(const std::vector<Field<Record>>& fields) {
  for (const auto& field : fields) {
    SCOPED_TRACE(field.name);
    Record record;
    field.write(record);
    File_Bytes expected(Record::Record_Bytes, 0);
    ASSERT_LE(field.offset + field.bytes.size(), expected.size());
    std::copy(field.bytes.begin(), field.bytes.end(), expected.data() + field.offset);
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), record.Bytes().begin()));
    EXPECT_TRUE(field.reads_back(record));

    Record from_file;
    std::copy(expected.begin(), expected.end(), from_file.Bytes().begin());
    EXPECT_TRUE(field.reads_back(from_file));
  }
}

std::string Letters(std::size_t width) { return std::string(width, 'k'); }
File_Bytes Letter_Bytes(std::size_t width) { return File_Bytes(width, 'k'); }

constexpr std::int32_t Long_Number = 0x04030201;
const File_Bytes Long_Bytes = {0x01, 0x02, 0x03, 0x04};
constexpr std::int16_t Short_Number = 0x0201;
const File_Bytes Short_Bytes = {0x01, 0x02};

#define NUMBER(Record, member, offset, number, bytes)                                              \
  {                                                                                                \
#member, offset, bytes,                                                                        \
        [](Record & r) { r.member(number); }, [](const Record& r) { return r.member() == number; } \
  }
#define TEXT(Record, member, offset, width)                                                     \
  {                                                                                             \
#member, offset, Letter_Bytes(width),                                                       \
        [](Record &                                                                             \
           r) { r.member(Letters(width)); }, [](const Record&                                   \
                                                    r) { return r.member() == Letters(width); } \
  }
#define ELEMENT(Record, member, index, offset, number, bytes)                                      \
  {                                                                                                \
#member "(" #index ")", offset, bytes,                                                         \
        [](Record &                                                                                \
           r) { r.member(index, number); },                                                        \
                                         [](const Record& r) { return r.member(index) == number; } \
  }
#define TEXT_ELEMENT(Record, member, index, offset, width)           \
  {                                                                  \
#member "(" #index ")", offset, Letter_Bytes(width),               \
        [](Record& r) { r.member(index, Letters(width)); },            \
        [](const Record& r) { return r.member(index) == Letters(width); } \
  }

TEST(SayRecordLayout, Every_field_lies_at_its_offset_lowest_byte_first) {
  Expect_Layout<SayRecord>({
      NUMBER(SayRecord, RecordNo, 0, Long_Number, Long_Bytes),
      TEXT(SayRecord, FileCopyright, 4, 30),
      TEXT(SayRecord, FileDescription, 34, 100),
      TEXT_ELEMENT(SayRecord, Words, 1, 134, 40),
      TEXT_ELEMENT(SayRecord, Words, 2, 174, 40),
      TEXT_ELEMENT(SayRecord, Words, 100, 4094, 40),
      ELEMENT(SayRecord, WordRatings, 1, 4134, 200, File_Bytes{200}),
      ELEMENT(SayRecord, WordRatings, 2, 4135, 200, File_Bytes{200}),
      ELEMENT(SayRecord, WordRatings, 100, 4233, 200, File_Bytes{200}),
      NUMBER(SayRecord, WordCount, 4234, Short_Number, Short_Bytes),
      TEXT(SayRecord, WordFont, 4236, 20),
      ELEMENT(SayRecord, LikeRatings, 1, 4256, Short_Number, Short_Bytes),
      ELEMENT(SayRecord, LikeRatings, 2, 4258, Short_Number, Short_Bytes),
      ELEMENT(SayRecord, LikeRatings, 30, 4314, Short_Number, Short_Bytes),
      NUMBER(SayRecord, DivisionCount, 4316, Short_Number, Short_Bytes),
      NUMBER(SayRecord, DivisionByteLength, 4318, Long_Number, Long_Bytes),
      TEXT_ELEMENT(SayRecord, EngineCodes, 1, 4322, 20),
      TEXT_ELEMENT(SayRecord, EngineCodes, 2, 4342, 20),
      TEXT_ELEMENT(SayRecord, EngineCodes, 50, 5302, 20),
      ELEMENT(SayRecord, SlotNumbers, 1, 5322, 200, File_Bytes{200}),
      ELEMENT(SayRecord, SlotNumbers, 50, 5371, 200, File_Bytes{200}),
      ELEMENT(SayRecord, EngineCodeWeights, 1, 5372, Short_Number, Short_Bytes),
      ELEMENT(SayRecord, EngineCodeWeights, 2, 5374, Short_Number, Short_Bytes),
      ELEMENT(SayRecord, EngineCodeWeights, 50, 5470, Short_Number, Short_Bytes),
      NUMBER(SayRecord, DifferentiatorCount, 5472, Short_Number, Short_Bytes),
      NUMBER(SayRecord, LikeCount, 5474, Short_Number, Short_Bytes),
      TEXT_ELEMENT(SayRecord, LikeProtocols, 1, 5476, 100),
      TEXT_ELEMENT(SayRecord, LikeProtocols, 2, 5576, 100),
      TEXT_ELEMENT(SayRecord, LikeProtocols, 30, 8376, 100),
  });
}

TEST(EgnRecordLayout, Every_field_lies_at_its_offset_lowest_byte_first) {
  Expect_Layout<EgnRecord>({
      NUMBER(EgnRecord, RecordNo, 0, Long_Number, Long_Bytes),
      TEXT_ELEMENT(EgnRecord, EngineSlots, 0, 4, 20),
      TEXT_ELEMENT(EgnRecord, EngineSlots, 1, 24, 20),
      TEXT_ELEMENT(EgnRecord, EngineSlots, 60, 1204, 20),
      TEXT_ELEMENT(EgnRecord, EngineSlots, 100, 2004, 20),
  });
}

TEST(VocRecordLayout, Every_field_lies_at_its_offset_lowest_byte_first) {
  const File_Bytes half = {0, 0, 0, 0, 0, 0, 0xF8, 0xBF};  // -1.5
  Expect_Layout<VocRecord>({
      NUMBER(VocRecord, RecordNo, 0, Long_Number, Long_Bytes),
      TEXT(VocRecord, VocabularyName, 4, 20),
      ELEMENT(VocRecord, VocabularySamples, 0, 24, -1.5, half),
      ELEMENT(VocRecord, VocabularySamples, 1, 32, -1.5, half),
      ELEMENT(VocRecord, VocabularySamples, 1200, 9624, -1.5, half),
      NUMBER(VocRecord, VocabularySampleCount, 9632, Short_Number, Short_Bytes),
  });
}

TEST(Records, Have_their_lengths) {
  EXPECT_EQ(SayRecord().Bytes().size(), 8476u);
  EXPECT_EQ(EgnRecord().Bytes().size(), 2024u);
  EXPECT_EQ(VocRecord().Bytes().size(), 9634u);
}

TEST(Records, Numbers_below_zero_are_twos_complement) {
  SayRecord record;
  record.RecordNo(-2);
  record.WordCount(-1);
  record.LikeRatings(30, std::numeric_limits<std::int16_t>::min());
  EXPECT_EQ(record.Bytes()[0], 0xFE);
  EXPECT_EQ(record.Bytes()[3], 0xFF);
  EXPECT_EQ(record.Bytes()[4314], 0x00);
  EXPECT_EQ(record.Bytes()[4315], 0x80);
  EXPECT_EQ(record.RecordNo(), -2);
  EXPECT_EQ(record.WordCount(), -1);
  EXPECT_EQ(record.LikeRatings(30), -32768);
}

TEST(Records, Ratings_of_words_and_slot_numbers_reach_255) {
  SayRecord record;
  record.WordRatings(7, 255);
  record.SlotNumbers(7, 255);
  EXPECT_EQ(record.WordRatings(7), 255);
  EXPECT_EQ(record.SlotNumbers(7), 255);
}

TEST(Records, A_word_of_40_characters_fills_its_field_without_a_blank) {
  SayRecord record;
  const std::string word = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMN";
  ASSERT_EQ(word.size(), 40u);
  record.Words(1, word);
  EXPECT_EQ(record.Words(1), word);
  EXPECT_EQ(record.Bytes()[134 + 39], 'N');
}

TEST(Records, The_41st_character_of_a_word_is_lost_and_no_neighbour_is_touched) {
  SayRecord record;
  record.Words(2, "second");
  record.Words(1, "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNo");
  EXPECT_EQ(record.Words(1), "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMN");
  EXPECT_EQ(Trim(record.Words(2)), "second");
}

TEST(Records, A_short_text_is_padded_on_the_right_with_blanks) {
  SayRecord record;
  record.WordFont(Letters(20));
  record.WordFont("Arial");
  EXPECT_EQ(record.WordFont(), "Arial               ");
}

TEST(Records, An_empty_text_is_all_blanks) {
  SayRecord record;
  record.LikeProtocols(1, "");
  EXPECT_EQ(record.LikeProtocols(1), std::string(100, ' '));
}

TEST(Records, An_erased_text_reads_as_no_empty_one_until_it_is_written_again) {
  SayRecord record;
  EXPECT_EQ(Trim(record.Words(1)), std::string(40, '\0'));
  record.Words(1, "");
  EXPECT_EQ(Trim(record.Words(1)), "");
}

TEST(Records, A_rating_byte_that_was_never_written_reads_as_0) {
  SayRecord record;
  record.Words(3, "hello");
  record.WordCount(3);
  EXPECT_EQ(record.WordRatings(3), 0);
}

TEST(Records, An_engine_text_of_20_characters_fills_its_element_and_a_longer_one_is_cut) {
  EgnRecord record;
  record.EngineSlots(60, "12345678901234567890");
  EXPECT_EQ(record.EngineSlots(60), "12345678901234567890");
  record.EngineSlots(61, "123456789012345678901");
  EXPECT_EQ(record.EngineSlots(61), "12345678901234567890");
  EXPECT_EQ(record.EngineSlots(62), std::string(20, '\0'));
}

TEST(Records, Bytes_above_127_come_back_as_they_were) {
  EgnRecord record;
  std::string text;
  for (int byte = 236; byte <= 255; ++byte) text += static_cast<char>(byte);
  record.EngineSlots(0, text);
  EXPECT_EQ(record.EngineSlots(0), text);
}

TEST(Records, A_text_can_be_copied_from_the_same_record) {
  SayRecord record;
  record.LikeProtocols(4, "fth*s");
  record.LikeProtocols(3, record.LikeProtocols(4));
  EXPECT_EQ(Trim(record.LikeProtocols(3)), "fth*s");
  record.Words(1, record.Words(1).substr(0, 0));
  EXPECT_EQ(record.Words(1), std::string(40, ' '));
}

TEST(Records, A_curve_keeps_every_value) {
  VocRecord record;
  const std::vector<double> values = {0.0,
                                      -0.0,
                                      0.1,
                                      std::numeric_limits<double>::denorm_min(),
                                      std::numeric_limits<double>::max(),
                                      -std::numeric_limits<double>::infinity()};
  for (const double value : values) {
    record.VocabularySamples(600, value);
    EXPECT_EQ(record.VocabularySamples(600), value);
    EXPECT_EQ(std::signbit(record.VocabularySamples(600)), std::signbit(value));
  }
}

TEST(Records, An_index_outside_its_array_is_failure_9) {
  SayRecord say;
  EgnRecord egn;
  VocRecord voc;
  const std::vector<std::function<void()>> outside = {
      [&] { say.Words(0); },
      [&] { say.Words(101); },
      [&] { say.Words(101, "x"); },
      [&] { say.WordRatings(0); },
      [&] { say.WordRatings(101); },
      [&] { say.WordRatings(0, 1); },
      [&] { say.LikeRatings(0); },
      [&] { say.LikeRatings(31); },
      [&] { say.LikeRatings(31, 1); },
      [&] { say.LikeProtocols(0); },
      [&] { say.LikeProtocols(31); },
      [&] { say.LikeProtocols(31, "x"); },
      [&] { say.EngineCodes(0); },
      [&] { say.EngineCodes(51); },
      [&] { say.EngineCodes(51, "x"); },
      [&] { say.SlotNumbers(0); },
      [&] { say.SlotNumbers(51); },
      [&] { say.SlotNumbers(51, 1); },
      [&] { say.EngineCodeWeights(0); },
      [&] { say.EngineCodeWeights(51); },
      [&] { say.EngineCodeWeights(51, 1); },
      [&] { egn.EngineSlots(-1); },
      [&] { egn.EngineSlots(101); },
      [&] { egn.EngineSlots(101, "x"); },
      [&] { voc.VocabularySamples(-1); },
      [&] { voc.VocabularySamples(1201); },
      [&] { voc.VocabularySamples(1201, 1.0); },
  };
  for (std::size_t i = 0; i < outside.size(); ++i) {
    SCOPED_TRACE(i);
    try {
      outside[i]();
      ADD_FAILURE() << "no failure";
    } catch (const RunTimeFailure& failure) {
      EXPECT_EQ(failure.Number(), 9);
    }
  }
}

TEST(Records, A_count_above_its_array_in_a_damaged_record_is_read_and_fails_at_the_bound) {
  VocRecord record;
  record.Bytes()[9632] = 0xB1;  // 1201
  record.Bytes()[9633] = 0x04;
  EXPECT_EQ(record.VocabularySampleCount(), 1201);
  EXPECT_NO_THROW(record.VocabularySamples(record.VocabularySampleCount() - 1));
  EXPECT_THROW(record.VocabularySamples(record.VocabularySampleCount()), RunTimeFailure);
}

}  // namespace
}  // namespace quillspeech::datafiles
