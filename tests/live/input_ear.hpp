// What an input hears, for tests of real devices.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <memory>
#include <utility>

#include "platform/event_loop.hpp"
#include "platform/wave_input.hpp"

namespace quillspeech::tests {

using namespace std::chrono_literals;

inline constexpr WaveFormat Mono_22050{1, 1, 22'050, 22'050, 1, 8};
inline constexpr WaveFormat Mono_11025{1, 1, 11'025, 11'025, 1, 8};

// Lets the loop run until it is so; false when it was not in time.
inline bool Await(EventLoop& events, const std::function<bool()>& is_so, EventLoop::Time patience) {
  const auto look = events.Make_Timer(5ms, [] {});
  look->Enable(true);
  const EventLoop::Time latest = events.Now() + patience;
  while (!is_so()) {
    if (events.Now() > latest) return false;
    events.Wait_For_Events();
  }
  return true;
}

// Follows what an input hears, in blocks of 50 ms.
class InputEar {
 public:
  explicit InputEar(std::unique_ptr<WaveInput> input) : input_(std::move(input)) {
    EXPECT_EQ(input_->Open(handle_, Mono_22050), Wave_Ok);
    for (Block& block : blocks_) {
      block.header.data = block.bytes.data();
      block.header.buffer_length = static_cast<std::uint32_t>(block.bytes.size());
      EXPECT_EQ(input_->Prepare_Header(handle_, block.header), Wave_Ok);
      EXPECT_EQ(input_->Add_Buffer(handle_, block.header), Wave_Ok);
    }
    EXPECT_EQ(input_->Start(handle_), Wave_Ok);
  }
  ~InputEar() {
    input_->Reset(handle_);
    for (Block& block : blocks_) input_->Unprepare_Header(handle_, block.header);
    input_->Close(handle_);
  }
  InputEar(const InputEar&) = delete;
  InputEar& operator=(const InputEar&) = delete;

  // Takes in what came. Loud is a mean distance from silence of 10 and more.
  void Listen() {
    for (; blocks_[next_].header.flags & Header_Done; next_ = (next_ + 1) % blocks_.size()) {
      Hear(blocks_[next_].bytes);
      input_->Add_Buffer(handle_, blocks_[next_].header);
    }
  }
  int Blocks() const { return blocks_heard_; }
  int Loud() const { return loud_; }                // blocks
  int Silent_Since() const { return silent_run_; }  // blocks since the last loud one
  int Crossings() const {
    return crossings_;
  }  // of the silence, in the last block between loud ones

 private:
  struct Block {
    WaveHeader header;
    std::array<std::uint8_t, 1'102> bytes{};
  };

  void Hear(const std::array<std::uint8_t, 1'102>& bytes) {
    constexpr int Silence_Value = 128;
    constexpr int Loud_Mean = 10;
    int sum = 0;
    int crossings = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      sum += std::abs(bytes[i] - Silence_Value);
      if (i > 0) crossings += (bytes[i] >= Silence_Value) != (bytes[i - 1] >= Silence_Value);
    }
    ++blocks_heard_;
    const bool is_loud = sum >= Loud_Mean * static_cast<int>(bytes.size());
    silent_run_ = is_loud ? 0 : silent_run_ + 1;
    loud_run_ = is_loud ? loud_run_ + 1 : 0;
    if (!is_loud) return;
    ++loud_;
    // The first and the last of a sound may be loud in part only.
    if (loud_run_ >= 3) crossings_ = last_crossings_;
    last_crossings_ = crossings;
  }

  std::unique_ptr<WaveInput> input_;
  WaveHandle handle_ = 0;
  std::array<Block, 40> blocks_;
  std::size_t next_ = 0;
  int blocks_heard_ = 0;
  int loud_ = 0;
  int silent_run_ = 0;
  int loud_run_ = 0;
  int last_crossings_ = 0;
  int crossings_ = 0;
};

}  // namespace quillspeech::tests
