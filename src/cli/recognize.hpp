// The command `recognize`: sounds become ranked words.
#pragma once

#include "cli/console.hpp"
#include "cli/report_options.hpp"
#include "cli/run_options.hpp"

namespace quillspeech::cli {

struct RecognizeOptions {
  RunOptions run;
  ReportOptions report;
};

// Declares the command; parsing it fills `options`.
CLI::App& Add_Recognize_Command(CLI::App& app, RecognizeOptions& options);

// Gives an ExitStatus. Results come in the order of the files, each as soon as it stands.
int Recognize_Files(RecognizeOptions options, Console& console);

}  // namespace quillspeech::cli
