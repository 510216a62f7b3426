// The recorder, the echo and the capture clock.
#pragma once

#include <cstdint>

#include "base/checked.hpp"
#include "base/dynamic_table.hpp"
#include "platform/wave_header.hpp"

namespace quillspeech {

struct Recorder {
  Checked16 Recording_Active;      // 1 from the moment when a recording is set up until its stop
  Checked16 Recording_Stopped;     // 1 after a stop, 0 from the moment when one is set up
  Checked16 Second_Recorder_Open;  // never raised
  Checked16 Recording_Channels;
  Checked16 Recording_Bits;
  WaveHandle Wave_In_Handle = 0;
  Checked32 Last_Recorded_Index;  // bytes recorded minus 1, written by a stop
  Checked32 Capture_Seconds;      // ticks of the capture clock since it last ran out

  WaveHandle Wave_Out_Handle = 0;
  DynamicTable<std::uint8_t> Echo_Sample_Bytes;

  // The wait for the buffer.
  int Waiting_Depth = 0;              // depth of the yields in which it waits; 0: nobody does
  int Calls_Waiting = 0;              // calls of Start_Recording that it serves
  bool Buffer_Given_Up = false;       // stopped since: the device will not mark the buffer done
  bool Recovering_From_Stop = false;  // a stop that failed is being recovered from
};

}  // namespace quillspeech
