// The one buffer header that a wave device and its user share.
#pragma once

#include <cstdint>

namespace quillspeech {

// What the calls of wave devices answer: 0 is success, anything else the number of an error.
using WaveResult = std::uint32_t;
inline constexpr WaveResult Wave_Ok = 0;
inline constexpr WaveResult Wave_Bad_Device = 2;  // no such device
inline constexpr WaveResult Wave_Device_In_Use = 4;
inline constexpr WaveResult Wave_Bad_Handle = 5;  // nothing is open under this handle
inline constexpr WaveResult Wave_No_Driver = 6;
inline constexpr WaveResult Wave_Bad_Format = 32;
inline constexpr WaveResult Wave_Still_Playing = 33;  // the header is still in the device's queue
inline constexpr WaveResult Wave_Unprepared = 34;     // the header was not prepared

// Names an open device; 0 names none.
using WaveHandle = std::uint32_t;

inline constexpr std::uint32_t Header_Done = 1;
inline constexpr std::uint32_t Header_Prepared = 2;
inline constexpr std::uint32_t Header_In_Queue = 16;

// A device reads and writes the buffer only at yields and at a stop, on the thread of the loop,
// through `data` as it stands at that moment: whoever makes the buffer anew points the header
// elsewhere first.
struct WaveHeader {
  std::uint8_t* data = nullptr;      // null: the device keeps its hands off
  std::uint32_t buffer_length = 0;   // bytes
  std::uint32_t bytes_recorded = 0;  // written by a recording device
  std::uint32_t user_data = 0;
  std::uint32_t flags = 0;
  std::uint32_t loop_count = 0;
};

}  // namespace quillspeech
