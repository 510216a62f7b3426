// The system's wave devices, and their terms for what our ports pass on.
#pragma once

#include "platform/windows/windows_api.hpp"
//
#include <mmsystem.h>

#include "platform/wave_output.hpp"

namespace quillspeech::windows {

// The results of our ports are the system's own numbers.
static_assert(Wave_Ok == MMSYSERR_NOERROR && Wave_Bad_Device == MMSYSERR_BADDEVICEID &&
              Wave_Device_In_Use == MMSYSERR_ALLOCATED && Wave_Bad_Handle == MMSYSERR_INVALHANDLE &&
              Wave_No_Driver == MMSYSERR_NODRIVER && Wave_Bad_Format == WAVERR_BADFORMAT &&
              Wave_Still_Playing == WAVERR_STILLPLAYING && Wave_Unprepared == WAVERR_UNPREPARED);

inline WAVEFORMATEX System_Format(const WaveFormat& format) {
  WAVEFORMATEX result{};
  result.wFormatTag = format.format_tag;
  result.nChannels = format.channels;
  result.nSamplesPerSec = format.samples_per_second;
  result.nAvgBytesPerSec = format.average_bytes_per_second;
  result.nBlockAlign = format.block_alignment;
  result.wBitsPerSample = format.bits_per_sample;
  return result;
}

}  // namespace quillspeech::windows
