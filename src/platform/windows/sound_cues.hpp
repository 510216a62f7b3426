// Sound cues by the system's own player.
#pragma once

#include <chrono>
#include <string>

#include "platform/sound_cues.hpp"

namespace quillspeech::windows {

class SoundCues final : public quillspeech::SoundCues {
 public:
  SoundCues() = default;
  ~SoundCues() override;
  SoundCues(const SoundCues&) = delete;
  SoundCues& operator=(const SoundCues&) = delete;

  // In the place of a file that cannot be played the system has a sound of its own. An empty name
  // does nothing.
  void Play(const std::string& name, CueMode mode) override;
  void Purge() override;
  // By the length that the file tells of itself: the player does not tell. A loop does until it is
  // purged.
  bool Is_Sounding() const { return Clock::now() < ends_; }

 private:
  using Clock = std::chrono::steady_clock;

  Clock::time_point ends_ = Clock::time_point::min();
};

}  // namespace quillspeech::windows
