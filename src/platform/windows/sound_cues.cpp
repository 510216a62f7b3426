#include "platform/windows/sound_cues.hpp"

#include <array>
#include <cstdint>

#include "base/little_endian.hpp"
#include "platform/windows/multimedia.hpp"
#include "platform/windows/riff_file.hpp"
#include "platform/windows/text.hpp"

namespace quillspeech::windows {

namespace {

using std::chrono::milliseconds;

// How long the sound of a WAV file lasts; 0 when it is none.
milliseconds Length_Of(const std::string& name, NameEncoding encoding) {
  constexpr std::int64_t Byte_Rate_Offset = 8;
  const auto file = RiffFiles(encoding).Open(name);
  const auto riff = file ? file->Descend_To_Form(Four_Characters("WAVE")) : std::nullopt;
  const auto format = riff ? file->Descend_To_Chunk(Four_Characters("fmt "), *riff) : std::nullopt;
  std::array<std::uint8_t, Wave_Format_Bytes> bytes{};
  if (!format || file->Read(bytes.data(), Wave_Format_Bytes) < Wave_Format_Bytes) return {};
  const auto rate = From_Little_Endian<std::uint32_t>(bytes.data() + Byte_Rate_Offset);
  if (rate == 0 || !file->Ascend(*format)) return {};
  const auto data = file->Descend_To_Chunk(Four_Characters("data"), *riff);
  return milliseconds(data ? std::int64_t{data->size} * 1'000 / rate : 0);
}

}  // namespace

SoundCues::~SoundCues() {
  if (Is_Sounding()) Purge();
}

void SoundCues::Play(const std::string& name, CueMode mode, NameEncoding encoding) {
  constexpr milliseconds Way_Through_The_Device{200};
  const auto wide = Wide_Name(name, encoding);
  if (!wide) return;
  const UINT loop = mode == CueMode::Loop ? SND_LOOP : 0;
  ends_ = Clock::time_point::min();
  // Without SND_NODEFAULT the system has a sound of its own for a file that it cannot play.
  if (!::sndPlaySoundW(wide->c_str(), SND_ASYNC | SND_NODEFAULT | loop)) return;
  const milliseconds length = Length_Of(name, encoding);
  if (length.count() == 0) return;
  ends_ = loop != 0 ? Clock::time_point::max() : Clock::now() + length + Way_Through_The_Device;
}

void SoundCues::Purge() {
  ends_ = Clock::time_point::min();
  ::sndPlaySoundW(L"", SND_PURGE);
}

}  // namespace quillspeech::windows
