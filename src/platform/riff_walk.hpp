// The walk over the chunks of a RIFF file, on any source of bytes. Each backend opens the file and
// hands its bytes in.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>

#include "platform/riff_file.hpp"

namespace quillspeech {

class ByteSource {
 public:
  virtual ~ByteSource() = default;

  // Reads up to `count` bytes from `offset` on; gives the bytes read, fewer only where the source
  // ends, and -1 on an error. An offset behind the end gives 0.
  virtual std::int64_t Read_At(std::int64_t offset, std::uint8_t* bytes, std::int64_t count) = 0;
};

// A header that is cut off, or cannot be read, is none. So is a chunk that lies beyond the first
// four gigabytes, since its record could not tell its place.
class RiffWalk final : public RiffFile {
 public:
  explicit RiffWalk(std::unique_ptr<ByteSource> source) : source_(std::move(source)) {}

  std::optional<RiffChunk> Descend_To_Form(std::uint32_t form_type) override;
  std::optional<RiffChunk> Descend_To_Chunk(std::uint32_t identifier,
                                            const RiffChunk& parent) override;
  std::int64_t Read(std::uint8_t* bytes, std::int64_t count) override;
  bool Ascend(const RiffChunk& chunk) override;

 private:
  std::optional<std::uint32_t> Number_At(std::int64_t offset);
  std::optional<RiffChunk> Chunk_At(std::int64_t offset);

  std::unique_ptr<ByteSource> source_;
  std::int64_t position_ = 0;
  // The stretch that was read last for headers: small chunks in a row cost one read together.
  std::array<std::uint8_t, 4096> window_{};
  std::int64_t window_offset_ = 0;
  std::int64_t window_bytes_ = 0;
};

}  // namespace quillspeech
