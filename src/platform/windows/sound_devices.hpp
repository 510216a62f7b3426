// The wave devices of this system.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quillspeech::windows {

struct SoundDevice {
  int index = 0;     // among the inputs, or the outputs
  std::string name;  // UTF-8
  std::string host;  // the system behind it
  int input_channels = 0;
  int output_channels = 0;
  double rate = 0;  // the most samples a second that it tells of
  bool is_default_input = false;
  bool is_default_output = false;
};

// The inputs, then the outputs. The first of each is the one that the wave mapper takes first.
std::vector<SoundDevice> Sound_Devices();

// The number of the input of that name, or whose number is written so; nothing when there is none.
std::optional<unsigned> Find_Input(const std::string& name);

}  // namespace quillspeech::windows
