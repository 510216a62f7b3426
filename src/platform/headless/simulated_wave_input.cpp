#include "platform/headless/simulated_wave_input.hpp"

#include <algorithm>

namespace quillspeech::headless {

namespace {

constexpr std::int64_t Microseconds_A_Second = 1'000'000;

// Bytes of the buffer that are still to come, its length being what the header says now.
std::int64_t Room_In(const WaveLine::Queued& queued) {
  return std::max<std::int64_t>(queued.header->buffer_length - queued.bytes, 0);
}

}  // namespace

WaveResult SimulatedWaveInput::Get_Device_Capabilities(int device) {
  if (const auto answer = calls_.Call("wave_in_get_dev_caps")) return *answer;
  constexpr int Only_Device = 0;
  return calls_.present && device == Only_Device ? Wave_Ok : Wave_Bad_Device;
}

WaveResult SimulatedWaveInput::Open(WaveHandle& handle, const WaveFormat& format) {
  if (const auto answer = calls_.Call("wave_in_open")) return *answer;
  if (!calls_.present) return Wave_Bad_Device;
  const bool is_mono_of_8_bits = format.channels == 1 && format.bits_per_sample == 8;
  if (!is_mono_of_8_bits || !Is_Common_Format(format)) return Wave_Bad_Format;
  return line_.Open(handle, format);
}

WaveResult SimulatedWaveInput::Prepare_Header(WaveHandle handle, WaveHeader& header) {
  if (const auto answer = calls_.Call("wave_in_prepare_header")) return *answer;
  return line_.Prepare(handle, header);
}

WaveResult SimulatedWaveInput::Add_Buffer(WaveHandle handle, WaveHeader& header) {
  if (const auto answer = calls_.Call("wave_in_add_buffer")) return *answer;
  if (const WaveResult wrong = line_.Add(handle, header)) return wrong;
  header.bytes_recorded = 0;
  // What was heard while nothing was queued is lost.
  if (is_started_ && line_.queue.size() == 1) heard_ = Bytes_Due(loop_.Now());
  return Wave_Ok;
}

WaveResult SimulatedWaveInput::Start(WaveHandle handle) {
  if (const auto answer = calls_.Call("wave_in_start")) return *answer;
  if (const WaveResult wrong = line_.Check(handle)) return wrong;
  if (is_started_) return Wave_Ok;
  is_started_ = true;
  recording_ = {loop_.Now(), line_.Format().samples_per_second};
  heard_ = 0;
  return Wave_Ok;
}

WaveResult SimulatedWaveInput::Stop(WaveHandle handle) {
  if (const auto answer = calls_.Call("wave_in_stop")) return *answer;
  if (const WaveResult wrong = line_.Check(handle)) return wrong;
  is_started_ = false;
  return Wave_Ok;
}

WaveResult SimulatedWaveInput::Reset(WaveHandle handle) {
  if (const auto answer = calls_.Call("wave_in_reset")) return *answer;
  if (const WaveResult wrong = line_.Check(handle)) return wrong;
  is_started_ = false;
  while (!line_.queue.empty()) line_.Give_Back();
  return Wave_Ok;
}

WaveResult SimulatedWaveInput::Unprepare_Header(WaveHandle handle, WaveHeader& header) {
  if (const auto answer = calls_.Call("wave_in_unprepare_header")) return *answer;
  return line_.Unprepare(handle, header);
}

WaveResult SimulatedWaveInput::Close(WaveHandle handle) {
  if (const auto answer = calls_.Call("wave_in_close")) return *answer;
  if (const WaveResult wrong = line_.Close(handle)) return wrong;
  is_started_ = false;
  return Wave_Ok;
}

// A byte is due when the stretch of time that it stands for has passed.
std::int64_t SimulatedWaveInput::Bytes_Due(EventLoop::Time now) const {
  return (now - recording_.start).count() * recording_.rate / Microseconds_A_Second;
}

std::optional<EventLoop::Time> SimulatedWaveInput::Next_Due() const {
  if (!is_started_ || line_.queue.empty()) return std::nullopt;
  const std::int64_t scaled = (heard_ + Room_In(line_.queue.front())) * Microseconds_A_Second;
  return recording_.start + EventLoop::Time((scaled + recording_.rate - 1) / recording_.rate);
}

// Puts up to that many bytes into the first buffer; gives how many it took.
std::int64_t SimulatedWaveInput::Fill_First(std::int64_t most) {
  WaveLine::Queued& queued = line_.queue.front();
  WaveHeader& header = *queued.header;
  const std::int64_t count = std::min(most, Room_In(queued));
  if (header.data) microphone.Record(recording_, heard_, header.data + queued.bytes, count);
  queued.bytes += count;
  header.bytes_recorded =
      static_cast<std::uint32_t>(std::min<std::int64_t>(queued.bytes, header.buffer_length));
  if (Room_In(queued) == 0) line_.Give_Back();
  return count;
}

void SimulatedWaveInput::Serve(EventLoop::Time now) {
  if (is_started_) {
    const std::int64_t due = Bytes_Due(now);
    while (!line_.queue.empty()) {
      const std::size_t waiting = line_.queue.size();
      heard_ += Fill_First(due - heard_);
      if (line_.queue.size() == waiting) break;
    }
    heard_ = due;
  }
  microphone.Forget_Before(now);
}

}  // namespace quillspeech::headless
