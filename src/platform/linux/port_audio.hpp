// The sound devices of this system, by PortAudio.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quillspeech::linux {

struct SoundDevice {
  int index = 0;  // PortAudio's own
  std::string name;
  std::string host;  // the system behind it, such as "ALSA"
  int input_channels = 0;
  int output_channels = 0;
  double rate = 0;  // samples a second that it likes best
  bool is_default_input = false;
  bool is_default_output = false;
};

// The library is at work while one of these lives. What its backends write on standard error while
// they look for servers and devices is kept from the user.
class PortAudio {
 public:
  PortAudio();
  ~PortAudio();
  PortAudio(const PortAudio&) = delete;
  PortAudio& operator=(const PortAudio&) = delete;

  std::vector<SoundDevice> Devices() const;

  // The device of that name, or whose index is written so; the default one for an empty name.
  // Nothing when there is none that has an input, or output.
  std::optional<SoundDevice> Find_Input(const std::string& name) const;
  std::optional<SoundDevice> Find_Output(const std::string& name) const;

 private:
  bool works_ = false;
};

}  // namespace quillspeech::linux
