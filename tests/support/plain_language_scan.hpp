// The pattern test and the scan of a language file as their definitions read, for comparison with
// the fast ones.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "session/filter.hpp"

namespace quillspeech::tests {

// Goes through the pattern sign by sign, and for each through the whole text. Failure 93 for a bad
// pattern.
bool Plain_Like_Match(std::string_view text, std::string_view pattern);

struct PlainScan {
  std::vector<std::string> words;  // as entered, in order, 40 characters each
  std::vector<int> scores;
  bool matched = false;            // a pattern fitted
  std::int32_t record_no = 0;      // of the record that matched last, 0 without a word
  std::string font;                // its font
  std::vector<std::uint8_t> file;  // after the scan
};

// Scans a file of whole records for the text. The filter lends its slots and their weights.
PlainScan Plain_Language_Scan(std::vector<std::uint8_t> file, std::string_view text,
                              const Filter& filter);

}  // namespace quillspeech::tests
