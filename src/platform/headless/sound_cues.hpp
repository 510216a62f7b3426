// Sound cues that are noted and not heard.
#pragma once

#include <string>
#include <vector>

#include "platform/sound_cues.hpp"

namespace quillspeech::headless {

class SoundCues final : public quillspeech::SoundCues {
 public:
  void Play(const std::string& name, CueMode mode) override {
    calls.push_back((mode == CueMode::Loop ? "loop " : "play ") + name);
  }
  void Purge() override { calls.emplace_back("purge"); }

  std::vector<std::string> calls;  // "play NAME", "loop NAME" or "purge", in order
};

}  // namespace quillspeech::headless
