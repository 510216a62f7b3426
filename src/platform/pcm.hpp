// WAV files as the microphone would hear them.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace quillspeech {

struct MonoSound {
  std::vector<std::uint8_t> bytes;  // 8-bit, silence is 128
  std::uint32_t rate = 0;           // bytes a second, above 0
};

// The sound of a WAV file's bytes, PCM of 8 or 16 bits and 1 or 2 channels. Two channels give their
// mean, and 16 bits are rounded to the nearest of 8. A data chunk that is cut off gives what is
// there, in whole frames. Nothing when it is no such file.
std::optional<MonoSound> Mono_From_Wave(std::span<const std::uint8_t> file);

}  // namespace quillspeech
