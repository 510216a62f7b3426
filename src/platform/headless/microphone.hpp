// What a simulated microphone hears: silence, with clips mixed in.
#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <vector>

#include "platform/event_loop.hpp"

namespace quillspeech::headless {

class Microphone {
 public:
  // A recording of 8-bit mono sound: its byte n stands for the moment start + n / rate.
  struct Recording {
    EventLoop::Time start{0};
    std::uint32_t rate = 0;  // bytes a second, above 0
  };

  // The clip's first byte is heard at that moment. One of no length or rate is not heard.
  void Play(std::vector<std::uint8_t> mono_8_bit, std::uint32_t rate, EventLoop::Time at);

  // Writes `count` bytes of the recording from byte `first` on. A clip of the recording's rate
  // arrives byte for byte, another is resampled along straight lines; several are added up.
  void Record(const Recording& recording, std::int64_t first, std::uint8_t* bytes,
              std::int64_t count) const;

  // Lets go of clips that ended well before that moment.
  void Forget_Before(EventLoop::Time moment);
  // How many it still holds.
  std::size_t Clip_Count() const { return clips_.size(); }

 private:
  struct Clip {
    std::vector<std::uint8_t> bytes;
    std::uint32_t rate;
    EventLoop::Time at;
  };
  class Heard;

  std::list<Clip> clips_;
};

}  // namespace quillspeech::headless
