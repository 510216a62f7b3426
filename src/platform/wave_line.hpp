// A line of a wave device, whatever is behind it: its open handle and its queue of headers.
#pragma once

#include <cstdint>
#include <deque>

#include "platform/event_loop.hpp"
#include "platform/wave_output.hpp"

namespace quillspeech {

class WaveLine {
 public:
  struct Queued {
    WaveHeader* header = nullptr;
    std::int64_t bytes = 0;   // recorded so far
    EventLoop::Time ends{0};  // of playing
  };

  // Handles count up from the one behind `handle`.
  explicit WaveLine(WaveHandle handle) : last_handle_(handle) {}

  // Which formats there are is for the device to say; one without a byte rate is none.
  WaveResult Open(WaveHandle& handle, const WaveFormat& format);
  WaveResult Check(WaveHandle handle) const;
  WaveResult Prepare(WaveHandle handle, WaveHeader& header) const;
  // Puts the header behind those that wait; it is no longer done.
  WaveResult Add(WaveHandle handle, WaveHeader& header);
  WaveResult Unprepare(WaveHandle handle, WaveHeader& header) const;
  // Refused while headers wait.
  WaveResult Close(WaveHandle handle);
  // Closes it all the same; the headers that wait are let go as they stand.
  WaveResult Close_And_Let_Go(WaveHandle handle);

  // Takes the first header from the queue, done.
  void Give_Back();

  const WaveFormat& Format() const { return format_; }

  std::deque<Queued> queue;

 private:
  bool Is_Queued(const WaveHeader& header) const;

  WaveHandle last_handle_;
  WaveHandle open_ = 0;
  WaveFormat format_;
};

}  // namespace quillspeech
