#include "recognition/like_match.hpp"

#include <algorithm>

#include "base/run_time_failure.hpp"

namespace quillspeech {
namespace {

unsigned char Byte(char character) { return static_cast<unsigned char>(character); }

struct Span {
  unsigned char first;
  unsigned char last;
};

// Takes the first entry off a list's content: a character, or a range of them. A hyphen that comes
// first is alone, whatever stands before and behind it.
Span Take_Span(std::string_view& content) {
  const unsigned char first = Byte(content[0]);
  const bool is_range = content.size() > 2 && content[0] != '-' && content[1] == '-';
  const unsigned char last = is_range ? Byte(content[2]) : first;
  content.remove_prefix(is_range ? 3 : 1);
  return {first, last};
}

// Whether the content excludes; takes the sign for it off. A lone "!" is itself.
bool Take_Negation(std::string_view& content) {
  const bool is_negated = content.size() > 1 && content[0] == '!';
  if (is_negated) content.remove_prefix(1);
  return is_negated;
}

// What stands between the bracket that the pattern begins with and the one that closes it.
std::string_view List_Content(std::string_view pattern) {
  return pattern.substr(1, pattern.find(']') - 1);
}

// Fails unless every list is closed and every range rises.
void Check_Lists(std::string_view pattern) {
  for (auto open = pattern.find('['); open != pattern.npos; open = pattern.find('[')) {
    pattern.remove_prefix(open);
    const auto close = pattern.find(']');
    if (close == pattern.npos) Fail(Failure::Bad_Pattern);
    auto content = pattern.substr(1, close - 1);
    Take_Negation(content);
    while (!content.empty()) {
      const Span span = Take_Span(content);
      if (span.first > span.last) Fail(Failure::Bad_Pattern);
    }
    pattern.remove_prefix(close + 1);
  }
}

// The rows of which there is one each, and behind them those of the text's own bytes. No_Place
// stays empty: it is the row of every byte that the text lacks.
enum : std::uint16_t { No_Place, Every_Place, Digits, Places_Of_A_List, Reached, First_Byte_Row };

using Block = std::uint64_t;

bool Has_Place(const Block* row, std::size_t place) {
  return (row[place / 64] >> (place % 64) & 1) != 0;
}

// Goes on by one character from each place reached that the row has too; false when there is none.
// A row has places of characters only, so the place behind is always within the blocks.
bool Step(Block* reached, const Block* row, std::size_t blocks) {
  Block carry = 0;
  Block any = 0;
  for (std::size_t i = 0; i < blocks; ++i) {
    const Block fitting = reached[i] & row[i];
    reached[i] = fitting << 1 | carry;
    carry = fitting >> 63;
    any |= fitting;
  }
  return any != 0;
}

// A star: whatever lies behind the first place reached is reached too. Some place always is: a test
// ends at the first step without one.
void Reach_All_Behind(Block* reached, std::size_t blocks) {
  std::size_t i = 0;
  while (reached[i] == 0) ++i;
  reached[i] |= 0 - reached[i];
  while (++i < blocks) reached[i] = ~Block{0};
}

}  // namespace

LikeText::LikeText(std::string_view text)
    : length_(text.size()), blocks_(text.size() / 64 + 1), rows_(First_Byte_Row * blocks_) {
  const auto mark = [&](std::size_t row, std::size_t place) {
    Row(row)[place / 64] |= Block{1} << (place % 64);
  };
  std::uint16_t rows = First_Byte_Row;
  for (std::size_t place = 0; place < length_; ++place) {
    const char character = text[place];
    std::uint16_t& row = row_of_byte_[Byte(character)];
    if (row == No_Place) {
      row = rows++;
      rows_.resize(rows * blocks_);
    }
    mark(row, place);
    mark(Every_Place, place);
    if (character >= '0' && character <= '9') mark(Digits, place);
  }
}

std::size_t LikeText::Row_Of_Sign(char sign) const {
  if (sign == '?') return Every_Place;
  if (sign == '#') return Digits;
  return row_of_byte_[Byte(sign)];
}

const LikeText::Block* LikeText::Places_Of_List(std::string_view content) {
  Block* const places = Row(Places_Of_A_List);
  std::fill_n(places, blocks_, 0);
  const bool is_negated = Take_Negation(content);
  while (!content.empty()) {
    const Span span = Take_Span(content);
    for (std::size_t byte = span.first; byte <= span.last; ++byte) {
      if (row_of_byte_[byte] == No_Place) continue;
      const Block* const row = Row(row_of_byte_[byte]);
      for (std::size_t i = 0; i < blocks_; ++i) places[i] |= row[i];
    }
  }
  if (is_negated) {
    const Block* const every = Row(Every_Place);
    for (std::size_t i = 0; i < blocks_; ++i) places[i] ^= every[i];
  }
  return places;
}

// Whether the text's last character can be the one that the pattern ends in. Most patterns that do
// not fit are told by it.
bool LikeText::Ends_Alike(std::string_view pattern) const {
  const char sign = pattern.empty() ? '*' : pattern.back();
  if (sign == '*' || sign == ']') return true;  // not told so simply
  return length_ > 0 && Has_Place(Row(Row_Of_Sign(sign)), length_ - 1);
}

bool LikeText::Fits(std::string_view pattern) {
  Check_Lists(pattern);
  if (!Ends_Alike(pattern)) return false;
  Block* const reached = Row(Reached);
  const std::size_t blocks = blocks_;
  std::fill_n(reached, blocks, 0);
  reached[0] = 1;
  for (std::size_t at = 0; at < pattern.size(); ++at) {
    const char sign = pattern[at];
    if (sign == '*') {
      Reach_All_Behind(reached, blocks);
    } else if (sign == '[') {
      const auto content = List_Content(pattern.substr(at));
      if (!content.empty() && !Step(reached, Places_Of_List(content), blocks)) return false;
      at += content.size() + 1;
    } else if (!Step(reached, Row(Row_Of_Sign(sign)), blocks)) {
      return false;
    }
  }
  return Has_Place(reached, length_);
}

bool Like_Match(std::string_view text, std::string_view pattern) {
  return LikeText(text).Fits(pattern);
}

}  // namespace quillspeech
