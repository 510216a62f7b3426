#include <charconv>
#include <concepts>
#include <functional>
#include <limits>
#include <set>
#include <type_traits>

#include "cli/data_file_json.hpp"
#include "cli/data_file_json_forms.hpp"
#include "cli/data_file_json_values.hpp"

namespace quillspeech::cli {
namespace {

using namespace data_file_json;

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

}  // namespace

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

}  // namespace quillspeech::cli
