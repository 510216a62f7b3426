// Sound cues that are noted and not heard.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/sound_cues.hpp"

namespace quillspeech::headless {

class SoundCues final : public quillspeech::SoundCues {
 public:
  static constexpr int Flag_Return_At_Once = 1;
  static constexpr int Flag_Loop = 8;
  static constexpr int Flag_Purge = 64;

  void Play(const std::string& name, CueMode mode) override {
    const bool is_loop = mode == CueMode::Loop;
    if (keep_calls) calls.push_back((is_loop ? "loop " : "play ") + name);
    if (At_Call) At_Call(name, is_loop ? Flag_Return_At_Once | Flag_Loop : Flag_Return_At_Once);
  }
  void Purge() override {
    if (keep_calls) calls.emplace_back("purge");
    if (At_Call) At_Call("", Flag_Purge);
  }

  std::vector<std::string> calls;  // "play NAME", "loop NAME" or "purge", in order
  bool keep_calls = true;
  // Told of each call when set: the name and the flags, no name and 64 for the purge.
  std::function<void(const std::string& name, int flags)> At_Call;
};

}  // namespace quillspeech::headless
