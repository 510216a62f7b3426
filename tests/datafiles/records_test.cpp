#include "datafiles/records.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "base/text.hpp"
#include "tests/support/failures.hpp"

namespace quillspeech::datafiles {
namespace {

using tests::Failure_Of;
using FileBytes = std::vector<std::uint8_t>;

// One element written into a record of zeros: where it lies and which bytes it has there.
template <class Record>
struct Field {
  std::string name;
  std::size_t offset;
  FileBytes bytes;
  std::function<void(Record&)> write;
  std::function<bool(const Record&)> reads_back;
};

template <class Record>
void Expect_Layout(const std::vector<Field<Record>>& fields) {
  for (const auto& field : fields) {
    SCOPED_TRACE(field.name);
    Record record;
    field.write(record);
    FileBytes expected(Record::Record_Bytes, 0);
    ASSERT_LE(field.offset + field.bytes.size(), expected.size());
    std::copy(field.bytes.begin(), field.bytes.end(), expected.data() + field.offset);
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), record.Bytes().begin()));
    EXPECT_TRUE(field.reads_back(record));

    Record from_file;
    std::copy(expected.begin(), expected.end(), from_file.Bytes().begin());
    EXPECT_TRUE(field.reads_back(from_file));
  }
}

// A value for a field of each type, and the bytes that it has in the file.
template <class Value>
struct Probe;
template <>
struct Probe<std::uint8_t> {
  std::uint8_t value = 200;
  FileBytes bytes = {200};
};
template <>
struct Probe<std::int16_t> {
  std::int16_t value = 0x0201;
  FileBytes bytes = {0x01, 0x02};
};
template <>
struct Probe<std::int32_t> {
  std::int32_t value = 0x04030201;
  FileBytes bytes = {0x01, 0x02, 0x03, 0x04};
};
template <>
struct Probe<double> {
  double value = -1.5;
  FileBytes bytes = {0, 0, 0, 0, 0, 0, 0xF8, 0xBF};
};
struct Letters {
  explicit Letters(std::size_t width) : value(width, 'k'), bytes(width, 'k') {}
  std::string value;
  FileBytes bytes;
};

// The getter and the setter of a field share its name.
template <class Record, class Value>
using Getter = Value (Record::*)() const;
template <class Record, class Value>
using Setter = void (Record::*)(Value);
template <class Record, class Value>
using ElementGetter = Value (Record::*)(std::int64_t) const;
template <class Record, class Value>
using ElementSetter = void (Record::*)(std::int64_t, Value);

template <class Record, class Value, class Entry = Probe<Value>>
Field<Record> Single(const char* name, std::size_t offset, Getter<Record, Value> get,
                     Setter<Record, Value> set, const Entry& entry = {}) {
  return {name, offset, entry.bytes, [=](Record& r) { (r.*set)(entry.value); },
          [=](const Record& r) { return (r.*get)() == entry.value; }};
}

template <class Record, class Value, class Entry = Probe<Value>>
Field<Record> Element(const char* name, std::int64_t index, std::size_t offset,
                      ElementGetter<Record, Value> get, ElementSetter<Record, Value> set,
                      const Entry& entry = {}) {
  return {name + (' ' + std::to_string(index)), offset, entry.bytes,
          [=](Record& r) { (r.*set)(index, entry.value); },
          [=](const Record& r) { return (r.*get)(index) == entry.value; }};
}

TEST(SayRecordLayout, Every_field_lies_at_its_offset_lowest_byte_first) {
  Expect_Layout<SayRecord>({
      Single("RecordNo", 0, &SayRecord::RecordNo, &SayRecord::RecordNo),
      Single("FileCopyright", 4, &SayRecord::FileCopyright, &SayRecord::FileCopyright, Letters(30)),
      Single("FileDescription", 34, &SayRecord::FileDescription, &SayRecord::FileDescription,
             Letters(100)),
      Element("Words", 1, 134, &SayRecord::Words, &SayRecord::Words, Letters(40)),
      Element("Words", 2, 174, &SayRecord::Words, &SayRecord::Words, Letters(40)),
      Element("Words", 100, 4094, &SayRecord::Words, &SayRecord::Words, Letters(40)),
      Element("WordRatings", 1, 4134, &SayRecord::WordRatings, &SayRecord::WordRatings),
      Element("WordRatings", 2, 4135, &SayRecord::WordRatings, &SayRecord::WordRatings),
      Element("WordRatings", 100, 4233, &SayRecord::WordRatings, &SayRecord::WordRatings),
      Single("WordCount", 4234, &SayRecord::WordCount, &SayRecord::WordCount),
      Single("WordFont", 4236, &SayRecord::WordFont, &SayRecord::WordFont, Letters(20)),
      Element("LikeRatings", 1, 4256, &SayRecord::LikeRatings, &SayRecord::LikeRatings),
      Element("LikeRatings", 2, 4258, &SayRecord::LikeRatings, &SayRecord::LikeRatings),
      Element("LikeRatings", 30, 4314, &SayRecord::LikeRatings, &SayRecord::LikeRatings),
      Single("DivisionCount", 4316, &SayRecord::DivisionCount, &SayRecord::DivisionCount),
      Single("DivisionByteLength", 4318, &SayRecord::DivisionByteLength,
             &SayRecord::DivisionByteLength),
      Element("EngineCodes", 1, 4322, &SayRecord::EngineCodes, &SayRecord::EngineCodes,
              Letters(20)),
      Element("EngineCodes", 2, 4342, &SayRecord::EngineCodes, &SayRecord::EngineCodes,
              Letters(20)),
      Element("EngineCodes", 50, 5302, &SayRecord::EngineCodes, &SayRecord::EngineCodes,
              Letters(20)),
      Element("SlotNumbers", 1, 5322, &SayRecord::SlotNumbers, &SayRecord::SlotNumbers),
      Element("SlotNumbers", 50, 5371, &SayRecord::SlotNumbers, &SayRecord::SlotNumbers),
      Element("EngineCodeWeights", 1, 5372, &SayRecord::EngineCodeWeights,
              &SayRecord::EngineCodeWeights),
      Element("EngineCodeWeights", 2, 5374, &SayRecord::EngineCodeWeights,
              &SayRecord::EngineCodeWeights),
      Element("EngineCodeWeights", 50, 5470, &SayRecord::EngineCodeWeights,
              &SayRecord::EngineCodeWeights),
      Single("DifferentiatorCount", 5472, &SayRecord::DifferentiatorCount,
             &SayRecord::DifferentiatorCount),
      Single("LikeCount", 5474, &SayRecord::LikeCount, &SayRecord::LikeCount),
      Element("LikeProtocols", 1, 5476, &SayRecord::LikeProtocols, &SayRecord::LikeProtocols,
              Letters(100)),
      Element("LikeProtocols", 2, 5576, &SayRecord::LikeProtocols, &SayRecord::LikeProtocols,
              Letters(100)),
      Element("LikeProtocols", 30, 8376, &SayRecord::LikeProtocols, &SayRecord::LikeProtocols,
              Letters(100)),
  });
}

TEST(EgnRecordLayout, Every_field_lies_at_its_offset_lowest_byte_first) {
  Expect_Layout<EgnRecord>({
      Single("RecordNo", 0, &EgnRecord::RecordNo, &EgnRecord::RecordNo),
      Element("EngineSlots", 0, 4, &EgnRecord::EngineSlots, &EgnRecord::EngineSlots, Letters(20)),
      Element("EngineSlots", 1, 24, &EgnRecord::EngineSlots, &EgnRecord::EngineSlots, Letters(20)),
      Element("EngineSlots", 60, 1204, &EgnRecord::EngineSlots, &EgnRecord::EngineSlots,
              Letters(20)),
      Element("EngineSlots", 100, 2004, &EgnRecord::EngineSlots, &EgnRecord::EngineSlots,
              Letters(20)),
  });
}

TEST(VocRecordLayout, Every_field_lies_at_its_offset_lowest_byte_first) {
  Expect_Layout<VocRecord>({
      Single("RecordNo", 0, &VocRecord::RecordNo, &VocRecord::RecordNo),
      Single("VocabularyName", 4, &VocRecord::VocabularyName, &VocRecord::VocabularyName,
             Letters(20)),
      Element("VocabularySamples", 0, 24, &VocRecord::VocabularySamples,
              &VocRecord::VocabularySamples),
      Element("VocabularySamples", 1, 32, &VocRecord::VocabularySamples,
              &VocRecord::VocabularySamples),
      Element("VocabularySamples", 1200, 9624, &VocRecord::VocabularySamples,
              &VocRecord::VocabularySamples),
      Single("VocabularySampleCount", 9632, &VocRecord::VocabularySampleCount,
             &VocRecord::VocabularySampleCount),
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
  record.WordFont(std::string(20, 'k'));
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

TEST(Records, A_field_can_be_given_the_end_of_its_own_text) {
  SayRecord record;
  const std::string word = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMN";
  record.Words(1, word);
  record.Words(1, record.Words(1).substr(3));
  EXPECT_EQ(record.Words(1), word.substr(3) + "   ");
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
    EXPECT_EQ(Failure_Of(outside[i]), 9);
  }
}

TEST(Records, A_count_above_its_array_in_a_damaged_record_is_read_and_fails_at_the_bound) {
  VocRecord record;
  record.Bytes()[9632] = 0xB1;  // 1201
  record.Bytes()[9633] = 0x04;
  EXPECT_EQ(record.VocabularySampleCount(), 1201);
  EXPECT_EQ(Failure_Of([&] { record.VocabularySamples(1200); }), 0);
  EXPECT_EQ(Failure_Of([&] { record.VocabularySamples(record.VocabularySampleCount()); }), 9);
}

}  // namespace
}  // namespace quillspeech::datafiles
