// Sound as it comes from a wave device, through small buffers that go round.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/windows/multimedia.hpp"

namespace quillspeech::windows {

// When nobody takes for ten seconds the newest sound is lost.
class InputStream {
 public:
  InputStream() = default;
  ~InputStream() { Close(); }
  InputStream(const InputStream&) = delete;
  InputStream& operator=(const InputStream&) = delete;

  // Opens the device and lets it run. `device` is a number or WAVE_MAPPER.
  WaveResult Open(UINT device, const WaveFormat& format);
  void Close();
  // Whether it is open for that format, and the device is still there.
  bool Is_Running(const WaveFormat& format) const;

  // Takes up to `most` bytes, the oldest first; gives their number. Sound comes by buffers of a
  // fortieth of a second.
  std::size_t Take(std::uint8_t* bytes, std::size_t most);
  // Forgets what came in so far.
  void Drop();

 private:
  struct Buffer {
    WAVEHDR header{};
    std::vector<std::uint8_t> bytes;
  };

  WaveResult Give_Out_Buffers(std::size_t bytes);
  Buffer* Next_Done();
  void Give_Back(Buffer& buffer);

  HWAVEIN device_ = nullptr;
  WaveFormat format_;
  std::vector<Buffer> buffers_;
  std::size_t next_ = 0;   // the buffer that comes back first
  std::size_t taken_ = 0;  // bytes of it
};

}  // namespace quillspeech::windows
