// Engine and vocabulary files byte by byte, field after field and by nothing of the program's own.
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include "tests/support/record_builder.hpp"

namespace quillspeech::tests {

using FileBytes = std::vector<std::uint8_t>;

// Fields in a row: numbers begin with their lowest byte, texts end in blanks.
class FieldRow {
 public:
  FieldRow& Number(std::uint64_t number, int width) {
    for (int i = 0; i < width; ++i) bytes_.push_back(static_cast<std::uint8_t>(number >> (8 * i)));
    return *this;
  }
  FieldRow& Text(std::string_view text, std::size_t width) {
    for (std::size_t i = 0; i < width; ++i) {
      bytes_.push_back(static_cast<std::uint8_t>(i < text.size() ? text[i] : ' '));
    }
    return *this;
  }
  FieldRow& Real(double value) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return Number(bits, 8);
  }
  const FileBytes& Bytes() const { return bytes_; }

 private:
  FileBytes bytes_;
};

// 2,024 bytes: the number of the record and the texts of the categories 0 to 100.
inline FileBytes Engine_Record_Bytes(std::uint32_t number, const Groups& groups) {
  FieldRow row;
  row.Number(number, 4);
  for (int category = 0; category <= 100; ++category) {
    std::string_view text;
    for (const auto& [at, letters] : groups) {
      if (at == category) text = letters;
    }
    row.Text(text, 20);
  }
  return row.Bytes();
}

// 9,634 bytes: the number, the name, the values 0 to 1,200 and how many of them are in use.
inline FileBytes Vocabulary_Record_Bytes(std::uint32_t number, std::string_view name,
                                         std::vector<double> values, std::uint16_t count) {
  values.resize(1201);
  FieldRow row;
  row.Number(number, 4).Text(name, 20);
  for (const double value : values) row.Real(value);
  return row.Number(count, 2).Bytes();
}

inline FileBytes Joined(const std::vector<FileBytes>& records) {
  FileBytes file;
  for (const FileBytes& record : records) file.insert(file.end(), record.begin(), record.end());
  return file;
}

}  // namespace quillspeech::tests
