// A run as one line of JSON.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "cli/recognition_run.hpp"

namespace quillspeech::cli {

enum class Slices { Left_Out, Listed };

// One object without a line end. Members have the values of their getters, null where the getter
// fails; texts are UTF-8.
std::string Report_Json(const RecognitionRun& run, Slices slices);

// One object for each slice.
nlohmann::ordered_json Slices_Json(const std::vector<SliceTrace>& slices);

}  // namespace quillspeech::cli
