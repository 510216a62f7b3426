// Recording through Windows' own calls.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "platform/streamed_wave_input.hpp"
#include "platform/windows/event_loop.hpp"
#include "platform/windows/input_stream.hpp"

namespace quillspeech::windows {

class WaveInput final : public StreamedWaveInput {
 public:
  // `device` as InputStream takes it.
  explicit WaveInput(EventLoop& loop, std::string device = {})
      : StreamedWaveInput(loop, std::make_unique<InputStream>(std::move(device))) {}
};

}  // namespace quillspeech::windows
