// Recording from a simulated microphone, as time goes on the loop.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/headless/card_calls.hpp"
#include "platform/headless/microphone.hpp"
#include "platform/timed_loop.hpp"
#include "platform/wave_input.hpp"
#include "platform/wave_line.hpp"

namespace quillspeech::headless {

// Records 8-bit mono. At each yield the bytes that are due by then are in the buffer; a wait ends
// when it is full.
class SimulatedWaveInput final : public WaveInput, public EventSource {
 public:
  SimulatedWaveInput(const TimedLoop& loop, CardCalls& calls) : loop_(loop), calls_(calls) {}

  WaveResult Get_Device_Capabilities(int device) override;
  WaveResult Open(WaveHandle& handle, const WaveFormat& format) override;
  WaveResult Prepare_Header(WaveHandle handle, WaveHeader& header) override;
  WaveResult Add_Buffer(WaveHandle handle, WaveHeader& header) override;
  WaveResult Start(WaveHandle handle) override;
  WaveResult Stop(WaveHandle handle) override;
  WaveResult Reset(WaveHandle handle) override;
  WaveResult Unprepare_Header(WaveHandle handle, WaveHeader& header) override;
  WaveResult Close(WaveHandle handle) override;

  std::optional<EventLoop::Time> Next_Due() const override;
  void Serve(EventLoop::Time now) override;

  Microphone microphone;

 private:
  std::int64_t Bytes_Due(EventLoop::Time now) const;
  std::int64_t Fill_First(std::int64_t most);

  const TimedLoop& loop_;
  CardCalls& calls_;
  WaveLine line_{0x1000};
  bool is_started_ = false;
  Microphone::Recording recording_;  // since the device was started
  std::int64_t heard_ = 0;           // bytes of it so far, whether somebody wanted them or not
};

}  // namespace quillspeech::headless
