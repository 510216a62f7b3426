// PortAudio's errors as the numbers of our ports.
#pragma once

#include <portaudio.h>

#include "platform/wave_header.hpp"

namespace quillspeech::linux {

inline WaveResult Result_Of(PaError error) {
  switch (error) {
    case paNoError:
      return Wave_Ok;
    case paInvalidSampleRate:
    case paSampleFormatNotSupported:
    case paInvalidChannelCount:
      return Wave_Bad_Format;
    case paDeviceUnavailable:
      return Wave_Device_In_Use;
    default:
      return Wave_Bad_Device;
  }
}

}  // namespace quillspeech::linux
