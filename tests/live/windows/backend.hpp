// The devices of this system, for tests that are the same on each.
#pragma once

#include <memory>

#include "platform/windows/event_loop.hpp"
#include "platform/windows/sound_cues.hpp"
#include "platform/windows/wave_input.hpp"
#include "platform/windows/wave_output.hpp"

namespace quillspeech::tests {

struct Devices {
  using Output = windows::WaveOutput;
  using SoundCues = windows::SoundCues;

  windows::EventLoop events;

  std::unique_ptr<WaveInput> Default_Input() {
    return std::make_unique<windows::WaveInput>(events);
  }
  Output Default_Output() { return Output{events}; }
  SoundCues Default_Cues() { return {}; }
};

}  // namespace quillspeech::tests
