#include "cli/command_line.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <memory>
#include <optional>

#include "base/text.hpp"
#include "cli/data_tools.hpp"
#include "cli/devices.hpp"
#include "cli/evaluate.hpp"
#include "cli/exit_status.hpp"
#include "cli/files.hpp"
#include "cli/host.hpp"
#include "cli/learn.hpp"
#include "cli/listen.hpp"
#include "cli/members.hpp"
#include "cli/option_checks.hpp"
#include "cli/recognize.hpp"

namespace quillspeech::cli {

namespace {

constexpr const char* Version = "quillspeech " QUILLSPEECH_VERSION;
constexpr int Exit_Interrupted = 130;

// Everything that parsing fills.
struct CommandLine {
  CLI::App app{"Speech recognition of word lists: sounds in, ranked words out.", "quillspeech"};
  RecognizeOptions recognize;
  LearnOptions learn;
  EvaluateOptions evaluate;
  ListenOptions listen;
  DevicesOptions devices;
  int data_exit_status = Exit_Done;
  CLI::App* recognize_command = nullptr;
  CLI::App* learn_command = nullptr;
  CLI::App* evaluate_command = nullptr;
  CLI::App* listen_command = nullptr;
  CLI::App* devices_command = nullptr;

  explicit CommandLine(Console& console) {
    app.set_version_flag("--version", Version);
    app.require_subcommand(1);
    app.allow_windows_style_options(false);  // a path may begin with /, and no option does
    app.get_formatter()->label("SUBCOMMAND", "COMMAND");
    app.get_formatter()->label("REQUIRED", "(required)");
    app.footer("quillspeech COMMAND --help tells more of a command; so does man quillspeech.");
    recognize_command = &Add_Recognize_Command(app, recognize);
    learn_command = &Add_Learn_Command(app, learn);
    evaluate_command = &Add_Evaluate_Command(app, evaluate);
    listen_command = &Add_Listen_Command(app, listen);
    devices_command = &Add_Devices_Command(app, devices);
    Add_Data_Commands(app, console, data_exit_status);
    Add_Host_Command(app, console, data_exit_status);
    Add_Members_Command(app, console);
    for (CLI::App* const command : app.get_subcommands({})) command->group("Commands");
  }
};

int Run_Parsed(CommandLine& line, Console& console) {
  if (*line.recognize_command) return Recognize_Files(std::move(line.recognize), console);
  if (*line.learn_command) return Learn_Word(std::move(line.learn), console);
  if (*line.evaluate_command) return Evaluate_Files(std::move(line.evaluate), console);
  if (*line.listen_command) return Listen(line.listen, console);
  if (*line.devices_command) return Tell_Of_Devices(line.devices, console);
  return line.data_exit_status;
}

using Arguments = std::vector<std::string>;

// The first argument, when it stands where a command should and is none.
std::optional<std::string> Unknown_Command(const CommandLine& line, const Arguments& arguments) {
  if (arguments.empty() || arguments.front().starts_with('-')) return std::nullopt;
  for (const CLI::App* const command : line.app.get_subcommands({})) {
    if (command->get_name() == arguments.front()) return std::nullopt;
  }
  return arguments.front();
}

int Refuse_Command(const CommandLine& line, const std::string& name, std::ostream& err) {
  constexpr std::size_t Most_Letters = 2;
  err << "quillspeech: no command is called " << name;
  for (const CLI::App* const command : line.app.get_subcommands({})) {
    if (Letters_Between(Lower_Case(name), command->get_name()) > Most_Letters) continue;
    err << "; did you mean " << command->get_name() << "?";
    break;
  }
  err << "\nTry quillspeech --help.\n";
  return Exit_Wrong_Usage;
}

// The first argument that looks like an option and is more likely a sound.
std::optional<std::string> File_Taken_For_Option(const Arguments& arguments) {
  for (const std::string& argument : arguments) {
    if (argument == "--") break;
    if (!argument.starts_with('-') || argument == "-") continue;
    if (Lower_Case(argument).ends_with(".wav") || File_Exists(argument)) {
      return argument;
    }
  }
  return std::nullopt;
}

// Help and version are answers; everything else that parsing throws is wrong usage.
int Answer_Parse_Error(const CommandLine& line, const CLI::ParseError& error,
                       const Arguments& arguments, Console& console) {
  if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
    line.app.exit(error, console.out, console.err);
    console.out << std::flush;
    return Exit_Done;
  }
  console.err << "quillspeech: " << error.what() << "\n";
  if (const auto file = File_Taken_For_Option(arguments)) {
    console.err << "A file name that begins with - stands behind --, as in: -- " << *file << "\n";
  }
  console.err << "Try quillspeech --help.\n";
  return Exit_Wrong_Usage;
}

int Ended(int exit_status, Console& console) {
  if (!console.out) {
    console.err << "quillspeech: the results could not be written\n";
    return Exit_File_Failed;
  }
  const bool cut_short = console.Is_Interrupted() && !console.interrupt_is_an_end;
  return cut_short ? Exit_Interrupted : exit_status;
}

}  // namespace

int Run_Command_Line(const std::vector<std::string>& arguments, Console& console) {
  const auto line = std::make_unique<CommandLine>(console);
  try {
    if (const auto name = Unknown_Command(*line, arguments)) {
      return Refuse_Command(*line, *name, console.err);
    }
    line->app.parse(Arguments(arguments.rbegin(), arguments.rend()));  // last first
    return Ended(Run_Parsed(*line, console), console);
  } catch (const CLI::ParseError& error) {
    return Ended(Answer_Parse_Error(*line, error, arguments, console), console);
  } catch (const std::exception& error) {
    console.err << "quillspeech: " << error.what() << "\n";
    return Exit_File_Failed;
  }
}

}  // namespace quillspeech::cli
