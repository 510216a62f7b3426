#include "platform/headless/microphone.hpp"

#include <algorithm>
#include <utility>

namespace quillspeech::headless {

namespace {

constexpr int Silence = 128;
constexpr std::int64_t Microseconds_A_Second = 1'000'000;

// The number of the recording's first byte that does not stand before the moment.
std::int64_t First_Byte_At(const Microphone::Recording& recording, EventLoop::Time moment) {
  const std::int64_t scaled = (moment - recording.start).count() * recording.rate;
  const std::int64_t quotient = scaled / Microseconds_A_Second;
  return quotient + (scaled % Microseconds_A_Second > 0 ? 1 : 0);
}

}  // namespace

// A clip on the grid of a recording.
class Microphone::Heard {
 public:
  Heard(const Clip& clip, const Recording& recording)
      : clip_(clip), rate_(recording.rate), first_(First_Byte_At(recording, clip.at)) {}

  // How far from silence the clip is at that byte of the recording.
  int Distance_At(std::int64_t place) const {
    if (place < first_) return 0;
    const std::int64_t scaled = (place - first_) * clip_.rate;
    const auto index = static_cast<std::size_t>(scaled / rate_);
    if (index >= clip_.bytes.size()) return 0;
    const std::int64_t here = clip_.bytes[index];
    const std::int64_t next = clip_.bytes[std::min(index + 1, clip_.bytes.size() - 1)];
    const std::int64_t rest = scaled % rate_;
    return static_cast<int>((here * (rate_ - rest) + next * rest + rate_ / 2) / rate_) - Silence;
  }

  bool Is_Heard(std::int64_t first, std::int64_t count) const {
    const auto length = static_cast<std::int64_t>(clip_.bytes.size());
    const bool has_ended = first > first_ && (first - first_) * clip_.rate / rate_ >= length;
    return first + count > first_ && !has_ended;
  }

 private:
  const Clip& clip_;
  std::int64_t rate_;
  std::int64_t first_;
};

void Microphone::Play(std::vector<std::uint8_t> mono_8_bit, std::uint32_t rate,
                      EventLoop::Time at) {
  if (rate > 0 && !mono_8_bit.empty()) clips_.push_back({std::move(mono_8_bit), rate, at});
}

void Microphone::Record(const Recording& recording, std::int64_t first, std::uint8_t* bytes,
                        std::int64_t count) const {
  std::vector<Heard> heard;
  for (const Clip& clip : clips_) {
    const Heard one(clip, recording);
    if (one.Is_Heard(first, count)) heard.push_back(one);
  }
  std::fill_n(bytes, count, static_cast<std::uint8_t>(Silence));
  if (heard.empty()) return;
  for (std::int64_t i = 0; i < count; ++i) {
    int sound = Silence;
    for (const Heard& one : heard) sound += one.Distance_At(first + i);
    bytes[i] = static_cast<std::uint8_t>(std::clamp(sound, 0, 255));
  }
}

void Microphone::Forget_Before(EventLoop::Time moment) {
  constexpr EventLoop::Time Margin = std::chrono::seconds(1);  // more than a byte takes
  std::erase_if(clips_, [&](const Clip& clip) {
    const auto length = static_cast<std::int64_t>(clip.bytes.size());
    const EventLoop::Time lasts(length * Microseconds_A_Second / clip.rate);
    return clip.at + lasts + Margin < moment;
  });
}

}  // namespace quillspeech::headless
