// The one sample store and what is known of it.
#pragma once

#include <cstdint>

#include "base/checked.hpp"
#include "base/dynamic_table.hpp"
#include "platform/wave_output.hpp"

namespace quillspeech {

struct WaveHeader {
  const std::uint8_t* data = nullptr;  // first byte of the store
  std::uint32_t flags = 0;
  std::uint32_t loop_count = 0;
};

struct Sample {
  // 8-bit sound, 128 is silence, 0 a cell that the recorder has not reached.
  DynamicTable<std::uint8_t> Speech_Sample_Bytes;
  Checked32 Samples_Per_Capture = 154350;  // bytes that the capture or file promises
  Checked32 Wave_Header_Buffer_Length;     // bytes that the word scan looks at
  WaveFormat Wave_Format;
  WaveHeader Wave_Header;
};

}  // namespace quillspeech
