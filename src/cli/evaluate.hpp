// The command `evaluate`: how often the best word is the right one, and why it is not.
#pragma once

#include <string>

#include "cli/console.hpp"
#include "cli/report_options.hpp"
#include "cli/run_options.hpp"

namespace quillspeech::cli {

struct EvaluateOptions {
  RunOptions run;
  ReportOptions report;
  std::string labels;  // file with the words, or empty: they stand in the file names
};

CLI::App& Add_Evaluate_Command(CLI::App& app, EvaluateOptions& options);

// Gives an ExitStatus; wrong answers are no failure.
int Evaluate_Files(EvaluateOptions options, Console& console);

}  // namespace quillspeech::cli
