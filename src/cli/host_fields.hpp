// What a request is read by: its fields, each of the type that it must have, or it is refused.
#pragma once

#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace quillspeech::cli::host_fields {

using Json = nlohmann::ordered_json;

// The object on that line.
Json Parsed(const std::string& line);

// A text or a whole number; null is none.
std::optional<Json> Id(const Json& request);

const Json& Field(const Json& request, const char* name);
const std::string& Text(const Json& request, const char* name);  // UTF-8, without U+0000
std::string Field_Text(const Json& request, const char* name);   // Windows-1252
const Json& Object(const Json& request, const char* name);
bool Truth(const Json& request, const char* name);
std::int64_t Whole_Number(const Json& request, const char* name,
                          std::int64_t least = std::numeric_limits<std::int64_t>::min(),
                          std::int64_t greatest = std::numeric_limits<std::int64_t>::max());
// The value as a whole number within the bounds, 100.0 also; the name is for the refusal.
std::int64_t As_Whole_Number(const Json& value, const std::string& name, std::int64_t least,
                             std::int64_t greatest);
// The text in Windows-1252; one with other characters is refused with that number.
std::string In_Windows_1252(const std::string& utf8, const std::string& name, int number = 0);

// As it stands in JSON, whatever characters it has.
std::string Quoted(const std::string& name);

}  // namespace quillspeech::cli::host_fields
