#include "tests/support/wave_builder.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quillspeech::tests {

namespace {

using FileBytes = std::vector<std::uint8_t>;

void Append(FileBytes& file, std::uint32_t value, int width) {
  for (int i = 0; i < width; ++i) file.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

void Append(FileBytes& file, const std::string& text) {
  file.insert(file.end(), text.begin(), text.end());
}

}  // namespace

Sound operator+(Sound first, const Sound& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

Sound Level(std::uint8_t byte, Bytes length) {
  return Sound(static_cast<std::size_t>(length.count), byte);
}

Sound Silence(Bytes length) { return Level(128, length); }

Sound Tone(Hertz pitch, Amplitude amplitude, Bytes length, Hertz rate) {
  Sound sound = Silence(length);
  for (std::size_t i = 0; i < sound.size(); ++i) {
    const double turns = pitch.value * static_cast<double>(i) / rate.value;
    const double height = amplitude.value * std::sin(2 * std::numbers::pi * turns);
    sound[i] = static_cast<std::uint8_t>(std::clamp(128 + std::lround(height), 0L, 255L));
  }
  return sound;
}

Sound Noise(Amplitude amplitude, Bytes length, std::uint32_t seed) {
  Sound sound = Silence(length);
  std::uint64_t state = seed;
  for (auto& byte : sound) {
    state = state * 6364136223846793005u + 1442695040888963407u;
    const auto width = static_cast<std::uint64_t>(2 * amplitude.value + 1);
    const auto step = static_cast<int>((state >> 33) % width) - amplitude.value;
    byte = static_cast<std::uint8_t>(std::clamp(128 + step, 0, 255));
  }
  return sound;
}

WaveFormat Pcm(int channels, int bits, std::uint32_t rate) {
  WaveFormat format;
  format.format_tag = 1;
  format.channels = static_cast<std::uint16_t>(channels);
  format.samples_per_second = rate;
  format.block_alignment = static_cast<std::uint16_t>(channels * bits / 8);
  format.average_bytes_per_second = rate * format.block_alignment;
  format.bits_per_sample = static_cast<std::uint16_t>(bits);
  return format;
}

std::vector<std::uint8_t> Format_Bytes(const WaveFormat& format) {
  FileBytes bytes;
  Append(bytes, format.format_tag, 2);
  Append(bytes, format.channels, 2);
  Append(bytes, format.samples_per_second, 4);
  Append(bytes, format.average_bytes_per_second, 4);
  Append(bytes, format.block_alignment, 2);
  Append(bytes, format.bits_per_sample, 2);
  return bytes;
}

Wave& Wave::Format(const WaveFormat& format) { return Chunk("fmt ", Format_Bytes(format)); }

Wave& Wave::Without_Format() {
  format_named_ = true;
  return *this;
}

Wave& Wave::Data(const std::vector<std::uint8_t>& bytes) { return Chunk("data", bytes); }

Wave& Wave::Chunk(const std::string& identifier, const std::vector<std::uint8_t>& bytes) {
  if (identifier == "fmt ") format_named_ = true;
  pieces_.push_back({identifier, bytes, static_cast<std::uint32_t>(bytes.size())});
  return *this;
}

Wave& Wave::Claiming(std::uint32_t size) {
  pieces_.back().size = size;
  return *this;
}

Wave& Wave::Riff_Claiming(std::uint32_t size) {
  riff_size_claimed_ = true;
  riff_size_ = size;
  return *this;
}

Wave& Wave::Form(const std::string& form_type) {
  form_ = form_type;
  return *this;
}

Wave& Wave::Cut_To(std::int64_t bytes) {
  cut_ = bytes;
  return *this;
}

std::vector<std::uint8_t> Wave::File() const {
  std::vector<Piece> pieces = pieces_;
  if (!format_named_) pieces.insert(pieces.begin(), {"fmt ", Format_Bytes(Pcm()), 16});
  FileBytes body;
  for (const Piece& piece : pieces) {
    Append(body, piece.identifier);
    Append(body, piece.size, 4);
    body.insert(body.end(), piece.bytes.begin(), piece.bytes.end());
    if (piece.bytes.size() % 2 == 1) body.push_back(0);
  }
  FileBytes file;
  Append(file, "RIFF");
  const auto size = static_cast<std::uint32_t>(form_.size() + body.size());
  Append(file, riff_size_claimed_ ? riff_size_ : size, 4);
  Append(file, form_);
  file.insert(file.end(), body.begin(), body.end());
  if (cut_ >= 0) file.resize(static_cast<std::size_t>(cut_));
  return file;
}

}  // namespace quillspeech::tests
