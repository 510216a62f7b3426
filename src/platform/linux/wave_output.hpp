// Wave output on Linux: every device there can be taken to play the common formats.
#pragma once

#include "platform/wave_output.hpp"

namespace quillspeech::linux {

class WaveOutput final : public quillspeech::WaveOutput {
 public:
  bool Can_Play(const WaveFormat& format) const override { return Is_Common_Format(format); }
};

}  // namespace quillspeech::linux
