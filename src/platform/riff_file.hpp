// The port for RIFF files: the walk over chunks as multimedia calls do it.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace quillspeech {

// A four-character code as it lies in the file.
constexpr std::uint32_t Four_Characters(const char (&code)[5]) {
  return static_cast<std::uint32_t>(static_cast<unsigned char>(code[0])) |
         static_cast<std::uint32_t>(static_cast<unsigned char>(code[1])) << 8 |
         static_cast<std::uint32_t>(static_cast<unsigned char>(code[2])) << 16 |
         static_cast<std::uint32_t>(static_cast<unsigned char>(code[3])) << 24;
}

struct RiffChunk {
  std::uint32_t identifier = 0;
  std::uint32_t size = 0;         // bytes of the chunk's data, the pad byte not among them
  std::uint32_t form_type = 0;    // of a RIFF chunk
  std::uint32_t data_offset = 0;  // of the first byte behind the size field
  std::uint32_t flags = 0;        // always 0
};

// One open file with a reading position, at first 0. A chunk belongs to its parent when its header
// begins before the parent's end; sizes are padded to even; positions do not wrap at 32 bits.
class RiffFile {
 public:
  virtual ~RiffFile() = default;

  // From the position on, finds the next RIFF chunk of that form; then the position is behind the
  // form type. Nothing when there is none.
  virtual std::optional<RiffChunk> Descend_To_Form(std::uint32_t form_type) = 0;
  // From the position on, finds the chunk with that identifier inside the parent; then the position
  // is at its data. Nothing when there is none.
  virtual std::optional<RiffChunk> Descend_To_Chunk(std::uint32_t identifier,
                                                    const RiffChunk& parent) = 0;
  // Reads up to `count` bytes at the position and moves it; gives the bytes read, -1 on an error.
  // A read is not held within a chunk.
  virtual std::int64_t Read(std::uint8_t* bytes, std::int64_t count) = 0;
  // Moves the position behind the chunk and its pad byte; false when that cannot be done.
  virtual bool Ascend(const RiffChunk& chunk) = 0;
};

class RiffFiles {
 public:
  virtual ~RiffFiles() = default;

  // Opens the file for reading; null when it cannot be opened. Destroying it closes it.
  virtual std::unique_ptr<RiffFile> Open(const std::string& path) = 0;
};

}  // namespace quillspeech
