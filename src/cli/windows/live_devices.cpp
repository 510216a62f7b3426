#include "cli/live_devices.hpp"

#include "platform/windows/wave_input.hpp"
#include "platform/windows/wave_output.hpp"

namespace quillspeech::cli {

std::vector<backend::SoundDevice> Sound_Devices() { return windows::Sound_Devices(); }

LiveDevices Make_Live_Devices(backend::EventLoop& events, const std::string& input) {
  return {std::make_unique<windows::WaveInput>(events, input),
          std::make_unique<windows::WaveOutput>(events), std::make_unique<backend::SoundCues>()};
}

}  // namespace quillspeech::cli
