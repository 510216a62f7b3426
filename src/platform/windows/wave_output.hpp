// Playing on the wave mapper of this system.
#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <vector>

#include "platform/timed_loop.hpp"
#include "platform/wave_line.hpp"
#include "platform/wave_output.hpp"
#include "platform/windows/event_loop.hpp"
#include "platform/windows/multimedia.hpp"

namespace quillspeech::windows {

// A header's sound is copied when it is written, and the header is done when the loop finds that
// the device has given the copy back.
class WaveOutput final : public quillspeech::WaveOutput, public EventSource {
 public:
  explicit WaveOutput(EventLoop& loop);
  ~WaveOutput() override;

  // Whether the wave mapper says that it could.
  bool Can_Play(const WaveFormat& format) const override;
  WaveResult Open(WaveHandle& handle, const WaveFormat& format) override;
  WaveResult Prepare_Header(WaveHandle handle, WaveHeader& header) override;
  WaveResult Write(WaveHandle handle, WaveHeader& header) override;
  WaveResult Unprepare_Header(WaveHandle handle, WaveHeader& header) override;
  WaveResult Close(WaveHandle handle) override;

  // Ends what sounds: its headers are done at the next yield.
  void Cut();

  std::optional<EventLoop::Time> Next_Due() const override;
  void Serve(EventLoop::Time now) override;

 private:
  struct Piece {
    WAVEHDR header{};
    std::vector<std::uint8_t> bytes;
  };

  WaveResult Play(const WaveHeader& header);
  bool Is_First_Done() const;
  void Drop_First();
  void Close_Device();

  EventLoop& loop_;
  HWAVEOUT device_ = nullptr;
  WaveLine line_{0};
  std::deque<std::unique_ptr<Piece>> pieces_;  // one for each header of the line's queue
  EventLoop::Time served_{0};
};

}  // namespace quillspeech::windows
