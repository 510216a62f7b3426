#include "cli/recognize.hpp"

#include <CLI/CLI.hpp>
#include <string>
#include <utility>

#include "cli/batch.hpp"
#include "cli/exit_status.hpp"
#include "cli/report_json.hpp"
#include "cli/report_text.hpp"

namespace quillspeech::cli {

CLI::App& Add_Recognize_Command(CLI::App& app, RecognizeOptions& options) {
  CLI::App& command = *app.add_subcommand("recognize", "Turn sounds into ranked words");
  Add_Run_Options(command, options.run, LanguageNeed::Optional);
  Add_Report_Options(command, options.report, "Print one JSON object a sound, each on a line");
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

Recognized Report(const ReportOptions& options, const RecognitionRun& run, bool colour) {
  Recognized recognized;
  recognized.report =
      options.json ? Report_Json(run, options.trace ? Slices::Listed : Slices::Left_Out) + "\n"
                   : Report_Text(run, colour);
  if (auto complaint = Draw_Graph(options, run)) {
    recognized.complaints.push_back(std::move(*complaint));
  }
  return recognized;
}

}  // namespace

int Recognize_Files(RecognizeOptions options, Console& console) {
  if (!Prepare_To_Report(options.report, options.run, console.err)) return Exit_Wrong_Usage;
  const bool all_went_well = Run_Batch<Recognized>(
      options.run, console,
      [&](const RecognitionRun& run) { return Report(options.report, run, console.colour); },
      [&](Recognized& one) { console.out << one.report << std::flush; });
  return all_went_well ? Exit_Done : Exit_File_Failed;
}

}  // namespace quillspeech::cli
