// The port for sound cues: WAV files played by name.
#pragma once

#include <string>

namespace quillspeech {

enum class CueMode { Once, Loop };

class SoundCues {
 public:
  virtual ~SoundCues() = default;

  // Starts the file and returns; a new cue cuts the old. A file that cannot be played is silence.
  virtual void Play(const std::string& name, CueMode mode) = 0;
  // Ends whatever cue sounds.
  virtual void Purge() = 0;
};

}  // namespace quillspeech
