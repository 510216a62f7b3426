// JSON that is to become a data file: a tree of it, and the values of its fields. What does not fit
// throws BadJson, which names the place.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "cli/data_file_json_forms.hpp"

namespace quillspeech::cli::data_file_json {

using ParsedJson = nlohmann::json;  // sorted, so that a million keys in an object take no time

// No object may name a key twice, and nothing nests deeper than a data file does.
ParsedJson Parse(std::string_view json);

// Where in the JSON: "record 2, words 3, rating".
struct Place {
  const Place* outer;
  std::string_view name;
  std::int64_t number = -1;

  std::string Text() const;
};

[[noreturn]] void Refuse(const Place& place, const std::string& reason);

// For error messages: not too long, and as a JSON string.
std::string Shortened(std::string_view text);
std::string Quoted(std::string_view text);

using Keys = std::vector<std::string_view>;

// An object with no other keys than these.
void Expect_Object(const ParsedJson& json, const Place& place, const Keys& keys);
void Expect_List(const ParsedJson& json, const Place& place, std::size_t most);

std::string Bytes_Of_Hex(const ParsedJson& json, const Place& place);

// The text of a field of `width` bytes, padded.
std::string Text_From_Json(const ParsedJson& json, const Place& place, std::size_t width);
Sample Sample_From_Json(const ParsedJson& json, const Place& place);

template <std::integral Value>
Value Number_From_Json(const ParsedJson& json, const Place& place,
                       std::int64_t lowest = std::numeric_limits<Value>::min(),
                       std::int64_t highest = std::numeric_limits<Value>::max()) {
  constexpr std::uint64_t Most = std::numeric_limits<std::int64_t>::max();
  const bool is_huge = json.is_number_unsigned() && json.get<std::uint64_t>() > Most;
  if (!json.is_number_integer() || is_huge || json.get<std::int64_t>() < lowest ||
      json.get<std::int64_t>() > highest) {
    Refuse(place, Shortened(json.dump()) + " is no whole number from " + std::to_string(lowest) +
                      " to " + std::to_string(highest));
  }
  return json.get<Value>();
}

}  // namespace quillspeech::cli::data_file_json
