#include "cli/json_bag.hpp"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>
#include <variant>

#include "base/run_time_failure.hpp"
#include "base/text.hpp"
#include "cli/data_file_json.hpp"

namespace quillspeech::cli {

JsonBag::JsonBag(Json record) : record_(std::move(record)) {
  if (!record_.is_object()) {
    throw BadJson(std::string("the record is no object but ") + record_.type_name());
  }
}

MemberValue JsonBag::ReadProperty(std::string_view key, const MemberValue& unless_kept) {
  last_key_ = key;
  const Json* const kept = Kept(key);
  return kept ? Value_Of_Json(*kept) : unless_kept;
}

void JsonBag::WriteProperty(std::string_view key, const MemberValue& value,
                            const MemberValue& unless_kept) {
  if (value == unless_kept) {
    record_.erase(std::string(key));
  } else {
    record_[std::string(key)] = Json_Of(value);
  }
}

nlohmann::ordered_json JsonBag::Record() const {
  auto record = nlohmann::ordered_json::object();
  for (const RecordKey& row : Record_Keys()) {
    if (const Json* const kept = Kept(row.key)) record[std::string(row.key)] = *kept;
  }
  return record;
}

const JsonBag::Json* JsonBag::Kept(std::string_view key) const {
  const auto kept = record_.find(key);
  return kept == record_.end() ? nullptr : &*kept;
}

std::vector<std::string> JsonBag::Unknown_Keys() const {
  std::vector<std::string> unknown;
  for (const auto& [key, value] : record_.items()) {
    const auto is_key = [&, &name = key](const RecordKey& row) { return row.key == name; };
    if (std::ranges::none_of(Record_Keys(), is_key)) unknown.push_back(key);
  }
  return unknown;
}

nlohmann::ordered_json Json_Of(const MemberValue& value) {
  struct ToJson {
    nlohmann::ordered_json operator()(std::monostate) const { return nullptr; }
    nlohmann::ordered_json operator()(const std::string& text) const { return To_Utf8(text); }
    nlohmann::ordered_json operator()(std::int16_t number) const { return number; }
    nlohmann::ordered_json operator()(std::int32_t number) const { return number; }
    nlohmann::ordered_json operator()(bool truth) const { return truth; }
  };
  return std::visit(ToJson(), value);
}

MemberValue Value_Of_Json(const nlohmann::ordered_json& json) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (json.is_boolean()) return json.get<bool>();
  if (json.is_string()) {
    auto text = From_Utf8(json.get_ref<const std::string&>());
    if (!text) Fail(Failure::Type_Mismatch);
    return *std::move(text);
  }
  if (!json.is_number()) Fail(Failure::Type_Mismatch);
  const double number = json.get<double>();
  if (json.is_number_integer() && number >= Limits::min() && number <= Limits::max()) {
    return json.get<std::int32_t>();
  }
  return json.dump();  // a fraction is rounded, and too large a number told of, where it is stored
}

}  // namespace quillspeech::cli
