#include "tests/support/sample_builder.hpp"

#include <algorithm>

namespace quillspeech::tests {

Sound Buzz(Bytes length, Amplitude amplitude) {
  Sound sound = Silence(length);
  for (std::size_t i = 0; i < sound.size(); ++i) {
    const bool above = i / 25 % 2 == 0;
    sound[i] = static_cast<std::uint8_t>(above ? 128 + amplitude.value : 128 - amplitude.value);
  }
  return sound;
}

Sound Words(std::initializer_list<std::int64_t> lengths, Bytes pause) {
  Sound sound = Silence(pause);
  for (const std::int64_t length : lengths) {
    sound = sound + Buzz(Bytes(length + 50)) + Silence(pause);
  }
  return sound + Silence(Bytes(1));
}

namespace {

void Put(Session& session, const Sound& sound, std::int64_t unreached) {
  const auto length = static_cast<std::int64_t>(sound.size());
  auto& store = session.sample.Speech_Sample_Bytes;
  store.Clear();
  store.Resize(std::max<std::int64_t>(length + unreached - 1, 0));
  std::copy(sound.begin(), sound.end(), store.Write_Range(0, length - 1));
  session.sample.Samples_Per_Capture = length;
  session.sample.Wave_Header_Buffer_Length = length + unreached;
}

}  // namespace

void Put_File(Session& session, const Sound& sound) { Put(session, sound, 0); }

void Put_Capture(Session& session, const Sound& sound) {
  Put(session, sound, session.settings.Digital_Signal_Processing_Level);
}

}  // namespace quillspeech::tests
