// The log of calls to a simulated sound card, with the answers that a script gives.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/wave_header.hpp"

namespace quillspeech::headless {

// The calls by name: "wave_in_get_dev_caps", "wave_in_open", "wave_in_prepare_header",
// "wave_in_add_buffer", "wave_in_start", "wave_in_stop", "wave_in_reset",
// "wave_in_unprepare_header", "wave_in_close", "wave_out_open", "wave_out_prepare_header",
// "wave_out_write", "wave_out_unprepare_header", "wave_out_close".
struct CardCalls {
  bool present = true;  // without a device capabilities and opening answer 2
  // What a call answers as long as its entry stands; 0 too, and then it has no effect either.
  std::map<std::string, WaveResult> faults;
  std::vector<std::string> calls;  // in order, those that faults answered too
  bool keep_calls = true;

  // Notes the call and gives the script's answer, if there is one.
  std::optional<WaveResult> Call(const std::string& name);
};

}  // namespace quillspeech::headless
