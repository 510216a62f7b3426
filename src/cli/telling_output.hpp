// A wave output that tells of every sound that the device behind it has taken.
#pragma once

#include <cstdint>
#include <functional>

#include "platform/wave_output.hpp"

namespace quillspeech::cli {

class TellingOutput final : public WaveOutput {
 public:
  using Told = std::function<void(std::int64_t bytes)>;

  // Both outlive it; `told` may be empty, and set later.
  TellingOutput(WaveOutput& device, const Told& told) : device_(device), told_(told) {}

  bool Can_Play(const WaveFormat& format) const override { return device_.Can_Play(format); }
  WaveResult Open(WaveHandle& handle, const WaveFormat& format) override {
    return device_.Open(handle, format);
  }
  WaveResult Prepare_Header(WaveHandle handle, WaveHeader& header) override {
    return device_.Prepare_Header(handle, header);
  }
  WaveResult Write(WaveHandle handle, WaveHeader& header) override {
    const WaveResult result = device_.Write(handle, header);
    if (result == Wave_Ok && told_) told_(header.buffer_length);
    return result;
  }
  WaveResult Unprepare_Header(WaveHandle handle, WaveHeader& header) override {
    return device_.Unprepare_Header(handle, header);
  }
  WaveResult Close(WaveHandle handle) override { return device_.Close(handle); }

 private:
  WaveOutput& device_;
  const Told& told_;
};

}  // namespace quillspeech::cli
