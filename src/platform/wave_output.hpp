// The port for wave output, and the format record that sound carries.
#pragma once

#include <cstdint>

#include "platform/wave_header.hpp"

namespace quillspeech {

struct WaveFormat {
  std::uint16_t format_tag = 0;  // 1 is PCM
  std::uint16_t channels = 0;
  std::uint32_t samples_per_second = 0;
  std::uint32_t average_bytes_per_second = 0;
  std::uint16_t block_alignment = 0;
  std::uint16_t bits_per_sample = 0;

  bool operator==(const WaveFormat&) const = default;
};
inline constexpr int Wave_Format_Bytes = 16;  // as the fields lie in a "fmt " chunk

class WaveOutput {
 public:
  virtual ~WaveOutput() = default;

  // Whether the device could play this format; opens nothing.
  virtual bool Can_Play(const WaveFormat& format) const = 0;

  // Opens the default device for the format. On success `handle` names it until it is closed.
  virtual WaveResult Open(WaveHandle& handle, const WaveFormat& format) = 0;
  virtual WaveResult Prepare_Header(WaveHandle handle, WaveHeader& header) = 0;
  // Plays the whole buffer; the header is no longer done until the sound has ended.
  virtual WaveResult Write(WaveHandle handle, WaveHeader& header) = 0;
  virtual WaveResult Unprepare_Header(WaveHandle handle, WaveHeader& header) = 0;
  // Cuts a sound that still plays. Its header is given up and not marked: by now it may be
  // somebody else's.
  virtual WaveResult Close(WaveHandle handle) = 0;
};

// What every sound device can be taken to play: PCM, 1 or 2 channels of 8 or 16 bits, 4,000 to
// 192,000 samples a second, with block alignment and byte rate that agree with these.
constexpr bool Is_Common_Format(const WaveFormat& format) {
  const bool known = format.format_tag == 1 && (format.channels == 1 || format.channels == 2) &&
                     (format.bits_per_sample == 8 || format.bits_per_sample == 16) &&
                     format.samples_per_second >= 4'000 && format.samples_per_second <= 192'000;
  return known && format.block_alignment == format.channels * format.bits_per_sample / 8 &&
         format.average_bytes_per_second == format.samples_per_second * format.block_alignment;
}

}  // namespace quillspeech
