#include "platform/linux/sound_cues.hpp"

#include <sndfile.h>

#include <cstring>
#include <optional>
#include <utility>
#include <vector>

namespace quillspeech::linux {

namespace {

struct Cue {
  WaveFormat format;
  std::vector<std::uint8_t> bytes;
};

struct Closer {
  void operator()(SNDFILE* file) const { sf_close(file); }
};

// The sound as 16 bits; nothing when the file is none, or has more than two channels.
std::optional<Cue> Read_Cue(const std::string& name) {
  constexpr sf_count_t Longest_Frames = sf_count_t{192'000} * 600;
  SF_INFO info{};
  const std::unique_ptr<SNDFILE, Closer> file(sf_open(name.c_str(), SFM_READ, &info));
  if (!file || info.channels < 1 || info.channels > 2) return std::nullopt;
  if (info.frames < 1 || info.frames > Longest_Frames) return std::nullopt;
  const auto channels = static_cast<std::uint16_t>(info.channels);
  std::vector<short> samples(static_cast<std::size_t>(info.frames) * channels);
  const sf_count_t got = sf_readf_short(file.get(), samples.data(), info.frames);
  samples.resize(static_cast<std::size_t>(got) * channels);
  Cue cue;
  cue.bytes.resize(samples.size() * sizeof(short));
  if (!samples.empty()) std::memcpy(cue.bytes.data(), samples.data(), cue.bytes.size());
  const auto rate = static_cast<std::uint32_t>(info.samplerate);
  const auto block = static_cast<std::uint16_t>(2 * channels);
  cue.format = {1, channels, rate, rate * block, block, 16};
  return cue;
}

}  // namespace

void SoundCues::Play(const std::string& name, CueMode mode) {
  auto cue = Read_Cue(name);
  if (!cue) return;
  const auto device = audio_->Find_Output({});
  if (!device || stream_.Open(*device, cue->format) != Wave_Ok) return;
  stream_.Play(std::move(cue->bytes), mode == CueMode::Loop);
}

}  // namespace quillspeech::linux
