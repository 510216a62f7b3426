// Records of vocabulary files in one line, and files made of them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <vector>

#include "datafiles/records.hpp"

namespace quillspeech::tests {

// A record with these values from 1 on. Value 0 tells the name's length, so that it too is seen to
// move with its record.
inline datafiles::VocRecord Curve(std::string_view name, std::initializer_list<double> values) {
  datafiles::VocRecord record;
  record.VocabularyName(name);
  record.VocabularySamples(0, static_cast<double>(name.size()));
  std::int16_t count = 0;
  for (const double value : values) record.VocabularySamples(++count, value);
  record.VocabularySampleCount(count);
  return record;
}

// The records get the numbers of their places.
inline std::vector<std::uint8_t> Vocabulary_File(std::vector<datafiles::VocRecord> records) {
  std::vector<std::uint8_t> file;
  std::int32_t number = 0;
  for (datafiles::VocRecord& record : records) {
    record.RecordNo(++number);
    file.insert(file.end(), record.Bytes().begin(), record.Bytes().end());
  }
  return file;
}

// Record `number` of a file; bytes that the file lacks are 0.
inline datafiles::VocRecord Vocabulary_Record(const std::vector<std::uint8_t>& file, int number) {
  datafiles::VocRecord record;
  const std::size_t start =
      std::min(file.size(), static_cast<std::size_t>(number - 1) * record.Bytes().size());
  const std::size_t count = std::min(file.size() - start, record.Bytes().size());
  std::copy_n(file.begin() + static_cast<std::ptrdiff_t>(start), count, record.Bytes().begin());
  return record;
}

}  // namespace quillspeech::tests
