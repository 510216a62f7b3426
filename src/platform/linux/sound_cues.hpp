// Sound cues on the system's own output device.
#pragma once

#include <memory>

#include "platform/linux/output_stream.hpp"
#include "platform/sound_cues.hpp"

namespace quillspeech::linux {

class SoundCues final : public quillspeech::SoundCues {
 public:
  explicit SoundCues(std::shared_ptr<const PortAudio> audio) : audio_(std::move(audio)) {}

  void Play(const std::string& name, CueMode mode) override;
  void Purge() override { stream_.Close(); }
  // A loop does until it is purged.
  bool Is_Sounding() const { return !stream_.Is_Finished(); }

 private:
  std::shared_ptr<const PortAudio> audio_;
  OutputStream stream_;
};

}  // namespace quillspeech::linux
