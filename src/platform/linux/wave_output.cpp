#include "platform/linux/wave_output.hpp"

#include <chrono>
#include <cstdint>
#include <utility>
#include <vector>

namespace quillspeech::linux {

WaveOutput::WaveOutput(TimedLoop& loop, std::shared_ptr<const PortAudio> audio)
    : loop_(loop), audio_(std::move(audio)) {
  loop_.Add_Source(*this);
}

WaveOutput::~WaveOutput() { loop_.Remove_Source(*this); }

WaveResult WaveOutput::Open(WaveHandle& handle, const WaveFormat& format) {
  if (!Is_Common_Format(format)) return Wave_Bad_Format;
  WaveHandle opened = 0;
  if (const WaveResult wrong = line_.Open(opened, format)) return wrong;
  const auto device = audio_->Find_Output({});
  const WaveResult wrong = device ? stream_.Open(*device, format) : Wave_Bad_Device;
  if (wrong != Wave_Ok) {
    line_.Close(opened);
    return wrong;
  }
  handle = opened;
  return Wave_Ok;
}

WaveResult WaveOutput::Prepare_Header(WaveHandle handle, WaveHeader& header) {
  return line_.Prepare(handle, header);
}

WaveResult WaveOutput::Write(WaveHandle handle, WaveHeader& header) {
  if (const WaveResult wrong = line_.Add(handle, header)) return wrong;
  served_ = loop_.Now();
  return line_.queue.size() == 1 ? Play_First() : Wave_Ok;
}

WaveResult WaveOutput::Unprepare_Header(WaveHandle handle, WaveHeader& header) {
  return line_.Unprepare(handle, header);
}

WaveResult WaveOutput::Close(WaveHandle handle) {
  if (const WaveResult wrong = line_.Close_And_Let_Go(handle)) return wrong;
  stream_.Close();
  return Wave_Ok;
}

// A device that cannot begin gives the header back at the next look: nobody waits for it for ever.
WaveResult WaveOutput::Play_First() {
  const WaveHeader& header = *line_.queue.front().header;
  std::vector<std::uint8_t> bytes;
  if (header.data) bytes.assign(header.data, header.data + header.buffer_length);
  return stream_.Play(std::move(bytes), false);
}

std::optional<EventLoop::Time> WaveOutput::Next_Due() const {
  constexpr EventLoop::Time Look = std::chrono::milliseconds(10);
  if (line_.queue.empty()) return std::nullopt;
  return served_ + Look;
}

void WaveOutput::Serve(EventLoop::Time now) {
  served_ = now;
  while (!line_.queue.empty() && stream_.Is_Finished()) {
    line_.Give_Back();
    if (!line_.queue.empty()) Play_First();
  }
}

}  // namespace quillspeech::linux
