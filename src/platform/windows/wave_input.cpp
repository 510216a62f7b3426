#include "platform/windows/wave_input.hpp"

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

#include "platform/windows/sound_devices.hpp"

namespace quillspeech::windows {

namespace {

constexpr EventLoop::Time Stream_Lingers = std::chrono::seconds(3);
constexpr EventLoop::Time Shortest_Look = std::chrono::milliseconds(10);

std::int64_t Room_In(const WaveLine::Queued& queued) {
  return std::max<std::int64_t>(queued.header->buffer_length - queued.bytes, 0);
}

}  // namespace

WaveInput::WaveInput(EventLoop& loop, std::string device)
    : loop_(loop), device_(std::move(device)) {
  loop_.Add_Source(*this);
}

WaveInput::~WaveInput() { loop_.Remove_Source(*this); }

std::optional<UINT> WaveInput::Number() const {
  return device_.empty() ? WAVE_MAPPER : Find_Input(device_);
}

// A device that was named stands in the place of every other.
WaveResult WaveInput::Get_Device_Capabilities(int device) {
  if (!device_.empty()) return Number() ? Wave_Ok : Wave_Bad_Device;
  WAVEINCAPSW about{};
  return ::waveInGetDevCapsW(static_cast<UINT>(device), &about, sizeof about);
}

WaveResult WaveInput::Open(WaveHandle& handle, const WaveFormat& format) {
  WaveHandle opened = 0;
  if (const WaveResult wrong = line_.Open(opened, format)) return wrong;
  closed_.reset();
  if (!stream_.Is_Running(format)) {
    const auto number = Number();
    const WaveResult wrong = number ? stream_.Open(*number, format) : Wave_Bad_Device;
    if (wrong != Wave_Ok) {
      line_.Close(opened);
      return wrong;
    }
  }
  handle = opened;
  return Wave_Ok;
}

WaveResult WaveInput::Prepare_Header(WaveHandle handle, WaveHeader& header) {
  return line_.Prepare(handle, header);
}

WaveResult WaveInput::Add_Buffer(WaveHandle handle, WaveHeader& header) {
  if (const WaveResult wrong = line_.Add(handle, header)) return wrong;
  header.bytes_recorded = 0;
  loop_.Schedule();
  return Wave_Ok;
}

WaveResult WaveInput::Start(WaveHandle handle) {
  if (const WaveResult wrong = line_.Check(handle)) return wrong;
  if (!is_started_) stream_.Drop();  // what came before is not asked for
  is_started_ = true;
  served_ = loop_.Now();
  loop_.Schedule();
  return Wave_Ok;
}

WaveResult WaveInput::Stop(WaveHandle handle) {
  if (const WaveResult wrong = line_.Check(handle)) return wrong;
  is_started_ = false;
  return Wave_Ok;
}

WaveResult WaveInput::Reset(WaveHandle handle) {
  if (const WaveResult wrong = line_.Check(handle)) return wrong;
  is_started_ = false;
  while (!line_.queue.empty()) line_.Give_Back();
  return Wave_Ok;
}

WaveResult WaveInput::Unprepare_Header(WaveHandle handle, WaveHeader& header) {
  return line_.Unprepare(handle, header);
}

WaveResult WaveInput::Close(WaveHandle handle) {
  if (const WaveResult wrong = line_.Close(handle)) return wrong;
  is_started_ = false;
  closed_ = loop_.Now();
  loop_.Schedule();
  return Wave_Ok;
}

std::optional<EventLoop::Time> WaveInput::Next_Due() const {
  if (Is_Recording()) {
    constexpr std::int64_t Microseconds_A_Second = 1'000'000;
    const EventLoop::Time rest{Room_In(line_.queue.front()) * Microseconds_A_Second /
                               line_.Format().average_bytes_per_second};
    return served_ + std::max(rest, Shortest_Look);
  }
  if (closed_) return *closed_ + Stream_Lingers;
  return std::nullopt;
}

void WaveInput::Serve(EventLoop::Time now) {
  served_ = now;
  if (Is_Recording()) {
    Take_Sound();
  } else {
    stream_.Drop();
  }
  if (closed_ && now >= *closed_ + Stream_Lingers) Close_Stream();
}

void WaveInput::Close_Stream() {
  closed_.reset();
  stream_.Close();
}

void WaveInput::Take_Sound() {
  while (!line_.queue.empty()) {
    WaveLine::Queued& queued = line_.queue.front();
    WaveHeader& header = *queued.header;
    std::array<std::uint8_t, 4096> taken;
    const std::int64_t wanted = std::min<std::int64_t>(Room_In(queued), taken.size());
    const std::size_t got = stream_.Take(taken.data(), static_cast<std::size_t>(wanted));
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

}  // namespace quillspeech::windows
