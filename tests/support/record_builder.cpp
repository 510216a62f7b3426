#include "tests/support/record_builder.hpp"

#include <algorithm>

namespace quillspeech::tests {

using datafiles::EgnRecord;
using datafiles::SayRecord;

Record& Record::Number(std::int32_t number) {
  fields_.RecordNo(number);
  return *this;
}

Record& Record::Word(std::string_view word, int rating) {
  const auto count = static_cast<std::int16_t>(fields_.WordCount() + 1);
  fields_.Words(count, word);
  fields_.WordRatings(count, static_cast<std::uint8_t>(rating));
  fields_.WordCount(count);
  return *this;
}

Record& Record::Pattern(std::string_view pattern, int rating) {
  const auto count = static_cast<std::int16_t>(fields_.LikeCount() + 1);
  fields_.LikeProtocols(count, pattern);
  fields_.LikeRatings(count, static_cast<std::int16_t>(rating));
  fields_.LikeCount(count);
  return *this;
}

Record& Record::Differentiator(std::string_view code, int slot, int weight) {
  const auto count = static_cast<std::int16_t>(fields_.DifferentiatorCount() + 1);
  fields_.EngineCodes(count, code);
  fields_.SlotNumbers(count, static_cast<std::uint8_t>(slot));
  fields_.EngineCodeWeights(count, static_cast<std::int16_t>(weight));
  fields_.DifferentiatorCount(count);
  return *this;
}

Record& Record::Font(std::string_view font) {
  fields_.WordFont(font);
  return *this;
}

std::vector<std::uint8_t> Language_File(const std::vector<Record>& records) {
  std::vector<std::uint8_t> file;
  std::int32_t number = 0;
  for (const Record& record : records) {
    SayRecord fields = record.Fields();
    ++number;
    if (fields.RecordNo() == 0) fields.RecordNo(number);
    file.insert(file.end(), fields.Bytes().begin(), fields.Bytes().end());
  }
  return file;
}

void Put_Language_File(headless::DataFileStore& store, const std::string& name,
                       const std::vector<Record>& records) {
  store.files[name] = Language_File(records);
}

SayRecord Language_Record(const headless::DataFileStore& store, const std::string& name,
                          std::int64_t number) {
  SayRecord record;
  const auto& file = store.files.at(name);
  const auto offset = static_cast<std::size_t>((number - 1) * SayRecord::Record_Bytes);
  std::copy_n(file.data() + offset, SayRecord::Record_Bytes, record.Bytes().begin());
  return record;
}

std::vector<std::uint8_t> Engine_File(const Groups& groups) {
  EgnRecord record;
  record.RecordNo(1);
  for (int category = 0; category <= EgnRecord::Last_Slot; ++category) {
    record.EngineSlots(category, "");
  }
  for (const auto& [category, letters] : groups) record.EngineSlots(category, letters);
  return {record.Bytes().begin(), record.Bytes().end()};
}

Groups All_Groups(std::string_view letters) {
  Groups groups;
  for (int category = 0; category <= EgnRecord::Last_Slot; ++category) {
    groups.emplace_back(category, letters);
  }
  return groups;
}

void Put_Engine_File(headless::DataFileStore& store, const std::string& name,
                     const Groups& groups) {
  store.files[name] = Engine_File(groups);
}

void Set_Engine_Letters(Filter& filter, std::string_view letters) {
  std::int64_t category = 0;
  for (const char letter : letters) filter.Engine_Table[category++] = std::string(1, letter);
}

}  // namespace quillspeech::tests
