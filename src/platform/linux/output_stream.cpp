#include "platform/linux/output_stream.hpp"

#include <portaudio.h>

#include <utility>

#include "platform/linux/port_audio_result.hpp"

namespace quillspeech::linux {

namespace {

int Want(const void*, void* output, unsigned long count, const PaStreamCallbackTimeInfo*,
         PaStreamCallbackFlags, void* feed) {
  const bool more = static_cast<SoundFeed*>(feed)->Fill(static_cast<std::uint8_t*>(output), count);
  return more ? paContinue : paComplete;
}

}  // namespace

WaveResult OutputStream::Open(const SoundDevice& device, const WaveFormat& format) {
  constexpr double Latency_In_Seconds = 0.1;
  Close();
  PaStreamParameters output{};
  output.device = device.index;
  output.channelCount = format.channels;
  output.sampleFormat = format.bits_per_sample == 8 ? paUInt8 : paInt16;
  output.suggestedLatency = Latency_In_Seconds;
  format_ = format;
  PaStream* stream = nullptr;
  const PaError error = Pa_OpenStream(&stream, nullptr, &output, format.samples_per_second,
                                      paFramesPerBufferUnspecified, paNoFlag, Want, &feed_);
  if (error == paNoError) stream_ = stream;
  return Result_Of(error);
}

WaveResult OutputStream::Play(std::vector<std::uint8_t> bytes, bool looped) {
  if (!stream_) return Wave_Bad_Handle;
  Pa_AbortStream(stream_);
  feed_.Begin(format_, std::move(bytes), looped);
  return Result_Of(Pa_StartStream(stream_));
}

bool OutputStream::Is_Finished() const { return !stream_ || Pa_IsStreamActive(stream_) != 1; }

void OutputStream::Close() {
  if (!stream_) return;
  Pa_AbortStream(stream_);
  Pa_CloseStream(stream_);
  stream_ = nullptr;
}

}  // namespace quillspeech::linux
