#include "cli/evaluate.hpp"

#include <CLI/CLI.hpp>
#include <optional>
#include <sstream>
#include <utility>

#include "base/run_time_failure.hpp"
#include "cli/batch.hpp"
#include "cli/evaluation.hpp"
#include "cli/exit_status.hpp"
#include "cli/files.hpp"
#include "cli/labels.hpp"
#include "cli/option_checks.hpp"
#include "cli/report_text.hpp"

namespace quillspeech::cli {

CLI::App& Add_Evaluate_Command(CLI::App& app, EvaluateOptions& options) {
  CLI::App& command = *app.add_subcommand("evaluate", "Count right and wrong answers");
  Add_Run_Options(command, options.run, LanguageNeed::Required);
  command
      .add_option("--labels", options.labels,
                  "The words that are spoken: lines of a WAV name, a tab, comma or blank, a word")
      ->check(File_Name(), "")
      ->type_name("FILE");
  Add_Report_Options(command, options.report, "Print one JSON object");
  command.footer(
      "Without --labels the word is the file name up to its first _ (hello_3.wav: hello).\n\n"
      "Example:\n"
      "  quillspeech evaluate --language words.SAY --pad 7000 test/*.wav\n");
  return command;
}

namespace {

struct Judged : Digest {
  Answer answer;
};

std::optional<Labels> Read_Labels(const std::string& file, std::ostream& err) {
  Labels labels;
  int bad_line = 0;
  try {
    const auto bytes = Read_Whole_File(file);
    std::istringstream in(std::string(bytes.begin(), bytes.end()));
    if (labels.Read(in, bad_line)) return labels;
  } catch (const FileError& error) {
    err << "quillspeech: --labels: " << error.what() << "\n";
    return std::nullopt;
  }
  err << "quillspeech: --labels: " << file << ", line " << bad_line
      << ": needs a WAV name and a word\n";
  return std::nullopt;
}

Judged Judge(const ReportOptions& options, const RecognitionRun& run,
             const std::optional<std::string>& expected) {
  const Session& session = run.Asked_Session();
  Judged judged;
  Answer& answer = judged.answer;
  answer.file = run.File();
  answer.expected = expected.value_or("");
  answer.pattern = Pattern_Of(session);
  if (const auto words = Ranked_Words(session.results); !words.empty()) {
    answer.answer = words.front().word;
    answer.percentage = words.front().percentage;
  }
  if (options.trace) answer.slices = session.trace.slices;
  if (!expected) judged.complaints.emplace_back("has no word in the list of labels");
  if (!judged.complaints.empty() || !run.Complaints().empty()) {
    answer.outcome = Outcome::Failed;
  } else if (answer.answer.empty()) {
    answer.outcome = Outcome::No_Answer;
  } else {
    answer.outcome = answer.answer == answer.expected ? Outcome::Right : Outcome::Wrong;
  }
  // The answer counts whatever becomes of its picture.
  if (auto complaint = Draw_Graph(options, run)) judged.complaints.push_back(std::move(*complaint));
  return judged;
}

bool Explain(const EvaluateOptions& options, Evaluation& evaluation, std::ostream& err) {
  const std::string language = Used_Files(options.run).language;
  try {
    Find_Shared_Patterns(language, evaluation.answers);
    return true;
  } catch (const RunTimeFailure& failure) {
    err << "quillspeech: " << language << ": " << failure.what() << "\n";
    return false;
  }
}

}  // namespace

int Evaluate_Files(EvaluateOptions options, Console& console) {
  if (!Prepare_To_Report(options.report, options.run, console.err)) return Exit_Wrong_Usage;
  std::optional<Labels> labels;
  if (!options.labels.empty() && !(labels = Read_Labels(options.labels, console.err))) {
    return Exit_File_Failed;
  }
  const auto expected = [&](const std::string& file) -> std::optional<std::string> {
    return labels ? labels->Find(file) : Word_In_Name(file);
  };
  Evaluation evaluation;
  bool all_went_well = Run_Batch<Judged>(
      options.run, console,
      [&](const RecognitionRun& run) { return Judge(options.report, run, expected(run.File())); },
      [&](Judged& judged) {
        if (!options.report.json)
          console.out << Answer_Line(judged.answer, console.colour) << std::flush;
        evaluation.answers.push_back(std::move(judged.answer));
      });
  all_went_well = Explain(options, evaluation, console.err) && all_went_well;
  console.out << (options.report.json ? Evaluation_Json(evaluation) + "\n"
                                      : Evaluation_Text(evaluation))
              << std::flush;
  return all_went_well ? Exit_Done : Exit_File_Failed;
}

}  // namespace quillspeech::cli
