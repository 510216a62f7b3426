// The devices of the system, under names that do not tell which.
#pragma once

#include <memory>

#ifdef _WIN32
#include "platform/windows/event_loop.hpp"
#include "platform/windows/sound_cues.hpp"
#include "platform/windows/wave_input.hpp"
#include "platform/windows/wave_output.hpp"
#else
#include "platform/linux/event_loop.hpp"
#include "platform/linux/port_audio.hpp"
#include "platform/linux/sound_cues.hpp"
#include "platform/linux/wave_input.hpp"
#include "platform/linux/wave_output.hpp"
#endif

namespace quillspeech::tests {

#ifdef _WIN32
struct Devices {
  using Output = windows::WaveOutput;
  using SoundCues = windows::SoundCues;

  std::unique_ptr<WaveInput> Default_Input() {
    return std::make_unique<windows::WaveInput>(events);
  }
  Output Default_Output() { return Output{events}; }
  SoundCues Default_Cues() { return SoundCues{}; }

  windows::EventLoop events;
};
#else
struct Devices {
  using Output = linux::WaveOutput;
  using SoundCues = linux::SoundCues;

  std::unique_ptr<WaveInput> Default_Input() {
    return std::make_unique<linux::WaveInput>(events, audio, "");
  }
  Output Default_Output() { return {events, audio}; }
  SoundCues Default_Cues() { return SoundCues{audio}; }

  linux::EventLoop events;
  std::shared_ptr<const linux::PortAudio> audio = std::make_shared<const linux::PortAudio>();
};
#endif

}  // namespace quillspeech::tests
