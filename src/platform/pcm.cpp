#include "platform/pcm.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>

#include "base/little_endian.hpp"
#include "platform/riff_walk.hpp"
#include "platform/wave_output.hpp"

namespace quillspeech {

namespace {

class Memory final : public ByteSource {
 public:
  explicit Memory(std::span<const std::uint8_t> content) : content_(content) {}

  std::int64_t Read_At(std::int64_t offset, std::uint8_t* bytes, std::int64_t count) override {
    const auto length = static_cast<std::int64_t>(content_.size());
    const std::int64_t got = std::clamp<std::int64_t>(length - offset, 0, count);
    if (got > 0) std::copy_n(content_.data() + offset, got, bytes);
    return got;
  }

 private:
  std::span<const std::uint8_t> content_;
};

struct Shape {
  int channels = 0;
  int bits = 0;
  std::uint32_t rate = 0;

  int Frame_Bytes() const { return channels * bits / 8; }
};

std::optional<Shape> Read_Shape(RiffFile& walk, const RiffChunk& chunk) {
  std::array<std::uint8_t, Wave_Format_Bytes> format{};
  if (chunk.size < Wave_Format_Bytes) return std::nullopt;
  if (walk.Read(format.data(), Wave_Format_Bytes) < Wave_Format_Bytes) return std::nullopt;
  const auto field16 = [&](std::size_t offset) {
    return From_Little_Endian<std::uint16_t>(format.data() + offset);
  };
  const Shape shape{field16(2), field16(14), From_Little_Endian<std::uint32_t>(&format[4])};
  const bool is_known = field16(0) == 1 && (shape.channels == 1 || shape.channels == 2) &&
                        (shape.bits == 8 || shape.bits == 16) && shape.rate > 0;
  return is_known ? std::optional(shape) : std::nullopt;
}

// The frame's distance above the lowest value, in steps of 16 bits, all channels added up.
std::int32_t Height(const std::uint8_t* frame, const Shape& shape) {
  constexpr std::int32_t Lowest = -32'768;
  std::int32_t sum = 0;
  for (int channel = 0; channel < shape.channels; ++channel) {
    sum += shape.bits == 8
               ? frame[channel] * 256
               : From_Little_Endian<std::int16_t>(frame + std::ptrdiff_t{2} * channel) - Lowest;
  }
  return sum;
}

std::vector<std::uint8_t> Mono(const std::vector<std::uint8_t>& data, const Shape& shape) {
  const auto frame_bytes = static_cast<std::size_t>(shape.Frame_Bytes());
  const std::int32_t step = 256 * shape.channels;
  std::vector<std::uint8_t> mono(data.size() / frame_bytes);
  for (std::size_t i = 0; i < mono.size(); ++i) {
    const std::int32_t nearest = (Height(&data[i * frame_bytes], shape) + step / 2) / step;
    mono[i] = static_cast<std::uint8_t>(std::min(nearest, 255));
  }
  return mono;
}

}  // namespace

std::optional<MonoSound> Mono_From_Wave(std::span<const std::uint8_t> file) {
  RiffWalk walk(std::make_unique<Memory>(file));
  const auto riff = walk.Descend_To_Form(Four_Characters("WAVE"));
  if (!riff) return std::nullopt;
  const auto format = walk.Descend_To_Chunk(Four_Characters("fmt "), *riff);
  if (!format) return std::nullopt;
  const auto shape = Read_Shape(walk, *format);
  if (!shape || !walk.Ascend(*format)) return std::nullopt;
  const auto chunk = walk.Descend_To_Chunk(Four_Characters("data"), *riff);
  if (!chunk) return std::nullopt;
  std::vector<std::uint8_t> data(std::min<std::size_t>(chunk->size, file.size()));
  const std::int64_t got = walk.Read(data.data(), static_cast<std::int64_t>(data.size()));
  data.resize(static_cast<std::size_t>(got));
  return MonoSound{Mono(data, *shape), shape->rate};
}

}  // namespace quillspeech
