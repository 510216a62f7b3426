#include "platform/windows/sound_devices.hpp"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/windows/multimedia.hpp"
#include "platform/windows/text.hpp"

namespace quillspeech::windows {

namespace {

// The highest of the common rates that the mask of formats names.
double Highest_Rate(DWORD formats) {
  constexpr DWORD At_96000 =
      WAVE_FORMAT_96M08 | WAVE_FORMAT_96S08 | WAVE_FORMAT_96M16 | WAVE_FORMAT_96S16;
  constexpr DWORD At_48000 =
      WAVE_FORMAT_48M08 | WAVE_FORMAT_48S08 | WAVE_FORMAT_48M16 | WAVE_FORMAT_48S16;
  constexpr DWORD At_22050 =
      WAVE_FORMAT_2M08 | WAVE_FORMAT_2S08 | WAVE_FORMAT_2M16 | WAVE_FORMAT_2S16;
  constexpr DWORD At_11025 =
      WAVE_FORMAT_1M08 | WAVE_FORMAT_1S08 | WAVE_FORMAT_1M16 | WAVE_FORMAT_1S16;
  if (formats & At_96000) return 96'000;
  if (formats & At_48000) return 48'000;
  const bool is_lower = (formats & (At_22050 | At_11025)) != 0;
  const DWORD at_44100 = formats & ~(At_22050 | At_11025);
  if (at_44100 != 0 || !is_lower) return 44'100;
  return formats & At_22050 ? 22'050 : 11'025;
}

std::optional<SoundDevice> Input(UINT number) {
  WAVEINCAPSW about{};
  if (::waveInGetDevCapsW(number, &about, sizeof about) != MMSYSERR_NOERROR) return std::nullopt;
  SoundDevice device;
  device.index = static_cast<int>(number);
  device.name = Utf8_From_Wide(about.szPname);
  device.host = "WinMM";
  device.input_channels = about.wChannels;
  device.rate = Highest_Rate(about.dwFormats);
  device.is_default_input = number == 0;
  return device;
}

std::optional<SoundDevice> Output(UINT number) {
  WAVEOUTCAPSW about{};
  if (::waveOutGetDevCapsW(number, &about, sizeof about) != MMSYSERR_NOERROR) return std::nullopt;
  SoundDevice device;
  device.index = static_cast<int>(number);
  device.name = Utf8_From_Wide(about.szPname);
  device.host = "WinMM";
  device.output_channels = about.wChannels;
  device.rate = Highest_Rate(about.dwFormats);
  device.is_default_output = number == 0;
  return device;
}

}  // namespace

std::vector<SoundDevice> Sound_Devices() {
  std::vector<SoundDevice> devices;
  const UINT inputs = ::waveInGetNumDevs();
  for (UINT number = 0; number < inputs; ++number) {
    if (auto device = Input(number)) devices.push_back(std::move(*device));
  }
  const UINT outputs = ::waveOutGetNumDevs();
  for (UINT number = 0; number < outputs; ++number) {
    if (auto device = Output(number)) devices.push_back(std::move(*device));
  }
  return devices;
}

std::optional<unsigned> Find_Input(const std::string& name) {
  const auto devices = Sound_Devices();
  const auto found = std::find_if(devices.begin(), devices.end(), [&](const SoundDevice& device) {
    return device.input_channels > 0 &&
           (device.name == name || std::to_string(device.index) == name);
  });
  if (found == devices.end()) return std::nullopt;
  return static_cast<unsigned>(found->index);
}

}  // namespace quillspeech::windows
