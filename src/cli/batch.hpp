// Many sounds through the recogniser, each with a session of its own.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/angle_table.hpp"
#include "cli/console.hpp"
#include "cli/file_names.hpp"
#include "cli/ordered_batch.hpp"
#include "cli/progress.hpp"
#include "cli/recognition_run.hpp"
#include "cli/run_options.hpp"

namespace quillspeech::cli {

// What every command keeps of a run.
struct Digest {
  std::string file;
  std::vector<std::string> complaints;  // why the file counts as failed; none when it does not
  std::vector<std::string> notes;       // what else the user should know
};

// One line for each complaint and each note, with the file in front.
void Complain(const Digest& digest, std::ostream& err);

// Runs every file of the options and complains of those that failed; true when none did. `digest`
// takes from a run what is wanted, on any thread, and may add complaints; `deliver` gets that in
// the order of the files, one at a time. Result is a Digest.
template <class Result>
bool Run_Batch(const RunOptions& options, Console& console,
               const std::function<Result(const RecognitionRun&)>& digest,
               const std::function<void(Result&)>& deliver) {
  console.take_interrupts();
  FileNames names(options.files, console);
  Progress progress(console, names.Count());
  const auto angle_tables = std::make_shared<AngleTables>();
  bool all_went_well = true;
  OrderedBatch<std::string, Result> batch;
  batch.next = [&] { return names.Next(); };
  batch.work = [&](const std::string& name) {
    RecognitionRun run(options, angle_tables);
    run.Recognize(name);
    Result result = digest(run);
    result.file = name;
    const auto complaints = run.Complaints();
    result.complaints.insert(result.complaints.begin(), complaints.begin(), complaints.end());
    return result;
  };
  batch.deliver = [&](Result&& result) {
    const bool has_lines = !result.complaints.empty() || !result.notes.empty();
    if (has_lines || console.out_is_terminal) progress.Clear();
    deliver(result);
    Complain(result, console.err);
    if (!result.complaints.empty()) all_went_well = false;
    progress.One_More();
  };
  batch.Run(Worker_Count(options));
  return all_went_well;
}

}  // namespace quillspeech::cli
