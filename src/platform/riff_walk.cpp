#include "platform/riff_walk.hpp"

#include <limits>

#include "base/little_endian.hpp"

namespace quillspeech {

namespace {

constexpr std::uint32_t Riff_Code = Four_Characters("RIFF");
constexpr std::int64_t Size_Field_Bytes = 4;
constexpr std::int64_t Header_Bytes = 8;
constexpr std::int64_t Form_Type_Bytes = 4;

std::int64_t End_Of(const RiffChunk& chunk) { return std::int64_t{chunk.data_offset} + chunk.size; }

std::int64_t Behind(const RiffChunk& chunk) { return End_Of(chunk) + chunk.size % 2; }

}  // namespace

std::optional<std::uint32_t> RiffWalk::Number_At(std::int64_t offset) {
  constexpr std::int64_t Width = 4;
  if (offset < window_offset_ || offset + Width > window_offset_ + window_bytes_) {
    window_offset_ = offset;
    window_bytes_ =
        source_->Read_At(offset, window_.data(), static_cast<std::int64_t>(window_.size()));
    if (window_bytes_ < Width) return std::nullopt;
  }
  return From_Little_Endian<std::uint32_t>(window_.data() + (offset - window_offset_));
}

std::optional<RiffChunk> RiffWalk::Chunk_At(std::int64_t offset) {
  if (offset + Header_Bytes > std::numeric_limits<std::uint32_t>::max()) return std::nullopt;
  const auto identifier = Number_At(offset);
  const auto size = Number_At(offset + Size_Field_Bytes);
  if (!identifier || !size) return std::nullopt;
  RiffChunk chunk;
  chunk.identifier = *identifier;
  chunk.size = *size;
  chunk.data_offset = static_cast<std::uint32_t>(offset + Header_Bytes);
  return chunk;
}

std::optional<RiffChunk> RiffWalk::Descend_To_Form(std::uint32_t form_type) {
  std::int64_t offset = position_;
  while (auto chunk = Chunk_At(offset)) {
    offset = Behind(*chunk);
    if (chunk->identifier != Riff_Code) continue;
    const auto form = Number_At(chunk->data_offset);
    if (!form) return std::nullopt;
    if (*form != form_type) continue;
    chunk->form_type = *form;
    position_ = chunk->data_offset + Form_Type_Bytes;
    return chunk;
  }
  return std::nullopt;
}

std::optional<RiffChunk> RiffWalk::Descend_To_Chunk(std::uint32_t identifier,
                                                    const RiffChunk& parent) {
  std::int64_t offset = position_;
  while (offset < End_Of(parent)) {
    const auto chunk = Chunk_At(offset);
    if (!chunk) return std::nullopt;
    if (chunk->identifier == identifier) {
      position_ = chunk->data_offset;
      return chunk;
    }
    offset = Behind(*chunk);
  }
  return std::nullopt;
}

std::int64_t RiffWalk::Read(std::uint8_t* bytes, std::int64_t count) {
  const std::int64_t got = source_->Read_At(position_, bytes, count);
  if (got > 0) position_ += got;
  return got;
}

bool RiffWalk::Ascend(const RiffChunk& chunk) {
  position_ = Behind(chunk);
  return true;
}

}  // namespace quillspeech
