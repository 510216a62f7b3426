// The one sample store and what is known of it.
#pragma once

#include <cstdint>

#include "base/checked.hpp"
#include "base/dynamic_table.hpp"
#include "platform/wave_output.hpp"

namespace quillspeech {

struct Sample {
  // 8-bit sound, 128 is silence, 0 a cell that the recorder has not reached.
  DynamicTable<std::uint8_t> Speech_Sample_Bytes;
  Checked32 Samples_Per_Capture = 154350;  // bytes that the capture or file promises
  Checked32 Wave_Header_Buffer_Length;     // bytes that the word scan looks at
  WaveFormat Wave_Format;
  WaveHeader Wave_Header;
};

// Points the header, done or not, at the buffer that a device is to use.
inline void Point_Wave_Header(Sample& sample, std::uint8_t* data, Checked32 length) {
  sample.Wave_Header_Buffer_Length = length;
  sample.Wave_Header.data = data;
  sample.Wave_Header.buffer_length = static_cast<std::uint32_t>(length.Raw());
}

}  // namespace quillspeech
