// Recording from a device of this system: 8-bit mono sound at any of its rates.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "platform/linux/input_stream.hpp"
#include "platform/streamed_wave_input.hpp"

namespace quillspeech::linux {

class WaveInput final : public StreamedWaveInput {
 public:
  // `device` as PortAudio::Find_Input takes it.
  WaveInput(TimedLoop& loop, std::shared_ptr<const PortAudio> audio, std::string device)
      : StreamedWaveInput(loop,
                          std::make_unique<InputStream>(std::move(audio), std::move(device))) {}
};

}  // namespace quillspeech::linux
