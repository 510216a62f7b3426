// What the commands that run sounds through the recogniser have in common on the command line.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "cli/console.hpp"
#include "cli/settings_file.hpp"
#include "session/session.hpp"

namespace CLI {
class App;
}

namespace quillspeech::cli {

enum class SoundPath { File, Live };

struct RunOptions {
  SoundPath path = SoundPath::File;
  std::string language;                                       // empty: that of the record
  std::string engine;                                         // empty: the built-in table
  std::string settings_file;                                  // empty: none
  std::shared_ptr<const SettingsRecord> record;               // what it holds; null: none
  std::vector<std::pair<std::string, std::string>> settings;  // names and texts, in order
  int pad_ms = 0;                                             // 0: as the file is
  int jobs = 1;                                               // 0: one for each core
  bool keep_slices = false;
  bool keep_graph = false;
  bool patterns_only = false;      // no language scan, whatever the settings say
  std::vector<std::string> files;  // "-": names on standard input
};

enum class LanguageNeed { Optional, Required };

// Declares the options that a session takes: --language, --engine and --set.
void Add_Session_Options(CLI::App& command, RunOptions& options, LanguageNeed language);

// Declares --settings; parsing loads the record.
void Add_Settings_File_Option(CLI::App& command, RunOptions& options);

// Declares these, those of a run over files, and the file names; parsing fills `options`, which
// must outlive it.
void Add_Run_Options(CLI::App& command, RunOptions& options, LanguageNeed language);

// Gives a fresh session the settings of the options: those of the record, then the language and the
// engine, then those that were set. Words are looked for in `language` or, without it, in the
// language file of the record when that exists.
void Apply_Options(const RunOptions& options, Session& session);

// Tries the settings on a session of its own and tells what the user should know: what is refused,
// what is stored otherwise, which file does not exist. False when the run must not begin.
bool Check_Options(const RunOptions& options, std::ostream& err);

// The data files that a run with these options reads; empty where it reads none.
struct UsedFiles {
  std::string language;
  std::string engine;
};
UsedFiles Used_Files(const RunOptions& options);  // Check_Options took them

// Up to three names of settings that look like the one given, nearest first.
std::vector<std::string> Nearest_Settings(const std::string& name);

int Worker_Count(const RunOptions& options);

}  // namespace quillspeech::cli
