// Sound as it comes from a wave device, through small buffers that go round.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/recording_stream.hpp"
#include "platform/windows/multimedia.hpp"

namespace quillspeech::windows {

class InputStream final : public RecordingStream {
 public:
  // Records from the input of that name or number (Find_Input), or from the wave mapper.
  explicit InputStream(std::string device) : name_(std::move(device)) {}
  ~InputStream() override { Close_Device(); }
  InputStream(const InputStream&) = delete;
  InputStream& operator=(const InputStream&) = delete;

  WaveResult Get_Device_Capabilities(int device) override;
  WaveResult Open(const WaveFormat& format) override;
  void Close() override { Close_Device(); }
  bool Is_Running(const WaveFormat& format) const override;
  std::size_t Take(std::uint8_t* bytes, std::size_t most) override;
  void Drop() override;

 private:
  struct Buffer {
    WAVEHDR header{};
    std::vector<std::uint8_t> bytes;
  };

  std::optional<UINT> Number() const;  // nothing when the device is not there
  WaveResult Open_Device(UINT number, const WaveFormat& format);
  void Close_Device();
  WaveResult Give_Out_Buffers(std::size_t bytes);
  Buffer* Next_Done();
  void Give_Back(Buffer& buffer);

  std::string name_;
  HWAVEIN device_ = nullptr;
  WaveFormat format_;
  std::vector<Buffer> buffers_;
  std::size_t next_ = 0;   // the buffer that comes back first
  std::size_t taken_ = 0;  // bytes of it
};

}  // namespace quillspeech::windows
