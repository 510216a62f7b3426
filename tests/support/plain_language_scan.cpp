#include "tests/support/plain_language_scan.hpp"

#include <algorithm>
#include <bitset>
#include <cmath>

#include "base/run_time_failure.hpp"

namespace quillspeech::tests {
namespace {

// A star, or the set of characters that an element takes one of.
struct Element {
  bool star = false;
  std::bitset<256> takes;
};

std::size_t Code(char character) { return static_cast<unsigned char>(character); }

std::bitset<256> Range(char first, char last) {
  if (Code(first) > Code(last)) Fail(Failure::Bad_Pattern);
  std::bitset<256> range;
  for (std::size_t code = Code(first); code <= Code(last); ++code) range.set(code);
  return range;
}

// The set of a list; its content is not empty. A `-` begins no range.
std::bitset<256> List(std::string content) {
  const bool excludes = content[0] == '!' && content != "!";
  if (excludes) content.erase(0, 1);
  std::bitset<256> set;
  while (!content.empty()) {
    const bool is_range = content.size() > 2 && content[0] != '-' && content[1] == '-';
    set |= Range(content[0], content[is_range ? 2 : 0]);
    content.erase(0, is_range ? 3 : 1);
  }
  return excludes ? ~set : set;
}

std::vector<Element> Elements(std::string_view pattern) {
  std::vector<Element> elements;
  while (!pattern.empty()) {
    const char sign = pattern[0];
    pattern.remove_prefix(1);
    if (sign == '*') {
      elements.push_back({true, {}});
    } else if (sign == '?') {
      elements.push_back({false, Range('\0', '\xFF')});
    } else if (sign == '#') {
      elements.push_back({false, Range('0', '9')});
    } else if (sign == '[') {
      const auto close = pattern.find(']');
      if (close == pattern.npos) Fail(Failure::Bad_Pattern);
      if (close > 0) elements.push_back({false, List(std::string(pattern.substr(0, close)))});
      pattern.remove_prefix(close + 1);
    } else {
      elements.push_back({false, Range(sign, sign)});
    }
  }
  return elements;
}

// Whether the first characters fit the elements so far, by the number of these characters.
using Fitting = std::vector<bool>;

Fitting Fitting_With(const Element& element, std::string_view text, const Fitting& before) {
  Fitting fits(text.size() + 1);
  fits[0] = element.star && before[0];
  for (std::size_t count = 1; count <= text.size(); ++count) {
    fits[count] = element.star ? before[count] || fits[count - 1]
                               : before[count - 1] && element.takes[Code(text[count - 1])];
  }
  return fits;
}

// A record as it lies in the file, by the offsets of its fields.
struct RawRecord {
  std::uint8_t* bytes;

  int Int16(int offset) const {
    return static_cast<std::int16_t>(bytes[offset] | bytes[offset + 1] << 8);
  }
  std::int32_t Int32(int offset) const {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(Int16(offset) & 0xFFFF) |
                                     static_cast<std::uint32_t>(Int16(offset + 2)) << 16);
  }
  std::string Text(int offset, int width) const { return {bytes + offset, bytes + offset + width}; }
  // The text without its blanks, which goes to the left end of its field.
  std::string Align(int offset, int width) {
    std::string text = Text(offset, width);
    while (!text.empty() && text.back() == ' ') text.pop_back();
    while (!text.empty() && text.front() == ' ') text.erase(0, 1);
    std::fill(bytes + offset, bytes + offset + width, std::uint8_t{' '});
    std::copy(text.begin(), text.end(), bytes + offset);
    return text;
  }
};

int Half_Even(double value) { return static_cast<int>(std::nearbyint(value)); }

int Bonus(RawRecord record, const Filter& filter) {
  int bonus = 0;
  for (int k = 0; k < record.Int16(5472); ++k) {
    const int slot = record.bytes[5322 + k];
    if (record.Align(4322 + 20 * k, 20) != filter.Filter_Slot_Table[slot]) continue;
    bonus = filter.Filter_Weight_Table[slot] >= record.Int16(5372 + 2 * k) ? 20 : 0;
  }
  return bonus;
}

void Scan_Record(RawRecord record, std::string_view text, const Filter& filter, PlainScan& scan) {
  for (int j = 0; j < record.Int16(5474); ++j) {
    if (!Plain_Like_Match(text, record.Align(5476 + 100 * j, 100))) continue;
    const int bonus = Bonus(record, filter);
    for (int k = 0; k < record.Int16(4234); ++k) {
      scan.words.push_back(record.Text(134 + 40 * k, 40));
      scan.scores.push_back(bonus + Half_Even(record.bytes[4134 + k] / 4.0) + 5 +
                            Half_Even(record.Int16(4256 + 2 * j) / 2.0));
    }
    scan.matched = true;
    scan.record_no = record.Int32(0);
    scan.font = record.Text(4236, 20);
  }
}

}  // namespace

bool Plain_Like_Match(std::string_view text, std::string_view pattern) {
  Fitting fits(text.size() + 1);
  fits[0] = true;
  for (const Element& element : Elements(pattern)) fits = Fitting_With(element, text, fits);
  return fits[text.size()];
}

PlainScan Plain_Language_Scan(std::vector<std::uint8_t> file, std::string_view text,
                              const Filter& filter) {
  constexpr std::size_t Record_Bytes = 8476;
  PlainScan scan;
  std::vector<std::uint8_t> current(Record_Bytes);
  for (std::size_t at = 0; at + Record_Bytes <= file.size(); at += Record_Bytes) {
    std::copy_n(file.begin() + static_cast<std::ptrdiff_t>(at), Record_Bytes, current.begin());
    Scan_Record({current.data()}, text, filter, scan);
  }
  // The record read last goes to its own number.
  const auto own = static_cast<std::size_t>(RawRecord{current.data()}.Int32(0));
  file.resize(std::max(file.size(), own * Record_Bytes));
  std::copy(current.begin(), current.end(),
            file.begin() + static_cast<std::ptrdiff_t>((own - 1) * Record_Bytes));
  if (scan.words.empty()) scan.record_no = 0;
  scan.file = std::move(file);
  return scan;
}

}  // namespace quillspeech::tests
