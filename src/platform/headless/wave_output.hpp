// A sound device that plays every common format, or none.
#pragma once

#include "platform/wave_output.hpp"

namespace quillspeech::headless {

class WaveOutput final : public quillspeech::WaveOutput {
 public:
  bool Can_Play(const WaveFormat& format) const override {
    return present && Is_Common_Format(format);
  }

  bool present = true;
};

}  // namespace quillspeech::headless
