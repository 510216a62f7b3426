#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <concepts>
#include <functional>
#include <nlohmann/json.hpp>
#include <sstream>

#include "base/text.hpp"
#include "cli/data_file_json.hpp"
#include "cli/data_file_json_forms.hpp"

namespace quillspeech::cli {
namespace {

using namespace data_file_json;
using Json = nlohmann::ordered_json;

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

}  // namespace

void Data_File_To_Json(DataFileKind kind, std::span<const std::uint8_t> bytes, std::ostream& out) {
  out << "{\n  \"kind\": \"" << Kind_Name(kind) << "\",\n  \"records\": [";
  With_Record(kind, [&]<class Record>() { File_To_Json<Record>(bytes, out); });
  out << "\n}\n";
}

std::string Text_As_Json(std::string_view text) {
  std::ostringstream line;
  Print(Json_Of(text), 9, line);
  return line.str();
}

}  // namespace quillspeech::cli
