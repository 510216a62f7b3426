#include "platform/linux/port_audio.hpp"

#include <fcntl.h>
#include <portaudio.h>
#include <unistd.h>

#include <algorithm>

namespace quillspeech::linux {

namespace {

// Standard error leads nowhere while one of these lives.
class Silence {
 public:
  Silence() : kept_(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1)) {
    if (kept_ < 0) return;
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nowhere < 0) return;
    dup2(nowhere, STDERR_FILENO);
    close(nowhere);
  }
  ~Silence() {
    if (kept_ < 0) return;
    dup2(kept_, STDERR_FILENO);
    close(kept_);
  }
  Silence(const Silence&) = delete;
  Silence& operator=(const Silence&) = delete;

 private:
  int kept_;
};

template <class Fits>
std::optional<SoundDevice> Find(const std::vector<SoundDevice>& devices, Fits fits) {
  const auto found = std::find_if(devices.begin(), devices.end(), fits);
  if (found == devices.end()) return std::nullopt;
  return *found;
}

bool Is_Called(const SoundDevice& device, const std::string& name) {
  return device.name == name || std::to_string(device.index) == name;
}

}  // namespace

PortAudio::PortAudio() {
  const Silence silence;
  works_ = Pa_Initialize() == paNoError;
}

PortAudio::~PortAudio() {
  if (!works_) return;
  const Silence silence;
  Pa_Terminate();
}

std::vector<SoundDevice> PortAudio::Devices() const {
  std::vector<SoundDevice> devices;
  if (!works_) return devices;
  const PaDeviceIndex input = Pa_GetDefaultInputDevice();
  const PaDeviceIndex output = Pa_GetDefaultOutputDevice();
  for (PaDeviceIndex index = 0; index < Pa_GetDeviceCount(); ++index) {
    const PaDeviceInfo* const info = Pa_GetDeviceInfo(index);
    const PaHostApiInfo* const host = info ? Pa_GetHostApiInfo(info->hostApi) : nullptr;
    if (!host) continue;
    devices.push_back({index, info->name, host->name, info->maxInputChannels,
                       info->maxOutputChannels, info->defaultSampleRate, index == input,
                       index == output});
  }
  return devices;
}

std::optional<SoundDevice> PortAudio::Find_Input(const std::string& name) const {
  return Find(Devices(), [&](const SoundDevice& device) {
    return device.input_channels > 0 &&
           (name.empty() ? device.is_default_input : Is_Called(device, name));
  });
}

std::optional<SoundDevice> PortAudio::Find_Output(const std::string& name) const {
  return Find(Devices(), [&](const SoundDevice& device) {
    return device.output_channels > 0 &&
           (name.empty() ? device.is_default_output : Is_Called(device, name));
  });
}

}  // namespace quillspeech::linux
