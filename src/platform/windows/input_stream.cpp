#include "platform/windows/input_stream.hpp"

#include <algorithm>

#include "platform/windows/sound_devices.hpp"

namespace quillspeech::windows {

std::optional<UINT> InputStream::Number() const {
  return name_.empty() ? WAVE_MAPPER : Find_Input(name_);
}

// A device that was named stands in the place of every other.
WaveResult InputStream::Get_Device_Capabilities(int device) {
  if (!name_.empty()) return Number() ? Wave_Ok : Wave_Bad_Device;
  WAVEINCAPSW about{};
  return ::waveInGetDevCapsW(static_cast<UINT>(device), &about, sizeof about);
}

WaveResult InputStream::Open(const WaveFormat& format) {
  const auto number = Number();
  return number ? Open_Device(*number, format) : Wave_Bad_Device;
}

WaveResult InputStream::Open_Device(UINT number, const WaveFormat& format) {
  constexpr std::uint32_t Buffers_A_Second = 20;
  constexpr std::uint32_t Most_Blocks = 192'000 / Buffers_A_Second;
  Close_Device();
  const WAVEFORMATEX asked = System_Format(format);
  HWAVEIN opened = nullptr;
  if (const MMRESULT wrong = ::waveInOpen(&opened, number, &asked, 0, 0, CALLBACK_NULL)) {
    return wrong;
  }
  device_ = opened;
  format_ = format;
  const std::uint32_t blocks =
      std::clamp(format.samples_per_second / Buffers_A_Second, 1U, Most_Blocks);
  WaveResult wrong = Give_Out_Buffers(std::size_t{blocks} * format.block_alignment);
  if (wrong == Wave_Ok) wrong = ::waveInStart(device_);
  if (wrong != Wave_Ok) Close_Device();
  return wrong;
}

WaveResult InputStream::Give_Out_Buffers(std::size_t bytes) {
  constexpr std::size_t Buffer_Count = 200;
  next_ = taken_ = 0;
  buffers_.resize(Buffer_Count);  // they stay where they are until the device is closed
  for (Buffer& buffer : buffers_) {
    buffer.bytes.resize(bytes);
    buffer.header.lpData = reinterpret_cast<LPSTR>(buffer.bytes.data());
    buffer.header.dwBufferLength = static_cast<DWORD>(bytes);
    MMRESULT wrong = ::waveInPrepareHeader(device_, &buffer.header, sizeof buffer.header);
    if (!wrong) wrong = ::waveInAddBuffer(device_, &buffer.header, sizeof buffer.header);
    if (wrong) return wrong;
  }
  return Wave_Ok;
}

void InputStream::Close_Device() {
  if (!device_) return;
  ::waveInReset(device_);
  for (Buffer& buffer : buffers_) {
    ::waveInUnprepareHeader(device_, &buffer.header, sizeof buffer.header);
  }
  ::waveInClose(device_);
  device_ = nullptr;
  buffers_.clear();
}

// To start what runs already changes nothing, and tells whether there is still a device.
bool InputStream::Is_Running(const WaveFormat& format) const {
  return device_ && format == format_ && ::waveInStart(device_) == MMSYSERR_NOERROR;
}

InputStream::Buffer* InputStream::Next_Done() {
  if (buffers_.empty()) return nullptr;
  Buffer& buffer = buffers_[next_];
  // The device sets the flag on a thread of its own, when all else is written.
  const DWORD flags = __atomic_load_n(&buffer.header.dwFlags, __ATOMIC_ACQUIRE);
  return (flags & WHDR_DONE) != 0 ? &buffer : nullptr;
}

// A device that takes no buffer back has gone away, and with it what it had brought.
void InputStream::Give_Back(Buffer& buffer) {
  taken_ = 0;
  next_ = (next_ + 1) % buffers_.size();
  if (::waveInAddBuffer(device_, &buffer.header, sizeof buffer.header)) Close_Device();
}

// No further than once round, and so with Drop: the device goes on meanwhile, and one that is
// broken may give back at once what it was given.
std::size_t InputStream::Take(std::uint8_t* bytes, std::size_t most) {
  std::size_t done = 0;
  for (std::size_t seen = 0; done < most && seen < buffers_.size(); ++seen) {
    Buffer* const buffer = Next_Done();
    if (!buffer) break;
    const std::size_t rest = buffer->header.dwBytesRecorded - taken_;
    const std::size_t part = std::min(most - done, rest);
    std::copy_n(buffer->bytes.data() + taken_, part, bytes + done);
    taken_ += part;
    done += part;
    if (part == rest) Give_Back(*buffer);
  }
  return done;
}

void InputStream::Drop() {
  for (std::size_t seen = 0; seen < buffers_.size(); ++seen) {
    Buffer* const buffer = Next_Done();
    if (!buffer) break;
    Give_Back(*buffer);
  }
}

}  // namespace quillspeech::windows
