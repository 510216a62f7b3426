#include "platform/linux/output_stream.hpp"

#include <portaudio.h>

#include <algorithm>
#include <utility>

#include "platform/linux/port_audio_result.hpp"

namespace quillspeech::linux {

struct OutputStreamCallback {
  static int Want(const void*, void* output, unsigned long count, const PaStreamCallbackTimeInfo*,
                  PaStreamCallbackFlags, void* user) {
    auto* const stream = static_cast<OutputStream*>(user);
    const bool more =
        stream->Fill(static_cast<std::uint8_t*>(output), count * stream->block_bytes_);
    return more ? paContinue : paComplete;
  }
};

WaveResult OutputStream::Open(const SoundDevice& device, const WaveFormat& format) {
  constexpr double Latency_In_Seconds = 0.1;
  Close();
  PaStreamParameters output{};
  output.device = device.index;
  output.channelCount = format.channels;
  output.sampleFormat = format.bits_per_sample == 8 ? paUInt8 : paInt16;
  output.suggestedLatency = Latency_In_Seconds;
  block_bytes_ = format.block_alignment;
  silence_ = format.bits_per_sample == 8 ? 128 : 0;
  PaStream* stream = nullptr;
  const PaError error =
      Pa_OpenStream(&stream, nullptr, &output, format.samples_per_second,
                    paFramesPerBufferUnspecified, paNoFlag, OutputStreamCallback::Want, this);
  if (error == paNoError) stream_ = stream;
  return Result_Of(error);
}

WaveResult OutputStream::Play(std::vector<std::uint8_t> bytes, bool looped) {
  if (!stream_) return Wave_Bad_Handle;
  Pa_AbortStream(stream_);
  bytes_ = std::move(bytes);
  position_ = 0;
  looped_ = looped && !bytes_.empty();
  return Result_Of(Pa_StartStream(stream_));
}

bool OutputStream::Is_Finished() const { return !stream_ || Pa_IsStreamActive(stream_) != 1; }

void OutputStream::Close() {
  if (!stream_) return;
  Pa_AbortStream(stream_);
  Pa_CloseStream(stream_);
  stream_ = nullptr;
}

bool OutputStream::Fill(std::uint8_t* buffer, std::size_t count) {
  while (count > 0) {
    if (position_ == bytes_.size() && looped_) position_ = 0;
    const std::size_t part = std::min(count, bytes_.size() - position_);
    if (part == 0) break;
    std::copy_n(bytes_.data() + position_, part, buffer);
    position_ += part;
    buffer += part;
    count -= part;
  }
  std::fill_n(buffer, count, silence_);
  return looped_ || position_ < bytes_.size();
}

}  // namespace quillspeech::linux
