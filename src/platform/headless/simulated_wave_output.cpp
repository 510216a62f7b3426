#include "platform/headless/simulated_wave_output.hpp"

#include <utility>

namespace quillspeech::headless {

WaveResult SimulatedWaveOutput::Open(WaveHandle& handle, const WaveFormat& format) {
  if (const auto answer = calls_.Call("wave_out_open")) return *answer;
  if (!calls_.present) return Wave_Bad_Device;
  return Is_Common_Format(format) ? line_.Open(handle, format) : Wave_Bad_Format;
}

WaveResult SimulatedWaveOutput::Prepare_Header(WaveHandle handle, WaveHeader& header) {
  if (const auto answer = calls_.Call("wave_out_prepare_header")) return *answer;
  return line_.Prepare(handle, header);
}

WaveResult SimulatedWaveOutput::Write(WaveHandle handle, WaveHeader& header) {
  if (const auto answer = calls_.Call("wave_out_write")) return *answer;
  const auto begins = line_.queue.empty() ? loop_.Now() : line_.queue.back().ends;
  if (const WaveResult wrong = line_.Add(handle, header)) return wrong;
  constexpr std::int64_t Microseconds_A_Second = 1'000'000;
  const std::int64_t rate = line_.Format().average_bytes_per_second;
  const std::int64_t scaled = header.buffer_length * Microseconds_A_Second;
  line_.queue.back().ends = begins + EventLoop::Time((scaled + rate - 1) / rate);
  if (keep_played) {
    Played sound{{}, line_.Format(), begins};
    if (header.data) sound.bytes.assign(header.data, header.data + header.buffer_length);
    played.push_back(std::move(sound));
  }
  return Wave_Ok;
}

WaveResult SimulatedWaveOutput::Unprepare_Header(WaveHandle handle, WaveHeader& header) {
  if (const auto answer = calls_.Call("wave_out_unprepare_header")) return *answer;
  return line_.Unprepare(handle, header);
}

WaveResult SimulatedWaveOutput::Close(WaveHandle handle) {
  if (const auto answer = calls_.Call("wave_out_close")) return *answer;
  return line_.Close_And_Let_Go(handle);
}

std::optional<EventLoop::Time> SimulatedWaveOutput::Next_Due() const {
  if (line_.queue.empty()) return std::nullopt;
  return line_.queue.front().ends;
}

void SimulatedWaveOutput::Serve(EventLoop::Time now) {
  while (!line_.queue.empty() && line_.queue.front().ends <= now) line_.Give_Back();
}

}  // namespace quillspeech::headless
