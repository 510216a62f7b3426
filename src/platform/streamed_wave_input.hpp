// Recording from a device that runs as a stream.
#pragma once

#include <memory>
#include <optional>

#include "platform/recording_stream.hpp"
#include "platform/timed_loop.hpp"
#include "platform/wave_input.hpp"
#include "platform/wave_line.hpp"

namespace quillspeech {

// What has come is copied into the headers when the loop serves it and when it is stopped, so
// nothing is written into a header's buffer between yields. A capture opens and closes its device
// every few seconds, and the first sound of one that was just opened may take longer than a word;
// so the stream runs on for three seconds after it was closed, and what it brings is dropped.
class StreamedWaveInput : public WaveInput, public EventSource {
 public:
  StreamedWaveInput(TimedLoop& loop, std::unique_ptr<RecordingStream> stream);
  ~StreamedWaveInput() override;
  StreamedWaveInput(const StreamedWaveInput&) = delete;
  StreamedWaveInput& operator=(const StreamedWaveInput&) = delete;

  WaveResult Get_Device_Capabilities(int device) override;
  WaveResult Open(WaveHandle& handle, const WaveFormat& format) override;
  WaveResult Prepare_Header(WaveHandle handle, WaveHeader& header) override;
  WaveResult Add_Buffer(WaveHandle handle, WaveHeader& header) override;
  WaveResult Start(WaveHandle handle) override;
  WaveResult Stop(WaveHandle handle) override;
  WaveResult Reset(WaveHandle handle) override;
  WaveResult Unprepare_Header(WaveHandle handle, WaveHeader& header) override;
  WaveResult Close(WaveHandle handle) override;

  // Ends at once what runs on behind a closed line.
  void Close_Stream();

  std::optional<EventLoop::Time> Next_Due() const override;
  void Serve(EventLoop::Time now) override;

 private:
  bool Is_Recording() const { return is_started_ && !line_.queue.empty(); }
  void Take_Sound();

  TimedLoop& loop_;
  std::unique_ptr<RecordingStream> stream_;
  WaveLine line_{0};
  bool is_started_ = false;
  EventLoop::Time served_{0};
  std::optional<EventLoop::Time> closed_;  // when the line was closed over a stream that runs on
};

}  // namespace quillspeech
