#include "cli/data_file_json_values.hpp"

#include <algorithm>
#include <bit>
#include <charconv>
#include <set>

#include "base/text.hpp"

namespace quillspeech::cli::data_file_json {

std::string Place::Text() const {
  std::string text = outer ? outer->Text() + ", " : "";
  text += name;
  if (number >= 0) text += ' ' + std::to_string(number);
  return text;
}

void Refuse(const Place& place, const std::string& reason) {
  throw BadJson(place.Text() + ": " + reason);
}

std::string Shortened(std::string_view text) {
  constexpr std::size_t Most_Bytes = 200;
  if (text.size() <= Most_Bytes) return std::string(text);
  std::size_t end = Most_Bytes;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  return std::string(text.substr(0, end)) + "...";
}
std::string Quoted(std::string_view text) { return ParsedJson(Shortened(text)).dump(); }

void Expect_Object(const ParsedJson& json, const Place& place, const Keys& keys) {
  if (!json.is_object()) Refuse(place, std::string("is no object but ") + json.type_name());
  for (const auto& [key, value] : json.items()) {
    if (std::ranges::find(keys, key) != keys.end()) continue;
    std::string known;
    for (const std::string_view one : keys) known += (known.empty() ? "" : ", ") + std::string(one);
    Refuse(place, "has an unknown key " + Quoted(key) + "; known are " + known);
  }
}

void Expect_List(const ParsedJson& json, const Place& place, std::size_t most) {
  if (!json.is_array()) Refuse(place, std::string("is no list but ") + json.type_name());
  if (json.size() > most) {
    Refuse(place, "has " + std::to_string(json.size()) + " entries, and there is room for " +
                      std::to_string(most));
  }
}

std::string Bytes_Of_Hex(const ParsedJson& json, const Place& place) {
  if (!json.is_string())
    Refuse(place, std::string("is no text of hex digits but ") + json.type_name());
  const auto& hex = json.get_ref<const std::string&>();
  std::string bytes(hex.size() / 2, '\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    unsigned value = 0;
    const char* first = hex.data() + 2 * i;
    if (std::from_chars(first, first + 2, value, 16).ptr != first + 2)
      Refuse(place, "has a sign that is no hex digit");
    bytes[i] = static_cast<char>(value);
  }
  if (hex.size() % 2 != 0) Refuse(place, "has an odd number of hex digits");
  return bytes;
}

namespace {

std::string Bytes_Of_Hex(const ParsedJson& json, const Place& place, std::size_t count) {
  std::string bytes = Bytes_Of_Hex(json, place);
  if (bytes.size() != count) {
    Refuse(place, "has " + std::to_string(bytes.size()) + " bytes, and the field holds " +
                      std::to_string(count));
  }
  return bytes;
}

// The first character of a text that Windows-1252 lacks.
std::string Foreign_Character(std::string_view utf8) {
  for (std::size_t begin = 0, end = 0; begin < utf8.size(); begin = end) {
    do ++end;
    while (end < utf8.size() && (static_cast<unsigned char>(utf8[end]) & 0xC0) == 0x80);
    const auto character = utf8.substr(begin, end - begin);
    if (!From_Utf8(character)) return std::string(character);
  }
  return {};
}

}  // namespace

std::string Text_From_Json(const ParsedJson& json, const Place& place, std::size_t width) {
  if (json.is_object()) {
    Expect_Object(json, place, {"bytes", "erased"});
    if (json == ParsedJson{{"erased", true}}) return std::string(width, '\0');
    if (json.size() == 1 && json.contains("bytes"))
      return Bytes_Of_Hex(json["bytes"], place, width);
    Refuse(place, "is neither {\"erased\": true} nor {\"bytes\": \"...\"}");
  }
  if (!json.is_string()) Refuse(place, std::string("is no text but ") + json.type_name());
  const auto& utf8 = json.get_ref<const std::string&>();
  const auto text = From_Utf8(utf8);
  if (!text) {
    Refuse(place, Quoted(utf8) + " has the character " + Quoted(Foreign_Character(utf8)) +
                      ", which Windows-1252 lacks");
  }
  if (text->size() > width) {
    Refuse(place, Quoted(utf8) + " has " + std::to_string(text->size()) +
                      " characters, and the field holds " + std::to_string(width));
  }
  return Fixed(*text, width);
}

Sample Sample_From_Json(const ParsedJson& json, const Place& place) {
  if (json.is_number()) return std::bit_cast<Sample>(json.get<double>());
  if (!json.is_object()) Refuse(place, std::string("is no number but ") + json.type_name());
  Expect_Object(json, place, {"bits"});
  if (json.empty()) Refuse(place, "has no value");
  std::uint64_t bits = 0;
  for (const char byte : Bytes_Of_Hex(json["bits"], place, sizeof bits)) {
    bits = bits << 8 | static_cast<unsigned char>(byte);
  }
  return Sample{bits};
}

ParsedJson Parse(std::string_view json) {
  constexpr int Most_Depth = 16;
  std::vector<std::set<std::string>> keys;
  const auto watch = [&](int depth, ParsedJson::parse_event_t event, const ParsedJson& value) {
    using Event = ParsedJson::parse_event_t;
    if (depth > Most_Depth) throw BadJson("the JSON is nested too deep");
    if (event == Event::object_start) keys.emplace_back();
    if (event == Event::object_end) keys.pop_back();
    if (event == Event::key && !keys.back().insert(value.get<std::string>()).second) {
      throw BadJson("an object has the key " + Quoted(value.get<std::string>()) + " twice");
    }
    return true;
  };
  try {
    return ParsedJson::parse(json, watch);
  } catch (const ParsedJson::exception& error) {
    const std::string_view reason = error.what();  // "[json.exception...] parse error at line ..."
    throw BadJson("the file is no JSON: " + Shortened(reason.substr(reason.find(']') + 2)));
  }
}

}  // namespace quillspeech::cli::data_file_json
