#include "platform/linux/input_stream.hpp"

#include <portaudio.h>

#include "platform/linux/port_audio_result.hpp"

namespace quillspeech::linux {

namespace {

int Come(const void* input, void*, unsigned long count, const PaStreamCallbackTimeInfo*,
         PaStreamCallbackFlags, void* ring) {
  if (input) static_cast<SoundRing*>(ring)->Put(static_cast<const std::uint8_t*>(input), count);
  return paContinue;
}

}  // namespace

WaveResult InputStream::Open(const SoundDevice& device, std::uint32_t rate) {
  constexpr std::size_t Seconds_Kept = 10;
  constexpr double Latency_In_Seconds = 0.03;
  Close();
  ring_.Make(rate * Seconds_Kept);
  rate_ = rate;
  PaStreamParameters input{};
  input.device = device.index;
  input.channelCount = 1;
  input.sampleFormat = paUInt8;
  input.suggestedLatency = Latency_In_Seconds;
  PaStream* stream = nullptr;
  if (const PaError error =
          Pa_OpenStream(&stream, &input, nullptr, rate, paFramesPerBufferUnspecified, paDitherOff,
                        Come, &ring_)) {
    return Result_Of(error);
  }
  stream_ = stream;
  const PaError error = Pa_StartStream(stream);
  if (error) Close();
  return Result_Of(error);
}

void InputStream::Close() {
  if (!stream_) return;
  Pa_AbortStream(stream_);
  Pa_CloseStream(stream_);
  stream_ = nullptr;
}

bool InputStream::Is_Running() const { return stream_ && Pa_IsStreamActive(stream_) == 1; }

}  // namespace quillspeech::linux
