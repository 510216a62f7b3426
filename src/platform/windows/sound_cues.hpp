// Sound cues by the system's own player.
#pragma once

#include <chrono>
#include <string>

#include "platform/sound_cues.hpp"
#include "platform/windows/text.hpp"

namespace quillspeech::windows {

class SoundCues final : public quillspeech::SoundCues {
 public:
  SoundCues() = default;
  ~SoundCues() override;
  SoundCues(const SoundCues&) = delete;
  SoundCues& operator=(const SoundCues&) = delete;

  // The name is in Windows-1252. One that can be no file's does nothing: an empty one, or one with
  // a NUL.
  void Play(const std::string& name, CueMode mode) override {
    Play(name, mode, NameEncoding::Windows1252);
  }
  void Play(const std::string& name, CueMode mode, NameEncoding encoding);
  void Purge() override;
  // By the length that the file tells of itself: the player does not tell. A loop does until it is
  // purged.
  bool Is_Sounding() const { return Clock::now() < ends_; }

 private:
  using Clock = std::chrono::steady_clock;

  Clock::time_point ends_ = Clock::time_point::min();
};

}  // namespace quillspeech::windows
