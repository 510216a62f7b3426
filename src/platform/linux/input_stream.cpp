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

WaveResult InputStream::Get_Device_Capabilities(int) {
  return audio_->Find_Input(name_) ? Wave_Ok : Wave_Bad_Device;
}

WaveResult InputStream::Open(const WaveFormat& format) {
  if (format.channels != 1 || format.bits_per_sample != 8) return Wave_Bad_Format;
  const auto device = audio_->Find_Input(name_);
  return device ? Open_Device(*device, format.samples_per_second) : Wave_Bad_Device;
}

WaveResult InputStream::Open_Device(const SoundDevice& device, std::uint32_t rate) {
  constexpr std::size_t Seconds_Kept = 10;
  constexpr double Latency_In_Seconds = 0.03;
  Close_Device();
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
  if (error) Close_Device();
  return Result_Of(error);
}

void InputStream::Close_Device() {
  if (!stream_) return;
  Pa_AbortStream(stream_);
  Pa_CloseStream(stream_);
  stream_ = nullptr;
}

bool InputStream::Is_Running(const WaveFormat& format) const {
  return stream_ && rate_ == format.samples_per_second && Pa_IsStreamActive(stream_) == 1;
}

}  // namespace quillspeech::linux
