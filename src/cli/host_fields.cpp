#include "cli/host_fields.hpp"

#include <cmath>
#include <limits>
#include <utility>

#include "base/text.hpp"
#include "cli/host_failure.hpp"

namespace quillspeech::cli::host_fields {

namespace {

// Nothing that a request holds stands deeper, and what does would be walked by recursion.
constexpr int Deepest = 16;

using Limits = std::numeric_limits<std::int64_t>;

[[noreturn]] void Refuse(const std::string& name, const std::string& must_be, int number = 0) {
  throw RefusedRequest(Quoted(name) + " must be " + must_be, number);
}

// A fraction of 0 is none: 100.0 is 100.
std::optional<std::int64_t> Whole(const Json& value) {
  if (value.is_number_unsigned() && value.get<std::uint64_t>() > std::uint64_t{Limits::max()}) {
    return std::nullopt;
  }
  if (value.is_number_integer()) return value.get<std::int64_t>();
  if (!value.is_number_float()) return std::nullopt;
  const auto number = value.get<double>();
  constexpr double Too_Great = 9'223'372'036'854'775'808.0;  // the first that 64 bits lack
  const bool fits = number >= -Too_Great && number < Too_Great && std::trunc(number) == number;
  return fits ? std::optional(static_cast<std::int64_t>(number)) : std::nullopt;
}

}  // namespace

std::string Quoted(const std::string& name) { return Json(name).dump(); }

Json Parsed(const std::string& line) {
  bool is_too_deep = false;
  const auto watch = [&](int depth, Json::parse_event_t, const Json&) {
    if (depth > Deepest) is_too_deep = true;
    return depth <= Deepest;
  };
  Json request = Json::parse(line, watch, false);
  if (is_too_deep) throw RefusedRequest("the line is nested too deeply");
  if (request.is_discarded())
    throw RefusedRequest(
        "the line cannot be read: it must be JSON in UTF-8, each of "
        "its numbers one that a double holds, and no surrogate without its pair");
  if (!request.is_object()) throw RefusedRequest("the line is no JSON object");
  return request;
}

std::optional<Json> Id(const Json& request) {
  const auto id = request.find("id");
  if (id == request.end() || id->is_null()) return std::nullopt;
  if (!id->is_string() && !id->is_number_integer()) {
    Refuse("id", "a text or a whole number of 64 bits, without a fraction");
  }
  return *id;
}

const Json& Field(const Json& request, const char* name) {
  const auto field = request.find(name);
  if (field == request.end()) throw RefusedRequest("the request needs " + Quoted(name));
  return *field;
}

const std::string& Text(const Json& request, const char* name) {
  const Json& field = Field(request, name);
  if (!field.is_string()) Refuse(name, "a text");
  const auto& text = field.get_ref<const std::string&>();
  if (text.find('\0') != std::string::npos) Refuse(name, "a text without the character U+0000");
  return text;
}

std::string Field_Text(const Json& request, const char* name) {
  return In_Windows_1252(Text(request, name), name);
}

std::string In_Windows_1252(const std::string& utf8, const std::string& name, int number) {
  auto text = From_Utf8(utf8);
  if (!text) Refuse(name, "a text of characters that Windows-1252 has", number);
  return *std::move(text);
}

const Json& Object(const Json& request, const char* name) {
  const Json& field = Field(request, name);
  if (!field.is_object()) Refuse(name, "an object");
  return field;
}

bool Truth(const Json& request, const char* name) {
  const Json& field = Field(request, name);
  if (!field.is_boolean()) Refuse(name, "true or false");
  return field.get<bool>();
}

std::int64_t Whole_Number(const Json& request, const char* name, std::int64_t least,
                          std::int64_t greatest) {
  return As_Whole_Number(Field(request, name), name, least, greatest);
}

std::int64_t As_Whole_Number(const Json& value, const std::string& name, std::int64_t least,
                             std::int64_t greatest) {
  const auto number = Whole(value);
  if (number && *number >= least && *number <= greatest) return *number;
  const bool is_any = least == Limits::min() && greatest == Limits::max();
  const auto bounds = " from " + std::to_string(least) + " to " + std::to_string(greatest);
  Refuse(name, "a whole number" + (is_any ? "" : bounds));
}

}  // namespace quillspeech::cli::host_fields
