#include "cli/run_options.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <thread>

#include "audio/live_capture.hpp"
#include "base/run_time_failure.hpp"
#include "base/text.hpp"
#include "cli/files.hpp"
#include "cli/option_checks.hpp"
#include "cli/session_on_files.hpp"
#include "core/settings_table.hpp"
#include "recognition/engine_table.hpp"

namespace quillspeech::cli {

namespace {

constexpr int Longest_Pad_ms = 3'600'000;
constexpr int Most_Jobs = 256;

void Add_Setting_Option(CLI::App& command, RunOptions& options) {
  command
      .add_option_function<std::vector<std::string>>(
          "--set",
          [&options](const std::vector<std::string>& typed) {
            for (const std::string& one : typed) {
              const auto equals = one.find('=');
              if (equals == 0 || equals == std::string::npos) {
                throw CLI::ValidationError("--set", "'" + one + "' is not Name=Value");
              }
              options.settings.emplace_back(one.substr(0, equals), one.substr(equals + 1));
            }
          },
          "Change a setting of the recogniser, such as Noise_Sensitivity=5; may be repeated")
      ->type_name("Name=Value")
      ->allow_extra_args(false);
}

// A pipe can be read once, and every session needs the record: it is loaded here.
void Load_Record(RunOptions& options, const std::string& file) {
  try {
    options.record = std::make_shared<const SettingsRecord>(Load_Settings_Record(file));
    options.settings_file = file;
  } catch (const std::runtime_error& error) {
    throw CLI::ValidationError("--settings", error.what());
  }
}

}  // namespace

void Add_Settings_File_Option(CLI::App& command, RunOptions& options) {
  command
      .add_option_function<std::string>(
          "--settings", [&options](const std::string& file) { Load_Record(options, file); },
          "Settings of a control that was saved, as JSON; --set comes after it")
      ->type_name("FILE");
}

void Add_Session_Options(CLI::App& command, RunOptions& options, LanguageNeed language) {
  auto* name = command.add_option("--language", options.language,
                                  "Language file (.SAY) with the words and their patterns");
  name->check(File_Name(), "")->type_name("FILE");
  if (language == LanguageNeed::Required) name->required();
  command
      .add_option("--engine", options.engine, "Engine file (.EGN); without one, the built-in table")
      ->check(File_Name(), "")
      ->type_name("FILE");
  Add_Setting_Option(command, options);
}

void Add_Run_Options(CLI::App& command, RunOptions& options, LanguageNeed language) {
  Add_Session_Options(command, options, language);
  Add_Settings_File_Option(command, options);
  command
      .add_option_function<std::string>(
          "--path",
          [&options](const std::string& typed) {
            options.path = typed == "live" ? SoundPath::Live : SoundPath::File;
          },
          "Analyse as a file, with its descent into long words, or as one live capture; as a file "
          "when not given")
      ->check(One_Of({"file", "live"}), "")
      ->type_name("file|live");
  command
      .add_option("--pad", options.pad_ms,
                  "Surround each sound with silence to a capture of so many milliseconds")
      ->check(Whole_Number(0, Longest_Pad_ms), "")
      ->type_name("MS");
  command
      .add_option("--jobs", options.jobs,
                  "Files to work on at once, 1 when not given; 0 takes every core")
      ->check(Whole_Number(0, Most_Jobs), "")
      ->type_name("N");
  command.add_option("WAV", options.files, "Sounds; - reads names from standard input, one a line")
      ->type_name("")
      ->required();
}

int Worker_Count(const RunOptions& options) {
  if (options.jobs > 0) return options.jobs;
  return static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1U, unsigned{Most_Jobs}));
}

namespace {

void Apply_Record(const RunOptions& options, Session& session) {
  if (!options.record) return;
  session.settings = options.record->settings;
  session.sample.Samples_Per_Capture = Promised_Samples(session.settings);
}

// Whether the run is told which words to look for.
bool Has_Language(const RunOptions& options) {
  return !options.language.empty() || (options.record && options.record->names_language);
}

}  // namespace

void Apply_Options(const RunOptions& options, Session& session) {
  Apply_Record(options, session);
  Settings& settings = session.settings;
  if (!options.language.empty()) settings.Consider_this_Lang_File_to_match = options.language;
  if (!options.engine.empty()) settings.Consider_this_Engine_for_Recognition = options.engine;
  for (const auto& [name, text] : options.settings) Set_Setting(session, name, text);
  if (options.patterns_only || !Has_Language(options)) {
    settings.Enable_Artificial_Intelligence = "NO";
  }
}

namespace {

bool Answers_What_Was_Set(std::string_view name) {
  const Member* get = Find_Member(name, Access::Get);
  return get && get->answers_what_was_set;
}

void Name_Alternatives(const std::string& name, std::ostream& err) {
  const auto nearest = Nearest_Settings(name);
  for (std::size_t i = 0; i < nearest.size(); ++i) {
    err << (i == 0 ? "; did you mean " : i + 1 == nearest.size() ? " or " : ", ") << nearest[i];
  }
}

bool Is_Accepted(SetResult result, const std::string& name, std::ostream& err) {
  if (result == SetResult::No_Such_Setting) {
    err << "quillspeech: --set: no setting is called " << name;
    Name_Alternatives(name, err);
    err << "\n";
  }
  if (result == SetResult::Is_Result) {
    err << "quillspeech: --set: " << name << " is a result, not a setting\n";
  }
  return result == SetResult::Done || result == SetResult::Replaced;
}

// The session that the settings are tried on, and the instance that the control adds to it.
struct Trial {
  SessionOnFiles on_files;
  ControlInstance instance;
};

bool Check_Setting(Trial& trial, const std::string& name, const std::string& text,
                   std::ostream& err) {
  Session& session = trial.on_files.session;
  auto& shown_boxes = trial.on_files.boxes.shown;
  shown_boxes.clear();
  const std::string wave_file = session.settings.Open_this_Wave_File;
  SetResult result{};
  try {
    result = Set_Setting(session, trial.instance, name, text);
  } catch (const RunTimeFailure& failure) {
    err << "quillspeech: --set " << name << "=" << text << ": " << failure.what() << "\n";
    return false;
  }
  for (const auto& shown : shown_boxes) {
    err << "quillspeech: --set " << name << "=" << text << ": " << To_Utf8(Trim(shown.box.text))
        << "\n";
  }
  if (!Is_Accepted(result, name, err)) return false;
  const auto stored = Get_Setting(session, trial.instance, name);
  if (Answers_What_Was_Set(name) && shown_boxes.empty() && stored != Trimmed(text)) {
    err << "quillspeech: note: --set " << name << "=" << text << " leaves it at \"" << *stored
        << "\"\n";
  }
  if (session.settings.Open_this_Wave_File != wave_file) {
    err << "quillspeech: note: --set " << name << "=" << text
        << " has no effect; the sounds are the WAV files that the command names\n";
  }
  return true;
}

void Note_Missing_File(const std::string& name, const char* kind, std::ostream& err) {
  if (name.empty() || File_Exists(name)) return;
  err << "quillspeech: note: there is no " << kind << " file " << name
      << "; the recogniser creates it empty\n";
}

}  // namespace

namespace {

void Note_Lost_Language(const RunOptions& options, const Session& trial, std::ostream& err) {
  if (trial.settings.Enable_Artificial_Intelligence != "YES") return;
  const std::string& file = options.record->settings.Consider_this_Lang_File_to_match;
  err << "quillspeech: note: " << options.settings_file << ": "
      << (file.empty() ? "no language file is named" : "there is no language file " + To_Utf8(file))
      << ", so without --language no words are looked for\n";
}

void Note_Matching_Without_Language(const RunOptions& options, Session& trial, std::ostream& err) {
  if (Has_Language(options)) return;
  if (options.record) return Note_Lost_Language(options, trial, err);
  trial.settings.Enable_Artificial_Intelligence = "NO";
  for (const auto& [name, text] : options.settings) Set_Setting(trial, name, text);
  if (trial.settings.Enable_Artificial_Intelligence != "YES") return;
  err << "quillspeech: note: without --language no words are looked for, so "
         "Enable_Artificial_Intelligence stays NO\n";
}

}  // namespace

bool Check_Options(const RunOptions& options, std::ostream& err) {
  const auto trial = std::make_unique<Trial>();
  Session& session = trial->on_files.session;
  if (options.record) Note_Unknown_Keys(options.settings_file, options.record->unknown_keys, err);
  Apply_Record(options, session);
  bool accepted = true;
  for (const auto& [name, text] : options.settings) {
    accepted = Check_Setting(*trial, name, text, err) && accepted;
  }
  if (!accepted) return false;
  Note_Matching_Without_Language(options, session, err);
  Apply_Options(options, session);
  const Settings& settings = session.settings;
  if (settings.Enable_Artificial_Intelligence == "YES") {
    Note_Missing_File(settings.Consider_this_Lang_File_to_match, "language", err);
  }
  if (Is_Engine_File_Name(settings.Consider_this_Engine_for_Recognition)) {
    Note_Missing_File(settings.Consider_this_Engine_for_Recognition, "engine", err);
  }
  return true;
}

UsedFiles Used_Files(const RunOptions& options) {
  const auto trial = std::make_unique<SessionOnFiles>();
  Apply_Options(options, trial->session);
  const Settings& settings = trial->session.settings;
  UsedFiles used;
  if (settings.Enable_Artificial_Intelligence == "YES") {
    used.language = settings.Consider_this_Lang_File_to_match;
  }
  if (Is_Engine_File_Name(settings.Consider_this_Engine_for_Recognition)) {
    used.engine = settings.Consider_this_Engine_for_Recognition;
  }
  return used;
}

std::vector<std::string> Nearest_Settings(const std::string& name) {
  constexpr std::size_t Most_Names = 3;
  const std::string wanted = Lower_Case(name);
  std::vector<std::pair<std::size_t, std::string>> by_distance;
  for (const Member& member : Setting_Members()) {
    const std::string candidate = Lower_Case(member.name);
    const std::size_t distance = Letters_Between(wanted, candidate);
    const bool is_part = wanted.size() >= 4 && candidate.find(wanted) != std::string::npos;
    if (is_part || distance <= std::max<std::size_t>(2, name.size() / 3)) {
      by_distance.emplace_back(distance, member.name);
    }
  }
  std::stable_sort(by_distance.begin(), by_distance.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  if (by_distance.size() > Most_Names) by_distance.resize(Most_Names);
  std::vector<std::string> names;
  names.reserve(by_distance.size());
  for (auto& [distance, candidate] : by_distance) names.push_back(std::move(candidate));
  return names;
}

}  // namespace quillspeech::cli
