// 8-bit mono sound as it comes from a device.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "platform/linux/port_audio.hpp"
#include "platform/linux/sound_ring.hpp"
#include "platform/recording_stream.hpp"

namespace quillspeech::linux {

// The device writes from a thread of its own into a ring; whoever takes from it does so on one
// other thread.
class InputStream final : public RecordingStream {
 public:
  // `device` as PortAudio::Find_Input takes it.
  InputStream(std::shared_ptr<const PortAudio> audio, std::string device)
      : audio_(std::move(audio)), name_(std::move(device)) {}
  ~InputStream() override { Close_Device(); }
  InputStream(const InputStream&) = delete;
  InputStream& operator=(const InputStream&) = delete;

  WaveResult Get_Device_Capabilities(int device) override;
  WaveResult Open(const WaveFormat& format) override;
  void Close() override { Close_Device(); }
  bool Is_Running(const WaveFormat& format) const override;
  std::size_t Take(std::uint8_t* bytes, std::size_t most) override {
    return ring_.Take(bytes, most);
  }
  void Drop() override { ring_.Drop(); }

 private:
  WaveResult Open_Device(const SoundDevice& device, std::uint32_t rate);
  void Close_Device();

  std::shared_ptr<const PortAudio> audio_;
  std::string name_;
  void* stream_ = nullptr;
  std::uint32_t rate_ = 0;
  SoundRing ring_;
};

}  // namespace quillspeech::linux
