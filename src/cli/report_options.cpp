#include "cli/report_options.hpp"

#include <CLI/CLI.hpp>
#include <cstdint>
#include <vector>

#include "cli/files.hpp"
#include "cli/graph_svg.hpp"
#include "cli/option_checks.hpp"

namespace quillspeech::cli {

void Add_Report_Options(CLI::App& command, ReportOptions& options, const std::string& json_help) {
  command.add_flag("--json", options.json, json_help);
  command.add_flag("--trace", options.trace, "With --json, list every slice that was analysed");
  command.add_option("--graph", options.graph, "Draw the sound with its words; takes one WAV only")
      ->check(File_Name(), "")
      ->type_name("FILE.svg");
}

namespace {

bool Can_Draw(const ReportOptions& options, const RunOptions& run, std::ostream& err) {
  if (options.graph.empty() || (run.files.size() == 1 && run.files.front() != "-")) return true;
  err << "quillspeech: --graph takes one WAV only\n";
  return false;
}

// The picture must not take the place of what the run reads.
bool Is_Picture_Apart(const ReportOptions& options, const RunOptions& run, std::ostream& err) {
  if (options.graph.empty()) return true;
  const UsedFiles used = Used_Files(run);
  for (const std::string& name : {run.files.front(), used.language, used.engine}) {
    if (name.empty() || (name != options.graph && !Is_Same_File(name, options.graph))) continue;
    err << "quillspeech: --graph: " << options.graph << " is a file that the run reads\n";
    return false;
  }
  return true;
}

}  // namespace

bool Prepare_To_Report(const ReportOptions& options, RunOptions& run, std::ostream& err) {
  if (!Can_Draw(options, run, err) || !Check_Options(run, err)) return false;
  if (!Is_Picture_Apart(options, run, err)) return false;
  if (options.trace && !options.json) {
    err << "quillspeech: note: --trace tells nothing without --json\n";
  }
  run.keep_slices = options.trace;
  run.keep_graph = !options.graph.empty();
  return true;
}

std::optional<std::string> Draw_Graph(const ReportOptions& options, const RecognitionRun& run) {
  if (options.graph.empty()) return std::nullopt;
  if (!run.Graph()) return "no graph was drawn for " + options.graph;
  if (Is_Pipe(options.graph)) {
    return options.graph + ": is a pipe, not a file";  // an interrupt could not end the wait for it
  }
  const std::string svg = Graph_Svg(*run.Graph(), run.File());
  try {
    Write_Whole_File(options.graph, std::vector<std::uint8_t>(svg.begin(), svg.end()));
  } catch (const FileError& error) {
    return error.what();
  }
  return std::nullopt;
}

}  // namespace quillspeech::cli
