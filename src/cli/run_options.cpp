#include "cli/run_options.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <memory>
#include <thread>

#include "base/run_time_failure.hpp"
#include "base/text.hpp"
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

}  // namespace

void Add_Run_Options(CLI::App& command, RunOptions& options, LanguageNeed language) {
  auto* name = command.add_option("--language", options.language,
                                  "Language file (.SAY) with the words and their patterns");
  name->check(File_Name(), "")->type_name("FILE");
  if (language == LanguageNeed::Required) name->required();
  command
      .add_option("--engine", options.engine, "Engine file (.EGN); without one, the built-in table")
      ->check(File_Name(), "")
      ->type_name("FILE");
  Add_Setting_Option(command, options);
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

void Apply_Options(const RunOptions& options, Session& session) {
  Settings& settings = session.settings;
  if (!options.language.empty()) settings.Consider_this_Lang_File_to_match = options.language;
  if (!options.engine.empty()) settings.Consider_this_Engine_for_Recognition = options.engine;
  for (const auto& [name, text] : options.settings) Set_Setting(session, name, text);
  if (options.patterns_only || options.language.empty()) {
    settings.Enable_Artificial_Intelligence = "NO";
  }
}

namespace {

// The two whose getters do not answer what was set.
bool Answers_What_Was_Set(std::string_view name) {
  return name != "Keep_Digital_Signal_Processing_level" && name != "On_speech_show_activities";
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

bool Check_Setting(SessionOnFiles& trial, const std::string& name, const std::string& text,
                   std::ostream& err) {
  trial.boxes.shown.clear();
  SetResult result{};
  try {
    result = Set_Setting(trial.session, name, text);
  } catch (const RunTimeFailure& failure) {
    err << "quillspeech: --set " << name << "=" << text << ": " << failure.what() << "\n";
    return false;
  }
  for (const auto& shown : trial.boxes.shown) {
    err << "quillspeech: --set " << name << "=" << text << ": " << To_Utf8(Trim(shown.box.text))
        << "\n";
  }
  if (!Is_Accepted(result, name, err)) return false;
  const auto stored = Get_Setting(trial.session, name);
  if (Answers_What_Was_Set(name) && trial.boxes.shown.empty() && stored != Trimmed(text)) {
    err << "quillspeech: note: --set " << name << "=" << text << " leaves it at \"" << *stored
        << "\"\n";
  }
  return true;
}

void Note_Missing_File(const std::string& name, const char* kind, std::ostream& err) {
  std::error_code none;
  if (name.empty() || std::filesystem::exists(name, none)) return;
  err << "quillspeech: note: there is no " << kind << " file " << name
      << "; the recogniser creates it empty\n";
}

}  // namespace

namespace {

void Note_Matching_Without_Language(const RunOptions& options, Session& trial, std::ostream& err) {
  if (!options.language.empty()) return;
  trial.settings.Enable_Artificial_Intelligence = "NO";
  for (const auto& [name, text] : options.settings) Set_Setting(trial, name, text);
  if (trial.settings.Enable_Artificial_Intelligence != "YES") return;
  err << "quillspeech: note: without --language no words are looked for, so "
         "Enable_Artificial_Intelligence stays NO\n";
}

}  // namespace

bool Check_Options(const RunOptions& options, std::ostream& err) {
  const auto trial = std::make_unique<SessionOnFiles>();
  bool accepted = true;
  for (const auto& [name, text] : options.settings) {
    accepted = Check_Setting(*trial, name, text, err) && accepted;
  }
  if (!accepted) return false;
  Note_Matching_Without_Language(options, trial->session, err);
  Apply_Options(options, trial->session);
  const Settings& settings = trial->session.settings;
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
  for (auto& [distance, near] : by_distance) names.push_back(std::move(near));
  return names;
}

}  // namespace quillspeech::cli
