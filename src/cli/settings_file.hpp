// A control's record in a file: what --settings loads and --save saves.
#pragma once

#include <iosfwd>
#include <stdexcept>
#include <string>
#include <vector>

#include "cli/json_bag.hpp"
#include "core/control.hpp"

namespace quillspeech::cli {

// Says which file, and which key if it is one: "my.json: Noise_Sensitivity \"many\": that is no
// number".
class SettingsFileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// What a run over files takes of a record: its settings, and not the results of the session that
// was saved with it.
struct SettingsRecord {
  Settings settings;
  bool names_language = false;  // the language file to match, which has a usual name, exists
  std::vector<std::string> unknown_keys;
  JsonBag record;  // for a control, which takes all of it
};

// Loads the record as a container does at run time. Throws FileError when the file cannot be read,
// and SettingsFileError when it is no record.
SettingsRecord Load_Settings_Record(const std::string& file);

// The record in the file, loaded into nothing yet. Throws FileError or SettingsFileError.
JsonBag Read_Settings_File(const std::string& file);

// Loads the record as a container does at run time. A value that cannot be converted and an index
// out of its table end the load where they stand, with a SettingsFileError.
void Load_Settings(const std::string& file, JsonBag& record, Session& session,
                   ControlInstance& instance);

// Tells of the keys that no control asks for; a load passes over them.
void Note_Unknown_Keys(const std::string& file, const std::vector<std::string>& keys,
                       std::ostream& err);

// All of it for a control: reads, notes and loads.
void Load_Settings_File(const std::string& file, Control& control, std::ostream& err);

// Saves the control as its container does, and replaces the file by the record, one key a line.
// Throws FileError, and SettingsFileError when an index lies outside its table.
void Save_Settings_File(const std::string& file, Control& control);

}  // namespace quillspeech::cli
