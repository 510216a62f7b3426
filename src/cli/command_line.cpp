#include "cli/command_line.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <memory>

#include "cli/data_tools.hpp"
#include "cli/evaluate.hpp"
#include "cli/exit_status.hpp"
#include "cli/learn.hpp"
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
  int data_exit_status = Exit_Done;
  CLI::App* recognize_command = nullptr;
  CLI::App* learn_command = nullptr;
  CLI::App* evaluate_command = nullptr;

  CommandLine() {
    app.set_version_flag("--version", Version);
    app.require_subcommand(1);
    app.get_formatter()->label("SUBCOMMAND", "COMMAND");
    app.get_formatter()->label("REQUIRED", "(required)");
    app.footer("quillspeech COMMAND --help tells more of a command; so does man quillspeech.");
    recognize_command = &Add_Recognize_Command(app, recognize);
    learn_command = &Add_Learn_Command(app, learn);
    evaluate_command = &Add_Evaluate_Command(app, evaluate);
    Add_Data_Commands(app, data_exit_status);
    for (CLI::App* const command : app.get_subcommands({})) command->group("Commands");
  }
};

int Run_Parsed(CommandLine& line, Console& console) {
  if (*line.recognize_command) return Recognize_Files(std::move(line.recognize), console);
  if (*line.learn_command) return Learn_Word(std::move(line.learn), console);
  if (*line.evaluate_command) return Evaluate_Files(line.evaluate, console);
  return line.data_exit_status;
}

// Help and version are answers; everything else that parsing throws is wrong usage.
int Answer_Parse_Error(const CommandLine& line, const CLI::ParseError& error, Console& console) {
  if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
    line.app.exit(error, console.out, console.err);
    console.out << std::flush;
    return Exit_Done;
  }
  console.err << "quillspeech: " << error.what() << "\n"
              << "Try quillspeech --help.\n";
  return Exit_Wrong_Usage;
}

int Ended(int exit_status, Console& console) {
  if (!console.out) {
    console.err << "quillspeech: the results could not be written\n";
    return Exit_File_Failed;
  }
  return console.Is_Interrupted() ? Exit_Interrupted : exit_status;
}

}  // namespace

int Run_Command_Line(const std::vector<std::string>& arguments, Console& console) {
  const auto line = std::make_unique<CommandLine>();
  try {
    line->app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));  // last first
    return Ended(Run_Parsed(*line, console), console);
  } catch (const CLI::ParseError& error) {
    return Answer_Parse_Error(*line, error, console);
  } catch (const std::exception& error) {
    console.err << "quillspeech: " << error.what() << "\n";
    return Exit_File_Failed;
  }
}

}  // namespace quillspeech::cli
