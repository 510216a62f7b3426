// One sound through the recogniser: a session of its own on ports without devices.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/run_options.hpp"
#include "cli/session_on_files.hpp"
#include "platform/form_drawing.hpp"

namespace quillspeech::cli {

class RecognitionRun {
 public:
  // The angle tables may be shared by any number of runs.
  RecognitionRun(const RunOptions& options, std::shared_ptr<AngleTables> angle_tables);
  RecognitionRun(const RecognitionRun&) = delete;
  RecognitionRun& operator=(const RecognitionRun&) = delete;

  // Takes the file down the path of the options. Once for each run; failures stay in the trace.
  void Recognize(const std::string& file);

  // Why the file counts as failed, a sentence for a person each; empty when it does not.
  std::vector<std::string> Complaints() const;

  const std::string& File() const { return file_; }
  Session& Asked_Session() const { return on_files_->session; }  // getters may announce changes
  const std::vector<headless::MessageBoxes::Shown>& Boxes() const { return on_files_->boxes.shown; }
  const std::optional<FormDrawing>& Graph() const { return graph_; }

 private:
  void Recognize_Captured();
  void Hook_Up();

  const RunOptions& options_;
  std::string file_;
  std::unique_ptr<SessionOnFiles> on_files_;
  std::optional<FormDrawing> graph_;
};

}  // namespace quillspeech::cli
