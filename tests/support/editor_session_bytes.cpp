// The bytes of the session's file, by their places and by nothing of the program's own.
#include <algorithm>
#include <cstddef>

#include "tests/support/editor_session.hpp"

namespace quillspeech::tests {
namespace {

constexpr int Record_Bytes = 8476;

// The bytes of one record, written field by field at their places.
class RecordBytes {
 public:
  explicit RecordBytes(int number) {
    Number(0, 4, number).Text(4, 30, "Harbour Voices").Text(34, 100, "Greetings of the day");
    Text(4236, 20, "");
  }
  RecordBytes& Copyright(const std::string& text) { return Text(4, 30, text); }
  RecordBytes& Word(int element, const std::string& text) {
    return Text(134 + 40 * (element - 1), 40, text);
  }
  RecordBytes& Word_Rating(int element, int rating) {
    return Number(4134 + element - 1, 1, rating);
  }
  RecordBytes& Font_And_Divisions() {
    return Text(4236, 20, "MS Sans Serif").Number(4316, 2, 3).Number(4318, 4, 70'000);
  }
  RecordBytes& Pattern(int element, const std::string& text) {
    return Text(5476 + 100 * (element - 1), 100, text);
  }
  RecordBytes& Pattern_Rating(int element, int rating) {
    return Number(4256 + 2 * (element - 1), 2, rating);
  }
  RecordBytes& Differentiator(int element, int slot, const std::string& code, int weight) {
    Text(4322 + 20 * (element - 1), 20, code).Number(5322 + element - 1, 1, slot);
    return Number(5372 + 2 * (element - 1), 2, weight);
  }
  RecordBytes& Counts(int words, int patterns, int differentiators) {
    return Number(4234, 2, words).Number(5474, 2, patterns).Number(5472, 2, differentiators);
  }
  void Append_To(std::vector<std::uint8_t>& file) const {
    file.insert(file.end(), bytes_.begin(), bytes_.end());
  }

 private:
  RecordBytes& Text(int offset, int width, const std::string& text) {
    std::fill_n(bytes_.begin() + offset, width, std::uint8_t{' '});
    std::copy(text.begin(), text.end(), bytes_.begin() + offset);
    return *this;
  }
  RecordBytes& Number(int offset, int width, int value) {
    for (int i = 0; i < width; ++i, value >>= 8) {
      bytes_[static_cast<std::size_t>(offset + i)] = static_cast<std::uint8_t>(value & 0xFF);
    }
    return *this;
  }

  std::vector<std::uint8_t> bytes_ = std::vector<std::uint8_t>(Record_Bytes);
};

RecordBytes First_Record() {
  RecordBytes record(1);
  record.Word(1, "hullo").Word_Rating(1, 85).Word(2, "hullo").Word_Rating(2, 85);
  record.Word(3, "helo").Word_Rating(3, 60).Word(4, "hola").Word_Rating(4, 40);
  record.Pattern(1, "fth*s").Pattern_Rating(1, 80).Pattern(2, "fth#").Pattern_Rating(2, 75);
  record.Differentiator(1, 6, "sh", 15).Differentiator(2, 6, "sh", 15);
  record.Differentiator(3, 9, "k", 1);
  return record.Font_And_Divisions().Counts(3, 2, 2);
}

// All that is left of a record with the words of the copies.
RecordBytes Emptied_Record(int number) {
  RecordBytes record(number);
  record.Word_Rating(2, 85).Word_Rating(3, 60).Pattern_Rating(1, 80).Pattern_Rating(2, 75);
  return record;
}

RecordBytes Added_Record(int number) {
  RecordBytes record(number);
  record.Word(1, "good morning").Word(2, "hullo").Word_Rating(2, 85);
  record.Word(3, "helo").Word_Rating(3, 60);
  record.Pattern(1, "fth*s").Pattern_Rating(1, 80).Pattern(2, "fth#").Pattern_Rating(2, 75);
  record.Pattern(3, "gm*").Pattern_Rating(3, 90);
  record.Differentiator(1, 6, "sh", 15).Differentiator(2, 6, "sh", 15);
  return record.Font_And_Divisions().Counts(3, 3, 2);
}

}  // namespace

std::vector<std::uint8_t> Bytes_Of_Editor_Session() {
  std::vector<std::uint8_t> file;
  First_Record().Append_To(file);
  Emptied_Record(2).Append_To(file);
  Added_Record(3).Append_To(file);
  Emptied_Record(4).Pattern_Rating(3, 90).Append_To(file);
  Added_Record(5)
      .Copyright("Unknown???")
      .Differentiator(3, 7, "m", 20)
      .Counts(3, 3, 3)
      .Append_To(file);
  return file;
}

std::string Difference_From_Editor_Session(const std::vector<std::uint8_t>& bytes) {
  const std::vector<std::uint8_t> wanted = Bytes_Of_Editor_Session();
  const auto [byte, other] = std::ranges::mismatch(bytes, wanted);
  if (byte == bytes.end() && other == wanted.end()) return {};
  const auto place = static_cast<int>(byte - bytes.begin());
  return "record " + std::to_string(place / Record_Bytes + 1) + ", byte " +
         std::to_string(place % Record_Bytes) + ", of " + std::to_string(bytes.size()) +
         " bytes instead of " + std::to_string(wanted.size());
}

}  // namespace quillspeech::tests
