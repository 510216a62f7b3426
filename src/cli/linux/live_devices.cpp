#include "cli/live_devices.hpp"

#include "platform/linux/wave_input.hpp"
#include "platform/linux/wave_output.hpp"

namespace quillspeech::cli {

std::vector<backend::SoundDevice> Sound_Devices() { return linux::PortAudio().Devices(); }

LiveDevices Make_Live_Devices(backend::EventLoop& events, const std::string& input) {
  const auto audio = std::make_shared<const linux::PortAudio>();
  return {std::make_unique<linux::WaveInput>(events, audio, input),
          std::make_unique<linux::WaveOutput>(events, audio),
          std::make_unique<linux::SoundCues>(audio)};
}

}  // namespace quillspeech::cli
