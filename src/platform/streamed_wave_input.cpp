#include "platform/streamed_wave_input.hpp"

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

namespace quillspeech {
namespace {

constexpr EventLoop::Time Stream_Lingers = std::chrono::seconds(3);
constexpr EventLoop::Time Shortest_Look = std::chrono::milliseconds(10);

std::int64_t Room_In(const WaveLine::Queued& queued) {
  return std::max<std::int64_t>(queued.header->buffer_length - queued.bytes, 0);
}

}  // namespace

StreamedWaveInput::StreamedWaveInput(TimedLoop& loop, std::unique_ptr<RecordingStream> stream)
    : loop_(loop), stream_(std::move(stream)) {
  loop_.Add_Source(*this);
}

StreamedWaveInput::~StreamedWaveInput() { loop_.Remove_Source(*this); }

WaveResult StreamedWaveInput::Get_Device_Capabilities(int device) {
  return stream_->Get_Device_Capabilities(device);
}

WaveResult StreamedWaveInput::Open(WaveHandle& handle, const WaveFormat& format) {
  WaveHandle opened = 0;
  if (const WaveResult wrong = line_.Open(opened, format)) return wrong;
  closed_.reset();
  if (!stream_->Is_Running(format)) {
    if (const WaveResult wrong = stream_->Open(format)) {
      line_.Close(opened);
      return wrong;
    }
  }
  handle = opened;
  return Wave_Ok;
}

WaveResult StreamedWaveInput::Prepare_Header(WaveHandle handle, WaveHeader& header) {
  return line_.Prepare(handle, header);
}

WaveResult StreamedWaveInput::Add_Buffer(WaveHandle handle, WaveHeader& header) {
  if (const WaveResult wrong = line_.Add(handle, header)) return wrong;
  header.bytes_recorded = 0;
  loop_.Schedule();
  return Wave_Ok;
}

WaveResult StreamedWaveInput::Start(WaveHandle handle) {
  if (const WaveResult wrong = line_.Check(handle)) return wrong;
  if (!is_started_) stream_->Drop();  // what came before is not asked for
  is_started_ = true;
  served_ = loop_.Now();
  loop_.Schedule();
  return Wave_Ok;
}

// What came since the last look was recorded before the stop.
WaveResult StreamedWaveInput::Stop(WaveHandle handle) {
  if (const WaveResult wrong = line_.Check(handle)) return wrong;
  if (Is_Recording()) Take_Sound();
  is_started_ = false;
  return Wave_Ok;
}

WaveResult StreamedWaveInput::Reset(WaveHandle handle) {
  if (const WaveResult wrong = line_.Check(handle)) return wrong;
  is_started_ = false;
  while (!line_.queue.empty()) line_.Give_Back();
  return Wave_Ok;
}

WaveResult StreamedWaveInput::Unprepare_Header(WaveHandle handle, WaveHeader& header) {
  return line_.Unprepare(handle, header);
}

WaveResult StreamedWaveInput::Close(WaveHandle handle) {
  if (const WaveResult wrong = line_.Close(handle)) return wrong;
  is_started_ = false;
  closed_ = loop_.Now();
  loop_.Schedule();
  return Wave_Ok;
}

std::optional<EventLoop::Time> StreamedWaveInput::Next_Due() const {
  if (Is_Recording()) {
    constexpr std::int64_t Microseconds_A_Second = 1'000'000;
    const EventLoop::Time rest{Room_In(line_.queue.front()) * Microseconds_A_Second /
                               line_.Format().average_bytes_per_second};
    return served_ + std::max(rest, Shortest_Look);
  }
  if (closed_) return *closed_ + Stream_Lingers;
  return std::nullopt;
}

void StreamedWaveInput::Serve(EventLoop::Time now) {
  served_ = now;
  if (Is_Recording()) {
    Take_Sound();
  } else {
    stream_->Drop();
  }
  if (closed_ && now >= *closed_ + Stream_Lingers) Close_Stream();
}

void StreamedWaveInput::Close_Stream() {
  closed_.reset();
  stream_->Close();
}

void StreamedWaveInput::Take_Sound() {
  while (!line_.queue.empty()) {
    WaveLine::Queued& queued = line_.queue.front();
    WaveHeader& header = *queued.header;
    std::array<std::uint8_t, 4096> taken;
    const std::int64_t wanted = std::min<std::int64_t>(Room_In(queued), taken.size());
    const std::size_t got = stream_->Take(taken.data(), static_cast<std::size_t>(wanted));
    if (header.data) std::copy_n(taken.data(), got, header.data + queued.bytes);
    queued.bytes += static_cast<std::int64_t>(got);
    header.bytes_recorded = static_cast<std::uint32_t>(queued.bytes);
    if (Room_In(queued) == 0) {
      line_.Give_Back();
    } else if (static_cast<std::int64_t>(got) < wanted) {
      return;
    }
  }
}

}  // namespace quillspeech
