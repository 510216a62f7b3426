#include "cli/settings_file.hpp"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <ostream>
#include <span>
#include <string_view>
#include <system_error>

#include "base/run_time_failure.hpp"
#include "cli/data_file_json.hpp"
#include "cli/data_file_json_values.hpp"
#include "cli/files.hpp"
#include "cli/session_on_files.hpp"

namespace quillspeech::cli {
namespace {

std::string_view As_Text(std::span<const std::uint8_t> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// Whether the last key of all was read and its value is one that it takes.
bool Are_All_Keys_Stored(const JsonBag& record, Session& session, ControlInstance& instance) {
  const RecordKey& last = Record_Keys().back();
  if (record.Last_Key() != last.key) return false;
  try {
    const auto* value = record.Kept(last.key);
    if (value) last.store(session, instance, Value_Of_Json(*value));
    return true;
  } catch (const RunTimeFailure&) {
    return false;
  }
}

std::string_view Reason(const std::string& key, const RunTimeFailure& failure) {
  if (failure.What() != Failure::Type_Mismatch) return failure.what();
  const StoredType type = std::ranges::find(Record_Keys(), key, &RecordKey::key)->type;
  return type == StoredType::Text ? "that is no text in Windows-1252" : "that is no number";
}

// Where a load ended, and why. All that can fail behind the last key is the length of a capture.
std::string Load_Complaint(const JsonBag& record, Session& session, ControlInstance& instance,
                           const RunTimeFailure& failure) {
  if (Are_All_Keys_Stored(record, session, instance)) {
    return "the sampling time holds more samples than 32 bits count";
  }
  const std::string& key = record.Last_Key();
  std::string complaint = key;
  if (const auto* value = record.Kept(key)) {
    complaint += " " + data_file_json::Shortened(
                           value->dump(-1, ' ', false, JsonBag::Json::error_handler_t::replace));
  }
  return complaint.append(": ").append(Reason(key, failure));
}

}  // namespace

JsonBag Read_Settings_File(const std::string& file) {
  const auto bytes = Read_Whole_File(file);
  try {
    return JsonBag(data_file_json::Parse(As_Text(bytes)));
  } catch (const BadJson& error) {
    throw SettingsFileError(file + ": " + error.what());
  }
}

void Load_Settings(const std::string& file, JsonBag& record, Session& session,
                   ControlInstance& instance) {
  try {
    UserControl_ReadProperties(session, instance, record);
  } catch (const RunTimeFailure& failure) {
    throw SettingsFileError(file + ": " + Load_Complaint(record, session, instance, failure));
  }
}

void Note_Unknown_Keys(const std::string& file, const std::vector<std::string>& keys,
                       std::ostream& err) {
  for (const std::string& key : keys) {
    err << "quillspeech: note: " << file << ": no control keeps " << data_file_json::Quoted(key)
        << "\n";
  }
}

SettingsRecord Load_Settings_Record(const std::string& file) {
  JsonBag bag = Read_Settings_File(file);
  const auto loaded = std::make_unique<SessionOnFiles>();
  ControlInstance nobody;
  Load_Settings(file, bag, loaded->session, nobody);
  const Settings& settings = loaded->session.settings;
  const bool names_language = File_Exists(settings.Consider_this_Lang_File_to_match);
  return {settings, names_language, bag.Unknown_Keys(), bag};
}

void Load_Settings_File(const std::string& file, Control& control, std::ostream& err) {
  const auto self = control.shared_from_this();
  JsonBag record = Read_Settings_File(file);
  Note_Unknown_Keys(file, record.Unknown_Keys(), err);
  Load_Settings(file, record, control.session, control.instance);
}

void Save_Settings_File(const std::string& file, Control& control) {
  JsonBag record;
  try {
    UserControl_WriteProperties(control, record);
  } catch (const RunTimeFailure& failure) {
    throw SettingsFileError(file + ": " + failure.what());
  }
  const std::string json = record.Record().dump(2) + "\n";
  Write_Whole_File(file, {reinterpret_cast<const std::uint8_t*>(json.data()), json.size()});
}

}  // namespace quillspeech::cli
