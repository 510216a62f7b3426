// What recognize and evaluate tell of a run alike: JSON, the slices, and a picture.
#pragma once

#include <optional>
#include <ostream>
#include <string>

#include "cli/recognition_run.hpp"
#include "cli/run_options.hpp"

namespace quillspeech::cli {

struct ReportOptions {
  bool json = false;
  bool trace = false;
  std::string graph;  // file of the picture, or empty
};

// Declares the three options; `json_help` says what the command prints as JSON.
void Add_Report_Options(CLI::App& command, ReportOptions& options, const std::string& json_help);

// Checks both kinds of options, and has the run keep what is to be told. False when the run must
// not begin; `err` then says why.
bool Prepare_To_Report(const ReportOptions& options, RunOptions& run, std::ostream& err);

// Draws the picture, when one is wanted. A complaint, or nothing.
std::optional<std::string> Draw_Graph(const ReportOptions& options, const RecognitionRun& run);

}  // namespace quillspeech::cli
