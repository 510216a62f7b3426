// Sounds and WAV files made in one line.
//
//   Wave().Data(Silence(Bytes(500)) + Tone(1000_Hz, Amplitude(100), Bytes(2000)))
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/wave_output.hpp"

namespace quillspeech::tests {

struct Hertz {
  double value;
};
constexpr Hertz operator""_Hz(unsigned long long value) {
  return Hertz{static_cast<double>(value)};
}
constexpr Hertz operator""_Hz(long double value) { return Hertz{static_cast<double>(value)}; }

struct Amplitude {
  explicit constexpr Amplitude(int distance) : value(distance) {}
  int value;  // largest distance from silence
};

struct Bytes {
  explicit constexpr Bytes(std::int64_t number) : count(number) {}
  std::int64_t count;
};

// 8-bit mono sound, silence being 128.
struct Sound : std::vector<std::uint8_t> {
  using std::vector<std::uint8_t>::vector;
};
Sound operator+(Sound first, const Sound& second);

Sound Level(std::uint8_t byte, Bytes length);
Sound Silence(Bytes length);
// A sine from phase 0; what leaves 0 to 255 is clipped.
Sound Tone(Hertz pitch, Amplitude amplitude, Bytes length, Hertz rate = 22050_Hz);
// Evenly spread bytes from 128 - amplitude to 128 + amplitude, the same ones for the same seed.
Sound Noise(Amplitude amplitude, Bytes length, std::uint32_t seed = 1);

// PCM of that shape, with the block alignment and byte rate that belong to it.
WaveFormat Pcm(int channels = 1, int bits = 8, std::uint32_t rate = 22050);

// A WAV file. Chunks lie in the order of the calls; a file whose calls name no "fmt " chunk has one
// of Pcm() in front.
class Wave {
 public:
  Wave& Format(const WaveFormat& format = Pcm());
  Wave& Without_Format();
  Wave& Data(const std::vector<std::uint8_t>& bytes);
  Wave& Chunk(const std::string& identifier, const std::vector<std::uint8_t>& bytes);

  // The size field of the last chunk says this instead of the truth.
  Wave& Claiming(std::uint32_t size);
  // The size field of the RIFF chunk says this instead of the truth.
  Wave& Riff_Claiming(std::uint32_t size);
  Wave& Form(const std::string& form_type);
  // Only the first so many bytes of the file are there.
  Wave& Cut_To(std::int64_t bytes);

  std::vector<std::uint8_t> File() const;
  operator std::vector<std::uint8_t>() const { return File(); }

 private:
  struct Piece {
    std::string identifier;
    std::vector<std::uint8_t> bytes;
    std::uint32_t size;
  };

  std::vector<Piece> pieces_;
  bool format_named_ = false;
  std::string form_ = "WAVE";
  bool riff_size_claimed_ = false;
  std::uint32_t riff_size_ = 0;
  std::int64_t cut_ = -1;
};

// The sixteen bytes of a "fmt " chunk.
std::vector<std::uint8_t> Format_Bytes(const WaveFormat& format);

}  // namespace quillspeech::tests
