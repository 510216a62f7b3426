#include "platform/windows/wave_output.hpp"

#include <chrono>
#include <utility>

namespace quillspeech::windows {

WaveOutput::WaveOutput(EventLoop& loop) : loop_(loop) { loop_.Add_Source(*this); }

WaveOutput::~WaveOutput() {
  Close_Device();
  loop_.Remove_Source(*this);
}

bool WaveOutput::Can_Play(const WaveFormat& format) const {
  const WAVEFORMATEX asked = System_Format(format);
  return ::waveOutOpen(nullptr, WAVE_MAPPER, &asked, 0, 0, WAVE_FORMAT_QUERY) == MMSYSERR_NOERROR;
}

WaveResult WaveOutput::Open(WaveHandle& handle, const WaveFormat& format) {
  WaveHandle opened = 0;
  if (const WaveResult wrong = line_.Open(opened, format)) return wrong;
  const WAVEFORMATEX asked = System_Format(format);
  HWAVEOUT device = nullptr;
  if (const MMRESULT wrong = ::waveOutOpen(&device, WAVE_MAPPER, &asked, 0, 0, CALLBACK_NULL)) {
    line_.Close(opened);
    return wrong;
  }
  device_ = device;
  handle = opened;
  return Wave_Ok;
}

WaveResult WaveOutput::Prepare_Header(WaveHandle handle, WaveHeader& header) {
  return line_.Prepare(handle, header);
}

WaveResult WaveOutput::Write(WaveHandle handle, WaveHeader& header) {
  if (const WaveResult wrong = line_.Add(handle, header)) return wrong;
  const WaveResult result = Play(header);
  served_ = loop_.Now();
  loop_.Schedule();
  return result;
}

// What the device does not take is given back at the next look: nobody waits for it for ever.
WaveResult WaveOutput::Play(const WaveHeader& header) {
  Piece& piece = *pieces_.emplace_back(std::make_unique<Piece>());
  if (header.data) piece.bytes.assign(header.data, header.data + header.buffer_length);
  piece.header.lpData = reinterpret_cast<LPSTR>(piece.bytes.data());
  piece.header.dwBufferLength = static_cast<DWORD>(piece.bytes.size());
  MMRESULT wrong = ::waveOutPrepareHeader(device_, &piece.header, sizeof piece.header);
  if (!wrong) wrong = ::waveOutWrite(device_, &piece.header, sizeof piece.header);
  if (wrong) piece.header.dwFlags |= WHDR_DONE;
  return wrong;
}

WaveResult WaveOutput::Unprepare_Header(WaveHandle handle, WaveHeader& header) {
  return line_.Unprepare(handle, header);
}

WaveResult WaveOutput::Close(WaveHandle handle) {
  if (const WaveResult wrong = line_.Close_And_Let_Go(handle)) return wrong;
  Close_Device();
  return Wave_Ok;
}

void WaveOutput::Cut() {
  if (device_) ::waveOutReset(device_);
}

void WaveOutput::Close_Device() {
  if (!device_) return;
  ::waveOutReset(device_);
  while (!pieces_.empty()) Drop_First();
  ::waveOutClose(device_);
  device_ = nullptr;
}

bool WaveOutput::Is_First_Done() const {
  // The device sets the flag on a thread of its own.
  const DWORD flags = __atomic_load_n(&pieces_.front()->header.dwFlags, __ATOMIC_ACQUIRE);
  return (flags & WHDR_DONE) != 0;
}

void WaveOutput::Drop_First() {
  ::waveOutUnprepareHeader(device_, &pieces_.front()->header, sizeof(WAVEHDR));
  pieces_.pop_front();
}

std::optional<EventLoop::Time> WaveOutput::Next_Due() const {
  constexpr EventLoop::Time Look = std::chrono::milliseconds(10);
  if (line_.queue.empty()) return std::nullopt;
  return served_ + Look;
}

void WaveOutput::Serve(EventLoop::Time now) {
  served_ = now;
  while (!pieces_.empty() && Is_First_Done()) {
    Drop_First();
    line_.Give_Back();
  }
}

}  // namespace quillspeech::windows
