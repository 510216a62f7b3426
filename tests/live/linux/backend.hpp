// The devices of this system, for tests that are the same on each.
#pragma once

#include <memory>

#include "platform/linux/event_loop.hpp"
#include "platform/linux/port_audio.hpp"
#include "platform/linux/sound_cues.hpp"
#include "platform/linux/wave_input.hpp"
#include "platform/linux/wave_output.hpp"

namespace quillspeech::tests {

struct Devices {
  using Output = linux::WaveOutput;
  using SoundCues = linux::SoundCues;

  linux::EventLoop events;
  std::shared_ptr<const linux::PortAudio> audio = std::make_shared<const linux::PortAudio>();

  std::unique_ptr<WaveInput> Default_Input() {
    return std::make_unique<linux::WaveInput>(events, audio, "");
  }
  Output Default_Output() { return {events, audio}; }
  SoundCues Default_Cues() { return SoundCues{audio}; }
};

}  // namespace quillspeech::tests
