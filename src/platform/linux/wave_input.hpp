// Recording from a device of this system.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/linux/input_stream.hpp"
#include "platform/timed_loop.hpp"
#include "platform/wave_input.hpp"
#include "platform/wave_line.hpp"

namespace quillspeech::linux {

// A capture opens and closes its device every few seconds. To open one here may take longer than a
// word, so the stream runs on for a while after it was closed, and what it brings is dropped.
class WaveInput final : public quillspeech::WaveInput, public EventSource {
 public:
  // `device` as PortAudio::Find_Input takes it.
  WaveInput(TimedLoop& loop, std::shared_ptr<const PortAudio> audio, std::string device);
  ~WaveInput() override;

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

 private:
  bool Is_Recording() const { return is_started_ && !line_.queue.empty(); }
  void Take_Sound();

  TimedLoop& loop_;
  std::shared_ptr<const PortAudio> audio_;
  std::string device_;
  InputStream stream_;
  WaveLine line_{0};
  bool is_started_ = false;
  EventLoop::Time served_{0};
  std::optional<EventLoop::Time> closed_;  // when the line was closed over a stream that runs on
};

}  // namespace quillspeech::linux
