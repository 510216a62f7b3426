// A machine that could play every common format, or none, and has no device to play it on.
#pragma once

#include "platform/wave_output.hpp"

namespace quillspeech::headless {

class WaveOutput final : public quillspeech::WaveOutput {
 public:
  bool Can_Play(const WaveFormat& format) const override {
    return present && Is_Common_Format(format);
  }
  WaveResult Open(WaveHandle&, const WaveFormat&) override { return Wave_Bad_Device; }
  WaveResult Prepare_Header(WaveHandle, WaveHeader&) override { return Wave_Bad_Handle; }
  WaveResult Write(WaveHandle, WaveHeader&) override { return Wave_Bad_Handle; }
  WaveResult Unprepare_Header(WaveHandle, WaveHeader&) override { return Wave_Bad_Handle; }
  WaveResult Close(WaveHandle) override { return Wave_Bad_Handle; }

  bool present = true;
};

}  // namespace quillspeech::headless
