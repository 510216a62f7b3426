#include "cli/recognize.hpp"

#include <CLI/CLI.hpp>
#include <cstdint>
#include <string>
#include <vector>

#include "cli/batch.hpp"
#include "cli/exit_status.hpp"
#include "cli/files.hpp"
#include "cli/graph_svg.hpp"
#include "cli/option_checks.hpp"
#include "cli/report_json.hpp"
#include "cli/report_text.hpp"

namespace quillspeech::cli {

CLI::App& Add_Recognize_Command(CLI::App& app, RecognizeOptions& options) {
  CLI::App& command = *app.add_subcommand("recognize", "Turn sounds into ranked words");
  Add_Run_Options(command, options.run, LanguageNeed::Optional);
  command.add_flag("--json", options.json, "Print one JSON object a sound, each on a line");
  command.add_flag("--trace", options.trace, "With --json, list every slice that was analysed");
  command.add_option("--graph", options.graph, "Draw the sound with its words; takes one WAV only")
      ->check(File_Name(), "")
      ->type_name("FILE.svg");
  command.footer(
      "Examples:\n"
      "  quillspeech recognize hello.wav\n"
      "  quillspeech recognize --language words.SAY --pad 7000 *.wav\n"
      "  find . -name '*.wav' | quillspeech recognize --language words.SAY --json --jobs 0 -\n");
  return command;
}

namespace {

struct Recognized : Digest {
  std::string report;
};

std::string Draw(const RecognitionRun& run, const std::string& picture) {
  if (!run.Graph()) return "no graph was drawn for " + picture;
  const std::string svg = Graph_Svg(*run.Graph(), run.File());
  try {
    Write_Whole_File(picture, std::vector<std::uint8_t>(svg.begin(), svg.end()));
  } catch (const FileError& error) {
    return error.what();
  }
  return {};
}

Recognized Report(const RecognizeOptions& options, const RecognitionRun& run, bool colour) {
  Recognized recognized;
  recognized.report =
      options.json ? Report_Json(run, options.trace ? Slices::Listed : Slices::Left_Out) + "\n"
                   : Report_Text(run, colour);
  if (!options.graph.empty()) {
    if (auto complaint = Draw(run, options.graph); !complaint.empty()) {
      recognized.complaints.push_back(std::move(complaint));
    }
  }
  return recognized;
}

// The picture must not take the place of what the run reads.
bool Is_Picture_Apart(const RecognizeOptions& options, std::ostream& err) {
  if (options.graph.empty()) return true;
  const UsedFiles used = Used_Files(options.run);
  for (const std::string& name : {options.run.files.front(), used.language, used.engine}) {
    if (name.empty() || (name != options.graph && !Is_Same_File(name, options.graph))) continue;
    err << "quillspeech: --graph: " << options.graph << " is a file that the run reads\n";
    return false;
  }
  return true;
}

bool Can_Draw(const RecognizeOptions& options, std::ostream& err) {
  const auto& files = options.run.files;
  if (options.graph.empty() || (files.size() == 1 && files.front() != "-")) return true;
  err << "quillspeech: --graph takes one WAV only\n";
  return false;
}

}  // namespace

int Recognize_Files(RecognizeOptions options, Console& console) {
  if (!Can_Draw(options, console.err)) return Exit_Wrong_Usage;
  if (!Check_Options(options.run, console.err)) return Exit_Wrong_Usage;
  if (!Is_Picture_Apart(options, console.err)) return Exit_Wrong_Usage;
  if (options.trace && !options.json) {
    console.err << "quillspeech: note: --trace tells nothing without --json\n";
  }
  options.run.keep_slices = options.trace;
  options.run.keep_graph = !options.graph.empty();
  const bool all_went_well = Run_Batch<Recognized>(
      options.run, console,
      [&](const RecognitionRun& run) { return Report(options, run, console.colour); },
      [&](Recognized& one) { console.out << one.report << std::flush; });
  return all_went_well ? Exit_Done : Exit_File_Failed;
}

}  // namespace quillspeech::cli
