#include "audio/padding.hpp"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "base/checked.hpp"

namespace quillspeech {

void Pad_With_Silence(Sample& sample, int milliseconds) {
  constexpr std::uint8_t Silence = 128;
  const std::int64_t block = sample.Wave_Format.block_alignment;
  const std::int64_t rate = sample.Wave_Format.average_bytes_per_second;
  const std::int64_t sound = sample.Samples_Per_Capture;
  const std::int64_t whole = Narrow<std::int32_t>(milliseconds * rate / 1000 / block * block);
  if (sound >= whole) return;
  const std::int64_t front = (whole - sound) / 2 / block * block;

  sample.Speech_Sample_Bytes.Resize(whole - 1);
  std::uint8_t* const bytes = sample.Speech_Sample_Bytes.Write_Range(0, whole - 1);
  std::memmove(bytes + front, bytes, static_cast<std::size_t>(sound));
  std::fill(bytes, bytes + front, Silence);
  std::fill(bytes + front + sound, bytes + whole, Silence);
  sample.Samples_Per_Capture = whole;
  Point_Wave_Header(sample, bytes, whole);
}

}  // namespace quillspeech
