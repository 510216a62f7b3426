// Recording from a device of this system.
#pragma once

#include <optional>
#include <string>

#include "platform/timed_loop.hpp"
#include "platform/wave_input.hpp"
#include "platform/wave_line.hpp"
#include "platform/windows/event_loop.hpp"
#include "platform/windows/input_stream.hpp"

namespace quillspeech::windows {

// The device fills buffers of its own, and what has come is copied into the headers when the loop
// serves it. So nothing is written into a header's buffer between yields. A capture opens and
// closes its device every few seconds, and the first sound of one that was just opened may take
// longer than a word; so the stream runs on for a while after it was closed, and what it brings is
// dropped.
class WaveInput final : public quillspeech::WaveInput, public EventSource {
 public:
  // Records from the input of that name or number (Find_Input), or from the wave mapper.
  explicit WaveInput(EventLoop& loop, std::string device = {});
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

  // Ends at once what runs on behind a closed line.
  void Close_Stream();

  std::optional<EventLoop::Time> Next_Due() const override;
  void Serve(EventLoop::Time now) override;

 private:
  bool Is_Recording() const { return is_started_ && !line_.queue.empty(); }
  std::optional<UINT> Number() const;  // nothing when the device is not there
  void Take_Sound();

  EventLoop& loop_;
  std::string device_;
  InputStream stream_;
  WaveLine line_{0};
  bool is_started_ = false;
  EventLoop::Time served_{0};
  std::optional<EventLoop::Time> closed_;  // when the line was closed over a stream that runs on
};

}  // namespace quillspeech::windows
