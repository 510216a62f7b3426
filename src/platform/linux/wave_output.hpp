// Playing on a device of this system, which can be taken to play the common formats.
#pragma once

#include <memory>
#include <optional>

#include "platform/linux/output_stream.hpp"
#include "platform/timed_loop.hpp"
#include "platform/wave_line.hpp"
#include "platform/wave_output.hpp"

namespace quillspeech::linux {

class WaveOutput final : public quillspeech::WaveOutput, public EventSource {
 public:
  WaveOutput(TimedLoop& loop, std::shared_ptr<const PortAudio> audio);
  ~WaveOutput() override;

  bool Can_Play(const WaveFormat& format) const override { return Is_Common_Format(format); }
  WaveResult Open(WaveHandle& handle, const WaveFormat& format) override;
  WaveResult Prepare_Header(WaveHandle handle, WaveHeader& header) override;
  WaveResult Write(WaveHandle handle, WaveHeader& header) override;
  WaveResult Unprepare_Header(WaveHandle handle, WaveHeader& header) override;
  WaveResult Close(WaveHandle handle) override;

  std::optional<EventLoop::Time> Next_Due() const override;
  void Serve(EventLoop::Time now) override;

 private:
  WaveResult Play_First();

  TimedLoop& loop_;
  std::shared_ptr<const PortAudio> audio_;
  OutputStream stream_;
  WaveLine line_{0};
  EventLoop::Time served_{0};
};

}  // namespace quillspeech::linux
