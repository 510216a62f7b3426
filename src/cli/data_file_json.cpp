#include "cli/data_file_json.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <concepts>
#include <functional>
#include <limits>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <tuple>

#include "base/text.hpp"
#include "datafiles/records.hpp"

namespace quillspeech::cli {
namespace {

using datafiles::EgnRecord;
using datafiles::SayRecord;
using datafiles::VocRecord;
using Json = nlohmann::ordered_json;
using ParsedJson = nlohmann::json;  // sorted, so that a million keys in an object take no time

// A field or column of a record: its key and what reads and writes it.
template <class Get, class Set>
struct Access {
  const char* key;
  Get get;
  Set set;
};
template <class Record, class Value>
constexpr auto Field(const char* key, Value (Record::*get)() const, void (Record::*set)(Value)) {
  return Access<decltype(get), decltype(set)>{key, get, set};
}
template <class Record, class Value>
constexpr auto Column(const char* key, Value (Record::*get)(std::int64_t) const,
                      void (Record::*set)(std::int64_t, Value)) {
  return Access<decltype(get), decltype(set)>{key, get, set};
}

// Columns that share a count, which covers the elements 1 to count. The array begins at `lowest`.
template <class Count, class... Columns>
struct List {
  const char* key;
  const char* unused_key;
  std::int64_t lowest;
  std::int64_t last;
  Count count;
  std::tuple<Columns...> columns;
};
template <class Count, class... Columns>
constexpr auto Make_List(const char* key, const char* unused_key, std::int64_t lowest,
                         std::int64_t last, Count count, Columns... columns) {
  return List<Count, Columns...>{key, unused_key, lowest, last, count, {columns...}};
}

// A sample goes by its bits: as a number, not every one survives being handed around.
enum class Sample : std::uint64_t {};
constexpr std::size_t Samples_Offset = 24;

Sample Get_Sample(const VocRecord& record, std::int64_t index) {
  const auto bytes = record.Bytes().subspan(Samples_Offset + 8 * static_cast<std::size_t>(index));
  std::uint64_t bits = 0;
  for (std::size_t i = 0; i < 8; ++i) bits |= std::uint64_t{bytes[i]} << (8 * i);
  return Sample{bits};
}
void Set_Sample(VocRecord& record, std::int64_t index, Sample sample) {
  const auto bytes = record.Bytes().subspan(Samples_Offset + 8 * static_cast<std::size_t>(index));
  const auto bits = static_cast<std::uint64_t>(sample);
  for (std::size_t i = 0; i < 8; ++i) bytes[i] = static_cast<std::uint8_t>(bits >> (8 * i));
}

// The fields and lists of each record, in the order of its JSON.
template <class Record>
struct Form;

template <>
struct Form<SayRecord> {
  using R = SayRecord;
  static constexpr auto fields =
      std::tuple(Field("FileCopyright", &R::FileCopyright, &R::FileCopyright),
                 Field("FileDescription", &R::FileDescription, &R::FileDescription),
                 Field("WordFont", &R::WordFont, &R::WordFont),
                 Field("DivisionCount", &R::DivisionCount, &R::DivisionCount),
                 Field("DivisionByteLength", &R::DivisionByteLength, &R::DivisionByteLength));
  static constexpr auto lists = std::tuple(
      Make_List("words", "unused_words", 1, R::Most_Words,
                Field("WordCount", &R::WordCount, &R::WordCount),
                Column("word", &R::Words, &R::Words),
                Column("rating", &R::WordRatings, &R::WordRatings)),
      Make_List("patterns", "unused_patterns", 1, R::Most_Likes,
                Field("LikeCount", &R::LikeCount, &R::LikeCount),
                Column("pattern", &R::LikeProtocols, &R::LikeProtocols),
                Column("rating", &R::LikeRatings, &R::LikeRatings)),
      Make_List("differentiators", "unused_differentiators", 1, R::Most_Differentiators,
                Field("DifferentiatorCount", &R::DifferentiatorCount, &R::DifferentiatorCount),
                Column("EngineCode", &R::EngineCodes, &R::EngineCodes),
                Column("SlotNumber", &R::SlotNumbers, &R::SlotNumbers),
                Column("EngineCodeWeight", &R::EngineCodeWeights, &R::EngineCodeWeights)));
};

template <>
struct Form<EgnRecord> {
  static constexpr auto fields = std::tuple();
  static constexpr auto lists = std::tuple();
};

template <>
struct Form<VocRecord> {
  using R = VocRecord;
  static constexpr auto fields =
      std::tuple(Field("VocabularyName", &R::VocabularyName, &R::VocabularyName));
  static constexpr auto lists = std::tuple(Make_List(
      "VocabularySamples", "unused_samples", 0, R::Last_Sample,
      Field("VocabularySampleCount", &R::VocabularySampleCount, &R::VocabularySampleCount),
      Access<decltype(&Get_Sample), decltype(&Set_Sample)>{"value", &Get_Sample, &Set_Sample}));
};
constexpr const char* Slots_Key = "EngineSlots";

// Calls step<Record>() with the record of the kind.
template <class Step>
auto With_Record(DataFileKind kind, const Step& step) {
  switch (kind) {
    case DataFileKind::Language:
      return step.template operator()<SayRecord>();
    case DataFileKind::Engine:
      return step.template operator()<EgnRecord>();
    default:
      return step.template operator()<VocRecord>();
  }
}

// Calls step(part) for each part of a tuple.
template <class Tuple, class Step>
void For_Each(const Tuple& parts, const Step& step) {
  std::apply([&](const auto&... part) { (step(part), ...); }, parts);
}

std::string Hex(std::string_view bytes) {
  constexpr std::string_view Digits = "0123456789abcdef";
  std::string hex;
  for (const char byte : bytes) {
    hex += Digits[static_cast<unsigned char>(byte) >> 4];
    hex += Digits[static_cast<unsigned char>(byte) & 15];
  }
  return hex;
}

std::string_view As_Text(std::span<const std::uint8_t> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

bool Is_Control(char character) {
  const auto byte = static_cast<unsigned char>(character);
  return byte < 0x20 || byte == 0x7F || byte == 0x81 || byte == 0x8D || byte == 0x8F ||
         byte == 0x90 || byte == 0x9D;
}

bool Is_Zero(std::string_view text) { return text.find_first_not_of('\0') == text.npos; }
bool Is_Zero(std::int64_t number) { return number == 0; }
bool Is_Zero(Sample sample) { return sample == Sample{0}; }

Json Json_Of(std::string_view text) {
  if (!text.empty() && Is_Zero(text)) return {{"erased", true}};
  if (std::ranges::any_of(text, Is_Control)) return {{"bytes", Hex(text)}};
  return To_Utf8(text.substr(0, text.find_last_not_of(' ') + 1));
}
Json Json_Of(std::int64_t number) { return number; }
Json Json_Of(Sample sample) {
  const auto value = std::bit_cast<double>(sample);
  if (std::isfinite(value) && (value != 0 || !std::signbit(value))) return value;
  std::string bytes(8, '\0');
  for (std::size_t i = 0; i < 8; ++i) {
    bytes[i] = static_cast<char>(static_cast<std::uint64_t>(sample) >> (56 - 8 * i) & 0xFF);
  }
  return {{"bits", Hex(bytes)}};
}

// A list's entry: an object of its columns, or the value itself when there is just one column.
template <class Record, class... Columns>
Json Entry_To_Json(const Record& record, const std::tuple<Columns...>& columns,
                   std::int64_t index) {
  if constexpr (sizeof...(Columns) == 1) {
    return Json_Of(std::invoke(std::get<0>(columns).get, record, index));
  }
  Json entry = Json::object();
  For_Each(columns, [&](const auto& column) {
    entry[column.key] = Json_Of(std::invoke(column.get, record, index));
  });
  return entry;
}

// What an element above the count holds besides zeros; null when it holds nothing.
template <class Record, class... Columns>
Json Unused_To_Json(const Record& record, const std::tuple<Columns...>& columns,
                    std::int64_t index) {
  Json entry;
  For_Each(columns, [&](const auto& column) {
    const auto value = std::invoke(column.get, record, index);
    if (Is_Zero(value)) return;
    entry["index"] = index;
    entry[column.key] = Json_Of(value);
  });
  return entry;
}

template <class Record, class List>
void List_To_Json(const Record& record, const List& list, Json& object) {
  const std::int64_t count = std::invoke(list.count.get, record);
  const std::int64_t used = std::clamp<std::int64_t>(count, 0, list.last);
  if (count != used) object[list.count.key] = count;
  Json& entries = object[list.key] = Json::array();
  for (std::int64_t i = 1; i <= used; ++i) {
    entries.push_back(Entry_To_Json(record, list.columns, i));
  }
  Json unused = Json::array();
  for (std::int64_t i = list.lowest; i <= list.last; ++i) {
    if (i >= 1 && i <= used) continue;
    Json entry = Unused_To_Json(record, list.columns, i);
    if (!entry.is_null()) unused.push_back(std::move(entry));
  }
  if (!unused.empty()) object[list.unused_key] = std::move(unused);
}

template <class Record>
Json Record_To_Json(const Record& record) {
  Json object = {{"RecordNo", record.RecordNo()}};
  For_Each(Form<Record>::fields,
           [&](const auto& field) { object[field.key] = Json_Of(std::invoke(field.get, record)); });
  For_Each(Form<Record>::lists, [&](const auto& list) { List_To_Json(record, list, object); });
  if constexpr (std::same_as<Record, EgnRecord>) {
    Json& slots = object[Slots_Key] = Json::object();
    for (int category = 0; category <= EgnRecord::Last_Slot; ++category) {
      Json text = Json_Of(record.EngineSlots(category));
      const bool is_blank = text.is_string() && text.get_ref<const std::string&>().empty();
      if (!is_blank) slots[std::to_string(category)] = std::move(text);
    }
  }
  return object;
}

std::string Scalar_Text(const Json& value) {
  if (!value.is_number_float()) return value.dump();
  std::array<char, 32> digits;
  const auto end = std::to_chars(digits.begin(), digits.end(), value.get<double>()).ptr;
  return {digits.begin(), end};  // the fewest digits that give the same value
}

// Prints a record over lines and each entry of its lists on one.
void Print(const Json& value, std::size_t depth, std::ostream& out) {
  constexpr std::size_t Entry_Depth = 2;
  if (!value.is_structured()) {
    out << Scalar_Text(value);
    return;
  }
  const bool on_one_line = value.empty() || depth >= Entry_Depth ||
                           (value.is_object() && value.size() == 1 && depth > 0);
  const std::string line = on_one_line ? "" : "\n" + std::string(2 * depth + 6, ' ');
  out << (value.is_object() ? '{' : '[') << line;
  for (auto item = value.begin(); item != value.end(); ++item) {
    if (item != value.begin()) out << (on_one_line ? ", " : "," + line);
    if (value.is_object()) out << Json(item.key()).dump() << ": ";
    Print(*item, depth + 1, out);
  }
  if (!on_one_line) out << '\n' << std::string(2 * depth + 4, ' ');
  out << (value.is_object() ? '}' : ']');
}

template <class Record>
void File_To_Json(std::span<const std::uint8_t> bytes, std::ostream& out) {
  const char* between = "\n    ";
  Record record;
  for (; bytes.size() >= Record::Record_Bytes; bytes = bytes.subspan(Record::Record_Bytes)) {
    std::ranges::copy(bytes.first(Record::Record_Bytes), record.Bytes().begin());
    out << between;
    Print(Record_To_Json(record), 0, out);
    between = ",\n    ";
  }
  if (*between == ',') out << "\n  ";
  out << ']';
  if (!bytes.empty()) out << ",\n  \"tail\": \"" << Hex(As_Text(bytes)) << '"';
}

// Where in the JSON: "record 2, words 3, rating".
struct Place {
  const Place* outer;
  std::string_view name;
  std::int64_t number = -1;

  std::string Text() const {
    std::string text = outer ? outer->Text() + ", " : "";
    text += name;
    if (number >= 0) text += ' ' + std::to_string(number);
    return text;
  }
};

[[noreturn]] void Refuse(const Place& place, const std::string& reason) {
  throw BadJson(place.Text() + ": " + reason);
}

// For error messages: not too long, and as a JSON string.
std::string Shortened(std::string_view text) {
  constexpr std::size_t Most_Bytes = 200;
  if (text.size() <= Most_Bytes) return std::string(text);
  std::size_t end = Most_Bytes;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  return std::string(text.substr(0, end)) + "...";
}
std::string Quoted(std::string_view text) { return ParsedJson(Shortened(text)).dump(); }

using Keys = std::vector<std::string_view>;

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

// The text of a field of `width` bytes, padded.
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

// Stores the JSON in the field or element that `access` leads to.
template <class Record, class Access, class... Index>
void Store(const ParsedJson& json, const Place& place, Record& record, const Access& access,
           Index... index) {
  const auto old = std::invoke(access.get, record, index...);
  using Value = std::remove_const_t<decltype(old)>;
  if constexpr (std::same_as<Value, std::string_view>) {
    std::invoke(access.set, record, index..., Text_From_Json(json, place, old.size()));
  } else if constexpr (std::same_as<Value, Sample>) {
    std::invoke(access.set, record, index..., Sample_From_Json(json, place));
  } else {
    std::invoke(access.set, record, index..., Number_From_Json<Value>(json, place));
  }
}

// The same for a member that may be missing; a field or a counted element is then blank or 0.
template <class Record, class Access, class... Index>
void Store_Member(const ParsedJson& object, const Place& place, Record& record,
                  const Access& access, bool blank_when_missing, Index... index) {
  const auto member = object.find(access.key);
  if (member != object.end()) {
    Store(*member, Place{&place, access.key}, record, access, index...);
  } else if constexpr (std::same_as<decltype(std::invoke(access.get, record, index...)),
                                    std::string_view>) {
    if (blank_when_missing) std::invoke(access.set, record, index..., "");
  }
}

template <class... Columns>
Keys Keys_Of(const std::tuple<Columns...>& columns) {
  Keys keys;
  For_Each(columns, [&](const auto& column) { keys.push_back(column.key); });
  return keys;
}

template <class Record, class... Columns>
void Entry_From_Json(const ParsedJson& json, const Place& place, Record& record,
                     const std::tuple<Columns...>& columns, std::int64_t index) {
  if constexpr (sizeof...(Columns) == 1) {
    Store(json, place, record, std::get<0>(columns), index);
  } else {
    Expect_Object(json, place, Keys_Of(columns));
    For_Each(columns,
             [&](const auto& column) { Store_Member(json, place, record, column, true, index); });
  }
}

template <class Record, class List>
void Unused_From_Json(const ParsedJson& entries, const Place& place, Record& record,
                      const List& list, std::int64_t used) {
  Expect_List(entries, place, static_cast<std::size_t>(list.last - list.lowest + 1));
  Keys keys = Keys_Of(list.columns);
  keys.push_back("index");
  std::set<std::int64_t> seen;
  std::int64_t number = 0;
  for (const ParsedJson& entry : entries) {
    const Place here{&place, "entry", ++number};
    Expect_Object(entry, here, keys);
    if (!entry.contains("index")) Refuse(here, "has no index");
    const auto index = Number_From_Json<std::int64_t>(entry["index"], Place{&here, "index"},
                                                      list.lowest, list.last);
    if (index >= 1 && index <= used) Refuse(here, "has the index of a counted entry");
    if (!seen.insert(index).second) Refuse(here, "has the index of an entry before it");
    For_Each(list.columns,
             [&](const auto& column) { Store_Member(entry, here, record, column, false, index); });
  }
}

// The count is the number of entries; JSON may state it, or one that lies outside the array.
template <class Record, class List>
void Count_From_Json(const ParsedJson& object, const Place& place, Record& record, const List& list,
                     std::int64_t used) {
  std::invoke(list.count.set, record, static_cast<std::int16_t>(used));
  Store_Member(object, place, record, list.count, false);
  const std::int64_t count = std::invoke(list.count.get, record);
  if (count == used || count < 0 || count > list.last) return;
  Refuse(Place{&place, list.count.key}, "is " + std::to_string(count) + ", but " + list.key +
                                            " has " + std::to_string(used) + " entries");
}

template <class Record, class List>
void List_From_Json(const ParsedJson& object, const Place& place, Record& record,
                    const List& list) {
  std::int64_t used = 0;
  if (const auto entries = object.find(list.key); entries != object.end()) {
    Expect_List(*entries, Place{&place, list.key}, static_cast<std::size_t>(list.last));
    for (const ParsedJson& entry : *entries) {
      ++used;
      Entry_From_Json(entry, Place{&place, list.key, used}, record, list.columns, used);
    }
  }
  Count_From_Json(object, place, record, list, used);
  if (const auto entries = object.find(list.unused_key); entries != object.end()) {
    Unused_From_Json(*entries, Place{&place, list.unused_key}, record, list, used);
  }
}

// A slot that is not listed is blank.
void Slots_From_Json(const ParsedJson& object, const Place& outer, EgnRecord& record) {
  for (int category = 0; category <= EgnRecord::Last_Slot; ++category) {
    record.EngineSlots(category, "");
  }
  const auto slots = object.find(Slots_Key);
  if (slots == object.end()) return;
  const Place place{&outer, Slots_Key};
  if (!slots->is_object()) Refuse(place, std::string("is no object but ") + slots->type_name());
  for (const auto& [key, text] : slots->items()) {
    int category = -1;
    std::from_chars(key.data(), key.data() + key.size(), category);
    if (std::to_string(category) != key || category < 0 || category > EgnRecord::Last_Slot) {
      Refuse(place, "has an unknown key " + Quoted(key) + "; known are \"0\" to \"100\"");
    }
    Store(text, Place{&place, key}, record,
          Column("", &EgnRecord::EngineSlots, &EgnRecord::EngineSlots), category);
  }
}

template <class Record>
Keys Record_Keys() {
  Keys keys = Keys_Of(Form<Record>::fields);
  keys.insert(keys.begin(), "RecordNo");
  For_Each(Form<Record>::lists, [&](const auto& list) {
    keys.insert(keys.end(), {list.key, list.count.key, list.unused_key});
  });
  if constexpr (std::same_as<Record, EgnRecord>) keys.push_back(Slots_Key);
  return keys;
}

template <class Record>
Record Record_From_Json(const ParsedJson& json, std::int64_t position) {
  const Place place{nullptr, "record", position};
  Expect_Object(json, place, Record_Keys<Record>());
  Record record;
  record.RecordNo(static_cast<std::int32_t>(position));
  Store_Member(json, place, record, Field("RecordNo", &Record::RecordNo, &Record::RecordNo), false);
  For_Each(Form<Record>::fields,
           [&](const auto& field) { Store_Member(json, place, record, field, true); });
  For_Each(Form<Record>::lists,
           [&](const auto& list) { List_From_Json(json, place, record, list); });
  if constexpr (std::same_as<Record, EgnRecord>) Slots_From_Json(json, place, record);
  return record;
}

template <class Record>
std::vector<std::uint8_t> File_From_Json(const ParsedJson& json) {
  std::vector<std::uint8_t> file;
  if (const auto records = json.find("records"); records != json.end()) {
    Expect_List(*records, Place{nullptr, "records"}, std::numeric_limits<std::int32_t>::max());
    std::int64_t position = 0;
    for (const ParsedJson& one : *records) {
      const auto record = Record_From_Json<Record>(one, ++position);
      file.insert(file.end(), record.Bytes().begin(), record.Bytes().end());
    }
  }
  if (const auto hex = json.find("tail"); hex != json.end()) {
    const Place place{nullptr, "tail"};
    const std::string tail = Bytes_Of_Hex(*hex, place);
    if (tail.size() >= Record::Record_Bytes) Refuse(place, "has the bytes of a whole record");
    file.insert(file.end(), tail.begin(), tail.end());
  }
  return file;
}

// JSON to a tree. No object may name a key twice, and nothing nests deeper than a data file does.
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

}  // namespace

std::string_view Kind_Name(DataFileKind kind) {
  switch (kind) {
    case DataFileKind::Language:
      return "language";
    case DataFileKind::Engine:
      return "engine";
    case DataFileKind::Vocabulary:
      return "vocabulary";
  }
  return {};
}

std::optional<DataFileKind> Kind_Of_Name(std::string_view name) {
  for (const auto kind : {DataFileKind::Language, DataFileKind::Engine, DataFileKind::Vocabulary}) {
    if (Kind_Name(kind) == name) return kind;
  }
  return std::nullopt;
}

int Record_Bytes(DataFileKind kind) {
  return With_Record(kind, []<class Record>() { return Record::Record_Bytes; });
}

void Data_File_To_Json(DataFileKind kind, std::span<const std::uint8_t> bytes, std::ostream& out) {
  out << "{\n  \"kind\": \"" << Kind_Name(kind) << "\",\n  \"records\": [";
  With_Record(kind, [&]<class Record>() { File_To_Json<Record>(bytes, out); });
  out << "\n}\n";
}

std::vector<std::uint8_t> Data_File_From_Json(std::string_view text) {
  const ParsedJson json = Parse(text);
  const Place place{nullptr, "the file"};
  Expect_Object(json, place, {"kind", "records", "tail"});
  const auto kind = json.find("kind");
  if (kind == json.end())
    Refuse(place, "has no \"kind\": \"language\", \"engine\" or \"vocabulary\"");
  const auto known = kind->is_string() ? Kind_Of_Name(kind->get<std::string>()) : std::nullopt;
  if (!known)
    Refuse(Place{nullptr, "kind"}, "is none of \"language\", \"engine\" and \"vocabulary\"");
  return With_Record(*known, [&]<class Record>() { return File_From_Json<Record>(json); });
}

std::string Text_As_Json(std::string_view text) {
  std::ostringstream line;
  Print(Json_Of(text), 9, line);
  return line.str();
}

}  // namespace quillspeech::cli
