#include "platform/linux/input_stream.hpp"

#include <portaudio.h>

#include <algorithm>

#include "platform/linux/port_audio_result.hpp"

namespace quillspeech::linux {

struct InputStreamCallback {
  static int Come(const void* input, void*, unsigned long count, const PaStreamCallbackTimeInfo*,
                  PaStreamCallbackFlags, void* stream) {
    if (input)
      static_cast<InputStream*>(stream)->Put(static_cast<const std::uint8_t*>(input), count);
    return paContinue;
  }
};

WaveResult InputStream::Open(const SoundDevice& device, std::uint32_t rate) {
  constexpr std::size_t Seconds_Kept = 10;
  constexpr double Latency_In_Seconds = 0.03;
  Close();
  ring_.assign(rate * Seconds_Kept, 0);
  put_ = taken_ = 0;
  rate_ = rate;
  PaStreamParameters input{};
  input.device = device.index;
  input.channelCount = 1;
  input.sampleFormat = paUInt8;
  input.suggestedLatency = Latency_In_Seconds;
  PaStream* stream = nullptr;
  if (const PaError error =
          Pa_OpenStream(&stream, &input, nullptr, rate, paFramesPerBufferUnspecified, paNoFlag,
                        InputStreamCallback::Come, this)) {
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

void InputStream::Put(const std::uint8_t* bytes, std::size_t count) {
  const std::size_t put = put_.load(std::memory_order_relaxed);
  const std::size_t room = ring_.size() - (put - taken_.load(std::memory_order_acquire));
  count = std::min(count, room);
  const std::size_t from = put % ring_.size();
  const std::size_t straight = std::min(count, ring_.size() - from);
  std::copy_n(bytes, straight, ring_.data() + from);
  std::copy_n(bytes + straight, count - straight, ring_.data());
  put_.store(put + count, std::memory_order_release);
}

std::size_t InputStream::Take(std::uint8_t* bytes, std::size_t most) {
  if (ring_.empty()) return 0;
  const std::size_t taken = taken_.load(std::memory_order_relaxed);
  const std::size_t count = std::min(most, put_.load(std::memory_order_acquire) - taken);
  const std::size_t from = taken % ring_.size();
  const std::size_t straight = std::min(count, ring_.size() - from);
  std::copy_n(ring_.data() + from, straight, bytes);
  std::copy_n(ring_.data(), count - straight, bytes + straight);
  taken_.store(taken + count, std::memory_order_release);
  return count;
}

void InputStream::Drop() { taken_.store(put_.load(std::memory_order_acquire)); }

}  // namespace quillspeech::linux
