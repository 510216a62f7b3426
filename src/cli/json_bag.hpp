// The native property bag: a control's record as one JSON object, {"Noise_Sensitivity": 5, ...}.
//
// Texts are UTF-8 here and Windows-1252 in the control. What is kept is a string or a whole number;
// what is read may be a Boolean or a fraction too, and is converted. A null, a list, an object and
// a text with a character that Windows-1252 lacks cannot be converted (failure 13).
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "core/persistence.hpp"

namespace quillspeech::cli {

class JsonBag final : public PropertyBag {
 public:
  using Json = nlohmann::json;  // sorted: a key among very many is found at once

  JsonBag() = default;
  explicit JsonBag(Json record);  // an object, or BadJson

  MemberValue ReadProperty(std::string_view key, const MemberValue& unless_kept) override;
  void WriteProperty(std::string_view key, const MemberValue& value,
                     const MemberValue& unless_kept) override;

  // What is kept under the keys of a control, in the order in which it saves them.
  nlohmann::ordered_json Record() const;
  // What is kept under the key; null: nothing.
  const Json* Kept(std::string_view key) const;
  // The key that was read last, empty before the first.
  const std::string& Last_Key() const { return last_key_; }
  // Keys that no control asks for, sorted.
  std::vector<std::string> Unknown_Keys() const;

 private:
  Json record_ = Json::object();
  std::string last_key_;
};

// A value as JSON and back. Failure 13 as above; no value is null.
nlohmann::ordered_json Json_Of(const MemberValue& value);
MemberValue Value_Of_Json(const nlohmann::ordered_json& json);

}  // namespace quillspeech::cli
