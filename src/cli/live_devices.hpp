// The sound devices of this system, as the commands use them.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "cli/backend.hpp"
#include "platform/sound_cues.hpp"
#include "platform/wave_input.hpp"
#include "platform/wave_output.hpp"

namespace quillspeech::cli {

std::vector<backend::SoundDevice> Sound_Devices();

struct LiveDevices {
  std::unique_ptr<WaveInput> input;
  std::unique_ptr<WaveOutput> output;
  std::unique_ptr<backend::SoundCues> cues;
};

// The input by its name or number, or the default one, and the default output. What is not there
// tells so when it is used. The loop outlives them.
LiveDevices Make_Live_Devices(backend::EventLoop& events, const std::string& input);

}  // namespace quillspeech::cli
