// A machine without a microphone.
#pragma once

#include "platform/wave_input.hpp"

namespace quillspeech::headless {

class NoWaveInput final : public quillspeech::WaveInput {
 public:
  WaveResult Get_Device_Capabilities(int) override { return Wave_Bad_Device; }
  WaveResult Open(WaveHandle&, const WaveFormat&) override { return Wave_Bad_Device; }
  WaveResult Prepare_Header(WaveHandle, WaveHeader&) override { return Wave_Bad_Handle; }
  WaveResult Add_Buffer(WaveHandle, WaveHeader&) override { return Wave_Bad_Handle; }
  WaveResult Start(WaveHandle) override { return Wave_Bad_Handle; }
  WaveResult Stop(WaveHandle) override { return Wave_Bad_Handle; }
  WaveResult Reset(WaveHandle) override { return Wave_Bad_Handle; }
  WaveResult Unprepare_Header(WaveHandle, WaveHeader&) override { return Wave_Bad_Handle; }
  WaveResult Close(WaveHandle) override { return Wave_Bad_Handle; }
};

}  // namespace quillspeech::headless
