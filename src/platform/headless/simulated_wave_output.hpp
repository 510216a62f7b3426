// Playing on a simulated sound card: nothing is heard, but it takes its time and is noted.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/headless/card_calls.hpp"
#include "platform/timed_loop.hpp"
#include "platform/wave_line.hpp"
#include "platform/wave_output.hpp"

namespace quillspeech::headless {

struct Played {
  std::vector<std::uint8_t> bytes;  // none when the header had no data
  WaveFormat format;
  EventLoop::Time at{0};  // when it began to sound
};

// A header is done when all that was written before it, and then its own bytes, have been played.
class SimulatedWaveOutput final : public WaveOutput, public EventSource {
 public:
  SimulatedWaveOutput(const TimedLoop& loop, CardCalls& calls) : loop_(loop), calls_(calls) {}

  bool Can_Play(const WaveFormat& format) const override {
    return calls_.present && Is_Common_Format(format);
  }
  WaveResult Open(WaveHandle& handle, const WaveFormat& format) override;
  WaveResult Prepare_Header(WaveHandle handle, WaveHeader& header) override;
  WaveResult Write(WaveHandle handle, WaveHeader& header) override;
  WaveResult Unprepare_Header(WaveHandle handle, WaveHeader& header) override;
  WaveResult Close(WaveHandle handle) override;

  std::optional<EventLoop::Time> Next_Due() const override;
  void Serve(EventLoop::Time now) override;

  std::vector<Played> played;
  bool keep_played = true;

 private:
  const TimedLoop& loop_;
  CardCalls& calls_;
  WaveLine line_{0x2000};
};

}  // namespace quillspeech::headless
